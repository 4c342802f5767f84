// Every native entity files itself through the binary filer and reads back the same.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbBlockReference.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbPoint.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbProxyEntity.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbViewport.h"
#include "host/db/AcDbXline.h"
#include "host/rx/AcRxClass.h"

namespace {

const AcGePoint3d A(1.5, -2.25, 0.125), B(7, 3, -1), C(-4, 8, 2);

std::vector<Adesk::UInt8> record(const AcDbEntity& e)
{
    AcDbBinaryFiler out(AcDb::kCopyFiler);
    EXPECT_EQ(e.dwgOutFields(&out), Acad::eOk);
    return out.bytes();
}

TEST(DbEntityFiler, EveryClassReadsBackWhatItWrote)
{
    std::vector<std::pair<const char*, std::function<AcDbEntity*()>>> makers = {
        {"line", [] { auto* e = new AcDbLine(A, B); e->setThickness(2); e->setNormal(AcGeVector3d(0, 1, 1)); return e; }},
        {"arc", [] { return new AcDbArc(A, AcGeVector3d(1, 0, 1), 2.5, 0.25, 4.5); }},
        {"circle", [] { auto* e = new AcDbCircle(A, AcGeVector3d(0, 0, -1), 3); e->setThickness(1); return e; }},
        {"polyline", [] {
             auto* e = new AcDbPolyline();
             e->addVertexAt(0, AcGePoint2d(0, 0), 0.5, 1, 2);
             e->addVertexAt(1, AcGePoint2d(3, 1), -0.25);
             e->setClosed(true);
             e->setElevation(4);
             e->setPlinegen(true);
             return e;
         }},
        {"2d polyline", [] {
             auto* e = new AcDb2dPolyline();
             e->appendVertex(new AcDb2dVertex(AcGePoint3d(0, 0, 0), 0.3));
             e->appendVertex(new AcDb2dVertex(AcGePoint3d(2, 2, 0), 0, 1, 1));
             e->makeClosed();
             e->setElevation(1);
             return e;
         }},
        {"xline", [] { auto* e = new AcDbXline(); e->setBasePoint(A); e->setUnitDir(AcGeVector3d(1, 2, 3)); return e; }},
        {"point", [] { auto* e = new AcDbPoint(A); e->setEcsRotation(0.5); return e; }},
        {"solid", [] { return new AcDbSolid(A, B, C); }},
        {"text", [] {
             auto* e = new AcDbText(A, L"Maß 1:50", AcDbObjectId::kNull, 2.5, 0.3);
             e->setHorizontalMode(4);
             e->setAlignmentPoint(B);
             e->mirrorInX(true);
             e->setOblique(0.2);
             return e;
         }},
        {"mtext", [] {
             auto* e = new AcDbMText();
             e->setContents(L"\\A1;3{\\H0.7x;\\S76^;}\\Pzwei");
             e->setLocation(A);
             e->setWidth(12);
             e->setAttachment(AcDbMText::kBottomRight);
             e->setRotation(1.0);
             return e;
         }},
        {"block reference", [] {
             auto* e = new AcDbBlockReference(A, AcDbObjectId::kNull);
             e->setScaleFactors(AcGeScale3d(2, -2, 1));
             e->setRotation(0.7);
             return e;
         }},
        {"viewport", [] {
             auto* e = new AcDbViewport();
             e->setCenterPoint(A);
             e->setWidth(100);
             e->setViewHeight(250);
             e->setOff();
             return e;
         }},
        {"rotated dimension", [] {
             auto* e = new AcDbRotatedDimension(0.4, A, B, C, L"<> m");
             e->setDimlfac(0.001);
             e->setDimblk1(L"_OBLIQUE");
             e->setTextPosition(C);
             e->useSetTextPosition();
             return e;
         }},
        {"aligned dimension", [] { auto* e = new AcDbAlignedDimension(A, B, C); e->setOblique(0.3); return e; }},
        {"arc dimension", [] { auto* e = new AcDbArcDimension(A, B, C, A + AcGeVector3d(0, 1, 0)); e->setHasLeader(true); return e; }},
        {"radial dimension", [] { return new AcDbRadialDimension(A, B, 2.0, L" "); }},
        {"diametric dimension", [] { auto* e = new AcDbDiametricDimension(A, B, 1.0); e->setDimse2(true); return e; }},
        {"angular dimension", [] { return new AcDb2LineAngularDimension(A, B, C, A, B); }},
        {"proxy", [] {
             auto* e = new AcDbProxyEntity();
             e->setOriginalClass(L"SVdim", L"KOVA_SORVANE", L"Sorvane", AcDbProxyEntity::kAllAllowedBits);
             e->setData({1, 2, 3, 250, 0});
             e->setGraphicsMetafile({9, 8, 7});
             return e;
         }},
    };
    for (auto& [name, make] : makers) {
        SCOPED_TRACE(name);
        std::unique_ptr<AcDbEntity> original(make());
        std::vector<Adesk::UInt8> bytes = record(*original);
        std::unique_ptr<AcDbEntity> copy(static_cast<AcDbEntity*>(original->isA()->create()));
        ASSERT_TRUE(copy);
        AcDbBinaryFiler in(bytes, AcDb::kCopyFiler);
        ASSERT_EQ(copy->dwgInFields(&in), Acad::eOk) << std::string(in.errorText().begin(), in.errorText().end());
        EXPECT_TRUE(in.atEnd());
        EXPECT_EQ(record(*copy), bytes);

        // A record cut short fails cleanly instead of reading garbage.
        std::vector<Adesk::UInt8> cut(bytes.begin(), bytes.begin() + bytes.size() / 2);
        std::unique_ptr<AcDbEntity> broken(static_cast<AcDbEntity*>(original->isA()->create()));
        AcDbBinaryFiler bad(cut, AcDb::kCopyFiler);
        EXPECT_NE(broken->dwgInFields(&bad), Acad::eOk);
    }
}

TEST(DbEntityFiler, ClassesAndDxfNames)
{
    struct Case {
        AcRxClass* cls;
        const wchar_t* dxf;
        AcRxClass* parent;
    } cases[] = {
        {AcDbLine::desc(), L"LINE", AcDbCurve::desc()},
        {AcDbPolyline::desc(), L"LWPOLYLINE", AcDbCurve::desc()},
        {AcDb2dPolyline::desc(), L"POLYLINE", AcDbCurve::desc()},
        {AcDbText::desc(), L"TEXT", AcDbEntity::desc()},
        {AcDbMText::desc(), L"MTEXT", AcDbEntity::desc()},
        {AcDbRotatedDimension::desc(), L"DIMENSION", AcDbDimension::desc()},
        {AcDbAlignedDimension::desc(), L"DIMENSION", AcDbDimension::desc()},
        {AcDbArcDimension::desc(), L"ARC_DIMENSION", AcDbDimension::desc()},
        {AcDbBlockReference::desc(), L"INSERT", AcDbEntity::desc()},
        {AcDbProxyEntity::desc(), L"ACAD_PROXY_ENTITY", AcDbEntity::desc()},
    };
    for (const Case& c : cases) {
        EXPECT_STREQ(c.cls->dxfName(), c.dxf) << c.cls->name();
        EXPECT_TRUE(c.cls->isDerivedFrom(c.parent)) << c.cls->name();
    }
    // Siblings, not one derived from the other.
    EXPECT_FALSE(AcDbRotatedDimension::desc()->isDerivedFrom(AcDbAlignedDimension::desc()));
    EXPECT_FALSE(AcDbAlignedDimension::desc()->isDerivedFrom(AcDbRotatedDimension::desc()));
}

}  // namespace
