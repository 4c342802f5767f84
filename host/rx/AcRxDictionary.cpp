// The sorted, non-owning dictionary and its iterator.
#include "host/rx/AcRxDictionary.h"

#include <cwctype>

#include "host/rx/AcRxBoiler.h"

ACRX_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject, 0)

std::wstring AcRxDictionary::lookupKey(const ACHAR* key) const
{
    std::wstring folded = key;
    if (m_ignoreCase) {
        for (wchar_t& c : folded)
            c = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c)));
    }
    return folded;
}

AcRxObject* AcRxDictionary::at(const ACHAR* key) const
{
    if (!key)
        return nullptr;
    auto it = m_entries.find(lookupKey(key));
    return it == m_entries.end() ? nullptr : it->second.object;
}

AcRxObject* AcRxDictionary::atPut(const ACHAR* key, AcRxObject* pObject)
{
    if (!key || !pObject)
        return nullptr;
    auto [it, inserted] = m_entries.try_emplace(lookupKey(key), Entry{key, pObject});
    if (inserted)
        return nullptr;
    // Replacing keeps the spelling the key was first stored with.
    AcRxObject* previous = it->second.object;
    it->second.object = pObject;
    return previous;
}

AcRxObject* AcRxDictionary::remove(const ACHAR* key)
{
    if (!key)
        return nullptr;
    auto it = m_entries.find(lookupKey(key));
    if (it == m_entries.end())
        return nullptr;
    AcRxObject* removed = it->second.object;
    m_entries.erase(it);
    return removed;
}

AcRxDictionaryIterator::AcRxDictionaryIterator(const AcRxDictionary* dictionary)
    : m_dictionary(dictionary)
{
    settle(true);
}

bool AcRxDictionaryIterator::next()
{
    if (!m_done)
        settle(false);
    return !m_done;
}

// Finds the entry after the last one visited by key, so removals in between do no harm.
void AcRxDictionaryIterator::settle(bool first)
{
    m_done = true;
    m_object = nullptr;
    if (!m_dictionary)
        return;
    const auto& entries = m_dictionary->m_entries;
    auto it = first ? entries.begin() : entries.upper_bound(m_lookupKey);
    if (it == entries.end()) {
        m_key.clear();
        return;
    }
    m_done = false;
    m_lookupKey = it->first;
    m_key = it->second.key;
    m_object = it->second.object;
}
