// AcDbDimension: text, style, overrides and the filing every dimension kind shares.
#include "host/db/AcDbDimension.h"

#include <cmath>
#include <cstring>
#include <cwctype>

#include "host/db/AcDbAnnotativeObjectPE.h"
#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)

namespace {

constexpr int kUserTextFlag = 128;
constexpr int kSingleRefFlag = 32;

bool isAcadApp(const ACHAR* name)
{
    if (!name)
        return false;
    std::wstring s = name;
    for (wchar_t& c : s)
        c = static_cast<wchar_t>(std::towupper(c));
    return s == L"ACAD";
}

bool isDstyleStart(const resbuf* rb)
{
    return rb && rb->restype == 1000 && rb->resval.rstring && std::wcscmp(rb->resval.rstring, L"DSTYLE") == 0;
}

// The last link of the DSTYLE block that starts at rb: its closing brace, or the last link
// of the application's section when the brace is missing.
resbuf* dstyleEnd(resbuf* rb)
{
    int depth = 0;
    resbuf* last = rb;
    for (resbuf* p = rb->rbnext; p && p->restype != 1001; p = p->rbnext) {
        last = p;
        if (p->restype == 1002 && p->resval.rstring) {
            if (p->resval.rstring[0] == L'{')
                ++depth;
            else if (p->resval.rstring[0] == L'}' && --depth <= 0)
                return p;
        }
    }
    return last;
}

// Legacy name codes of the arrow blocks, as older files write them.
int arrowCodeFromLegacy(int code)
{
    return code == 5 ? 342 : code == 6 ? 343 : code == 7 ? 344 : code;
}

}  // namespace

AcDbDimension::AcDbDimension()
{
    acdbInitAnnotativeObjectPE();
    m_over.setToDefaults(AcDb::kEnglish);
    m_effective.setToDefaults(AcDb::kEnglish);
}

ACHAR* AcDbDimension::dimensionText() const
{
    assertReadEnabled();
    return acutNewString(m_text.c_str());
}

const std::wstring& AcDbDimension::dimensionTextString() const { assertReadEnabled(); return m_text; }

Acad::ErrorStatus AcDbDimension::setDimensionText(const ACHAR* text)
{
    assertWriteEnabled();
    m_text = text ? text : L"";
    return Acad::eOk;
}

AcGePoint3d AcDbDimension::textPosition() const { assertReadEnabled(); return m_textPosition; }
Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& p) { assertWriteEnabled(); m_textPosition = p; return Acad::eOk; }
bool AcDbDimension::isUsingDefaultTextPosition() const { assertReadEnabled(); return !m_userTextPosition; }
Acad::ErrorStatus AcDbDimension::useDefaultTextPosition() { assertWriteEnabled(); m_userTextPosition = false; return Acad::eOk; }
Acad::ErrorStatus AcDbDimension::useSetTextPosition() { assertWriteEnabled(); m_userTextPosition = true; return Acad::eOk; }
double AcDbDimension::textRotation() const { assertReadEnabled(); return m_textRotation; }
Acad::ErrorStatus AcDbDimension::setTextRotation(double a) { assertWriteEnabled(); m_textRotation = a; return Acad::eOk; }
double AcDbDimension::horizontalRotation() const { assertReadEnabled(); return m_horizontalRotation; }
Acad::ErrorStatus AcDbDimension::setHorizontalRotation(double a) { assertWriteEnabled(); m_horizontalRotation = a; return Acad::eOk; }
int AcDbDimension::textAttachment() const { assertReadEnabled(); return m_attachment; }
int AcDbDimension::textLineSpacingStyle() const { assertReadEnabled(); return m_spacingStyle; }
double AcDbDimension::textLineSpacingFactor() const { assertReadEnabled(); return m_spacingFactor; }
AcGeVector3d AcDbDimension::normal() const { assertReadEnabled(); return m_normal; }
double AcDbDimension::elevation() const { assertReadEnabled(); return m_elevation; }
Acad::ErrorStatus AcDbDimension::setElevation(double e) { assertWriteEnabled(); m_elevation = e; return Acad::eOk; }
AcDbObjectId AcDbDimension::dimBlockId() const { assertReadEnabled(); return m_blockId; }
Acad::ErrorStatus AcDbDimension::setDimBlockId(AcDbObjectId id) { assertWriteEnabled(); m_blockId = id; return Acad::eOk; }
const std::wstring& AcDbDimension::dimBlockName() const { assertReadEnabled(); return m_blockName; }
AcDbObjectId AcDbDimension::dimensionStyle() const { assertReadEnabled(); return m_style; }
Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId id) { assertWriteEnabled(); m_style = id; return Acad::eOk; }
bool AcDbDimension::isOverridden(int code) const { assertReadEnabled(); return m_overridden.count(code) != 0; }

Acad::ErrorStatus AcDbDimension::setDimBlockName(const ACHAR* name)
{
    assertWriteEnabled();
    m_blockName = name ? name : L"";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setTextAttachment(int attachment)
{
    if (attachment < 1 || attachment > 9)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_attachment = attachment;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setTextLineSpacingStyle(int style)
{
    if (style < 1 || style > 2)
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_spacingStyle = style;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setTextLineSpacingFactor(double factor)
{
    if (!(factor >= 0.25 && factor <= 4.0))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    m_spacingFactor = factor;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setNormal(const AcGeVector3d& normal)
{
    return AcDbCurveGeom::setNormal(*this, m_normal, normal);
}

void AcDbDimension::getEcs(AcGeMatrix3d& retVal) const
{
    assertReadEnabled();
    retVal = AcGeMatrix3d::planeToWorld(m_normal);
}

// Style and overrides ----------------------------------------------------------------------

AcDbDimVars AcDbDimension::styleVars() const
{
    AcDbDimVars vars;
    AcDbDatabase* db = database();
    vars.setToDefaults(db ? db->measurement() : AcDb::kEnglish);
    AcDbObjectId styleId = m_style;
    if (styleId.isNull() && db)
        styleId = db->dimstyle();
    AcDbDimStyleTableRecord* rec = nullptr;
    if (!styleId.isNull() && acdbOpenObject(rec, styleId, AcDb::kForRead, true) == Acad::eOk) {
        vars = rec->vars();
        rec->close();
    }
    return vars;
}

AcDbDimVars AcDbDimension::effectiveVars() const
{
    assertReadEnabled();
    AcDbDimVars vars = styleVars();
    for (int code : m_overridden)
        vars.copyValue(code, m_over);
    return vars;
}

void AcDbDimension::fetchEffective(int dxfCode) const
{
    if (m_overridden.count(dxfCode)) {
        m_effective.copyValue(dxfCode, m_over);
        return;
    }
    AcDbDimVars vars = styleVars();
    m_effective.copyValue(dxfCode, vars);
}

Acad::ErrorStatus AcDbDimension::setDimVarArg2(int code, AcDbObjectId blockId)
{
    assertWriteEnabled();
    AcDbDimVarValue v;
    v.text = AcDbCurveGeom::recordName(blockId);
    Acad::ErrorStatus es = m_over.setValue(code, v);
    if (es == Acad::eOk)
        m_overridden.insert(code);
    return es;
}

Acad::ErrorStatus AcDbDimension::setDimstyleData(const AcDbDimStyleTableRecord* record)
{
    if (!record)
        return Acad::eNullObjectPointer;
    assertWriteEnabled();
    const AcDbDimVars& wanted = record->vars();
    AcDbDimVars base = styleVars();
    int count = 0;
    const AcDbDimVarInfo* infos = AcDbDimVars::infos(count);
    for (int i = 0; i < count; ++i) {
        int code = infos[i].dxfCode;
        if (wanted.sameValue(code, base)) {
            m_overridden.erase(code);
        } else {
            m_over.copyValue(code, wanted);
            m_overridden.insert(code);
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::setDimstyleData(AcDbObjectId recordId)
{
    AcDbDimStyleTableRecord* rec = nullptr;
    Acad::ErrorStatus es = acdbOpenObject(rec, recordId, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    es = setDimstyleData(rec);
    rec->close();
    return es;
}

Acad::ErrorStatus AcDbDimension::getDimstyleData(AcDbDimStyleTableRecord*& record) const
{
    assertReadEnabled();
    record = new AcDbDimStyleTableRecord();
    record->setVars(effectiveVars());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::removeOverride(int dxfCode)
{
    assertWriteEnabled();
    return m_overridden.erase(dxfCode) ? Acad::eOk : Acad::eKeyNotFound;
}

void AcDbDimension::removeAllOverrides()
{
    assertWriteEnabled();
    m_overridden.clear();
}

Acad::ErrorStatus AcDbDimension::measurement(double& value) const
{
    assertReadEnabled();
    value = rawMeasurement();
    if (isLinearMeasure())
        value *= dimlfac();
    return Acad::eOk;
}

// Overrides as extended data ---------------------------------------------------------------

resbuf* AcDbDimension::overridesToXData() const
{
    if (m_overridden.empty())
        return nullptr;
    AcDbDatabase* db = database();
    resbuf* head = acutNewRb(1000);
    head->resval.rstring = acutNewString(L"DSTYLE");
    resbuf* tail = head;
    auto add = [&tail](resbuf* rb) {
        tail->rbnext = rb;
        tail = rb;
        return rb;
    };
    add(acutNewRb(1002))->resval.rstring = acutNewString(L"{");
    for (int code : m_overridden) {
        const AcDbDimVarInfo* info = AcDbDimVars::findByCode(code);
        AcDbDimVarValue v;
        if (!info || m_over.getValue(code, v) != Acad::eOk)
            continue;
        std::wstring kind = info->kind;
        resbuf* value = nullptr;
        int writtenCode = code;
        if (kind == L"Real") {
            value = acutNewRb(1040);
            value->resval.rreal = v.real;
        } else if (kind == L"Str") {
            value = acutNewRb(1000);
            value->resval.rstring = acutNewString(v.text.c_str());
        } else if (kind == L"Block" || kind == L"Style" || kind == L"Ltype") {
            AcDbObjectId id = kind == L"Block" ? acdbArrowBlockId(db, v.text.c_str()) : v.id;
            if (!id.isNull() || (kind == L"Block" && v.text.empty())) {
                ACHAR hex[17] = L"0";
                if (!id.isNull())
                    id.handle().getIntoAsciiBuffer(hex, 17);
                value = acutNewRb(1005);
                value->resval.rstring = acutNewString(hex);
            } else if (kind == L"Block" && code != 341) {
                // An arrow block the drawing lacks goes by name under its legacy code.
                writtenCode = code == 342 ? 5 : code == 343 ? 6 : 7;
                value = acutNewRb(1000);
                value->resval.rstring = acutNewString(v.text.c_str());
            }
        } else {
            value = acutNewRb(1070);
            value->resval.rint = static_cast<short>(v.integer);
        }
        if (!value)
            continue;
        add(acutNewRb(1070))->resval.rint = static_cast<short>(writtenCode);
        add(value);
    }
    add(acutNewRb(1002))->resval.rstring = acutNewString(L"}");
    return head;
}

void AcDbDimension::overridesFromXData(const resbuf* dstyle)
{
    m_overridden.clear();
    AcDbDatabase* db = database();
    const resbuf* p = dstyle ? dstyle->rbnext : nullptr;
    if (p && p->restype == 1002)
        p = p->rbnext;  // "{"
    for (; p && p->rbnext && p->restype == 1070; p = p->rbnext->rbnext) {
        int code = arrowCodeFromLegacy(p->resval.rint);
        const resbuf* val = p->rbnext;
        const AcDbDimVarInfo* info = AcDbDimVars::findByCode(code);
        if (!info)
            continue;  // a variable this host does not know: dropped
        std::wstring kind = info->kind;
        AcDbDimVarValue v;
        if (val->restype == 1040) {
            v.real = val->resval.rreal;
        } else if (val->restype == 1070) {
            v.integer = val->resval.rint;
        } else if (val->restype == 1071) {
            v.integer = val->resval.rlong;
        } else if (val->restype == 1000) {
            v.text = val->resval.rstring ? val->resval.rstring : L"";
        } else if (val->restype == 1005) {
            AcDbObjectId id;
            AcDbHandle h(val->resval.rstring ? val->resval.rstring : L"0");
            if (db && !h.isNull())
                db->getAcDbObjectId(id, false, h);
            if (kind == L"Block")
                v.text = AcDbCurveGeom::recordName(id);
            else
                v.id = id;
        } else {
            continue;
        }
        if (m_over.setValue(code, v) == Acad::eOk)
            m_overridden.insert(code);
    }
}

resbuf* AcDbDimension::xData(const ACHAR* appName) const
{
    resbuf* base = AcDbObject::xData(appName);
    if (m_overridden.empty() || (appName && !isAcadApp(appName)))
        return base;
    resbuf* items = overridesToXData();
    // Into the ACAD section if there is one, else a new section at the end.
    resbuf* last = nullptr;
    for (resbuf* p = base; p; p = p->rbnext) {
        if (p->restype == 1001 && isAcadApp(p->resval.rstring)) {
            resbuf* end = p;
            while (end->rbnext && end->rbnext->restype != 1001)
                end = end->rbnext;
            resbuf* tail = items;
            while (tail->rbnext)
                tail = tail->rbnext;
            tail->rbnext = end->rbnext;
            end->rbnext = items;
            return base;
        }
        last = p;
    }
    resbuf* app = acutNewRb(1001);
    app->resval.rstring = acutNewString(L"ACAD");
    app->rbnext = items;
    if (last)
        last->rbnext = app;
    return base ? base : app;
}

// Takes the DSTYLE part out of the ACAD section of chain (a copy the caller owns) and makes
// it the overrides. A chain whose ACAD section is empty clears them.
void AcDbDimension::takeDstyle(resbuf* chain)
{
    bool inAcad = false, acadEmpty = false, sawDstyle = false;
    resbuf* prev = nullptr;
    for (resbuf* p = chain; p;) {
        if (p->restype == 1001) {
            inAcad = isAcadApp(p->resval.rstring);
            acadEmpty = acadEmpty || (inAcad && (!p->rbnext || p->rbnext->restype == 1001));
        } else if (inAcad && prev && isDstyleStart(p)) {
            resbuf* end = dstyleEnd(p);
            resbuf* after = end->rbnext;
            end->rbnext = nullptr;
            if (!sawDstyle)
                overridesFromXData(p);
            sawDstyle = true;
            acutRelRb(p);
            prev->rbnext = after;
            p = after;
            continue;
        }
        prev = p;
        p = p->rbnext;
    }
    if (acadEmpty && !sawDstyle)
        m_overridden.clear();
}

Acad::ErrorStatus AcDbDimension::setXData(const resbuf* xdata)
{
    if (isDatabaseResident() && !isWriteEnabled())
        return Acad::eNotOpenForWrite;
    resbuf* copy = acutCopyRb(xdata);
    takeDstyle(copy);
    Acad::ErrorStatus es = AcDbObject::setXData(copy);
    acutRelRb(copy);
    return es;
}

void AcDbDimension::composeForLoad()
{
    resbuf* acad = AcDbObject::xData(L"ACAD");
    bool found = false;
    for (resbuf* p = acad; p; p = p->rbnext)
        found = found || isDstyleStart(p);
    if (found) {
        takeDstyle(acad);
        setXDataAsRead(acad);
    }
    acutRelRb(acad);
}

// Geometry ------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDimension::transformBy(const AcGeMatrix3d& xform)
{
    AcGeVector3d n;
    if (!AcDbCurveGeom::unitNormal(xform * m_normal, n))
        return Acad::eInvalidInput;
    assertWriteEnabled();
    for (int i = 0; i < numDefPoints(); ++i)
        setDefPoint(i, xform * defPoint(i));
    m_textPosition.transformBy(xform);
    transformKind(xform);
    m_normal = n;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    assertReadEnabled();
    for (int i = 0; i < numDefPoints(); ++i)
        gripPoints.append(defPoint(i));
    gripPoints.append(m_textPosition);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDimension::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    assertWriteEnabled();
    for (int i = 0; i < indices.length(); ++i) {
        int k = indices[i];
        if (k >= 0 && k < numDefPoints()) {
            setDefPoint(k, defPoint(k) + offset);
        } else if (k == numDefPoints()) {
            m_textPosition += offset;
            m_userTextPosition = true;
        }
    }
    return Acad::eOk;
}

void AcDbDimension::list() const
{
    assertReadEnabled();
    double m = 0.0;
    measurement(m);
    acutPrintf(L"\n                  DIMENSION  Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n                  type: %s", isA()->name());
    acutPrintf(L"\n                  style: \"%s\"", AcDbCurveGeom::recordName(m_style).c_str());
    acutPrintf(L"\n                  measurement: %.4f", m);
    if (!m_text.empty())
        acutPrintf(L"\n                  text: %s", m_text.c_str());
}

// Filing ----------------------------------------------------------------------------------

Acad::ErrorStatus AcDbDimension::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeString(m_text.c_str());
    filer->writePoint3d(m_textPosition);
    filer->writeBool(m_userTextPosition);
    filer->writeDouble(m_textRotation);
    filer->writeDouble(m_horizontalRotation);
    filer->writeInt16(static_cast<Adesk::Int16>(m_attachment));
    filer->writeInt16(static_cast<Adesk::Int16>(m_spacingStyle));
    filer->writeDouble(m_spacingFactor);
    filer->writeVector3d(m_normal);
    filer->writeDouble(m_elevation);
    filer->writeHardPointerId(m_blockId);
    filer->writeString(m_blockName.c_str());
    filer->writeHardPointerId(m_style);
    m_over.dwgOutFields(filer);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_overridden.size()));
    for (int code : m_overridden)
        filer->writeInt16(static_cast<Adesk::Int16>(code));
    dwgOutKind(filer);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimension::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readString(m_text);
    filer->readPoint3d(&m_textPosition);
    filer->readBool(&m_userTextPosition);
    filer->readDouble(&m_textRotation);
    filer->readDouble(&m_horizontalRotation);
    Adesk::Int16 att = 5, spacing = 1;
    filer->readInt16(&att);
    filer->readInt16(&spacing);
    m_attachment = att;
    m_spacingStyle = spacing;
    filer->readDouble(&m_spacingFactor);
    filer->readVector3d(&m_normal);
    filer->readDouble(&m_elevation);
    AcDbHardPointerId block, style;
    filer->readHardPointerId(&block);
    filer->readString(m_blockName);
    filer->readHardPointerId(&style);
    m_blockId = block;
    m_style = style;
    m_over.dwgInFields(filer);
    Adesk::UInt32 n = 0;
    filer->readUInt32(&n);
    m_overridden.clear();
    for (Adesk::UInt32 i = 0; i < n && filer->filerStatus() == Acad::eOk; ++i) {
        Adesk::Int16 code = 0;
        if (filer->readInt16(&code) == Acad::eOk && AcDbDimVars::findByCode(code))
            m_overridden.insert(code);
    }
    dwgInKind(filer);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimension::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbDimension");
    filer->writeInt16(acdbDxfCode(280), 0);
    std::wstring block = m_blockId.isNull() ? m_blockName : AcDbCurveGeom::recordName(m_blockId);
    if (!block.empty())
        filer->writeString(AcDb::kDxfBlockName, block.c_str());
    std::wstring style = AcDbCurveGeom::recordName(m_style);
    filer->writeString(AcDb::kDxfDimStyleName, style.empty() ? L"Standard" : style.c_str());
    filer->writePoint3d(AcDb::kDxfXCoord, dxfDefPoint());
    filer->writePoint3d(acdbDxfCode(11), AcGeMatrix3d::worldToPlane(m_normal) * m_textPosition);
    filer->writeInt16(AcDb::kDxfInt16,
                      static_cast<Adesk::Int16>(dxfKind() | kSingleRefFlag | (m_userTextPosition ? kUserTextFlag : 0)));
    filer->writeInt16(acdbDxfCode(71), static_cast<Adesk::Int16>(m_attachment));
    filer->writeInt16(acdbDxfCode(72), static_cast<Adesk::Int16>(m_spacingStyle));
    filer->writeDouble(acdbDxfCode(41), m_spacingFactor);
    double m = 0.0;
    measurement(m);
    filer->writeDouble(acdbDxfCode(42), m);
    if (!m_text.empty())
        filer->writeString(AcDb::kDxfText, m_text.c_str());
    if (m_textRotation != 0.0)
        filer->writeAngle(acdbDxfCode(53), m_textRotation);
    if (m_horizontalRotation != 0.0)
        filer->writeAngle(acdbDxfCode(51), m_horizontalRotation);
    if (m_normal != AcGeVector3d::kZAxis)
        filer->writeVector3d(AcDb::kDxfNormalX, m_normal);
    dxfOutKind(filer);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbDimension::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    AcGePoint3d ocsText = AcGeMatrix3d::worldToPlane(m_normal) * m_textPosition;
    const double rad = AcDbCurveGeom::kPi / 180.0;
    es = AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring& subclass) {
        bool common = subclass == L"AcDbDimension" || subclass.empty();
        const ACHAR* s = rb.resval.rstring ? rb.resval.rstring : L"";
        if (!common) {
            dxfInKind(rb, subclass);
            return Acad::eOk;
        }
        switch (rb.restype) {
        case 1: m_text = s; break;
        case 2: m_blockName = s; m_blockId = AcDbCurveGeom::recordId(filer->database(), AcDbCurveGeom::Table::kBlock, s); break;
        case 3: m_style = AcDbCurveGeom::recordId(filer->database(), AcDbCurveGeom::Table::kDimStyle, s); break;
        case 10: setDxfDefPoint(AcDbCurveGeom::point(rb)); break;
        case 11: ocsText = AcDbCurveGeom::point(rb); break;
        case 70: m_userTextPosition = (rb.resval.rint & kUserTextFlag) != 0; break;
        case 71: if (rb.resval.rint >= 1 && rb.resval.rint <= 9) m_attachment = rb.resval.rint; break;
        case 72: if (rb.resval.rint >= 1 && rb.resval.rint <= 2) m_spacingStyle = rb.resval.rint; break;
        case 41: if (rb.resval.rreal >= 0.25 && rb.resval.rreal <= 4.0) m_spacingFactor = rb.resval.rreal; break;
        case 53: m_textRotation = rb.resval.rreal * rad; break;
        case 51: m_horizontalRotation = rb.resval.rreal * rad; break;
        case 210:
            if (!AcDbCurveGeom::unitNormal(AcDbCurveGeom::vector(rb), m_normal))
                m_normal = AcGeVector3d::kZAxis;
            break;
        case 42: case 280: break;
        default:
            if (subclass.empty())
                dxfInKind(rb, subclass);  // files without subclass markers
            break;
        }
        return Acad::eOk;
    });
    m_textPosition = AcGeMatrix3d::planeToWorld(m_normal) * ocsText;
    m_elevation = ocsText.z;
    return es;
}
