// The holders of records of unknown kinds.
#include "host/dxf/DxfRawObject.h"

#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/dxf/DxfProxyGraphics.h"
#include "host/dxf/DxfWideText.h"
#include "host/rx/AcRxBoiler.h"

ACRX_DXF_DEFINE_MEMBERS(DxfRawEntity, AcDbProxyEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ACAD_PROXY_ENTITY, "")
ACRX_DXF_DEFINE_MEMBERS(DxfRawObject, AcDbObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 0,
                        ACAD_PROXY_OBJECT, "")

namespace {

// Bounds the record a corrupt undo or copy stream could claim.
constexpr Adesk::UInt32 kMaxRawTags = 1u << 24;

Acad::ErrorStatus writeRecord(AcDbDwgFiler* filer, const DxfRawRecord& record)
{
    filer->writeString(record.dxfName.c_str());
    filer->writeBool(record.hasClass);
    filer->writeString(record.classInfo.dxfName.c_str());
    filer->writeString(record.classInfo.className.c_str());
    filer->writeString(record.classInfo.appName.c_str());
    filer->writeInt32(record.classInfo.proxyFlags);
    filer->writeBool(record.classInfo.wasProxy);
    filer->writeBool(record.classInfo.isEntity);
    filer->writeUInt32(static_cast<Adesk::UInt32>(record.tags.size()));
    for (const DxfRawTag& tag : record.tags) {
        filer->writeInt16(static_cast<Adesk::Int16>(tag.code));
        filer->writeBinaryChunk(tag.value.data(), static_cast<Adesk::UInt32>(tag.value.size()));
    }
    return filer->filerStatus();
}

Acad::ErrorStatus readRecord(AcDbDwgFiler* filer, DxfRawRecord& record)
{
    DxfRawRecord read;
    filer->readString(read.dxfName);
    filer->readBool(&read.hasClass);
    filer->readString(read.classInfo.dxfName);
    filer->readString(read.classInfo.className);
    filer->readString(read.classInfo.appName);
    Adesk::Int32 flags = 0;
    filer->readInt32(&flags);
    read.classInfo.proxyFlags = flags;
    filer->readBool(&read.classInfo.wasProxy);
    filer->readBool(&read.classInfo.isEntity);
    Adesk::UInt32 count = 0;
    filer->readUInt32(&count);
    if (filer->filerStatus() != Acad::eOk)
        return filer->filerStatus();
    if (count > kMaxRawTags) {
        filer->setFilerStatus(Acad::eInvalidInput);
        return Acad::eInvalidInput;
    }
    for (Adesk::UInt32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
        Adesk::Int16 code = 0;
        filer->readInt16(&code);
        char* bytes = nullptr;
        Adesk::UInt32 size = 0;
        if (filer->readBinaryChunk(&bytes, size) == Acad::eOk)
            read.tags.push_back({code, std::string(bytes ? bytes : "", bytes ? size : 0)});
        delete[] bytes;
    }
    if (filer->filerStatus() == Acad::eOk)
        record = std::move(read);
    return filer->filerStatus();
}

Acad::ErrorStatus writeTags(AcDbDxfFiler* filer, const DxfRawRecord& record)
{
    for (const DxfRawTag& tag : record.tags)
        filer->writeString(acdbDxfCode(tag.code), dxfWide(tag.value).c_str());
    return filer->filerStatus();
}

}  // namespace

DxfRawEntity::DxfRawEntity(DxfRawRecord record) : m_record(std::move(record))
{
    const DxfClassInfo& info = m_record.classInfo;
    setOriginalClass(info.className.c_str(), m_record.dxfName.c_str(), info.appName.c_str(),
                     m_record.hasClass ? info.proxyFlags : kNoOperation);
    // The picture its class left, so that the entity still draws; the groups stay as read.
    setGraphicsMetafile(dxfProxyGraphicsOfTags(m_record.tags));
}

Acad::ErrorStatus DxfRawEntity::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbProxyEntity::dwgInFields(filer);
    return es != Acad::eOk ? es : readRecord(filer, m_record);
}

Acad::ErrorStatus DxfRawEntity::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbProxyEntity::dwgOutFields(filer);
    return es != Acad::eOk ? es : writeRecord(filer, m_record);
}

Acad::ErrorStatus DxfRawEntity::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    return writeTags(filer, m_record);
}

Acad::ErrorStatus DxfRawObject::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer);
    return es != Acad::eOk ? es : readRecord(filer, m_record);
}

Acad::ErrorStatus DxfRawObject::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer);
    return es != Acad::eOk ? es : writeRecord(filer, m_record);
}

Acad::ErrorStatus DxfRawObject::dxfOutFields(AcDbDxfFiler* filer) const
{
    assertReadEnabled();
    return writeTags(filer, m_record);
}

const DxfRawRecord* dxfRawRecordOf(const AcDbObject* object)
{
    if (const DxfRawEntity* entity = DxfRawEntity::cast(object))
        return &entity->record();
    if (const DxfRawObject* other = DxfRawObject::cast(object))
        return &other->record();
    return nullptr;
}
