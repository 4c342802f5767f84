// Entities and objects of kinds this host does not implement, kept as their groups so that a
// drawing read and saved again still holds them exactly.
#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObject.h"
#include "host/db/AcDbProxyEntity.h"

#include <string>
#include <vector>

// A CLASSES entry as the file gave it; kept with the objects of classes the host lacks.
struct DxfClassInfo {
    std::wstring dxfName;     // 1
    std::wstring className;   // 2
    std::wstring appName;     // 3
    int proxyFlags = 0;       // 90
    bool wasProxy = false;    // 280
    bool isEntity = false;    // 281

    bool operator==(const DxfClassInfo&) const = default;
};

// One group exactly as read: the code and its value text (UTF-8; points as separate x, y, z
// groups).
struct DxfRawTag {
    int code = 0;
    std::string value;
    bool operator==(const DxfRawTag&) const = default;
};

// What both holders keep: the record type (its group 0), the class entry if the file had one,
// and every group after the common part (handle, reactors, extension dictionary, owner) and
// before the extended data. The file layer writes the common part and the extended data from
// the object itself, so those follow the object's current state.
struct DxfRawRecord {
    std::wstring dxfName;
    bool hasClass = false;
    DxfClassInfo classInfo;
    std::vector<DxfRawTag> tags;

    bool operator==(const DxfRawRecord&) const = default;
};

// An entity of an unknown kind, or a custom entity whose class is missing (or asked to be a
// proxy). It is a proxy (AcDbProxyEntity, DXF name ACAD_PROXY_ENTITY) whose original class is
// the record's type and CLASSES entry, with the entry's proxy flags (none for kinds without
// an entry: such data can't be transformed). It keeps its groups, a custom record included,
// and writes them back unchanged under the original type; the proxy graphics among them (92
// and 310 in its AcDbEntity subclass) are what it draws. Copy and undo file them too.
class DxfRawEntity : public AcDbProxyEntity {
public:
    ACRX_DECLARE_MEMBERS(DxfRawEntity);
    DxfRawEntity() = default;
    explicit DxfRawEntity(DxfRawRecord record);

    const DxfRawRecord& record() const { return m_record; }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // Writes the kept groups; reading is done by the file layer, which has the exact text.
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    DxfRawRecord m_record;
};

// An object of an unknown kind (or of a missing custom class), kept the same way.
class DxfRawObject : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(DxfRawObject);
    DxfRawObject() = default;
    explicit DxfRawObject(DxfRawRecord record) : m_record(std::move(record)) {}

    const DxfRawRecord& record() const { return m_record; }
    const std::wstring& originalDxfName() const { return m_record.dxfName; }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    DxfRawRecord m_record;
};

// The record of either holder; null for other objects.
const DxfRawRecord* dxfRawRecordOf(const AcDbObject* object);
