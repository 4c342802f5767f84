// Copy and deep clone: data comes along, references among the clones are translated.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/acutads.h"

namespace {

DbCoreTestEntity* open(AcDbObjectId id, AcDb::OpenMode mode)
{
    DbCoreTestEntity* e = nullptr;
    EXPECT_EQ(acdbOpenObject(e, id, mode), Acad::eOk);
    return e;
}

TEST(DbCoreClone, CloneCopiesDataAndExtendedDataButNotIdentity)
{
    AcDbDatabase db;
    acdbRegApp(&db, L"APP");
    const AcDbObjectId id = dbcoreAppend(&db, 77);
    DbCoreTestEntity* e = open(id, AcDb::kForWrite);
    e->setPoint(AcGePoint3d(1, 2, 3));
    e->setColorIndex(5);
    resbuf* xd = acutBuildList(1001, L"APP", 1000, L"x", 0);
    e->setXData(xd);
    acutRelRb(xd);
    auto* copy = DbCoreTestEntity::cast(e->clone());
    e->close();
    ASSERT_NE(copy, nullptr);
    EXPECT_FALSE(copy->isDatabaseResident());
    EXPECT_EQ(copy->value(), 77);
    EXPECT_EQ(copy->point(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(copy->colorIndex(), 5);
    EXPECT_EQ(copy->layerId(), db.clayer());
    resbuf* back = copy->xData(L"APP");
    ASSERT_NE(back, nullptr);
    acutRelRb(back);
    delete copy;
}

TEST(DbCoreClone, DeepCloneTranslatesReferencesWithinTheSet)
{
    AcDbDatabase db;
    const AcDbObjectId a = dbcoreAppend(&db, 1);
    const AcDbObjectId b = dbcoreAppend(&db, 2);
    const AcDbObjectId outside = dbcoreAppend(&db, 3);
    DbCoreTestEntity* e = open(a, AcDb::kForWrite);
    e->setRef(b);
    e->close();
    e = open(b, AcDb::kForWrite);
    e->setRef(outside);
    e->close();

    AcDbObjectIdArray ids;
    ids.append(a);
    ids.append(b);
    AcDbIdMapping map;
    ASSERT_EQ(db.deepCloneObjects(ids, db.modelSpaceId(), map), Acad::eOk);
    const AcDbObjectId a2 = map.lookup(a);
    const AcDbObjectId b2 = map.lookup(b);
    ASSERT_TRUE(a2.isValid());
    ASSERT_TRUE(b2.isValid());
    EXPECT_NE(a2, a);
    e = open(a2, AcDb::kForRead);
    EXPECT_EQ(e->ref(), b2) << "a reference into the set goes to the clone";
    EXPECT_EQ(e->ownerId(), db.modelSpaceId());
    e->close();
    e = open(b2, AcDb::kForRead);
    EXPECT_EQ(e->ref(), outside) << "a reference out of the set stays";
    EXPECT_EQ(e->value(), 2);
    e->close();
    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
    EXPECT_EQ(ms->entityIds().length(), 5);
    ms->close();
}

TEST(DbCoreClone, WblockCloneMapsRecordsByName)
{
    AcDbDatabase src, dest;
    AcDbLayerTable* layers = nullptr;
    for (AcDbDatabase* db : {&src, &dest}) {
        db->getLayerTable(layers, AcDb::kForWrite);
        auto* rec = new AcDbLayerTableRecord();
        rec->setName(L"Wände");
        layers->add(rec);
        rec->close();
        layers->close();
    }
    AcDbObjectId srcLayer, destLayer;
    src.getLayerTable(layers);
    layers->getAt(L"Wände", srcLayer);
    layers->close();
    dest.getLayerTable(layers);
    layers->getAt(L"WÄNDE", destLayer);
    layers->close();
    const AcDbObjectId id = dbcoreAppend(&src, 4, srcLayer);
    AcDbObjectIdArray ids;
    ids.append(id);
    AcDbIdMapping map;
    ASSERT_EQ(src.wblockCloneObjects(ids, dest.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eOk);
    DbCoreTestEntity* e = open(map.lookup(id), AcDb::kForRead);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->database(), &dest);
    EXPECT_EQ(e->layerId(), destLayer);
    e->close();
}

TEST(DbCoreClone, TransformedCopyNeedsTransformBy)
{
    DbCoreTestEntity e;
    AcDbEntity* copy = nullptr;
    EXPECT_EQ(e.getTransformedCopy(AcGeMatrix3d(), copy), Acad::eNotApplicable);
    EXPECT_EQ(copy, nullptr);
}

}  // namespace
