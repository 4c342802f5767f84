// Header variables: a new drawing's values, typed accessors and the dimension variable copy.
#include <cmath>

#include "host/win/CaseFold.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDatabaseImpl.h"
#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbObjectAccess.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbUndoManager.h"
#include "host/db/dbsymtb.h"

namespace {

std::wstring upper(const ACHAR* s)
{
    std::wstring u;
    for (; s && *s; ++s)
        u += static_cast<wchar_t>(svwin::ToUpperChar(*s));
    return u;
}

// How a dimension variable of a kind is written in the header.
AcDbTag dimHeaderTag(const AcDbDimVarInfo& info, const AcDbDimVarValue& v, const std::wstring& idName)
{
    const auto code = static_cast<short>(info.headerCode);
    const std::wstring kind = info.kind;
    if (kind == L"Real")
        return AcDbTag::real(code, v.real);
    if (kind == L"Str" || kind == L"Block")
        return AcDbTag::text(code, v.text);
    if (kind == L"Style" || kind == L"Ltype")
        return AcDbTag::text(code, idName);
    return AcDbTag::integer(code, v.integer);
}

}  // namespace

int AcDbDatabase::setDefaultHeader()
{
    AcDbHeaderVars& h = m_impl->header;
    int added = 0;
    auto def = [&](const ACHAR* name, AcDbTagList tags) {
        if (!h.has(name)) {
            h.set(name, std::move(tags));
            ++added;
        }
    };
    using T = AcDbTag;
    const double big = 1e20;
    def(L"$ACADVER", {T::text(1, L"AC1032")});
    def(L"$ACADMAINTVER", {T::integer(90, 228)});
    def(L"$DWGCODEPAGE", {T::text(3, L"ANSI_1252")});
    def(L"$INSBASE", {T::point(10, AcGePoint3d(0, 0, 0))});
    def(L"$EXTMIN", {T::point(10, AcGePoint3d(big, big, big))});
    def(L"$EXTMAX", {T::point(10, AcGePoint3d(-big, -big, -big))});
    def(L"$LIMMIN", {T::point2d(10, 0, 0)});
    def(L"$LIMMAX", {T::point2d(10, 12, 9)});
    def(L"$ORTHOMODE", {T::integer(70, 0)});
    def(L"$REGENMODE", {T::integer(70, 1)});
    def(L"$FILLMODE", {T::integer(70, 1)});
    def(L"$QTEXTMODE", {T::integer(70, 0)});
    def(L"$MIRRTEXT", {T::integer(70, 0)});
    def(L"$LTSCALE", {T::real(40, 1.0)});
    def(L"$ATTMODE", {T::integer(70, 1)});
    def(L"$TEXTSIZE", {T::real(40, 0.2)});
    def(L"$TRACEWID", {T::real(40, 0.05)});
    def(L"$TEXTSTYLE", {T::text(7, L"Standard")});
    def(L"$CLAYER", {T::text(8, L"0")});
    def(L"$CELTYPE", {T::text(6, L"ByLayer")});
    def(L"$CECOLOR", {T::integer(62, 256)});
    def(L"$CELTSCALE", {T::real(40, 1.0)});
    def(L"$DISPSILH", {T::integer(70, 0)});
    {
        AcDbDimVars vars;
        vars.setToDefaults(AcDb::kEnglish);
        int count = 0;
        const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
        for (int i = 0; i < count; ++i) {
            AcDbDimVarValue v;
            vars.getValue(infos[i].dxfCode, v);
            const std::wstring name = L"$" + upper(infos[i].name);
            def(name.c_str(), {dimHeaderTag(infos[i], v, std::wstring(infos[i].kind) == L"Style" ? L"Standard" : L"")});
        }
    }
    def(L"$DIMSTYLE", {T::text(2, L"Standard")});
    def(L"$LUNITS", {T::integer(70, 2)});
    def(L"$LUPREC", {T::integer(70, 4)});
    def(L"$SKETCHINC", {T::real(40, 0.1)});
    def(L"$FILLETRAD", {T::real(40, 0.0)});
    def(L"$AUNITS", {T::integer(70, 0)});
    def(L"$AUPREC", {T::integer(70, 0)});
    def(L"$MENU", {T::text(1, L".")});
    def(L"$ELEVATION", {T::real(40, 0.0)});
    def(L"$THICKNESS", {T::real(40, 0.0)});
    def(L"$ANGBASE", {T::real(50, 0.0)});
    def(L"$ANGDIR", {T::integer(70, 0)});
    def(L"$PDMODE", {T::integer(70, 0)});
    def(L"$PDSIZE", {T::real(40, 0.0)});
    def(L"$PLINEWID", {T::real(40, 0.0)});
    def(L"$HANDSEED", {T::text(5, L"0")});
    def(L"$UCSORG", {T::point(10, AcGePoint3d(0, 0, 0))});
    def(L"$UCSXDIR", {T::point(10, AcGePoint3d(1, 0, 0))});
    def(L"$UCSYDIR", {T::point(10, AcGePoint3d(0, 1, 0))});
    def(L"$TILEMODE", {T::integer(70, 1)});
    def(L"$MAXACTVP", {T::integer(70, 64)});
    def(L"$PSLTSCALE", {T::integer(70, 1)});
    def(L"$MEASUREMENT", {T::integer(70, 0)});
    def(L"$CELWEIGHT", {T::integer(370, -1)});
    def(L"$LWDISPLAY", {T::integer(290, 0)});
    def(L"$INSUNITS", {T::integer(70, 0)});
    def(L"$PROXYGRAPHICS", {T::integer(70, 1)});
    def(L"$DIMASSOC", {T::integer(280, 2)});
    def(L"$CANNOSCALE", {T::text(1, L"1:1")});
    def(L"$MSLTSCALE", {T::integer(70, 1)});
    return added;
}

const AcDbHeaderVars& AcDbDatabase::headerVars() const
{
    ACHAR buf[17];
    handseed().getIntoAsciiBuffer(buf);
    m_impl->header.setText(L"$HANDSEED", 5, buf);
    return m_impl->header;
}

void AcDbDatabase::headerChanged(const std::wstring& name, const AcDbTagList* before)
{
    (void)before;
    incrementDbmod();
    m_impl->cannoscale.reset();
    for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(m_reactors))
        r->headerSysVarChanged(this, name.c_str() + (name.empty() ? 0 : 1), true);
}

Acad::ErrorStatus AcDbDatabase::setHeaderVar(const std::wstring& name, const AcDbTagList& tags)
{
    if (name.size() < 2 || name[0] != L'$')
        return Acad::eInvalidInput;
    const std::wstring bare = name.substr(1);
    for (AcDbDatabaseReactor* r : std::vector<AcDbDatabaseReactor*>(m_reactors))
        r->headerSysVarWillChange(this, bare.c_str());
    m_undo->recordHeader(m_impl->header, handseed());
    if (upper(name.c_str()) == L"$HANDSEED") {
        const AcDbHandle seed(tags.empty() ? L"" : tags.front().asText().c_str());
        if (!seed.isNull() && seed.value() > m_impl->seed)
            m_impl->seed = seed.value();
    }
    m_impl->header.set(name, tags);
    headerChanged(name, nullptr);
    return Acad::eOk;
}

// Typed accessors ---------------------------------------------------------------------------

#define SV_HEADER_REAL(getter, setter, NAME, CODE, DEF)                                         \
    double AcDbDatabase::getter() const { return m_impl->header.getReal(L##NAME, DEF); }        \
    Acad::ErrorStatus AcDbDatabase::setter(double v) { return setHeaderVar(L##NAME, {AcDbTag::real(CODE, v)}); }

SV_HEADER_REAL(textsize, setTextsize, "$TEXTSIZE", 40, 0.2)
SV_HEADER_REAL(celtscale, setCeltscale, "$CELTSCALE", 40, 1.0)
SV_HEADER_REAL(ltscale, setLtscale, "$LTSCALE", 40, 1.0)
SV_HEADER_REAL(dimscale, setDimscale, "$DIMSCALE", 40, 1.0)
SV_HEADER_REAL(angbase, setAngbase, "$ANGBASE", 50, 0.0)
SV_HEADER_REAL(pdsize, setPdsize, "$PDSIZE", 40, 0.0)
#undef SV_HEADER_REAL

#define SV_HEADER_INT(type, getter, setter, NAME, CODE, DEF)                                     \
    type AcDbDatabase::getter() const { return static_cast<type>(m_impl->header.getInt(L##NAME, DEF)); } \
    Acad::ErrorStatus AcDbDatabase::setter(type v) { return setHeaderVar(L##NAME, {AcDbTag::integer(CODE, static_cast<Adesk::Int64>(v))}); }

SV_HEADER_INT(AcDb::LineWeight, celweight, setCelweight, "$CELWEIGHT", 370, -1)
SV_HEADER_INT(AcDb::UnitsValue, insunits, setInsunits, "$INSUNITS", 70, 0)
SV_HEADER_INT(AcDb::MeasurementValue, measurement, setMeasurement, "$MEASUREMENT", 70, 0)
SV_HEADER_INT(Adesk::Int16, lunits, setLunits, "$LUNITS", 70, 2)
SV_HEADER_INT(Adesk::Int16, luprec, setLuprec, "$LUPREC", 70, 4)
SV_HEADER_INT(Adesk::Int16, aunits, setAunits, "$AUNITS", 70, 0)
SV_HEADER_INT(Adesk::Int16, auprec, setAuprec, "$AUPREC", 70, 0)
SV_HEADER_INT(Adesk::Int16, pdmode, setPdmode, "$PDMODE", 70, 0)
SV_HEADER_INT(bool, angdir, setAngdir, "$ANGDIR", 70, 0)
SV_HEADER_INT(bool, tilemode, setTilemode, "$TILEMODE", 70, 1)
#undef SV_HEADER_INT

#define SV_HEADER_RECORD(getter, setter, NAME, CODE, TABLE)                                      \
    AcDbObjectId AcDbDatabase::getter() const                                                    \
    {                                                                                            \
        return m_impl->tableRecord(m_impl->TABLE, m_impl->header.getText(L##NAME, L""));         \
    }                                                                                            \
    Acad::ErrorStatus AcDbDatabase::setter(AcDbObjectId id)                                      \
    {                                                                                            \
        if (id.isNull() || id.database() != this)                                                \
            return Acad::eInvalidInput;                                                          \
        const std::wstring name = m_impl->recordName(id);                                        \
        if (name.empty() || m_impl->tableRecord(m_impl->TABLE, name) != id)                      \
            return Acad::eWrongObjectType;                                                       \
        return setHeaderVar(L##NAME, {AcDbTag::text(CODE, name)});                               \
    }

SV_HEADER_RECORD(textstyle, setTextstyle, "$TEXTSTYLE", 7, textStyleTable)
SV_HEADER_RECORD(dimstyle, setDimstyle, "$DIMSTYLE", 2, dimStyleTable)
SV_HEADER_RECORD(clayer, setClayer, "$CLAYER", 8, layerTable)
SV_HEADER_RECORD(celtype, setCeltype, "$CELTYPE", 6, linetypeTable)
#undef SV_HEADER_RECORD

AcCmColor AcDbDatabase::cecolor() const
{
    AcCmColor c;
    const AcDbTagList* tags = m_impl->header.get(L"$CECOLOR");
    if (!tags)
        return c;
    c.setColorIndex(256);
    for (const AcDbTag& t : *tags) {
        if (t.code == 62)
            c.setColorIndex(static_cast<Adesk::Int16>(t.asInt(256)));
        else if (t.code == 420) {
            const auto rgb = static_cast<Adesk::UInt32>(t.asInt());
            c.setRGB(static_cast<Adesk::UInt8>(rgb >> 16), static_cast<Adesk::UInt8>(rgb >> 8),
                     static_cast<Adesk::UInt8>(rgb));
        }
    }
    return c;
}

Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color)
{
    AcDbTagList tags{AcDbTag::integer(62, color.colorIndex())};
    if (color.isByColor())
        tags.push_back(AcDbTag::integer(420, static_cast<Adesk::Int64>(color.rgb())));
    return setHeaderVar(L"$CECOLOR", tags);
}

AcGePoint3d AcDbDatabase::insbase() const { return m_impl->header.getPoint(L"$INSBASE", AcGePoint3d()); }
AcGePoint3d AcDbDatabase::extmin() const { return m_impl->header.getPoint(L"$EXTMIN", AcGePoint3d()); }
AcGePoint3d AcDbDatabase::extmax() const { return m_impl->header.getPoint(L"$EXTMAX", AcGePoint3d()); }
Acad::ErrorStatus AcDbDatabase::setInsbase(const AcGePoint3d& p) { return setHeaderVar(L"$INSBASE", {AcDbTag::point(10, p)}); }
Acad::ErrorStatus AcDbDatabase::setExtmin(const AcGePoint3d& p) { return setHeaderVar(L"$EXTMIN", {AcDbTag::point(10, p)}); }
Acad::ErrorStatus AcDbDatabase::setExtmax(const AcGePoint3d& p) { return setHeaderVar(L"$EXTMAX", {AcDbTag::point(10, p)}); }

AcGePoint2d AcDbDatabase::limmin() const
{
    const AcGePoint3d p = m_impl->header.getPoint(L"$LIMMIN", AcGePoint3d());
    return AcGePoint2d(p.x, p.y);
}

AcGePoint2d AcDbDatabase::limmax() const
{
    const AcGePoint3d p = m_impl->header.getPoint(L"$LIMMAX", AcGePoint3d(12, 9, 0));
    return AcGePoint2d(p.x, p.y);
}

Acad::ErrorStatus AcDbDatabase::setLimmin(const AcGePoint2d& p) { return setHeaderVar(L"$LIMMIN", {AcDbTag::point2d(10, p.x, p.y)}); }
Acad::ErrorStatus AcDbDatabase::setLimmax(const AcGePoint2d& p) { return setHeaderVar(L"$LIMMAX", {AcDbTag::point2d(10, p.x, p.y)}); }

std::wstring AcDbDatabase::dwgCodePage() const { return m_impl->header.getText(L"$DWGCODEPAGE", L"ANSI_1252"); }
std::wstring AcDbDatabase::acadVer() const { return m_impl->header.getText(L"$ACADVER", L"AC1032"); }

// Annotation scale ------------------------------------------------------------------------

AcDbAnnotationScale* AcDbDatabase::cannoscale() const
{
    const std::wstring name = m_impl->header.getText(L"$CANNOSCALE", L"");
    if (name.empty())
        return nullptr;
    AcDbPeek peek(scaleListDictionaryId());
    const AcDbDictionary* list = peek.as<AcDbDictionary>();
    if (!list)
        return nullptr;
    for (const auto& e : list->entries()) {
        AcDbPeek entry(e.id);
        const AcDbScale* s = entry.as<AcDbScale>();
        if (!s || e.id.isErased() || upper(s->scaleName()) != upper(name.c_str()))
            continue;
        m_impl->cannoscale = std::make_unique<AcDbAnnotationScale>(s->scaleName(), s->paperUnits(), s->drawingUnits());
        return m_impl->cannoscale.get();
    }
    return nullptr;
}

Acad::ErrorStatus AcDbDatabase::setCannoscale(AcDbAnnotationScale* scale)
{
    if (!scale)
        return Acad::eNullObjectPointer;
    const std::wstring wanted = upper(scale->name());
    AcDbPeek peek(scaleListDictionaryId());
    const AcDbDictionary* list = peek.as<AcDbDictionary>();
    if (!list)
        return Acad::eKeyNotFound;
    for (const auto& e : list->entries()) {
        AcDbPeek entry(e.id);
        const AcDbScale* s = entry.as<AcDbScale>();
        if (s && !e.id.isErased() && upper(s->scaleName()) == wanted)
            return setHeaderVar(L"$CANNOSCALE", {AcDbTag::text(1, s->scaleName())});
    }
    return Acad::eKeyNotFound;
}

// Dimension variables ---------------------------------------------------------------------

Acad::ErrorStatus AcDbDatabase::setDimstyleData(AcDbDimStyleTableRecord* record)
{
    if (!record)
        return Acad::eNullObjectPointer;
    const AcDbDimVars vars = record->vars();
    int count = 0;
    const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
    for (int i = 0; i < count; ++i) {
        AcDbDimVarValue v;
        vars.getValue(infos[i].dxfCode, v);
        const std::wstring name = L"$" + upper(infos[i].name);
        setHeaderVar(name, {dimHeaderTag(infos[i], v, m_impl->recordName(v.id))});
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setDimstyleData(AcDbObjectId styleId)
{
    AcDbDimStyleTableRecord* rec = nullptr;
    Acad::ErrorStatus es = acdbOpenObject(rec, styleId, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    es = setDimstyleData(rec);
    rec->close();
    return es;
}

Acad::ErrorStatus AcDbDatabase::getDimstyleData(AcDbDimStyleTableRecord*& record) const
{
    if (!record)
        record = new AcDbDimStyleTableRecord();
    AcDbDimVars vars;
    vars.setToDefaults(measurement());
    int count = 0;
    const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
    for (int i = 0; i < count; ++i) {
        const std::wstring name = L"$" + upper(infos[i].name);
        const AcDbTagList* tags = m_impl->header.get(name);
        if (!tags || tags->empty())
            continue;
        const AcDbTag& t = tags->front();
        AcDbDimVarValue v;
        const std::wstring kind = infos[i].kind;
        if (kind == L"Real")
            v.real = t.asReal();
        else if (kind == L"Str" || kind == L"Block")
            v.text = t.asText();
        else if (kind == L"Style")
            v.id = m_impl->tableRecord(m_impl->textStyleTable, t.asText());
        else if (kind == L"Ltype")
            v.id = m_impl->tableRecord(m_impl->linetypeTable, t.asText());
        else
            v.integer = static_cast<int>(t.asInt());
        vars.setValue(infos[i].dxfCode, v);
    }
    return record->setVars(vars);
}
