// A new chain of every type keeps the chain's invariants; its class stands
// registered under the drawing name; LIST shows its state.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "host/rx/AcRxClass.h"
#include "host/rx/acutPrintf.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

using ChainModel = ChainFixture;

double Degrees(double dRadians)
{
    return dRadians * 180.0 / SVdim::kPi;
}

AcGeMatrix3d UcsAt(double dDegrees)
{
    const double a = dDegrees * SVdim::kPi / 180.0;
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(AcGePoint3d(10, 20, 0), AcGeVector3d(std::cos(a), std::sin(a), 0),
                          AcGeVector3d(-std::sin(a), std::cos(a), 0), AcGeVector3d::kZAxis);
    return matrix;
}

void ExpectInvariants(const SVdim& chain)
{
    const int nExt = chain.GetExtensions();
    EXPECT_EQ(chain.m_points.length() % 4, 0);
    EXPECT_GE(chain.m_points.length(), 8);
    EXPECT_EQ(chain.m_extFlags.GetSize(), nExt);
    EXPECT_EQ(chain.m_dimTexts.GetSize(), nExt);
    EXPECT_TRUE(chain.m_vectorDim.isUnitLength());
    EXPECT_TRUE(chain.m_zAxis.isPerpendicularTo(chain.m_vectorDim));
    EXPECT_GE(SVdim::DegRound(chain.m_dRotation), 0);
    EXPECT_LT(SVdim::DegRound(chain.m_dRotation), 180);
    double dSnapped = chain.m_dRotation;
    EXPECT_DOUBLE_EQ(SVdim::SnapAngle(dSnapped), chain.m_dRotation);
    if (chain.m_dimType == SVdim::kArc) {
        EXPECT_EQ(chain.m_arcPoints.length(), 7);
        EXPECT_EQ(chain.m_arcParams.length(), nExt);
        return;
    }
    // One line along m_vectorDim, rising in chain coordinates.
    AcGeVector3d vChain = chain.m_vectorDim;
    chain.WcsToChain(vChain);
    const bool bByY = SVdim::DegRound(SVdim::LineRotation(vChain)) == 90;
    double dLastKey = -1e300;
    for (int i = 0; i < nExt; ++i) {
        const AcGeVector3d vOff = chain.GetPointDim(i) - chain.GetPointDim(0);
        if (vOff.length() > 1e-9) {
            EXPECT_TRUE(vOff.isParallelTo(chain.m_vectorDim)) << "extension " << i;
        }
        AcGePoint3d ptKey = chain.GetPointDim(i);
        chain.WcsToChain(ptKey);
        const double dKey = bByY ? ptKey.y : ptKey.x;
        EXPECT_GE(dKey, dLastKey - 1e-9) << "extension " << i;
        dLastKey = dKey;
    }
}

TEST_F(ChainModel, EveryLinearTypeKeepsTheInvariants)
{
    const AcGeMatrix3d world;
    const AcGeMatrix3d ucs30 = UcsAt(30);
    const AcGeMatrix3d ucs200 = UcsAt(200);
    const AcGeVector3d diagonal = AcGeVector3d(1, 1, 0).normal();
    const AcGePoint3d p30 = AcGePoint3d(10, 20, 0) + AcGeVector3d(std::cos(SVdim::kPi / 6), std::sin(SVdim::kPi / 6), 0) * 5;
    const AcGePoint3d p30Dim = AcGePoint3d(10, 20, 0) + AcGeVector3d(-0.5, std::cos(SVdim::kPi / 6), 0) * 3;
    const struct {
        const char* name;
        int iType;
        AcGePoint3d pt1, pt2, ptDim;
        const AcGeVector3d* pVector;
        const AcGeMatrix3d* pMatrix;
        double dRotation;  // degrees
        std::optional<AcGePoint3d> dim0, dim1;
    } cases[] = {
        {"horizontal", 0, {0, 0, 0}, {5, 0, 0}, {2, 3, 0}, nullptr, &world, 0, AcGePoint3d(0, 3, 0), AcGePoint3d(5, 3, 0)},
        {"horizontal, points reversed", 0, {5, 0, 0}, {0, 0, 0}, {2, 3, 0}, nullptr, &world, 0,
         AcGePoint3d(0, 3, 0), AcGePoint3d(5, 3, 0)},
        {"vertical", 1, {0, 0, 0}, {0, 4, 0}, {-2, 1, 0}, nullptr, &world, 90, AcGePoint3d(-2, 0, 0),
         AcGePoint3d(-2, 4, 0)},
        {"horizontal in a UCS at 30", 0, {10, 20, 0}, p30, p30Dim, nullptr, &ucs30, 30, p30Dim, std::nullopt},
        {"vertical in a UCS at 200", 1, {0, 0, 0}, {-2, 4, 0}, {3, 1, 0}, nullptr, &ucs200, 110, std::nullopt,
         std::nullopt},
        {"aligned", 2, {0, 0, 0}, {3, 4, 0}, {0, 5, 0}, nullptr, &world, 53.13, AcGePoint3d(-2.4, 1.8, 0),
         AcGePoint3d(0.6, 5.8, 0)},
        {"aligned downhill", 2, {0, 0, 0}, {3, -4, 0}, {4, 0, 0}, nullptr, &world, 126.87, std::nullopt,
         std::nullopt},
        {"aligned, nothing picked to align with", 2, {1, 1, 0}, {4, -3, 0}, {5, 0, 0}, nullptr, nullptr, 126.87,
         std::nullopt, std::nullopt},
        {"aligned to a given direction", 2, {0, 0, 0}, {4, 0, 0}, {0, 4, 0}, &diagonal, &world, 45, std::nullopt,
         std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SVdim chain(c.pt1, c.pt2, c.ptDim, c.iType, c.pVector, AcDbObjectId::kNull, 0, c.pMatrix);
        EXPECT_EQ(chain.GetExtensions(), 2);
        ExpectInvariants(chain);
        EXPECT_NEAR(Degrees(chain.m_dRotation), c.dRotation, 0.01);
        for (int i = 0; i < 2; ++i) {
            const std::optional<AcGePoint3d>& expect = i == 0 ? c.dim0 : c.dim1;
            const AcGePoint3d ptDim = chain.GetPointDim(i);
            if (expect) {
                EXPECT_TRUE(ptDim.isEqualTo(*expect, AcGeTol(1e-6, 1e-6))) << i << ": " << ptDim.x << "," << ptDim.y << "," << ptDim.z;
            }
        }
        // Parameters come from the linear set; the fixed extension lines
        // start ExtLineLength (10 mm at 1:100 = 1 unit) from the dimension line.
        EXPECT_EQ(chain.arrayInt.GetSize(), m_options.m_setLinear.arrayInt.GetSize());
        for (int i = 0; i < 2; ++i)
            EXPECT_NEAR(chain.GetPointExt1(i).distanceTo(chain.GetPointDim(i)), 1.0, 1e-9);
    }
}

// An arc from 0 to 90 degrees of radius 5 about the origin, and a full circle, in model space.
class ChainArc : public ChainFixture {
protected:
    AcDbObjectId Append(AcDbEntity* pEnt)
    {
        AcDbBlockTableRecord* pSpace = nullptr;
        EXPECT_EQ(acdbOpenObject(pSpace, m_db.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(pSpace->appendAcDbEntity(id, pEnt), Acad::eOk);
        pEnt->close();
        pSpace->close();
        return id;
    }
    AcDbDatabase m_db{true, true};
};

TEST_F(ChainArc, ArcChainsKeepTheInvariants)
{
    const AcDbObjectId arcId = Append(new AcDbArc(AcGePoint3d::kOrigin, 5.0, 0.0, SVdim::kPi / 2));
    const AcDbObjectId circleId = Append(new AcDbCircle(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 5.0));
    const AcGeMatrix3d world;
    const struct {
        const char* name;
        AcDbObjectId id;
        AcGePoint3d pt1, pt2;
        bool bFullCircle;
    } cases[] = {
        {"arc", arcId, {5, 0, 0}, {0, 5, 0}, false},
        {"arc, points against the curve", arcId, {0, 5, 0}, {5, 0, 0}, false},
        {"no source", AcDbObjectId::kNull, {5, 0, 0}, {0, 5, 0}, false},
        {"circle, one mark", circleId, {5, 0, 0}, {5, 0, 0}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SVdim chain(c.pt1, c.pt2, AcGePoint3d(7, 0, 0), SVdim::kArc, nullptr, c.id, 0, &world);
        ExpectInvariants(chain);
        EXPECT_EQ(chain.arrayInt[SVdim::kIntArcAsCircle] != 0, c.bFullCircle);
        if (c.id == arcId) {
            EXPECT_TRUE(chain.GetPointInput(0).isEqualTo(AcGePoint3d(5, 0, 0)));
            EXPECT_TRUE(chain.GetPointDim(0).isEqualTo(AcGePoint3d(7, 0, 0)));
            EXPECT_TRUE(chain.GetPointDim(1).isEqualTo(AcGePoint3d(0, 7, 0)));
            EXPECT_TRUE(chain.m_arcPoints[3].isEqualTo(AcGePoint3d::kOrigin));
            EXPECT_NEAR(chain.m_arcParams[1] - chain.m_arcParams[0], SVdim::kPi / 2, 1e-6);
        }
        if (c.bFullCircle) {
            EXPECT_EQ(chain.arrayInt[SVdim::kIntArcMinPoint], 0u);
            EXPECT_EQ(chain.arrayInt[SVdim::kIntArcMaxPoint], 1u);
        }
    }
}

TEST_F(ChainModel, ClassStandsRegisteredUnderItsDrawingName)
{
    const AcRxClass* pClass = SVdim::desc();
    ASSERT_NE(pClass, nullptr);
    EXPECT_STREQ(pClass->name(), L"SVdim");
    EXPECT_STREQ(pClass->dxfName(), L"KOVA_SORVANE");
    EXPECT_STREQ(pClass->parentName(), L"AcDbEntity");
    EXPECT_EQ(pClass->proxyFlags(), 3071);
    int iDwg = 0, iMaint = 0;
    pClass->getClassVersion(iDwg, iMaint);
    EXPECT_EQ(iDwg, 33);
    EXPECT_EQ(iMaint, 228);
    // Four fields: product, description, company, web address.
    const std::wstring strApp = pClass->appName();
    EXPECT_EQ(std::count(strApp.begin(), strApp.end(), L'|'), 3);
    EXPECT_EQ(strApp.rfind(L"Sorvane|Product Desc: ", 0), 0u);
    SVdim::rxInit();  // a second registration changes nothing
    EXPECT_EQ(SVdim::desc(), pClass);
    std::unique_ptr<AcRxObject> pMade(pClass->create());
    EXPECT_NE(SVdim::cast(pMade.get()), nullptr);
}

TEST_F(ChainModel, ListShowsTheChain)
{
    const AcGeMatrix3d world;
    SVdim chain(AcGePoint3d(0, 0, 0), AcGePoint3d(5, 0, 0), AcGePoint3d(2, 3, 0), SVdim::kHorizontal, nullptr,
                AcDbObjectId::kNull, 0, &world);
    chain.arrayInt[SVdim::kIntAppVersion] = 1203;
    chain.m_dimTexts[1] = L"5,00#-8";
    AcConsoleRecorder console;
    chain.list();
    EXPECT_EQ(console.Text(),
              L"\n    Version: 1203    Typ: 0 "
              L"\n    Anzahl von Hilfslinien: 2 "
              L"\n    Rotation: 0.0 (0.0) vecDim: 1.0,0.0,0.0 "
              L"\nOriginal-BKS: X(1.00,0.00,0.00) Y(0.00,1.00,0.00) Z(0.00,0.00,1.00) "
              L"\n  E0=0.000000, 0.000000, 0.000000 "
              L"\n  D0=0.000000, 3.000000, 0.000000 "
              L"\n  E1=5.000000, 0.000000, 0.000000 "
              L"\n  D1=5.000000, 3.000000, 0.000000 "
              L"\n      Text1=5,00#-8  (Dist=5.000000000000000) ");
}

}  // namespace
