// Linetype records: description, pattern and dashes, and their DXF form.
#include "host/db/AcDbLinetypeTable.h"

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbSymbolTableDefs.h"

SV_DEFINE_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, AcDbLinetypeTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LTYPE, ACAD)

AcDbLinetypeTableRecord::AcDbLinetypeTableRecord() = default;

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(const ACHAR*& text) const { text = comments(); return Acad::eOk; }
const ACHAR* AcDbLinetypeTableRecord::comments() const { assertReadEnabled(); return m_comments.c_str(); }
Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text)
{
    assertWriteEnabled();
    m_comments = text ? text : L"";
    return Acad::eOk;
}
double AcDbLinetypeTableRecord::patternLength() const { assertReadEnabled(); return m_patternLength; }
Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length)
{
    assertWriteEnabled();
    m_patternLength = length;
    return Acad::eOk;
}
int AcDbLinetypeTableRecord::numDashes() const { assertReadEnabled(); return static_cast<int>(m_dashes.size()); }
double AcDbLinetypeTableRecord::dashLengthAt(int i) const
{
    assertReadEnabled();
    return (i >= 0 && i < numDashes()) ? m_dashes[static_cast<size_t>(i)].length : 0.0;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count)
{
    if (count < 0 || count > 12)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_dashes.resize(static_cast<size_t>(count));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int i, double length)
{
    if (i < 0 || i >= static_cast<int>(m_dashes.size()))
        return Acad::eInvalidIndex;
    assertWriteEnabled();
    m_dashes[static_cast<size_t>(i)].length = length;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeString(m_comments.c_str());
    f->writeDouble(m_patternLength);
    f->writeInt32(static_cast<Adesk::Int32>(m_dashes.size()));
    for (const Dash& d : m_dashes) {
        f->writeDouble(d.length);
        f->writeInt32(d.shapeFlags);
        f->writeInt32(static_cast<Adesk::Int32>(d.extra.size()));
        for (const AcDbTag& t : d.extra) {
            f->writeInt16(t.code);
            f->writeString(t.asText().c_str());
            f->writeDouble(t.asReal());
            f->writeInt64(t.asInt());
        }
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    f->readString(m_comments);
    f->readDouble(&m_patternLength);
    Adesk::Int32 n = 0;
    f->readInt32(&n);
    m_dashes.clear();
    for (Adesk::Int32 i = 0; i < n && i < 1000 && f->filerStatus() == Acad::eOk; ++i) {
        Dash d;
        Adesk::Int32 flags = 0, extras = 0;
        f->readDouble(&d.length);
        f->readInt32(&flags);
        f->readInt32(&extras);
        d.shapeFlags = flags;
        for (Adesk::Int32 k = 0; k < extras && k < 100 && f->filerStatus() == Acad::eOk; ++k) {
            AcDbTag t;
            std::wstring s;
            double r = 0;
            Adesk::Int64 v = 0;
            f->readInt16(&t.code);
            f->readString(s);
            f->readDouble(&r);
            f->readInt64(&v);
            const auto kind = t.code == 9 ? 0 : (t.code == 340 ? 0 : (t.code >= 44 && t.code <= 50 ? 1 : 2));
            if (kind == 0)
                t.value = s;
            else if (kind == 1)
                t.value = r;
            else
                t.value = v;
            d.extra.push_back(std::move(t));
        }
        m_dashes.push_back(std::move(d));
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbLinetypeTableRecord"));
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(commonFlags()));
    f->writeString(AcDb::kDxfDescription, m_comments.c_str());
    f->writeInt16(AcDb::kDxfLinetypeAlign, 65);
    f->writeInt16(AcDb::kDxfLinetypePDC, static_cast<Adesk::Int16>(m_dashes.size()));
    f->writeDouble(AcDb::kDxfReal, m_patternLength);
    for (const Dash& d : m_dashes) {
        f->writeDouble(AcDb::kDxfDashLength, d.length);
        f->writeInt16(acdbDxfCode(74), static_cast<Adesk::Int16>(d.shapeFlags));
        acdbWriteTags(f, d.extra);
    }
    return f->filerStatus();
}

Acad::ErrorStatus AcDbLinetypeTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbLinetypeTableRecord"));
    AcDbTagList tags;
    acdbReadTags(f, tags);
    m_dashes.clear();
    for (const AcDbTag& t : tags) {
        switch (t.code) {
        case 2: setName(t.asText().c_str()); break;
        case 70: setCommonFlags(static_cast<int>(t.asInt())); break;
        case 3: m_comments = t.asText(); break;
        case 40: m_patternLength = t.asReal(); break;
        case 49: m_dashes.push_back(Dash{t.asReal(), 0, {}}); break;
        case 74:
            if (!m_dashes.empty())
                m_dashes.back().shapeFlags = static_cast<int>(t.asInt());
            break;
        case 72:
        case 73: break;
        default:
            if (!m_dashes.empty())
                m_dashes.back().extra.push_back(t);
            break;
        }
    }
    return f->filerStatus();
}
