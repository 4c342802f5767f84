// AcDbTag: one DXF group kept as data, for header variables and records kept as read.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcadStrc.h"
#include "host/rx/Adesk.h"

class AcDbDwgFiler;
class AcDbDxfFiler;

// A point tag stands for its x, y (and z unless is2d) groups together.
struct AcDbTag {
    using Value = std::variant<std::monostate, Adesk::Int64, double, std::wstring, AcGePoint3d,
                               std::vector<Adesk::UInt8>>;
    short code = 0;
    Value value;
    bool is2d = false;

    static AcDbTag integer(short code, Adesk::Int64 v) { return {code, v, false}; }
    static AcDbTag real(short code, double v) { return {code, v, false}; }
    static AcDbTag text(short code, std::wstring v) { return {code, std::move(v), false}; }
    static AcDbTag point(short code, const AcGePoint3d& v) { return {code, v, false}; }
    static AcDbTag point2d(short code, double x, double y) { return {code, AcGePoint3d(x, y, 0.0), true}; }
    static AcDbTag binary(short code, std::vector<Adesk::UInt8> v) { return {code, std::move(v), false}; }

    // Conversions answer the fallback when the value has another type.
    Adesk::Int64 asInt(Adesk::Int64 fallback = 0) const;
    double asReal(double fallback = 0.0) const;  // integers convert too
    std::wstring asText(const std::wstring& fallback = std::wstring()) const;
    AcGePoint3d asPoint(const AcGePoint3d& fallback = AcGePoint3d()) const;

    bool operator==(const AcDbTag& o) const { return code == o.code && value == o.value && is2d == o.is2d; }
};

using AcDbTagList = std::vector<AcDbTag>;

// Writes the tags through the filer by their code's kind (object references as handles).
void acdbWriteTags(AcDbDxfFiler* filer, const AcDbTagList& tags);
// Reads the filer's remaining groups of the current subclass (up to the next 100 marker or
// the end of the object) into tags.
void acdbReadTags(AcDbDxfFiler* filer, AcDbTagList& tags);

// The same list in a binary record (undo, copies): a count, then per tag its code, the kind of
// its value, the 2D flag and the value.
void acdbWriteTags(AcDbDwgFiler* filer, const AcDbTagList& tags);
// Reads what the writer above wrote. tags is replaced only when the filer reports no error.
Acad::ErrorStatus acdbReadTags(AcDbDwgFiler* filer, AcDbTagList& tags);
