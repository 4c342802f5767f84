// The dimension variable table: defaults, generic access by group code, filing.
#include "host/win/CaseFold.h"
#include "host/db/AcDbDimVars.h"


#include "host/db/AcDbDwgFiler.h"

namespace {

int headerCodeOf(const wchar_t* kind)
{
    const std::wstring k = kind;
    if (k == L"Real")
        return 40;
    if (k == L"Str" || k == L"Block")
        return 1;
    if (k == L"Style")
        return 7;
    if (k == L"Ltype")
        return 6;
    return 70;
}

#define SV_DIMVAR_INFO(lower, Cap, Kind, code, imp, met) {L## #lower, L## #Kind, code, 0},
AcDbDimVarInfo gInfos[] = {SV_DIMVAR_LIST(SV_DIMVAR_INFO)};
#undef SV_DIMVAR_INFO
constexpr int kCount = static_cast<int>(sizeof(gInfos) / sizeof(gInfos[0]));

bool initInfos()
{
    for (AcDbDimVarInfo& i : gInfos)
        i.headerCode = headerCodeOf(i.kind);
    return true;
}
const bool gInfosReady = initInfos();

// Value conversions per kind.
void toValue(double s, AcDbDimVarValue& v) { v.real = s; }
void toValue(int s, AcDbDimVarValue& v) { v.integer = s; }
void toValue(bool s, AcDbDimVarValue& v) { v.integer = s ? 1 : 0; }
void toValue(const AcCmColor& s, AcDbDimVarValue& v) { v.integer = s.colorIndex(); }
void toValue(const std::wstring& s, AcDbDimVarValue& v) { v.text = s; }
void toValue(ACHAR s, AcDbDimVarValue& v) { v.integer = static_cast<int>(s); }
void toValue(AcDb::LineWeight s, AcDbDimVarValue& v) { v.integer = static_cast<int>(s); }
void toValue(const AcDbObjectId& s, AcDbDimVarValue& v) { v.id = s; }

void fromValue(double& s, const AcDbDimVarValue& v) { s = v.real; }
void fromValue(int& s, const AcDbDimVarValue& v) { s = static_cast<Adesk::Int16>(v.integer); }
void fromValue(bool& s, const AcDbDimVarValue& v) { s = v.integer != 0; }
void fromValue(AcCmColor& s, const AcDbDimVarValue& v)
{
    if (!s.setColorIndex(static_cast<Adesk::Int16>(v.integer)))
        s.setColorIndex(0);
}
void fromValue(std::wstring& s, const AcDbDimVarValue& v) { s = v.text; }
void fromValue(ACHAR& s, const AcDbDimVarValue& v) { s = static_cast<ACHAR>(v.integer); }
void fromValue(AcDb::LineWeight& s, const AcDbDimVarValue& v) { s = static_cast<AcDb::LineWeight>(v.integer); }
void fromValue(AcDbObjectId& s, const AcDbDimVarValue& v) { s = v.id; }

void writeValue(AcDbDwgFiler* f, double s) { f->writeDouble(s); }
void writeValue(AcDbDwgFiler* f, int s) { f->writeInt16(static_cast<Adesk::Int16>(s)); }
void writeValue(AcDbDwgFiler* f, bool s) { f->writeBool(s); }
void writeValue(AcDbDwgFiler* f, const AcCmColor& s)
{
    f->writeUInt8(static_cast<Adesk::UInt8>(s.colorMethod()));
    f->writeInt16(s.colorIndex());
    f->writeUInt32(s.rgb());
}
void writeValue(AcDbDwgFiler* f, const std::wstring& s) { f->writeString(s.c_str()); }
void writeValue(AcDbDwgFiler* f, ACHAR s) { f->writeInt32(static_cast<Adesk::Int32>(s)); }
void writeValue(AcDbDwgFiler* f, AcDb::LineWeight s) { f->writeInt16(static_cast<Adesk::Int16>(s)); }
void writeValue(AcDbDwgFiler* f, const AcDbObjectId& s) { f->writeHardPointerId(s); }

void readValue(AcDbDwgFiler* f, double& s) { f->readDouble(&s); }
void readValue(AcDbDwgFiler* f, int& s)
{
    Adesk::Int16 v = 0;
    f->readInt16(&v);
    s = v;
}
void readValue(AcDbDwgFiler* f, bool& s) { f->readBool(&s); }
void readValue(AcDbDwgFiler* f, AcCmColor& s)
{
    Adesk::UInt8 method = 0;
    Adesk::Int16 index = 0;
    Adesk::UInt32 rgb = 0;
    f->readUInt8(&method);
    f->readInt16(&index);
    f->readUInt32(&rgb);
    if (method == AcCm::kByColor)
        s.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8), static_cast<Adesk::UInt8>(rgb));
    else
        s.setColorIndex(index);
}
void readValue(AcDbDwgFiler* f, std::wstring& s) { f->readString(s); }
void readValue(AcDbDwgFiler* f, ACHAR& s)
{
    Adesk::Int32 v = 0;
    f->readInt32(&v);
    s = static_cast<ACHAR>(v);
}
void readValue(AcDbDwgFiler* f, AcDb::LineWeight& s)
{
    Adesk::Int16 v = 0;
    f->readInt16(&v);
    s = static_cast<AcDb::LineWeight>(v);
}
void readValue(AcDbDwgFiler* f, AcDbObjectId& s)
{
    AcDbHardPointerId id;
    f->readHardPointerId(&id);
    s = id;
}

template <typename T>
void setDefault(T& s, T v) { s = v; }
void setDefault(AcCmColor& s, int index) { s.setColorIndex(static_cast<Adesk::Int16>(index)); }
void setDefault(std::wstring& s, const wchar_t* v) { s = v; }
void setDefault(AcDbObjectId& s, int) { s.setNull(); }
void setDefault(int& s, int v) { s = v; }
void setDefault(double& s, double v) { s = v; }
void setDefault(bool& s, bool v) { s = v; }
void setDefault(ACHAR& s, ACHAR v) { s = v; }
void setDefault(AcDb::LineWeight& s, AcDb::LineWeight v) { s = v; }

}  // namespace

void AcDbDimVars::setToDefaults(AcDb::MeasurementValue m)
{
    const bool metric = m == AcDb::kMetric;
#define SV_DIMVAR_DEFAULT(lower, Cap, Kind, code, imp, met) setDefault(lower, metric ? met : imp);
    SV_DIMVAR_LIST(SV_DIMVAR_DEFAULT)
#undef SV_DIMVAR_DEFAULT
}

const AcDbDimVarInfo* AcDbDimVars::infos(int& count)
{
    (void)gInfosReady;
    count = kCount;
    return gInfos;
}

const AcDbDimVarInfo* AcDbDimVars::findByCode(int code)
{
    for (const AcDbDimVarInfo& i : gInfos)
        if (i.dxfCode == code)
            return &i;
    return nullptr;
}

const AcDbDimVarInfo* AcDbDimVars::findByName(const ACHAR* name)
{
    if (!name)
        return nullptr;
    if (*name == L'$')
        ++name;
    std::wstring lower;
    for (const ACHAR* p = name; *p; ++p)
        lower += static_cast<wchar_t>(svwin::ToLowerChar(*p));
    for (const AcDbDimVarInfo& i : gInfos)
        if (lower == i.name)
            return &i;
    return nullptr;
}

Acad::ErrorStatus AcDbDimVars::getValue(int code, AcDbDimVarValue& value) const
{
    switch (code) {
#define SV_DIMVAR_GET(lower, Cap, Kind, c, imp, met) case c: toValue(lower, value); return Acad::eOk;
        SV_DIMVAR_LIST(SV_DIMVAR_GET)
#undef SV_DIMVAR_GET
    default: return Acad::eKeyNotFound;
    }
}

Acad::ErrorStatus AcDbDimVars::setValue(int code, const AcDbDimVarValue& value)
{
    switch (code) {
#define SV_DIMVAR_SET(lower, Cap, Kind, c, imp, met) case c: fromValue(lower, value); return Acad::eOk;
        SV_DIMVAR_LIST(SV_DIMVAR_SET)
#undef SV_DIMVAR_SET
    default: return Acad::eKeyNotFound;
    }
}

// Member to member, not through AcDbDimVarValue: a true colour has no place in its integer.
Acad::ErrorStatus AcDbDimVars::copyValue(int code, const AcDbDimVars& other)
{
    switch (code) {
#define SV_DIMVAR_COPY(lower, Cap, Kind, c, imp, met) case c: lower = other.lower; return Acad::eOk;
        SV_DIMVAR_LIST(SV_DIMVAR_COPY)
#undef SV_DIMVAR_COPY
    default: return Acad::eKeyNotFound;
    }
}

bool AcDbDimVars::sameValue(int code, const AcDbDimVars& other) const
{
    switch (code) {
#define SV_DIMVAR_SAME(lower, Cap, Kind, c, imp, met) case c: return lower == other.lower;
        SV_DIMVAR_LIST(SV_DIMVAR_SAME)
#undef SV_DIMVAR_SAME
    default: return false;
    }
}

Acad::ErrorStatus AcDbDimVars::dwgOutFields(AcDbDwgFiler* f) const
{
#define SV_DIMVAR_OUT(lower, Cap, Kind, c, imp, met) writeValue(f, lower);
    SV_DIMVAR_LIST(SV_DIMVAR_OUT)
#undef SV_DIMVAR_OUT
    return f->filerStatus();
}

Acad::ErrorStatus AcDbDimVars::dwgInFields(AcDbDwgFiler* f)
{
#define SV_DIMVAR_IN(lower, Cap, Kind, c, imp, met) readValue(f, lower);
    SV_DIMVAR_LIST(SV_DIMVAR_IN)
#undef SV_DIMVAR_IN
    return f->filerStatus();
}
