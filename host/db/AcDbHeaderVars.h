// AcDbHeaderVars: the drawing's header variables by name, in file order, as tag lists.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/db/AcDbTag.h"

// Names carry their '$' ("$TEXTSIZE") and are compared without regard to case. A variable
// the database does not know is kept with its tags as they came, so a drawing read and
// written again keeps it.
class AcDbHeaderVars {
public:
    using Entry = std::pair<std::wstring, AcDbTagList>;

    // Null when the variable is not there.
    const AcDbTagList* get(const std::wstring& name) const;
    // Replaces the variable's tags, or appends it at the end.
    void set(const std::wstring& name, AcDbTagList tags);
    bool remove(const std::wstring& name);
    bool has(const std::wstring& name) const { return get(name) != nullptr; }
    const std::vector<Entry>& entries() const { return m_entries; }
    void clear();

    // The first tag's value, or the fallback when missing or of another type.
    Adesk::Int64 getInt(const std::wstring& name, Adesk::Int64 fallback) const;
    double getReal(const std::wstring& name, double fallback) const;
    std::wstring getText(const std::wstring& name, const std::wstring& fallback) const;
    AcGePoint3d getPoint(const std::wstring& name, const AcGePoint3d& fallback) const;
    // One-tag setters with the variable's group code.
    void setInt(const std::wstring& name, short code, Adesk::Int64 value);
    void setReal(const std::wstring& name, short code, double value);
    void setText(const std::wstring& name, short code, const std::wstring& value);
    void setPoint(const std::wstring& name, short code, const AcGePoint3d& value, bool is2d = false);

private:
    static std::wstring key(const std::wstring& name);
    std::vector<Entry> m_entries;
    std::unordered_map<std::wstring, size_t> m_index;  // upper-case name -> entry
};
