// AcDbProxyEntity: stands in for an entity whose class is not loaded; it keeps the original
// record and graphics untouched so that they are written back as they came.
#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbEntity.h"

class AcDbProxyEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyEntity);
    enum GraphicsMetafileType { kNoMetafile = 0, kBoundingBox = 1, kFullGraphics = 2 };
    // What may be done to a proxy, as its class's proxy flags say.
    enum ProxyFlags {
        kNoOperation = 0,
        kEraseAllowed = 0x1,
        kTransformAllowed = 0x2,
        kColorChangeAllowed = 0x4,
        kLayerChangeAllowed = 0x8,
        kLinetypeChangeAllowed = 0x10,
        kLinetypeScaleChangeAllowed = 0x20,
        kVisibilityChangeAllowed = 0x40,
        kCloningAllowed = 0x80,
        kLineWeightChangeAllowed = 0x100,
        kPlotStyleNameChangeAllowed = 0x200,
        kAllButCloningAllowed = 0x37F,
        kDisableProxyWarning = 0x400,
        kMaterialChangeAllowed = 0x800,
        kAllAllowedBits = 0xBFF,
    };
    // The DXF class number of ACAD_PROXY_ENTITY records (group 90).
    static constexpr int kProxyEntityClassId = 498;

    AcDbProxyEntity() = default;

    // The original class: C++ class name, DXF name, application description, proxy flags.
    // Copies the caller deletes with delete[].
    ACHAR* originalClassName() const;
    ACHAR* originalDxfName() const;
    ACHAR* applicationDescription() const;
    const std::wstring& originalClassNameString() const;
    const std::wstring& originalDxfNameString() const;
    int proxyFlags() const;
    Acad::ErrorStatus setOriginalClass(const ACHAR* className, const ACHAR* dxfName, const ACHAR* appDescription,
                                       int proxyFlags);
    // The class number the original record had in its file's CLASSES (DXF 91).
    int originalClassId() const;
    Acad::ErrorStatus setOriginalClassId(int classId);
    // 0: the record is the original's dwgOutFields stream; 1: its DXF groups.
    int originalDataFormat() const;
    Acad::ErrorStatus setOriginalDataFormat(int format);
    // The drawing format the record was written for (DXF 95).
    Adesk::UInt32 drawingFormat() const;
    Acad::ErrorStatus setDrawingFormat(Adesk::UInt32 format);

    // The original record: the bytes of its own part and the ids it refers to.
    const std::vector<Adesk::UInt8>& data() const;
    Acad::ErrorStatus setData(const std::vector<Adesk::UInt8>& bytes);
    // The size in bits as the file gave it (DXF 93); bytes * 8 unless set.
    Adesk::UInt32 dataSizeInBits() const;
    const AcDbObjectIdArray& dataObjectIds() const;
    Acad::ErrorStatus setDataObjectIds(const AcDbObjectIdArray& ids);
    // The proxy graphics (DXF 92 and 310).
    GraphicsMetafileType graphicsMetafileType() const;
    const std::vector<Adesk::UInt8>& graphicsMetafile() const;
    Acad::ErrorStatus setGraphicsMetafile(const std::vector<Adesk::UInt8>& bytes);

    // What the flags allow: transformBy refuses without kTransformAllowed (eNotAllowedForThisProxy).
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbProxyEntity", 90 498, 91 class id, 92 + 310 graphics, 93 + 310 data, the ids
    // (330/340/350/360 as they came), 94 0, 95 drawing format, 70 data format.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    std::wstring m_className;
    std::wstring m_dxfName;
    std::wstring m_appName;
    int m_flags = kNoOperation;
    int m_classId = 500;
    int m_dataFormat = 0;
    Adesk::UInt32 m_drawingFormat = 0;
    std::vector<Adesk::UInt8> m_data;
    Adesk::UInt32 m_dataBits = 0;
    AcDbObjectIdArray m_ids;
    std::vector<short> m_idCodes;  // the group code each id came with (330..369)
    std::vector<Adesk::UInt8> m_graphics;
};
