// Parsing, querying and line-preserving changes of profile files.
#include "host/win/IniDocument.h"

#include "host/win/WinText.h"

using svwin::EqualNoCase;
using svwin::TrimBlanks;

IniDocument::Line IniDocument::Classify(std::wstring text)
{
    Line line;
    line.text = std::move(text);
    const std::wstring_view t = TrimBlanks(line.text);
    if (t.empty()) {
        line.kind = Kind::Blank;
    } else if (t[0] == L';') {
        line.kind = Kind::Comment;
    } else if (t[0] == L'[') {
        const std::size_t close = t.find(L']');
        line.kind = Kind::Section;
        line.name = TrimBlanks(t.substr(1, close == std::wstring_view::npos ? std::wstring_view::npos : close - 1));
    } else if (const std::size_t eq = t.find(L'='); eq != std::wstring_view::npos && !TrimBlanks(t.substr(0, eq)).empty()) {
        line.kind = Kind::Entry;
        line.name = TrimBlanks(t.substr(0, eq));
        line.value = TrimBlanks(t.substr(eq + 1));
    } else {
        line.kind = Kind::Other;
    }
    return line;
}

IniDocument IniDocument::Parse(std::wstring_view text)
{
    IniDocument doc;
    const std::size_t firstLf = text.find(L'\n');
    if (firstLf != std::wstring_view::npos && firstLf > 0 && text[firstLf - 1] == L'\r') doc.m_strEol = L"\r\n";
    doc.m_bFinalEol = text.empty() || text.back() == L'\n';
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find(L'\n', pos);
        if (end == std::wstring_view::npos) end = text.size();
        std::wstring_view raw = text.substr(pos, end - pos);
        if (!raw.empty() && raw.back() == L'\r') raw.remove_suffix(1);
        doc.m_lines.push_back(Classify(std::wstring(raw)));
        pos = end + 1;
    }
    return doc;
}

std::wstring IniDocument::Serialize() const
{
    std::wstring out;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        out += m_lines[i].text;
        if (i + 1 < m_lines.size() || m_bFinalEol) out += m_strEol;
    }
    return out;
}

int IniDocument::FindSection(std::wstring_view section) const
{
    const std::wstring_view wanted = TrimBlanks(section);
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        if (m_lines[i].kind == Kind::Section && EqualNoCase(m_lines[i].name, wanted)) return static_cast<int>(i);
    return -1;
}

int IniDocument::SectionEnd(int iHeader) const
{
    int i = iHeader + 1;
    while (i < static_cast<int>(m_lines.size()) && m_lines[i].kind != Kind::Section) ++i;
    return i;
}

int IniDocument::LastContentLine(int iHeader) const
{
    int last = iHeader;
    const int end = SectionEnd(iHeader);
    for (int i = iHeader + 1; i < end; ++i)
        if (m_lines[i].kind != Kind::Blank) last = i;
    return last;
}

void IniDocument::InsertLines(int iAt, std::vector<Line> lines)
{
    if (iAt >= static_cast<int>(m_lines.size())) m_bFinalEol = true;
    m_lines.insert(m_lines.begin() + iAt, std::make_move_iterator(lines.begin()), std::make_move_iterator(lines.end()));
}

std::vector<std::wstring> IniDocument::SectionNames() const
{
    std::vector<std::wstring> names;
    for (const Line& line : m_lines) {
        if (line.kind != Kind::Section) continue;
        bool bSeen = false;
        for (const std::wstring& n : names) bSeen = bSeen || EqualNoCase(n, line.name);
        if (!bSeen) names.push_back(line.name);
    }
    return names;
}

bool IniDocument::HasSection(std::wstring_view section) const
{
    return FindSection(section) >= 0;
}

std::vector<std::wstring> IniDocument::KeyNames(std::wstring_view section) const
{
    std::vector<std::wstring> keys;
    const int h = FindSection(section);
    if (h < 0) return keys;
    for (int i = h + 1, end = SectionEnd(h); i < end; ++i) {
        if (m_lines[i].kind != Kind::Entry) continue;
        bool bSeen = false;
        for (const std::wstring& k : keys) bSeen = bSeen || EqualNoCase(k, m_lines[i].name);
        if (!bSeen) keys.push_back(m_lines[i].name);
    }
    return keys;
}

std::vector<std::wstring> IniDocument::EntryLines(std::wstring_view section) const
{
    std::vector<std::wstring> entries;
    const int h = FindSection(section);
    if (h < 0) return entries;
    for (int i = h + 1, end = SectionEnd(h); i < end; ++i)
        if (m_lines[i].kind == Kind::Entry) entries.push_back(m_lines[i].name + L"=" + m_lines[i].value);
    return entries;
}

const std::wstring* IniDocument::FindValue(std::wstring_view section, std::wstring_view key) const
{
    const int h = FindSection(section);
    if (h < 0) return nullptr;
    const std::wstring_view wanted = TrimBlanks(key);
    for (int i = h + 1, end = SectionEnd(h); i < end; ++i)
        if (m_lines[i].kind == Kind::Entry && EqualNoCase(m_lines[i].name, wanted)) return &m_lines[i].value;
    return nullptr;
}

bool IniDocument::SetValue(std::wstring_view section, std::wstring_view key, std::wstring_view value)
{
    // A line break in a value would split the entry.
    std::wstring v(value);
    for (wchar_t& ch : v)
        if (ch == L'\r' || ch == L'\n') ch = L' ';
    const std::wstring k(TrimBlanks(key));
    const int h = FindSection(section);
    if (h < 0) {
        std::vector<Line> add;
        add.push_back(Classify(L"[" + std::wstring(TrimBlanks(section)) + L"]"));
        add.push_back(Classify(k + L"=" + v));
        InsertLines(static_cast<int>(m_lines.size()), std::move(add));
        return true;
    }
    for (int i = h + 1, end = SectionEnd(h); i < end; ++i) {
        Line& line = m_lines[i];
        if (line.kind != Kind::Entry || !EqualNoCase(line.name, k)) continue;
        if (line.value == v) return false;   // keeps the line's own spacing
        line = Classify(line.name + L"=" + v);
        return true;
    }
    std::vector<Line> add;
    add.push_back(Classify(k + L"=" + v));
    InsertLines(LastContentLine(h) + 1, std::move(add));
    return true;
}

bool IniDocument::DeleteKey(std::wstring_view section, std::wstring_view key)
{
    const int h = FindSection(section);
    if (h < 0) return false;
    const std::wstring_view wanted = TrimBlanks(key);
    bool bChanged = false;
    for (int i = SectionEnd(h) - 1; i > h; --i) {
        if (m_lines[i].kind == Kind::Entry && EqualNoCase(m_lines[i].name, wanted)) {
            m_lines.erase(m_lines.begin() + i);
            bChanged = true;
        }
    }
    return bChanged;
}

bool IniDocument::DeleteSection(std::wstring_view section)
{
    bool bChanged = false;
    for (int h = FindSection(section); h >= 0; h = FindSection(section)) {
        m_lines.erase(m_lines.begin() + h, m_lines.begin() + SectionEnd(h));
        bChanged = true;
    }
    return bChanged;
}

bool IniDocument::ReplaceSection(std::wstring_view section, const std::vector<std::wstring>& lines)
{
    std::vector<Line> add;
    for (const std::wstring& text : lines) {
        std::wstring t = text;
        for (wchar_t& ch : t)
            if (ch == L'\r' || ch == L'\n') ch = L' ';
        add.push_back(Classify(std::move(t)));
    }
    int h = FindSection(section);
    if (h < 0) {
        h = static_cast<int>(m_lines.size());
        InsertLines(h, {Classify(L"[" + std::wstring(TrimBlanks(section)) + L"]")});
    } else {
        m_lines.erase(m_lines.begin() + h + 1, m_lines.begin() + LastContentLine(h) + 1);
    }
    InsertLines(h + 1, std::move(add));
    return true;
}
