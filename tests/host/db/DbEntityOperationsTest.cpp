// Entity operations beyond geometry: grips, osnaps, block references, 2D polylines, proxies
// and the annotative extension.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbAnnotativeObjectPE.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbProxyEntity.h"
#include "host/db/AcDbScale.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbText.h"
#include "host/db/acutads.h"
#include "host/ge/AcGePlane.h"
#include "host/rx/AcRxClass.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

bool contains(const AcGePoint3dArray& pts, const AcGePoint3d& p)
{
    for (int i = 0; i < pts.length(); ++i)
        if (pts[i].isEqualTo(p, AcGeTol(1e-9, 1e-9)))
            return true;
    return false;
}

TEST(DbEntityOperations, OsnapsOfCurves)
{
    AcDbPolyline pl;
    pl.addVertexAt(0, AcGePoint2d(0, 0));
    pl.addVertexAt(1, AcGePoint2d(4, 0), 1.0);
    pl.addVertexAt(2, AcGePoint2d(4, 4));
    struct Case {
        AcDb::OsnapMode mode;
        AcGePoint3d expected;
        int count;
    } cases[] = {
        {AcDb::kOsModeEnd, AcGePoint3d(4, 4, 0), 4},   // both ends of both segments
        {AcDb::kOsModeMid, AcGePoint3d(2, 0, 0), 2},   // line middle
        {AcDb::kOsModeMid, AcGePoint3d(6, 2, 0), 2},   // the arc's middle, right of the chord
        {AcDb::kOsModeCen, AcGePoint3d(4, 2, 0), 1},
        {AcDb::kOsModeNear, AcGePoint3d(1, 0, 0), 1},
    };
    for (const Case& c : cases) {
        AcGePoint3dArray pts;
        AcDbIntArray ids;
        ASSERT_EQ(pl.getOsnapPoints(c.mode, 0, AcGePoint3d(1, 0.3, 0), AcGePoint3d(), AcGeMatrix3d(), pts, ids), Acad::eOk);
        EXPECT_EQ(pts.length(), c.count) << "mode " << c.mode;
        EXPECT_TRUE(contains(pts, c.expected)) << "mode " << c.mode;
    }
}

TEST(DbEntityOperations, GripsMoveTheRightPoints)
{
    AcDbLine line(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0));
    line.moveGripPointsAt(AcDbIntArray{1}, AcGeVector3d(0, 1, 0));  // middle: the whole line
    EXPECT_TRUE(line.startPoint().isEqualTo(AcGePoint3d(0, 1, 0)));
    EXPECT_TRUE(line.endPoint().isEqualTo(AcGePoint3d(2, 1, 0)));
    line.moveGripPointsAt(AcDbIntArray{2}, AcGeVector3d(1, 0, 0));
    EXPECT_TRUE(line.startPoint().isEqualTo(AcGePoint3d(0, 1, 0)));
    EXPECT_TRUE(line.endPoint().isEqualTo(AcGePoint3d(3, 1, 0)));

    AcDbCircle circle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 1.0);
    circle.moveGripPointsAt(AcDbIntArray{1}, AcGeVector3d(2, 0, 0));  // quadrant at angle 0
    EXPECT_DOUBLE_EQ(circle.radius(), 3.0);

    AcDbArc arc(AcGePoint3d(0, 0, 0), 1.0, 0.0, kPi);
    arc.moveGripPointsAt(AcDbIntArray{2}, AcGeVector3d(0, 0, 0));  // reshaping in place
    EXPECT_NEAR(arc.radius(), 1.0, 1e-12);
    EXPECT_NEAR(arc.totalAngle(), kPi, 1e-12);
    arc.moveGripPointsAt(AcDbIntArray{1}, AcGeVector3d(0, 1, 0));  // the middle up to (0, 2)
    AcGePoint3d s, e;
    arc.getStartPoint(s);
    arc.getEndPoint(e);
    EXPECT_TRUE(s.isEqualTo(AcGePoint3d(1, 0, 0), AcGeTol(1e-9, 1e-9)));
    EXPECT_TRUE(e.isEqualTo(AcGePoint3d(-1, 0, 0), AcGeTol(1e-9, 1e-9)));
    EXPECT_NEAR(arc.radius(), 1.25, 1e-12);
}

TEST(DbEntityOperations, TwoDPolylineWalksAndMeasuresLikeTheLightweightOne)
{
    AcDb2dPolyline heavy;
    heavy.appendVertex(new AcDb2dVertex(AcGePoint3d(0, 0, 0), 0.0));
    heavy.appendVertex(new AcDb2dVertex(AcGePoint3d(2, 0, 0), -1.0));
    heavy.appendVertex(new AcDb2dVertex(AcGePoint3d(2, 2, 0), 0.0));
    heavy.setElevation(5);
    std::vector<AcGePoint3d> seen;
    std::unique_ptr<AcDb2dPolylineVertexIterator> it(heavy.vertexIterator());
    for (; !it->done(); it->step())
        seen.push_back(heavy.vertexPosition(it->vertex()));
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_TRUE(seen[2].isEqualTo(AcGePoint3d(2, 2, 5)));

    AcDbPolyline light;
    heavy.toLightweight(light);
    double e1 = 0, e2 = 0, d1 = 0, d2 = 0;
    heavy.getEndParam(e1);
    light.getEndParam(e2);
    heavy.getDistAtParam(e1, d1);
    light.getDistAtParam(e2, d2);
    EXPECT_DOUBLE_EQ(e1, 2.0);
    EXPECT_DOUBLE_EQ(d1, d2);
    EXPECT_NEAR(d1, 2.0 + kPi, 1e-12);
    AcDbVoidPtrArray parts;
    ASSERT_EQ(heavy.explode(parts), Acad::eOk);
    EXPECT_EQ(parts.length(), 2);
    for (int i = 0; i < parts.length(); ++i)
        delete static_cast<AcDbEntity*>(parts[i]);
}

TEST(DbEntityOperations, BlockReferencePlacesAndExplodesItsBlock)
{
    AcDbDatabase db(true, true);
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(db.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    auto* block = new AcDbBlockTableRecord();
    block->setName(L"Mark");
    block->setOrigin(AcGePoint3d(1, 0, 0));
    ASSERT_EQ(table->add(block), Acad::eOk);
    AcDbObjectId blockId = block->objectId();
    table->close();
    auto* line = new AcDbLine(AcGePoint3d(1, 0, 0), AcGePoint3d(2, 0, 0));
    ASSERT_EQ(block->appendAcDbEntity(line), Acad::eOk);
    line->close();
    block->close();

    AcDbBlockReference ref(AcGePoint3d(10, 10, 0), blockId);
    ref.setScaleFactors(AcGeScale3d(2.0));
    ref.setRotation(kPi / 2);
    AcDbVoidPtrArray parts;
    ASSERT_EQ(ref.explode(parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 1);
    auto* copy = AcDbLine::cast(static_cast<AcRxObject*>(parts[0]));
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->startPoint().isEqualTo(AcGePoint3d(10, 10, 0), AcGeTol(1e-9, 1e-9)));
    EXPECT_TRUE(copy->endPoint().isEqualTo(AcGePoint3d(10, 12, 0), AcGeTol(1e-9, 1e-9)));
    delete copy;

    // Mirrored, the reference has a negative x scale and draws the mirror image.
    AcGeMatrix3d mirror = AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kYAxis));
    AcGeMatrix3d before = mirror * ref.blockTransform();
    ASSERT_EQ(ref.transformBy(mirror), Acad::eOk);
    EXPECT_LT(ref.scaleFactors().sx, 0.0);
    EXPECT_TRUE(ref.blockTransform().isEqualTo(before, AcGeTol(1e-9, 1e-9)));
}

TEST(DbEntityOperations, ProxyKeepsItsOriginal)
{
    AcDbProxyEntity proxy;
    proxy.setOriginalClass(L"SVdim", L"KOVA_SORVANE", L"Sorvane", 3071);
    EXPECT_EQ(proxy.originalDxfNameString(), L"KOVA_SORVANE");
    EXPECT_EQ(proxy.proxyFlags(), AcDbProxyEntity::kAllAllowedBits);
    EXPECT_STREQ(proxy.isA()->name(), L"AcDbProxyEntity");
    EXPECT_EQ(proxy.transformBy(AcGeMatrix3d::translation(AcGeVector3d(1, 0, 0))), Acad::eNotAllowedForThisProxy);
    EXPECT_EQ(proxy.graphicsMetafileType(), AcDbProxyEntity::kNoMetafile);
    proxy.setData({1, 2, 3});
    EXPECT_EQ(proxy.dataSizeInBits(), 24u);
}

TEST(DbEntityOperations, AnnotativeFlagAndScales)
{
    AcDbText text;
    AcDbMText mtext;
    AcDbRotatedDimension dim;
    AcDbLine line;
    for (AcDbEntity* e : {static_cast<AcDbEntity*>(&text), static_cast<AcDbEntity*>(&mtext),
                          static_cast<AcDbEntity*>(&dim)}) {
        auto* pe = AcDbAnnotativeObjectPE::cast(e->queryX(AcDbAnnotativeObjectPE::desc()));
        ASSERT_NE(pe, nullptr) << e->isA()->name();
        EXPECT_FALSE(pe->annotative(e));
        EXPECT_EQ(pe->setAnnotative(e, true), Acad::eOk);
        EXPECT_TRUE(pe->annotative(e));
        EXPECT_EQ(pe->setAnnotative(e, false), Acad::eOk);
        EXPECT_FALSE(pe->annotative(e));
    }
    EXPECT_EQ(line.queryX(AcDbAnnotativeObjectPE::desc()), nullptr);

    // In a drawing: the flag is the AcadAnnotative data, scales come from the scale list.
    AcDbDatabase db(true, true);
    auto* t = new AcDbText(AcGePoint3d(), L"x");
    AcDbBlockTableRecord* ms = nullptr;
    ASSERT_EQ(acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(ms->appendAcDbEntity(t), Acad::eOk);
    ms->close();
    auto* pe = AcDbAnnotativeObjectPE::cast(t->queryX(AcDbAnnotativeObjectPE::desc()));
    ASSERT_EQ(pe->setAnnotative(t, true), Acad::eOk);
    resbuf* xd = t->xData(kAcDbAnnotativeApp);
    ASSERT_NE(xd, nullptr);
    acutRelRb(xd);
    EXPECT_EQ(pe->addContext(t, L"no such scale"), Acad::eKeyNotFound);
    if (AcDbAnnotationScale* current = db.cannoscale()) {
        EXPECT_TRUE(pe->hasContext(t, current->name()));
    }
    t->close();
}

TEST(DbEntityOperations, DimensionTransformTurnsItsDirection)
{
    AcDbRotatedDimension dim(0.0, AcGePoint3d(0, 0, 0), AcGePoint3d(3, 0, 0), AcGePoint3d(0, 1, 0));
    dim.setTextPosition(AcGePoint3d(1.5, 1, 0));
    ASSERT_EQ(dim.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis)), Acad::eOk);
    EXPECT_NEAR(dim.rotation(), kPi / 2, 1e-12);
    EXPECT_TRUE(dim.xLine2Point().isEqualTo(AcGePoint3d(0, 3, 0), AcGeTol(1e-9, 1e-9)));
    EXPECT_TRUE(dim.textPosition().isEqualTo(AcGePoint3d(-1, 1.5, 0), AcGeTol(1e-9, 1e-9)));
    double m = 0;
    dim.measurement(m);
    EXPECT_NEAR(m, 3.0, 1e-12);
}

}  // namespace
