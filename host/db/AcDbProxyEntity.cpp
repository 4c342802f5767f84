// AcDbProxyEntity: storage and filing of a proxy's original record and graphics.
#include "host/db/AcDbProxyEntity.h"

#include <algorithm>
#include <cstring>

#include "host/db/AcDbCurveGeom.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/rx/acutPrintf.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbProxyEntity, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ACAD_PROXY_ENTITY, "")

namespace {

void writeChunked(AcDbDwgFiler* filer, const std::vector<Adesk::UInt8>& bytes)
{
    filer->writeUInt32(static_cast<Adesk::UInt32>(bytes.size()));
    if (!bytes.empty())
        filer->writeBytes(bytes.data(), bytes.size());
}

void readChunked(AcDbDwgFiler* filer, std::vector<Adesk::UInt8>& bytes)
{
    Adesk::UInt32 n = 0;
    bytes.clear();
    if (filer->readUInt32(&n) != Acad::eOk || n == 0)
        return;
    // Bounded by what the stream can hold: a damaged size fails in readBytes below.
    if (n > (1u << 30)) {
        filer->setFilerStatus(Acad::eFilerError);
        return;
    }
    bytes.resize(n);
    if (filer->readBytes(bytes.data(), n) != Acad::eOk)
        bytes.clear();
}

}  // namespace

ACHAR* AcDbProxyEntity::originalClassName() const { assertReadEnabled(); return acutNewString(m_className.c_str()); }
ACHAR* AcDbProxyEntity::originalDxfName() const { assertReadEnabled(); return acutNewString(m_dxfName.c_str()); }
ACHAR* AcDbProxyEntity::applicationDescription() const { assertReadEnabled(); return acutNewString(m_appName.c_str()); }
const std::wstring& AcDbProxyEntity::originalClassNameString() const { assertReadEnabled(); return m_className; }
const std::wstring& AcDbProxyEntity::originalDxfNameString() const { assertReadEnabled(); return m_dxfName; }
int AcDbProxyEntity::proxyFlags() const { assertReadEnabled(); return m_flags; }
int AcDbProxyEntity::originalClassId() const { assertReadEnabled(); return m_classId; }
int AcDbProxyEntity::originalDataFormat() const { assertReadEnabled(); return m_dataFormat; }
Adesk::UInt32 AcDbProxyEntity::drawingFormat() const { assertReadEnabled(); return m_drawingFormat; }
const std::vector<Adesk::UInt8>& AcDbProxyEntity::data() const { assertReadEnabled(); return m_data; }
const AcDbObjectIdArray& AcDbProxyEntity::dataObjectIds() const { assertReadEnabled(); return m_ids; }
const std::vector<Adesk::UInt8>& AcDbProxyEntity::graphicsMetafile() const { assertReadEnabled(); return m_graphics; }

Adesk::UInt32 AcDbProxyEntity::dataSizeInBits() const
{
    assertReadEnabled();
    return m_dataBits ? m_dataBits : static_cast<Adesk::UInt32>(m_data.size() * 8);
}

AcDbProxyEntity::GraphicsMetafileType AcDbProxyEntity::graphicsMetafileType() const
{
    assertReadEnabled();
    return m_graphics.empty() ? kNoMetafile : kFullGraphics;
}

Acad::ErrorStatus AcDbProxyEntity::setOriginalClass(const ACHAR* className, const ACHAR* dxfName,
                                                    const ACHAR* appDescription, int flags)
{
    assertWriteEnabled();
    m_className = className ? className : L"";
    m_dxfName = dxfName ? dxfName : L"";
    m_appName = appDescription ? appDescription : L"";
    m_flags = flags;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbProxyEntity::setOriginalClassId(int classId) { assertWriteEnabled(); m_classId = classId; return Acad::eOk; }
Acad::ErrorStatus AcDbProxyEntity::setOriginalDataFormat(int format) { assertWriteEnabled(); m_dataFormat = format; return Acad::eOk; }
Acad::ErrorStatus AcDbProxyEntity::setDrawingFormat(Adesk::UInt32 format) { assertWriteEnabled(); m_drawingFormat = format; return Acad::eOk; }

Acad::ErrorStatus AcDbProxyEntity::setData(const std::vector<Adesk::UInt8>& bytes)
{
    assertWriteEnabled();
    m_data = bytes;
    m_dataBits = 0;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbProxyEntity::setDataObjectIds(const AcDbObjectIdArray& ids)
{
    assertWriteEnabled();
    m_ids = ids;
    m_idCodes.assign(static_cast<size_t>(ids.length()), static_cast<short>(AcDb::kDxfSoftPointerId));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbProxyEntity::setGraphicsMetafile(const std::vector<Adesk::UInt8>& bytes)
{
    assertWriteEnabled();
    m_graphics = bytes;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbProxyEntity::transformBy(const AcGeMatrix3d&)
{
    // The original data cannot follow a transformation it does not know of.
    return Acad::eNotAllowedForThisProxy;
}

void AcDbProxyEntity::list() const
{
    assertReadEnabled();
    acutPrintf(L"\n                  ACAD_PROXY_ENTITY  Layer: \"%s\"", layerName().c_str());
    acutPrintf(L"\n                  original class: %s (%s)", m_className.c_str(), m_dxfName.c_str());
    acutPrintf(L"\n                  application: %s", m_appName.c_str());
}

Acad::ErrorStatus AcDbProxyEntity::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeString(m_className.c_str());
    filer->writeString(m_dxfName.c_str());
    filer->writeString(m_appName.c_str());
    filer->writeInt32(m_flags);
    filer->writeInt32(m_classId);
    filer->writeInt32(m_dataFormat);
    filer->writeUInt32(m_drawingFormat);
    filer->writeUInt32(m_dataBits);
    writeChunked(filer, m_data);
    writeChunked(filer, m_graphics);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_ids.length()));
    for (int i = 0; i < m_ids.length(); ++i) {
        short code = i < static_cast<int>(m_idCodes.size()) ? m_idCodes[i] : 330;
        filer->writeInt16(code);
        switch (code / 10) {
        case 36: filer->writeHardOwnershipId(m_ids[i]); break;
        case 35: filer->writeSoftOwnershipId(m_ids[i]); break;
        case 34: filer->writeHardPointerId(m_ids[i]); break;
        default: filer->writeSoftPointerId(m_ids[i]); break;
        }
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbProxyEntity::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->readString(m_className);
    filer->readString(m_dxfName);
    filer->readString(m_appName);
    Adesk::Int32 flags = 0, classId = 0, format = 0;
    filer->readInt32(&flags);
    filer->readInt32(&classId);
    filer->readInt32(&format);
    m_flags = flags;
    m_classId = classId;
    m_dataFormat = format;
    filer->readUInt32(&m_drawingFormat);
    filer->readUInt32(&m_dataBits);
    readChunked(filer, m_data);
    readChunked(filer, m_graphics);
    Adesk::UInt32 n = 0;
    filer->readUInt32(&n);
    m_ids.setLogicalLength(0);
    m_idCodes.clear();
    for (Adesk::UInt32 i = 0; i < n && filer->filerStatus() == Acad::eOk; ++i) {
        Adesk::Int16 code = 330;
        filer->readInt16(&code);
        AcDbObjectId id;
        switch (code / 10) {
        case 36: { AcDbHardOwnershipId v; filer->readHardOwnershipId(&v); id = v; break; }
        case 35: { AcDbSoftOwnershipId v; filer->readSoftOwnershipId(&v); id = v; break; }
        case 34: { AcDbHardPointerId v; filer->readHardPointerId(&v); id = v; break; }
        default: { AcDbSoftPointerId v; filer->readSoftPointerId(&v); id = v; break; }
        }
        if (filer->filerStatus() == Acad::eOk) {
            m_ids.append(id);
            m_idCodes.push_back(code);
        }
    }
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbProxyEntity::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer);
    if (es != Acad::eOk)
        return es;
    filer->writeSubclassMarker(L"AcDbProxyEntity");
    filer->writeInt32(AcDb::kDxfInt32, kProxyEntityClassId);
    filer->writeInt32(acdbDxfCode(91), m_classId);
    if (!m_graphics.empty()) {
        filer->writeInt32(acdbDxfCode(92), static_cast<Adesk::Int32>(m_graphics.size()));
        filer->writeBytes(AcDb::kDxfBinaryChunk, m_graphics.data(), m_graphics.size());
    }
    filer->writeInt32(acdbDxfCode(93), static_cast<Adesk::Int32>(dataSizeInBits()));
    if (!m_data.empty())
        filer->writeBytes(AcDb::kDxfBinaryChunk, m_data.data(), m_data.size());
    for (int i = 0; i < m_ids.length(); ++i)
        filer->writeObjectId(acdbDxfCode(i < static_cast<int>(m_idCodes.size()) ? m_idCodes[i] : 330), m_ids[i]);
    filer->writeInt32(acdbDxfCode(94), 0);
    filer->writeInt32(acdbDxfCode(95), static_cast<Adesk::Int32>(m_drawingFormat));
    filer->writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(m_dataFormat));
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbProxyEntity::dxfInFields(AcDbDxfFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer);
    if (es != Acad::eOk)
        return es;
    m_data.clear();
    m_graphics.clear();
    m_ids.setLogicalLength(0);
    m_idCodes.clear();
    enum class Stream { kNone, kGraphics, kData } stream = Stream::kNone;
    return AcDbCurveGeom::readDxfGroups(filer, [&](const resbuf& rb, const std::wstring&) {
        int code = rb.restype;
        if (code == 310) {
            std::vector<Adesk::UInt8>& target = stream == Stream::kGraphics ? m_graphics : m_data;
            if (stream != Stream::kNone && rb.resval.rbinary.buf && rb.resval.rbinary.clen > 0)
                target.insert(target.end(), rb.resval.rbinary.buf, rb.resval.rbinary.buf + rb.resval.rbinary.clen);
            return Acad::eOk;
        }
        if (code >= 330 && code <= 369) {
            AcDbObjectId id;
            acdbGetObjectId(id, rb.resval.rlname);
            m_ids.append(id);
            m_idCodes.push_back(static_cast<short>(code));
            return Acad::eOk;
        }
        switch (code) {
        case 91: m_classId = rb.resval.rlong; break;
        case 92: stream = Stream::kGraphics; break;
        case 93: stream = Stream::kData; m_dataBits = static_cast<Adesk::UInt32>(rb.resval.rlong); break;
        case 95: m_drawingFormat = static_cast<Adesk::UInt32>(rb.resval.rlong); break;
        case 70: m_dataFormat = rb.resval.rint; break;
        default: break;
        }
        return Acad::eOk;
    });
}
