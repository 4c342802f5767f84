// Chain geometry on real chains: points added in any order, duplicate feet,
// the limits of the extension lines, the sort key and removing extensions.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "host/ed/EdCore.h"
#include "tests/sorvane/proxy/SVgeomFixture.h"

namespace {

using ChainGeometry = ChainFixture;
using namespace geomtest;

TEST_F(ChainGeometry, PointsAddedInAnyOrderComeOutSorted)
{
    for (const ChainCase& c : kChains) {
        SCOPED_TRACE(c.name);
        const Layout lay{UcsAt(c.dUcs), c.u};
        std::unique_ptr<SVdim> chain(MakeChain(c, lay, 0, 10));
        const double added[] = {7, -3, 4, 12, 5.5};
        for (double t : added) {
            AcGePoint3d point = lay.Input(t, 1 + t / 10);
            const int iExt = chain->AddPointInput(point);
            ASSERT_GE(iExt, 0);
            EXPECT_TRUE(chain->GetPointDim(iExt).isEqualTo(lay.Dim(t), AcGeTol(1e-6, 1e-6))) << t;
        }
        const double sorted[] = {-3, 0, 4, 5.5, 7, 10, 12};
        ASSERT_EQ(chain->GetExtensions(), 7);
        EXPECT_EQ(chain->m_extFlags.GetSize(), 7);
        for (int i = 0; i < 7; ++i) {
            EXPECT_TRUE(chain->GetPointDim(i).isEqualTo(lay.Dim(sorted[i]), AcGeTol(1e-6, 1e-6))) << i;
            const AcGeVector3d vInput = chain->GetPointInput(i) - lay.World(AcGePoint3d::kOrigin);
            EXPECT_NEAR(vInput.dotProduct(lay.WorldDir()), sorted[i], 1e-9) << i;
        }
        for (int i = 1; i < 7; ++i)
            EXPECT_NEAR(chain->GetDistance(i), sorted[i] - sorted[i - 1], 1e-9) << i;
    }
}

TEST_F(ChainGeometry, AFootOnAnExistingDimensionPointAddsNothing)
{
    for (const ChainCase& c : kChains) {
        SCOPED_TRACE(c.name);
        const Layout lay{UcsAt(c.dUcs), c.u};
        std::unique_ptr<SVdim> chain(MakeChain(c, lay, 0, 10));
        AcGePoint3d point = lay.Input(10, 7);  // another depth, the same foot
        EXPECT_EQ(chain->AddPointInput(point), -1);
        EXPECT_EQ(chain->GetExtensions(), 2);
        AcGePoint3d ptForced = lay.Input(10, 7);
        EXPECT_GE(chain->AddPointInput(ptForced, true), 1);
        EXPECT_EQ(chain->GetExtensions(), 3);
    }
    // A single extension: the second one stands a millionth beside it.
    SVdim single;
    single.Initialize(0);
    WorldAxes(single);
    single.m_vectorDim = AcGeVector3d(0.6, 0.8, 0);
    AcGePoint3d ptFirst(1, 2, 0);
    ASSERT_EQ(single.AddPointInput(ptFirst), 0);
    AcGePoint3d ptSame(1, 2, 0);
    EXPECT_EQ(single.AddPointInput(ptSame), 1);
    EXPECT_TRUE((single.m_points[4] - AcGePoint3d(1, 2, 0)).isEqualTo(single.m_vectorDim / 1e6));
}

// ExtendBeyondDimLine 2 mm and OffsetFromOrigin 5 mm read 0.2 and 0.5 at 1:100.
TEST_F(ChainGeometry, ExtensionLineLimitsHold)
{
    m_options.m_setLinear.arrayDouble[5] = 2;
    m_options.m_setLinear.arrayDouble[11] = 5;
    const struct {
        const char* name;
        double dRequest;  // across the dimension line, negative towards the input at -10
        int bFix;
        double dExpect;
    } cases[] = {
        {"between both limits", -3, 0, -3},
        {"too close to the measured point", -9.8, 0, -9.5},
        {"beyond the measured point", -12, 0, -9.5},
        {"too close to the dimension line", -0.05, 0, -0.2},
        {"on the far side, mirrored", 2, 0, -2},
        {"on the far side, fixed", 2, 1, -0.2},
    };
    for (const ChainCase& chainCase : kChains) {
        const Layout lay{UcsAt(chainCase.dUcs), chainCase.u};
        std::unique_ptr<SVdim> chain(MakeChain(chainCase, lay, 0, 10));
        chain->arrayInt[SVdim::kIntExtLine] = 0;
        AcGePoint3d ptInput = lay.Input(10, 7);  // 10 from the dimension line at 3
        ASSERT_EQ(chain->SetPointInput(1, ptInput, 0), 1);
        const AcGeVector3d vAcross = (lay.Dim(10) - lay.Input(10, 7)).normal();
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(chainCase.name) + ", " + c.name);
            AcGePoint3d point = lay.Dim(10) + vAcross * c.dRequest + lay.WorldDir() * 0.3;
            ASSERT_TRUE(chain->SetPoint(1, point, c.bFix));
            const AcGeVector3d vStart = chain->GetPointExt1(1) - chain->GetPointDim(1);
            EXPECT_NEAR(vStart.dotProduct(vAcross), c.dExpect, 1e-6);
            EXPECT_NEAR(vStart.dotProduct(lay.WorldDir()), 0.0, 1e-6);
        }
    }
}

// A chain whose dimension points lie off one line, so that the x order and
// the y order differ.
void LayOutForKeys(SVdim& chain, double dRotationDeg)
{
    WorldAxes(chain);
    const AcGePoint3d dims[] = {{0.5, 1, 0}, {0, 2, 0}, {1, 0, 0}};
    chain.m_points.setLogicalLength(0);
    for (const AcGePoint3d& ptDim : dims) {
        chain.m_points.append(ptDim);
        chain.m_points.append(ptDim);
        chain.m_points.append(ptDim);
        chain.m_points.append(ptDim);
    }
    chain.m_dimTexts.SetSize(3);
    chain.m_extFlags.SetSize(3);
    chain.m_dRotation = dRotationDeg * SVdim::kPi / 180.0;
    chain.m_vectorDim = AcGeVector3d(std::cos(chain.m_dRotation), std::sin(chain.m_dRotation), 0);
}

TEST_F(ChainGeometry, HandMovedTextStaysUnlessReMeasured)
{
    const Layout lay{UcsAt(30), {1, 0, 0}};
    const struct {
        int iMode;
        bool bCentred;  // else it keeps its place, or travels along (100)
    } cases[] = {{0, true}, {1, false}, {100, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.iMode);
        std::unique_ptr<SVdim> chain(MakeChain(kChains[3], lay, 0, 10));
        const AcGePoint3d ptMoved = lay.Dim(5) + lay.WorldDir() * 2.0;
        chain->m_points[7] = ptMoved;
        AcGePoint3d ptInput = lay.Input(12, 1);
        ASSERT_EQ(chain->SetPointInput(1, ptInput, c.iMode), 1);
        const AcGePoint3d ptExpect =
            c.bCentred ? chain->GetTextAnchor(1) : ptMoved + (c.iMode == 100 ? lay.WorldDir() * 2.0 : AcGeVector3d());
        EXPECT_TRUE(chain->m_points[7].isEqualTo(ptExpect, AcGeTol(1e-6, 1e-6)));
    }
}

TEST_F(ChainGeometry, ChainsAt90DegreesSortByY)
{
    const struct {
        double dRotation;
        double firstX;  // x of the first dimension point after sorting
    } cases[] = {{0, 0}, {80, 0}, {85, 0}, {89.6, 1}, {90, 1}, {90.4, 1}, {120, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.dRotation);
        SVdim chain;
        LayOut(chain, 3);
        LayOutForKeys(chain, c.dRotation);
        chain.RearrangeExtensions(0);
        EXPECT_DOUBLE_EQ(chain.GetPointDim(0).x, c.firstX);
        EXPECT_DOUBLE_EQ(chain.GetPointDim(1).x, 0.5);
    }
}

TEST_F(ChainGeometry, SortFollowsTheExtensionAndItsTexts)
{
    SVdim chain;
    LayOut(chain, 4);
    WorldAxes(chain);
    // Dimension points at x = 0, 3, 1, 2: extension 1 goes last.
    const double xs[] = {0, 3, 1, 2};
    for (int i = 0; i < 4; ++i)
        for (int s = 0; s < 4; ++s)
            chain.m_points[4 * i + s] = AcGePoint3d(xs[i], s == 3 ? 5 + i : 0, 0);
    chain.m_vectorDim = AcGeVector3d::kXAxis;
    chain.SetDimTextPrefix(1, L"P1");
    chain.SetDimTextPrefix(2, L"P2");
    chain.SetDimTextPrefix(3, L"P3");
    EXPECT_EQ(chain.RearrangeExtensions(1), 3);
    for (int i = 0; i < 4; ++i)
        EXPECT_DOUBLE_EQ(chain.GetPointDim(i).x, i);
    // Slot 3 of extension 0 never moves; the other text points and the
    // records from segment 2 on travel with their extensions.
    EXPECT_DOUBLE_EQ(chain.m_points[3].y, 5);
    EXPECT_DOUBLE_EQ(chain.m_points[4 * 3 + 3].y, 6);
    CStringArray fields;
    const wchar_t* prefixes[] = {L"P2", L"P3", L"P1"};
    for (int i = 1; i < 4; ++i) {
        chain.GetDimTextArray(i, fields);
        ASSERT_GE(fields.GetSize(), 3) << i;
        EXPECT_EQ(fields[2], prefixes[i - 1]) << i;
    }
    EXPECT_EQ(chain.RearrangeExtensions(2), 2);  // sorted: nothing to do
}

TEST_F(ChainGeometry, StretchDoesNotReorder)
{
    SVdim chain;
    LayOut(chain, 3);
    LayOutForKeys(chain, 0);
    auto& commands = eded::state().commands;
    commands.push_back(eded::ActiveCommand{});
    commands.back().name = L"STRETCH";
    EXPECT_EQ(chain.RearrangeExtensions(2), 2);
    EXPECT_DOUBLE_EQ(chain.GetPointDim(0).x, 0.5);
    commands.back().name = L"GRIP_STRETCH";
    chain.RearrangeExtensions(2);
    EXPECT_DOUBLE_EQ(chain.GetPointDim(0).x, 0);
    commands.pop_back();
}

TEST_F(ChainGeometry, RemoveDimExtAtTheEndsAndInside)
{
    const struct {
        const char* name;
        int iExt;
        int nLeft;
        std::vector<double> dims;       // x of the dimension points left
        std::vector<const wchar_t*> prefixes;  // of segments 1 and 2
    } cases[] = {
        {"first", 0, 3, {4, 7, 10}, {L"P2", L"P3"}},
        {"inside", 1, 3, {0, 7, 10}, {L"P2", L"P3"}},
        {"inside, later", 2, 3, {0, 4, 10}, {L"P1", L"P3"}},
        {"last", 3, 3, {0, 4, 7}, {L"P1", L"P2"}},
        {"past the end", 4, 0, {0, 4, 7, 10}, {L"P1", L"P2"}},
        {"negative", -1, 0, {0, 4, 7, 10}, {L"P1", L"P2"}},
    };
    const Layout lay{AcGeMatrix3d(), {1, 0, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::unique_ptr<SVdim> chain(MakeChain(kChains[0], lay, 0, 10));
        for (double t : {4.0, 7.0}) {
            AcGePoint3d point = lay.Input(t, 1);
            chain->AddPointInput(point);
        }
        for (int i = 0; i < 4; ++i)
            chain->m_extFlags[i] = 16u << i;
        for (int i = 1; i < 4; ++i)
            chain->SetDimTextPrefix(i, (L"P" + std::to_wstring(i)).c_str());
        EXPECT_EQ(chain->RemoveDimExt(c.iExt), c.nLeft);
        ASSERT_EQ(chain->GetExtensions(), static_cast<int>(c.dims.size()));
        for (size_t i = 0; i < c.dims.size(); ++i)
            EXPECT_NEAR(chain->GetPointDim(static_cast<int>(i)).x, c.dims[i], 1e-9) << i;
        // Flags are cut at the tail only: they keep their places.
        ASSERT_EQ(chain->m_extFlags.GetSize(), chain->GetExtensions());
        for (int i = 0; i < chain->GetExtensions(); ++i)
            EXPECT_EQ(chain->m_extFlags[i], 16u << i);
        CStringArray fields;
        for (int i = 1; i < 3; ++i) {
            chain->GetDimTextArray(i, fields);
            ASSERT_GE(fields.GetSize(), 3) << i;
            EXPECT_EQ(fields[2], c.prefixes[i - 1]) << i;
        }
    }
    std::unique_ptr<SVdim> pair(MakeChain(kChains[0], lay, 0, 10));
    EXPECT_EQ(pair->RemoveDimExt(0), 0);
}

TEST_F(ChainGeometry, RemoveEmptySegments)
{
    const Layout lay{AcGeMatrix3d(), {1, 0, 0}};
    std::unique_ptr<SVdim> chain(MakeChain(kChains[0], lay, 0, 10));
    for (double t : {4.0, 7.0}) {
        AcGePoint3d point = lay.Input(t, 1);
        chain->AddPointInput(point);
    }
    // Extension 2 comes to lie on extension 1.
    chain->m_points[8] = chain->m_points[4];
    chain->m_points[10] = chain->m_points[6];
    EXPECT_EQ(chain->RemoveEmptySegments(), 1);
    EXPECT_EQ(chain->GetExtensions(), 3);
    EXPECT_EQ(chain->RemoveEmptySegments(), 0);
}

}  // namespace
