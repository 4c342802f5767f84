// Save and open of whole drawings: identical files, custom records bit for bit, kept records
// of unknown kinds, handles, code pages.
#include "DxfFileTestSupport.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbText.h"
#include "host/db/acutads.h"
#include "host/dxf/DxfRawObject.h"
#include "host/gi/GiRecordingDraw.h"
#include "host/rx/AcRxClass.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

// The entities of model space in order.
AcDbObjectIdArray modelEntities(AcDbDatabase& db)
{
    AcDbBlockTableRecord* model = nullptr;
    EXPECT_EQ(acdbOpenObject(model, db.modelSpaceId(), AcDb::kForRead), Acad::eOk);
    AcDbObjectIdArray ids = model->entityIds();
    model->close();
    return ids;
}

std::wstring typeOf(AcDbObjectId id)
{
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, id, AcDb::kForRead) != Acad::eOk)
        return L"?";
    std::wstring name = object->isA()->name();
    if (const DxfRawEntity* raw = DxfRawEntity::cast(object))
        name += L":" + raw->originalDxfNameString();
    object->close();
    return name;
}

// The smallest R2018-style file around one section's records.
std::string fileWith(const std::string& classes, const std::string& entities, const std::string& objects = "")
{
    return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n9\n$HANDSEED\n5\n400\n0\nENDSEC\n"
           "0\nSECTION\n2\nCLASSES\n" + classes + "0\nENDSEC\n"
           "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n"
           "0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary\n" + objects +
           "0\nENDSEC\n0\nEOF\n";
}

}  // namespace

TEST(DxfFileRoundTrip, SaveOpenSaveGivesTheSameFile)
{
    auto db = dxfTestDrawing();
    const std::string first = dxfTestSave(*db);
    auto again = dxfTestLoad(first);
    const std::string second = dxfTestSave(*again);
    if (first != second) {
        const std::string dir = dxfTestFolder("roundtrip");
        std::ofstream(dir + "/first.dxf", std::ios::binary) << first;
        std::ofstream(dir + "/second.dxf", std::ios::binary) << second;
        ADD_FAILURE() << "the files differ; see " << dir;
    }
    // And the kinds came back as themselves, not as kept records.
    for (const AcDbObjectId& id : modelEntities(*again))
        EXPECT_EQ(typeOf(id).find(L"DxfRaw"), std::wstring::npos) << typeOf(id);
}

TEST(DxfFileRoundTrip, CustomRecordSurvivesBitForBit)
{
    AcDbObjectId customId;
    auto db = dxfTestDrawing(&customId);
    const std::vector<std::uint8_t> before = dxfTestRecordOf(customId);
    const std::string text = dxfTestSave(*db);
    EXPECT_NE(text.find("\nSV_TEST_RECORD\n"), std::string::npos);
    EXPECT_NE(text.find("\nSvBinaryRecord\n"), std::string::npos);

    auto loaded = dxfTestLoad(text);
    const AcDbObjectId id = dxfTestIdOf(*loaded, customId.handle().value());
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(typeOf(id), L"DxfTestRecordEntity");
    EXPECT_EQ(dxfTestRecordOf(id), before);
    DxfTestRecordEntity* entity = nullptr;
    ASSERT_EQ(acdbOpenObject(entity, id, AcDb::kForRead), Acad::eOk);
    DxfTestRecordEntity::Data expected;
    EXPECT_EQ(entity->data.text, expected.text);
    EXPECT_EQ(entity->data.u64, expected.u64);
    EXPECT_EQ(entity->data.hardPointer.handle(), dxfTestIdOf(*db, entity->data.hardPointer.handle().value()).handle());
    EXPECT_TRUE(entity->data.hardPointer.isValid());
    entity->close();
}

TEST(DxfFileRoundTrip, UnknownKindsAreKeptAndWrittenBackAsTheyCame)
{
    const std::string classes =
        "0\nCLASS\n1\nSV_GONE\n2\nSvGoneEntity\n3\nGone app\n90\n3071\n91\n1\n280\n0\n281\n1\n";
    const std::string entities =
        "0\nHATCH\n5\n2A\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbHatch\n10\n0.0\n20\n0.0\n30\n0.0\n"
        "2\nSOLID\n70\n1\n1001\nACAD\n1000\nkept\n"
        "0\nSV_GONE\n5\n2B\n330\n1F\n100\nAcDbEntity\n8\n0\n100\nSvBinaryRecord\n90\n3\n310\n0A0B0C\n";
    const std::string objects = "3\nSOMETHING\n350\n2C\n0\nMYOBJECT\n5\n2C\n330\nC\n100\nMyData\n1\nhello\n40\n2.5\n";
    auto db = dxfTestLoad(fileWith(classes, entities, objects));

    const AcDbObjectIdArray ids = modelEntities(*db);
    ASSERT_EQ(ids.length(), 2);
    EXPECT_EQ(typeOf(ids[0]), L"DxfRawEntity:HATCH");
    EXPECT_EQ(typeOf(ids[1]), L"DxfRawEntity:SV_GONE");
    AcDbProxyEntity* proxy = nullptr;
    ASSERT_EQ(acdbOpenObject(proxy, ids[1], AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(proxy->originalClassNameString(), L"SvGoneEntity");
    EXPECT_NE(std::wstring(proxy->isA()->dxfName()).find(L"PROXY"), std::wstring::npos);
    EXPECT_EQ(proxy->proxyFlags(), 3071);
    proxy->close();

    const std::string saved = dxfTestSave(*db);
    for (const char* kept : {"  0\nHATCH\n  5\n2A\n", "100\nAcDbHatch\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  2\nSOLID\n",
                             "1001\nACAD\n1000\nkept\n", "  0\nSV_GONE\n", "100\nSvBinaryRecord\n 90\n3\n310\n0A0B0C\n",
                             "  0\nCLASS\n  1\nSV_GONE\n  2\nSvGoneEntity\n  3\nGone app\n 90\n     3071\n",
                             "  0\nMYOBJECT\n  5\n2C\n330\nC\n100\nMyData\n  1\nhello\n 40\n2.5\n"})
        EXPECT_NE(saved.find(kept), std::string::npos) << kept << "\n" << saved;
    EXPECT_EQ(dxfTestSave(*dxfTestLoad(saved)), saved);
}

TEST(DxfFileRoundTrip, HandlesAreKeptRemappedOrMade)
{
    const std::string entities =
        "0\nLINE\n5\n3F\n8\n0\n10\n0\n20\n0\n30\n0\n11\n1\n21\n1\n31\n0\n"
        "0\nLINE\n5\n7\n8\n0\n10\n0\n20\n0\n30\n0\n11\n2\n21\n2\n31\n0\n"
        "0\nLINE\n8\n0\n10\n0\n20\n0\n30\n0\n11\n3\n21\n3\n31\n0\n";
    auto db = dxfTestLoad(fileWith("", entities));
    const AcDbObjectIdArray ids = modelEntities(*db);
    ASSERT_EQ(ids.length(), 3);
    EXPECT_EQ(ids[0].handle().value(), 0x3Fu);
    EXPECT_GE(ids[1].handle().value(), 0x10u);  // a one-digit handle reads as none to applications
    EXPECT_GE(ids[2].handle().value(), 0x10u);
    EXPECT_NE(ids[1].handle(), ids[2].handle());
    EXPECT_GE(db->handseed().value(), 0x400u);  // $HANDSEED is respected
}

TEST(DxfFileRoundTrip, OldFilesAreReadIn1252AndWithoutHandles)
{
    const std::string r12 =
        "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$DWGCODEPAGE\n3\nANSI_1252\n0\nENDSEC\n"
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n1\n0\nLAYER\n2\nW\xE4nde\n70\n0\n62\n3\n6\nCONTINUOUS\n"
        "0\nENDTAB\n0\nENDSEC\n"
        "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\nDOOR\n70\n0\n10\n1.0\n20\n2.0\n30\n0.0\n"
        "0\nLINE\n8\n0\n10\n0\n20\n0\n30\n0\n11\n1\n21\n0\n31\n0\n0\nENDBLK\n8\n0\n0\nENDSEC\n"
        "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nW\xE4nde\n10\n1.0\n20\n2.0\n30\n0.0\n40\n2.5\n1\nGr\xFC\xDF" "e\n"
        "0\nENDSEC\n0\nEOF\n";
    auto db = dxfTestLoad(r12, "old.dxf");
    const AcDbObjectIdArray ids = modelEntities(*db);
    ASSERT_EQ(ids.length(), 1);
    AcDbText* text = nullptr;
    ASSERT_EQ(acdbOpenObject(text, ids[0], AcDb::kForRead), Acad::eOk);
    ACHAR* contents = text->textString();
    EXPECT_STREQ(contents, L"Grüße");
    delete[] contents;
    EXPECT_EQ(text->layerName(), L"Wände");
    EXPECT_GE(text->objectId().handle().value(), 0x10u);
    text->close();

    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(db->getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
    AcDbBlockTableRecord* door = nullptr;
    ASSERT_EQ(blocks->getAt(L"DOOR", door, AcDb::kForRead), Acad::eOk);
    blocks->close();
    EXPECT_EQ(door->entityIds().length(), 1);
    EXPECT_EQ(door->origin(), AcGePoint3d(1, 2, 0));
    door->close();
    // What R12 lacks is made, and the result saves as a normal drawing that reads back.
    const std::string saved = dxfTestSave(*db);
    EXPECT_EQ(dxfTestSave(*dxfTestLoad(saved)), saved);
}

TEST(DxfFileRoundTrip, ExtendedDataReactorsAndExtensionDictionarySurvive)
{
    auto db = dxfTestDrawing();
    auto loaded = dxfTestLoad(dxfTestSave(*db));
    const AcDbObjectIdArray ids = modelEntities(*loaded);
    ASSERT_FALSE(ids.isEmpty());
    AcDbLine* line = nullptr;
    ASSERT_EQ(acdbOpenObject(line, ids[0], AcDb::kForRead), Acad::eOk);
    resbuf* xdata = line->xData(L"SVTEST");
    ASSERT_NE(xdata, nullptr);
    ASSERT_NE(xdata->rbnext, nullptr);
    EXPECT_STREQ(xdata->rbnext->resval.rstring, L"Höhe");
    acutRelRb(xdata);
    EXPECT_EQ(line->persistentReactorIds().length(), 1);
    EXPECT_TRUE(line->persistentReactorIds()[0].isValid());
    EXPECT_TRUE(line->extensionDictionary().isValid());
    EXPECT_EQ(line->layerName(), L"Wände");
    line->close();
}

TEST(DxfFileRoundTrip, ProxyGraphicsAreWrittenForCustomEntitiesAndKeptByProxies)
{
    AcDbObjectId customId;
    auto db = dxfTestDrawing(&customId);
    const std::string saved = dxfTestSave(*db);
    // In the AcDbEntity subclass, before the entity's own record.
    const std::size_t record = saved.find("\n  0\nSV_TEST_RECORD\n");
    ASSERT_NE(record, std::string::npos);
    const std::size_t size = saved.find("\n 92\n", record);
    const std::size_t own = saved.find("\n100\nSvBinaryRecord\n", record);
    ASSERT_NE(size, std::string::npos);
    EXPECT_LT(saved.find("\n100\nAcDbEntity\n", record), size);
    EXPECT_LT(size, own);
    EXPECT_LT(own, saved.find("\n  0\n", record + 1));
    // Native entities carry none.
    EXPECT_EQ(saved.find("\n 92\n"), size);

    // Without the class the entity is a proxy: it draws the line and the circle, and writes
    // its groups back as they came.
    std::string renamed = saved;
    for (const std::string& name : {std::string("SV_TEST_RECORD"), std::string("DxfTestRecordEntity")})
        for (std::size_t at; (at = renamed.find(name)) != std::string::npos;)
            renamed.replace(at, 4, "Gone");  // SV_TEST_RECORD -> GoneEST_RECORD
    auto loaded = dxfTestLoad(renamed);
    const AcDbObjectId id = dxfTestIdOf(*loaded, customId.handle().value());
    AcDbProxyEntity* proxy = nullptr;
    ASSERT_EQ(acdbOpenObject(proxy, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(proxy->graphicsMetafileType(), AcDbProxyEntity::kFullGraphics);
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    proxy->worldDraw(&draw);
    proxy->close();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list.primitives[0].kind, GiPrimitiveKind::kPolyline);
    EXPECT_EQ(list.primitives[1].kind, GiPrimitiveKind::kCircle);
    // The whole record, graphics included, comes back as it was (CLASSES sort differently).
    const std::size_t head = renamed.find("\n  0\nGoneEST_RECORD\n");
    const std::string entity = renamed.substr(head, renamed.find("\n  0\n", head + 1) - head);
    EXPECT_NE(dxfTestSave(*loaded).find(entity), std::string::npos) << entity;
}
