// Text style records and their DXF form (typeface in the "ACAD" extended data, as usual).
#include "host/win/CaseFold.h"
#include "host/db/AcDbTextStyleTable.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbSymbolTableDefs.h"
#include "host/db/acutads.h"

SV_DEFINE_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, AcDbTextStyleTableIterator)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, ACAD)

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() = default;

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& name) const { name = fileName(); return Acad::eOk; }
const ACHAR* AcDbTextStyleTableRecord::fileName() const { assertReadEnabled(); return m_fileName.c_str(); }
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name)
{
    assertWriteEnabled();
    m_fileName = name ? name : L"";
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(const ACHAR*& name) const { name = bigFontFileName(); return Acad::eOk; }
const ACHAR* AcDbTextStyleTableRecord::bigFontFileName() const { assertReadEnabled(); return m_bigFont.c_str(); }
Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR* name)
{
    assertWriteEnabled();
    m_bigFont = name ? name : L"";
    return Acad::eOk;
}
double AcDbTextStyleTableRecord::textSize() const { assertReadEnabled(); return m_textSize; }
Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size)
{
    if (size < 0)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_textSize = size;
    return Acad::eOk;
}
double AcDbTextStyleTableRecord::xScale() const { assertReadEnabled(); return m_xScale; }
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double w)
{
    if (!(w > 0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_xScale = w;
    return Acad::eOk;
}
double AcDbTextStyleTableRecord::obliquingAngle() const { assertReadEnabled(); return m_oblique; }
Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double a)
{
    assertWriteEnabled();
    m_oblique = a;
    return Acad::eOk;
}
double AcDbTextStyleTableRecord::priorSize() const { assertReadEnabled(); return m_priorSize; }
Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double s)
{
    assertWriteEnabled();
    m_priorSize = s;
    return Acad::eOk;
}
Adesk::UInt8 AcDbTextStyleTableRecord::flagBits() const { assertReadEnabled(); return m_flagBits; }
void AcDbTextStyleTableRecord::setFlagBits(Adesk::UInt8 flags) { assertWriteEnabled(); m_flagBits = flags; }
bool AcDbTextStyleTableRecord::isShapeFile() const { assertReadEnabled(); return m_shapeFile; }
void AcDbTextStyleTableRecord::setIsShapeFile(bool s) { assertWriteEnabled(); m_shapeFile = s; }
bool AcDbTextStyleTableRecord::isVertical() const { assertReadEnabled(); return m_vertical; }
void AcDbTextStyleTableRecord::setIsVertical(bool v) { assertWriteEnabled(); m_vertical = v; }

Acad::ErrorStatus AcDbTextStyleTableRecord::font(ACHAR*& typeface, bool& bold, bool& italic, int& charset,
                                                 int& pitchAndFamily) const
{
    assertReadEnabled();
    typeface = acutNewString(m_typeface.c_str());
    bold = m_bold;
    italic = m_italic;
    charset = m_charset;
    pitchAndFamily = m_pitchAndFamily;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFont(const ACHAR* typeface, bool bold, bool italic, int charset,
                                                    int pitchAndFamily)
{
    assertWriteEnabled();
    m_typeface = typeface ? typeface : L"";
    m_bold = bold;
    m_italic = italic;
    m_charset = charset;
    m_pitchAndFamily = pitchAndFamily;
    return Acad::eOk;
}

bool AcDbTextStyleTableRecord::isTrueType() const
{
    if (!m_typeface.empty())
        return true;
    std::wstring lower;
    for (wchar_t c : m_fileName)
        lower += static_cast<wchar_t>(svwin::ToLowerChar(c));
    auto ends = [&lower](const wchar_t* ext) {
        const std::wstring e = ext;
        return lower.size() >= e.size() && lower.compare(lower.size() - e.size(), e.size(), e) == 0;
    };
    return ends(L".ttf") || ends(L".ttc") || ends(L".otf");
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dwgOutFields(AcDbDwgFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeString(m_fileName.c_str());
    f->writeString(m_bigFont.c_str());
    f->writeDouble(m_textSize);
    f->writeDouble(m_xScale);
    f->writeDouble(m_oblique);
    f->writeDouble(m_priorSize);
    f->writeUInt8(m_flagBits);
    f->writeBool(m_shapeFile);
    f->writeBool(m_vertical);
    f->writeString(m_typeface.c_str());
    f->writeBool(m_bold);
    f->writeBool(m_italic);
    f->writeInt32(m_charset);
    f->writeInt32(m_pitchAndFamily);
    return f->filerStatus();
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dwgInFields(AcDbDwgFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(f);
    if (es != Acad::eOk)
        return es;
    Adesk::Int32 cs = 0, pf = 0;
    f->readString(m_fileName);
    f->readString(m_bigFont);
    f->readDouble(&m_textSize);
    f->readDouble(&m_xScale);
    f->readDouble(&m_oblique);
    f->readDouble(&m_priorSize);
    f->readUInt8(&m_flagBits);
    f->readBool(&m_shapeFile);
    f->readBool(&m_vertical);
    f->readString(m_typeface);
    f->readBool(&m_bold);
    f->readBool(&m_italic);
    f->readInt32(&cs);
    f->readInt32(&pf);
    m_charset = cs;
    m_pitchAndFamily = pf;
    return f->filerStatus();
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dxfOutFields(AcDbDxfFiler* f) const
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(f);
    if (es != Acad::eOk)
        return es;
    f->writeSubclassMarker(ACRX_T("AcDbTextStyleTableRecord"));
    f->writeString(AcDb::kDxfSymbolTableName, name().c_str());
    f->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>((m_shapeFile ? 1 : 0) | (m_vertical ? 4 : 0) | commonFlags()));
    f->writeDouble(AcDb::kDxfTxtSize, m_textSize);
    f->writeDouble(AcDb::kDxfTxtStyleXScale, m_xScale);
    f->writeAngle(AcDb::kDxfAngle, m_oblique);
    f->writeInt16(AcDb::kDxfTxtStyleFlags, m_flagBits);
    f->writeDouble(AcDb::kDxfTxtStylePSize, m_priorSize);
    f->writeString(AcDb::kDxfTextFontFile, m_fileName.c_str());
    f->writeString(AcDb::kDxfTextBigFontFile, m_bigFont.c_str());
    return f->filerStatus();
}

Acad::ErrorStatus AcDbTextStyleTableRecord::dxfInFields(AcDbDxfFiler* f)
{
    Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(f);
    if (es != Acad::eOk)
        return es;
    f->atSubclassData(ACRX_T("AcDbTextStyleTableRecord"));
    resbuf rb;
    bool more = true;
    while (more && !f->atEOF() && f->readResBuf(&rb) == Acad::eOk) {
        switch (rb.restype) {
        case AcDb::kDxfSymbolTableName: setName(rb.resval.rstring); break;
        case AcDb::kDxfInt16:
            m_shapeFile = rb.resval.rint & 1;
            m_vertical = rb.resval.rint & 4;
            setCommonFlags(rb.resval.rint & ~5);
            break;
        case AcDb::kDxfTxtSize: m_textSize = rb.resval.rreal; break;
        case AcDb::kDxfTxtStyleXScale: m_xScale = rb.resval.rreal > 0 ? rb.resval.rreal : 1.0; break;
        case AcDb::kDxfAngle: m_oblique = rb.resval.rreal * M_PI / 180.0; break;
        case AcDb::kDxfTxtStyleFlags: m_flagBits = static_cast<Adesk::UInt8>(rb.resval.rint); break;
        case AcDb::kDxfTxtStylePSize: m_priorSize = rb.resval.rreal; break;
        case AcDb::kDxfTextFontFile: m_fileName = rb.resval.rstring ? rb.resval.rstring : L""; break;
        case AcDb::kDxfTextBigFontFile: m_bigFont = rb.resval.rstring ? rb.resval.rstring : L""; break;
        case AcDb::kDxfSubclass:
            f->pushBackItem();
            more = false;
            break;
        default: break;
        }
    }
    return f->filerStatus();
}
