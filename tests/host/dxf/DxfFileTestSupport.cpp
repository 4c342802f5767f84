// Shared pieces of the DXF file tests.
#include "DxfFileTestSupport.h"

#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbLayerTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/db/acutads.h"
#include "host/dxf/DxfFileReader.h"
#include "host/dxf/DxfFileWriter.h"
#include "host/gi/AcGiWorldDraw.h"
#include "host/rx/AcRxBoiler.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

ACRX_DXF_DEFINE_MEMBERS(DxfTestRecordEntity, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, 3071,
                        SV_TEST_RECORD, "SvTest|Record test|Nobody|none")

Acad::ErrorStatus DxfTestRecordEntity::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer);
    if (es != Acad::eOk)
        return es;
    const Data& d = data;
    filer->writeBool(d.flag);
    filer->writeInt8(d.i8);
    filer->writeUInt8(d.u8);
    filer->writeInt16(d.i16);
    filer->writeUInt16(d.u16);
    filer->writeInt32(d.i32);
    filer->writeUInt32(d.u32);
    filer->writeInt64(d.i64);
    filer->writeUInt64(d.u64);
    filer->writeDouble(d.real);
    filer->writePoint2d(d.p2);
    filer->writePoint3d(d.p3);
    filer->writeVector2d(d.v2);
    filer->writeVector3d(d.v3);
    filer->writeScale3d(d.scale);
    filer->writeString(d.text.c_str());
    filer->writeBytes(d.bytes.data(), d.bytes.size());
    filer->writeBinaryChunk(d.chunk.data(), static_cast<Adesk::UInt32>(d.chunk.size()));
    filer->writeAcDbHandle(d.handle);
    filer->writeHardOwnershipId(d.hardOwner);
    filer->writeSoftOwnershipId(d.softOwner);
    filer->writeHardPointerId(d.hardPointer);
    filer->writeSoftPointerId(d.softPointer);
    return filer->filerStatus();
}

Acad::ErrorStatus DxfTestRecordEntity::dwgInFields(AcDbDwgFiler* filer)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer);
    if (es != Acad::eOk)
        return es;
    Data d;
    filer->readBool(&d.flag);
    filer->readInt8(&d.i8);
    filer->readUInt8(&d.u8);
    filer->readInt16(&d.i16);
    filer->readUInt16(&d.u16);
    filer->readInt32(&d.i32);
    filer->readUInt32(&d.u32);
    filer->readInt64(&d.i64);
    filer->readUInt64(&d.u64);
    filer->readDouble(&d.real);
    filer->readPoint2d(&d.p2);
    filer->readPoint3d(&d.p3);
    filer->readVector2d(&d.v2);
    filer->readVector3d(&d.v3);
    filer->readScale3d(&d.scale);
    filer->readString(d.text);
    filer->readBytes(d.bytes.data(), d.bytes.size());
    char* chunk = nullptr;
    Adesk::UInt32 size = 0;
    if (filer->readBinaryChunk(&chunk, size) == Acad::eOk)
        d.chunk.assign(chunk, chunk + size);
    delete[] chunk;
    filer->readAcDbHandle(&d.handle);
    AcDbHardOwnershipId ho;
    AcDbSoftOwnershipId so;
    AcDbHardPointerId hp;
    AcDbSoftPointerId sp;
    filer->readHardOwnershipId(&ho);
    filer->readSoftOwnershipId(&so);
    filer->readHardPointerId(&hp);
    filer->readSoftPointerId(&sp);
    d.hardOwner = ho;
    d.softOwner = so;
    d.hardPointer = hp;
    d.softPointer = sp;
    if (filer->filerStatus() == Acad::eOk)
        data = d;
    return filer->filerStatus();
}

Adesk::Boolean DxfTestRecordEntity::worldDraw(AcGiWorldDraw* draw)
{
    assertReadEnabled();
    const AcGePoint3d start(data.p2.x, data.p2.y, 0.0);
    const AcGePoint3d line[2] = {start, start + AcGeVector3d(10.0, 0.0, 0.0)};
    draw->geometry().polyline(2, line);
    if (draw->regenType() == kAcGiSaveWorldDrawForProxy)
        draw->geometry().circle(start, 2.5, AcGeVector3d::kZAxis);
    return Adesk::kTrue;
}

namespace {

AcDbObjectId append(AcDbBlockTableRecord* space, AcDbEntity* entity)
{
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

}  // namespace

std::unique_ptr<AcDbDatabase> dxfTestDrawing(AcDbObjectId* customId)
{
    DxfTestRecordEntity::desc();
    auto db = std::make_unique<AcDbDatabase>(true, true);

    AcDbLayerTable* layers = nullptr;
    EXPECT_EQ(db->getLayerTable(layers, AcDb::kForWrite), Acad::eOk);
    auto* walls = new AcDbLayerTableRecord();
    walls->setName(L"Wände");
    AcDbObjectId wallsId;
    layers->add(wallsId, walls);
    walls->close();
    layers->close();

    AcDbRegAppTable* apps = nullptr;
    EXPECT_EQ(db->getRegAppTable(apps, AcDb::kForWrite), Acad::eOk);
    auto* app = new AcDbRegAppTableRecord();
    app->setName(L"SVTEST");
    apps->add(app);
    app->close();
    apps->close();

    AcDbTextStyleTable* styles = nullptr;
    EXPECT_EQ(db->getTextStyleTable(styles, AcDb::kForWrite), Acad::eOk);
    auto* narrow = new AcDbTextStyleTableRecord();
    narrow->setName(L"Narrow");
    narrow->setFileName(L"arial.ttf");
    AcDbObjectId narrowId;
    styles->add(narrowId, narrow);
    narrow->close();
    styles->close();

    AcDbBlockTableRecord* model = nullptr;
    EXPECT_EQ(acdbOpenObject(model, db->modelSpaceId(), AcDb::kForWrite), Acad::eOk);

    auto* line = new AcDbLine(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6));
    line->setDatabaseDefaults(db.get());
    line->setLayer(wallsId);
    line->setColorIndex(1);
    const AcDbObjectId lineId = append(model, line);

    auto* arc = new AcDbArc(AcGePoint3d(10, 10, 0), 2.5, 0.5, 2.0);
    arc->setDatabaseDefaults(db.get());
    append(model, arc);
    auto* circle = new AcDbCircle(AcGePoint3d(-5, 7.25, 0), AcGeVector3d::kZAxis, 3);
    circle->setDatabaseDefaults(db.get());
    const AcDbObjectId circleId = append(model, circle);

    auto* pline = new AcDbPolyline();
    pline->setDatabaseDefaults(db.get());
    pline->addVertexAt(0, AcGePoint2d(0, 0), 0.5);
    pline->addVertexAt(1, AcGePoint2d(10, 0));
    pline->addVertexAt(2, AcGePoint2d(10, 5));
    pline->setClosed(true);
    append(model, pline);

    auto* text = new AcDbText();
    text->setDatabaseDefaults(db.get());
    text->setPosition(AcGePoint3d(1, 1, 0));
    text->setHeight(2.5);
    text->setRotation(0.75);
    text->setTextString(L"Grüße, 5 m²");
    text->setTextStyle(narrowId);
    append(model, text);

    auto* mtext = new AcDbMText();
    mtext->setDatabaseDefaults(db.get());
    mtext->setLocation(AcGePoint3d(3, 4, 0));
    mtext->setTextHeight(1.5);
    mtext->setWidth(20);
    mtext->setContents(L"first line\\Psecond ÄÖÜ {\\H2x;big}");
    append(model, mtext);

    AcDbEntity* dims[] = {
        new AcDbRotatedDimension(0.0, AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(0, 5, 0)),
        new AcDbAlignedDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(3, 4, 0), AcGePoint3d(-0.8, 0.6, 0), L"<> mm"),
        new AcDbRadialDimension(AcGePoint3d(10, 10, 0), AcGePoint3d(12.5, 10, 0), 1.0),
        new AcDbDiametricDimension(AcGePoint3d(-8, 7.25, 0), AcGePoint3d(-2, 7.25, 0), 0.5),
        new AcDb2LineAngularDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(5, 0, 0), AcGePoint3d(0, 0, 0),
                                      AcGePoint3d(3, 4, 0), AcGePoint3d(4, 1, 0)),
        new AcDbArcDimension(AcGePoint3d(10, 10, 0), AcGePoint3d(12.5, 10, 0), AcGePoint3d(10, 12.5, 0),
                             AcGePoint3d(12, 12, 0)),
    };
    for (AcDbEntity* dim : dims) {
        dim->setDatabaseDefaults(db.get());
        append(model, dim);
    }

    auto* custom = new DxfTestRecordEntity();
    custom->setDatabaseDefaults(db.get());
    custom->data.hardPointer = lineId;
    custom->data.softPointer = circleId;
    const AcDbObjectId custId = append(model, custom);
    model->close();

    AcDbLine* open = nullptr;
    EXPECT_EQ(acdbOpenObject(open, lineId, AcDb::kForWrite), Acad::eOk);
    resbuf* xdata = acutBuildList(1001, L"SVTEST", 1000, L"Höhe", 1040, 2.5, 1070, 7, 1071, 70000, 0);
    EXPECT_EQ(open->setXData(xdata), Acad::eOk);
    acutRelRb(xdata);
    open->addPersistentReactor(custId);
    EXPECT_EQ(open->createExtensionDictionary(), Acad::eOk);
    open->close();
    if (customId)
        *customId = custId;
    return db;
}

std::string dxfTestSave(AcDbDatabase& db)
{
    std::string out;
    dxfWriteDatabase(db, out, DxfFileWriteOptions{DxfLineEnd::Lf, "test.dxf"});
    return out;
}

std::unique_ptr<AcDbDatabase> dxfTestLoad(const std::string& text, const std::string& name)
{
    DxfTestRecordEntity::desc();
    auto db = std::make_unique<AcDbDatabase>(false, true);
    dxfReadDatabase(*db, text, name);
    return db;
}

std::vector<std::uint8_t> dxfTestRecordOf(AcDbObjectId id)
{
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk)
        return {};
    AcDbBinaryFiler filer(AcDb::kFileFiler, id.database());
    object->dwgOutFields(&filer);
    object->close();
    return filer.bytes();
}

AcDbObjectId dxfTestIdOf(AcDbDatabase& db, std::uint64_t handle)
{
    AcDbObjectId id;
    if (db.getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk)
        return AcDbObjectId();
    return id;
}

std::string dxfTestFolder(const std::string& name)
{
    const std::filesystem::path dir = std::filesystem::temp_directory_path() /
                                      ("sv-dxf-" + std::to_string(::getpid()) + "-" + name);
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir.string();
}
