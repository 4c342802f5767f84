// The dimension variables: one list drives the style record, the header and the overrides.
#pragma once

#include <string>

#include "host/db/AcCmColor.h"
#include "host/db/AcDb.h"
#include "host/db/AcDbObjectId.h"
#include "host/rx/AcadStrc.h"

class AcDbDatabase;
class AcDbDwgFiler;

// X(lower, Cap, Kind, dxfCode, imperialDefault, metricDefault): every dimension variable
// with its DIMSTYLE group code. Imperial defaults are the drawing defaults of the DXF
// reference; metric ones are those of an ISO-25 style. Kinds:
//   Real double, Int 16-bit int, Bool, Color (colour index), Str text, Char one character
//   (DXF: its code), Weight line weight, Block arrow block by name ("" the default closed
//   filled arrow; DXF: a block record handle), Style a text style id, Ltype a linetype id.
#define SV_DIMVAR_LIST(X) \
    X(dimpost, Dimpost, Str, 3, L"", L"") \
    X(dimapost, Dimapost, Str, 4, L"", L"") \
    X(dimscale, Dimscale, Real, 40, 1.0, 1.0) \
    X(dimasz, Dimasz, Real, 41, 0.18, 2.5) \
    X(dimexo, Dimexo, Real, 42, 0.0625, 0.625) \
    X(dimdli, Dimdli, Real, 43, 0.38, 3.75) \
    X(dimexe, Dimexe, Real, 44, 0.18, 1.25) \
    X(dimrnd, Dimrnd, Real, 45, 0.0, 0.0) \
    X(dimdle, Dimdle, Real, 46, 0.0, 0.0) \
    X(dimtp, Dimtp, Real, 47, 0.0, 0.0) \
    X(dimtm, Dimtm, Real, 48, 0.0, 0.0) \
    X(dimfxl, Dimfxl, Real, 49, 1.0, 1.0) \
    X(dimjogang, Dimjogang, Real, 50, 0.7853981633974483, 0.7853981633974483) \
    X(dimtfill, Dimtfill, Int, 69, 0, 0) \
    X(dimtfillclr, Dimtfillclr, Color, 70, 0, 0) \
    X(dimtol, Dimtol, Bool, 71, false, false) \
    X(dimlim, Dimlim, Bool, 72, false, false) \
    X(dimtih, Dimtih, Bool, 73, true, false) \
    X(dimtoh, Dimtoh, Bool, 74, true, false) \
    X(dimse1, Dimse1, Bool, 75, false, false) \
    X(dimse2, Dimse2, Bool, 76, false, false) \
    X(dimtad, Dimtad, Int, 77, 0, 1) \
    X(dimzin, Dimzin, Int, 78, 0, 8) \
    X(dimazin, Dimazin, Int, 79, 0, 0) \
    X(dimarcsym, Dimarcsym, Int, 90, 0, 0) \
    X(dimtxt, Dimtxt, Real, 140, 0.18, 2.5) \
    X(dimcen, Dimcen, Real, 141, 0.09, 2.5) \
    X(dimtsz, Dimtsz, Real, 142, 0.0, 0.0) \
    X(dimaltf, Dimaltf, Real, 143, 25.4, 0.03937007874015748) \
    X(dimlfac, Dimlfac, Real, 144, 1.0, 1.0) \
    X(dimtvp, Dimtvp, Real, 145, 0.0, 0.0) \
    X(dimtfac, Dimtfac, Real, 146, 1.0, 1.0) \
    X(dimgap, Dimgap, Real, 147, 0.09, 0.625) \
    X(dimaltrnd, Dimaltrnd, Real, 148, 0.0, 0.0) \
    X(dimalt, Dimalt, Bool, 170, false, false) \
    X(dimaltd, Dimaltd, Int, 171, 2, 3) \
    X(dimtofl, Dimtofl, Bool, 172, false, true) \
    X(dimsah, Dimsah, Bool, 173, false, false) \
    X(dimtix, Dimtix, Bool, 174, false, false) \
    X(dimsoxd, Dimsoxd, Bool, 175, false, false) \
    X(dimclrd, Dimclrd, Color, 176, 0, 0) \
    X(dimclre, Dimclre, Color, 177, 0, 0) \
    X(dimclrt, Dimclrt, Color, 178, 0, 0) \
    X(dimadec, Dimadec, Int, 179, 0, 0) \
    X(dimdec, Dimdec, Int, 271, 4, 2) \
    X(dimtdec, Dimtdec, Int, 272, 4, 2) \
    X(dimaltu, Dimaltu, Int, 273, 2, 2) \
    X(dimalttd, Dimalttd, Int, 274, 2, 3) \
    X(dimaunit, Dimaunit, Int, 275, 0, 0) \
    X(dimfrac, Dimfrac, Int, 276, 0, 0) \
    X(dimlunit, Dimlunit, Int, 277, 2, 2) \
    X(dimdsep, Dimdsep, Char, 278, L'.', L',') \
    X(dimtmove, Dimtmove, Int, 279, 0, 0) \
    X(dimjust, Dimjust, Int, 280, 0, 0) \
    X(dimsd1, Dimsd1, Bool, 281, false, false) \
    X(dimsd2, Dimsd2, Bool, 282, false, false) \
    X(dimtolj, Dimtolj, Int, 283, 1, 0) \
    X(dimtzin, Dimtzin, Int, 284, 0, 8) \
    X(dimaltz, Dimaltz, Int, 285, 0, 0) \
    X(dimalttz, Dimalttz, Int, 286, 0, 0) \
    X(dimupt, Dimupt, Bool, 288, false, false) \
    X(dimatfit, Dimatfit, Int, 289, 3, 3) \
    X(dimfxlon, Dimfxlon, Bool, 290, false, false) \
    X(dimtxtdirection, Dimtxtdirection, Bool, 294, false, false) \
    X(dimtxsty, Dimtxsty, Style, 340, 0, 0) \
    X(dimldrblk, Dimldrblk, Block, 341, L"", L"") \
    X(dimblk, Dimblk, Block, 342, L"", L"") \
    X(dimblk1, Dimblk1, Block, 343, L"", L"") \
    X(dimblk2, Dimblk2, Block, 344, L"", L"") \
    X(dimltype, Dimltype, Ltype, 345, 0, 0) \
    X(dimltex1, Dimltex1, Ltype, 346, 0, 0) \
    X(dimltex2, Dimltex2, Ltype, 347, 0, 0) \
    X(dimlwd, Dimlwd, Weight, 371, AcDb::kLnWtByBlock, AcDb::kLnWtByBlock) \
    X(dimlwe, Dimlwe, Weight, 372, AcDb::kLnWtByBlock, AcDb::kLnWtByBlock)

// A type that no setter takes: fills the second setter slot of kinds that have only one.
struct AcDbDimVarNoArg {
    explicit AcDbDimVarNoArg() = default;
};

// Per kind: the stored type, the getter's and setters' types, and the conversions.
struct AcDbDimVarReal {
    using Store = double; using Get = double; using Arg = double; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = v; }
};
struct AcDbDimVarInt {
    using Store = int; using Get = int; using Arg = int; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = static_cast<Adesk::Int16>(v); }
};
struct AcDbDimVarBool {
    using Store = bool; using Get = bool; using Arg = bool; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = v; }
};
struct AcDbDimVarColor {
    using Store = AcCmColor; using Get = AcCmColor; using Arg = const AcCmColor&; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = v; }
};
struct AcDbDimVarStr {
    using Store = std::wstring; using Get = const ACHAR*; using Arg = const ACHAR*; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s.c_str(); }
    static void put(Store& s, Arg v) { s = v ? v : L""; }
};
struct AcDbDimVarChar {
    using Store = ACHAR; using Get = ACHAR; using Arg = ACHAR; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = v; }
};
struct AcDbDimVarWeight {
    using Store = AcDb::LineWeight; using Get = AcDb::LineWeight; using Arg = AcDb::LineWeight; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = v; }
};
// Arrow blocks are kept by name; the record resolves the block id in its database.
struct AcDbDimVarBlock {
    using Store = std::wstring; using Get = const ACHAR*; using Arg = const ACHAR*; using Arg2 = AcDbObjectId;
    static Get get(const Store& s) { return s.c_str(); }
    static void put(Store& s, Arg v) { s = v ? v : L""; }
};
struct AcDbDimVarStyle {
    using Store = AcDbObjectId; using Get = AcDbObjectId; using Arg = AcDbObjectId; using Arg2 = AcDbDimVarNoArg;
    static Get get(const Store& s) { return s; }
    static void put(Store& s, Arg v) { s = v; }
};
using AcDbDimVarLtype = AcDbDimVarStyle;

// Description of one variable, for generic access by group code or name.
struct AcDbDimVarInfo {
    const ACHAR* name;     // lower case, "dimasz"
    const ACHAR* kind;     // "Real", "Int", ...
    int dxfCode;           // DIMSTYLE group code
    int headerCode;        // group code of the $DIMxxx header variable
};

// A value of any kind, for generic access.
struct AcDbDimVarValue {
    double real = 0.0;
    int integer = 0;  // Int, Bool, Color (index), Char, Weight
    std::wstring text;  // Str, Block
    AcDbObjectId id;    // Style, Ltype
};

// All variables with their values.
struct AcDbDimVars {
#define SV_DIMVAR_FIELD(lower, Cap, Kind, code, imp, met) AcDbDimVar##Kind::Store lower{};
    SV_DIMVAR_LIST(SV_DIMVAR_FIELD)
#undef SV_DIMVAR_FIELD

    // The defaults (ids left null: the database fills the text style).
    void setToDefaults(AcDb::MeasurementValue measurement);

    static const AcDbDimVarInfo* infos(int& count);
    static const AcDbDimVarInfo* findByCode(int dxfCode);
    // Case-insensitive, with or without the leading '$'.
    static const AcDbDimVarInfo* findByName(const ACHAR* name);

    // eKeyNotFound for a code that is no variable.
    Acad::ErrorStatus getValue(int dxfCode, AcDbDimVarValue& value) const;
    Acad::ErrorStatus setValue(int dxfCode, const AcDbDimVarValue& value);
    // Copies one variable from other, a true colour included.
    Acad::ErrorStatus copyValue(int dxfCode, const AcDbDimVars& other);
    // False for a code that is no variable.
    bool sameValue(int dxfCode, const AcDbDimVars& other) const;

    // Every variable in list order, ids as hard pointers.
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
};

// Generates the accessors of every variable inside an AcDbObject-derived class that has an
// AcDbDimVars member m_vars and the two members
//   Acad::ErrorStatus setDimVarArg2(int code, AcDbObjectId blockId);  // arrow by block id
//   Acad::ErrorStatus setDimVarArg2(int, AcDbDimVarNoArg) { return Acad::eOk; }
// Use: SV_DIMVAR_LIST(SV_DIMVAR_ACCESSORS). Getters assert read access, setters write
// access. Arrow block getters answer the block's name.
#define SV_DIMVAR_ACCESSORS(lower, Cap, Kind, code, imp, met) \
    AcDbDimVar##Kind::Get lower() const { assertReadEnabled(); return AcDbDimVar##Kind::get(m_vars.lower); } \
    Acad::ErrorStatus set##Cap(AcDbDimVar##Kind::Arg v) { assertWriteEnabled(); AcDbDimVar##Kind::put(m_vars.lower, v); return Acad::eOk; } \
    Acad::ErrorStatus set##Cap(AcDbDimVar##Kind::Arg2 v) { return setDimVarArg2(code, v); }
