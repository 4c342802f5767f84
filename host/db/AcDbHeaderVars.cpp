// Header variables: an ordered, case-insensitive name -> tag list store.
#include "host/win/CaseFold.h"
#include "host/db/AcDbHeaderVars.h"


std::wstring AcDbHeaderVars::key(const std::wstring& name)
{
    std::wstring k = name;
    for (auto& c : k)
        c = static_cast<wchar_t>(svwin::ToUpperChar(c));
    return k;
}

const AcDbTagList* AcDbHeaderVars::get(const std::wstring& name) const
{
    const auto it = m_index.find(key(name));
    return it == m_index.end() ? nullptr : &m_entries[it->second].second;
}

void AcDbHeaderVars::set(const std::wstring& name, AcDbTagList tags)
{
    const std::wstring k = key(name);
    const auto it = m_index.find(k);
    if (it != m_index.end()) {
        m_entries[it->second].second = std::move(tags);
        return;
    }
    m_index.emplace(k, m_entries.size());
    m_entries.emplace_back(name, std::move(tags));
}

bool AcDbHeaderVars::remove(const std::wstring& name)
{
    const auto it = m_index.find(key(name));
    if (it == m_index.end())
        return false;
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(it->second));
    m_index.clear();
    for (size_t i = 0; i < m_entries.size(); ++i)
        m_index.emplace(key(m_entries[i].first), i);
    return true;
}

void AcDbHeaderVars::clear()
{
    m_entries.clear();
    m_index.clear();
}

Adesk::Int64 AcDbHeaderVars::getInt(const std::wstring& name, Adesk::Int64 fallback) const
{
    const AcDbTagList* t = get(name);
    return (t && !t->empty()) ? t->front().asInt(fallback) : fallback;
}

double AcDbHeaderVars::getReal(const std::wstring& name, double fallback) const
{
    const AcDbTagList* t = get(name);
    return (t && !t->empty()) ? t->front().asReal(fallback) : fallback;
}

std::wstring AcDbHeaderVars::getText(const std::wstring& name, const std::wstring& fallback) const
{
    const AcDbTagList* t = get(name);
    return (t && !t->empty()) ? t->front().asText(fallback) : fallback;
}

AcGePoint3d AcDbHeaderVars::getPoint(const std::wstring& name, const AcGePoint3d& fallback) const
{
    const AcDbTagList* t = get(name);
    return (t && !t->empty()) ? t->front().asPoint(fallback) : fallback;
}

void AcDbHeaderVars::setInt(const std::wstring& name, short code, Adesk::Int64 value)
{
    set(name, {AcDbTag::integer(code, value)});
}

void AcDbHeaderVars::setReal(const std::wstring& name, short code, double value)
{
    set(name, {AcDbTag::real(code, value)});
}

void AcDbHeaderVars::setText(const std::wstring& name, short code, const std::wstring& value)
{
    set(name, {AcDbTag::text(code, value)});
}

void AcDbHeaderVars::setPoint(const std::wstring& name, short code, const AcGePoint3d& value, bool is2d)
{
    AcDbTag t = AcDbTag::point(code, value);
    t.is2d = is2d;
    set(name, {t});
}
