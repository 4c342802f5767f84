// CMap: MFC's keyed collection, the template behind CMapStringToString,
// CMapStringToPtr and CMapStringToOb (see afxcoll.h).
//
// Keys compare exactly (string keys are case-sensitive). GetStartPosition and
// GetNextAssoc visit the entries in ascending key order, so walks are
// repeatable. Removing the entry just returned keeps the walk valid; the
// position of an entry that was removed must not be used again.
#pragma once

#include <map>

#include "host/mfc/CList.h"

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
    using Store = std::map<KEY, VALUE>;
    using Entry = typename Store::value_type;

public:
    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_map.size()); }
    INT_PTR GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return m_map.empty(); }

    BOOL Lookup(ARG_KEY key, VALUE& rValue) const
    {
        const auto it = m_map.find(KEY(key));
        if (it == m_map.end())
            return FALSE;
        rValue = it->second;
        return TRUE;
    }
    // Adds the key with a default value when it is new.
    VALUE& operator[](ARG_KEY key) { return m_map[KEY(key)]; }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { m_map[KEY(key)] = newValue; }
    BOOL RemoveKey(ARG_KEY key) { return m_map.erase(KEY(key)) > 0 ? TRUE : FALSE; }
    void RemoveAll() { m_map.clear(); }

    // Null when the map is empty.
    POSITION GetStartPosition() const { return m_map.empty() ? nullptr : Pos(*m_map.begin()); }
    // Returns the entry at rNextPosition and moves it on (null after the last).
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const
    {
        if (!rNextPosition || rNextPosition == BEFORE_START_POSITION)
            AfxThrowInvalidArgException();
        const Entry& entry = *reinterpret_cast<const Entry*>(rNextPosition);
        rKey = entry.first;
        rValue = entry.second;
        const auto it = m_map.upper_bound(entry.first);
        rNextPosition = it == m_map.end() ? nullptr : Pos(*it);
    }

private:
    static POSITION Pos(const Entry& entry)
    {
        return reinterpret_cast<POSITION>(const_cast<Entry*>(&entry));
    }

    Store m_map;
};
