// The chain's units and angles: paper sizes to drawing sizes with the repairs
// of a zero scale and zero units, whole-degree rounding and snapping, the
// display switches, and a chain's format going back to the option store.
#include <gtest/gtest.h>

#include <cmath>

#include "host/rx/acutPrintf.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

using ChainUnits = ChainFixture;

double Rad(double dDegrees)
{
    return dDegrees * SVdim::kPi / 180.0;
}

TEST(ChainAngles, DegRoundRoundsThroughText)
{
    const struct {
        double dDegrees;
        int iDecimals;
        double dExpect;
    } cases[] = {
        {89.6, 0, 90}, {179.6, 0, 180}, {0.4, 0, 0}, {-0.4, 0, 0}, {270.0, 2, 270.0}, {89.994, 2, 89.99},
        {90.5, 0, 90},  // "%.0f" rounds half to even
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(SVdim::DegRound(Rad(c.dDegrees), c.iDecimals), c.dExpect) << c.dDegrees;
}

TEST(ChainAngles, SnapAngleCatchesTheRightAnglesOnly)
{
    const struct {
        double dRadians;
        double dExpect;
    } cases[] = {
        {Rad(0.001), 0.0},
        {Rad(-0.001), 0.0},
        {Rad(90.001), SVdim::kHalfPi},
        {Rad(179.999), 0.0},
        {Rad(270.0), 270.0},  // the value itself, not radians
        {Rad(359.999), 0.0},
        {Rad(45.0), Rad(45.0)},
        {Rad(90.5), Rad(90.5)},
        {Rad(-90.0), Rad(-90.0)},
        {1.0, 1.0},
    };
    for (const auto& c : cases) {
        double dAngle = c.dRadians;
        EXPECT_DOUBLE_EQ(SVdim::SnapAngle(dAngle), c.dExpect) << c.dRadians;
        EXPECT_DOUBLE_EQ(dAngle, c.dExpect) << c.dRadians;
    }
    double d270 = Rad(270.0);
    SVdim::SnapAngle(d270);
    EXPECT_GT(std::fabs(std::cos(d270)), 0.1);  // no right angle any more
}

TEST(ChainAngles, LineRotationTakesTheSmallerSense)
{
    const struct {
        AcGeVector3d vLine;
        double dDegrees;
    } cases[] = {
        {{1, 0, 0}, 0},     {{-1, 0, 0}, 0},  {{0, 1, 0}, 90},   {{0, -1, 0}, 90},
        {{3, 4, 0}, 53.13}, {{3, -4, 0}, 126.87}, {{-3, -4, 0}, 53.13}, {{1, -1e-9, 0}, 0},
    };
    for (const auto& c : cases) {
        const double dRotation = SVdim::LineRotation(c.vLine);
        EXPECT_NEAR(dRotation * 180.0 / SVdim::kPi, c.dDegrees, 0.01) << c.vLine.x << "," << c.vLine.y;
    }
}

TEST_F(ChainUnits, ZeroScaleAndUnitsAreRepairedOnRead)
{
    SVdim chain;
    LayOut(chain, 2);
    chain.arrayDouble[SVdim::kDblScaleVal] = 0.0;
    chain.arrayDouble[SVdim::kDblAcadUnits] = 0.0;
    AcConsoleRecorder console;
    EXPECT_DOUBLE_EQ(chain.ToDrawing(2.5), 2.5 / 0.01 * 0.001);
    EXPECT_EQ(console.Text(), L"\n!!! Scale=0 !!!");
    EXPECT_DOUBLE_EQ(chain.arrayDouble[SVdim::kDblScaleVal], 0.01);
    EXPECT_DOUBLE_EQ(chain.arrayDouble[SVdim::kDblAcadUnits], 0.001);
    chain.GetScale();
    EXPECT_EQ(console.Calls().size(), 1u);  // repaired once, silent after
}

TEST_F(ChainUnits, AdaptByTextHeightPrefersTheGlobalPercentage)
{
    // Defaults: text height 50 (5 mm), scale 1:100, 0.001 units per mm.
    const struct {
        const char* name;
        int iIndex;
        double dGlobal;  // written to the store's double first; NAN leaves it
        double dExpect;
        const wchar_t* pszConsole;
    } cases[] = {
        {"TextOffset 50%", 7, NAN, 0.25, L""},
        {"ExpTextHeight 80%", 8, NAN, 0.4, L""},
        {"a global 0 counts as 10%", 7, 0.0, 0.05, L""},
        {"global wins over the chain", 7, 20.0, 0.1, L""},
        {"past the end counts as 10%", 40, NAN, 0.05, L"\n!!! AdaptByTextHeight i=40 "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SVdim chain;
        LayOut(chain, 2);
        if (!std::isnan(c.dGlobal))
            m_options.GetSet().arrayDouble[c.iIndex] = c.dGlobal;
        AcConsoleRecorder console;
        EXPECT_NEAR(chain.AdaptByTextHeight(c.iIndex), c.dExpect, 1e-12);
        EXPECT_EQ(console.Text(), c.pszConsole);
    }
    // Without a store the chain's own percentage serves.
    SVdim chain;
    LayOut(chain, 2);
    chain.arrayDouble[7] = 30.0;
    pGlobDimOptions = nullptr;
    EXPECT_NEAR(chain.AdaptByTextHeight(7), 0.15, 1e-12);
}

TEST_F(ChainUnits, StatusCombinesWithTheGlobalSwitch)
{
    struct Property {
        const char* name;
        int iOptInt;
        int iStatus;
        BOOL (SVdim::*pTest)() const;
    };
    const Property props[] = {
        {"AltUnits", 14, SVdim::kIntAltUnitsStatus, &SVdim::IsAltUnits},
        {"ShowSumOfDim", 7, SVdim::kIntSumStatus, &SVdim::IsShowSum},
        {"WipeOut", 10, SVdim::kIntWipeOutStatus, &SVdim::IsWipeOut},
    };
    const struct {
        UINT nGlobal, nStatus;
        BOOL bExpect;
    } cases[] = {
        {0, 0, FALSE}, {0, 1, TRUE}, {0, 2, FALSE}, {0, 9, FALSE},
        {1, 0, TRUE},  {1, 1, TRUE}, {1, 2, FALSE}, {1, 9, TRUE},
    };
    SVdim chain;
    LayOut(chain, 2);
    for (const auto& p : props)
        for (const auto& c : cases) {
            m_options.arrayOptInt.SetAtGrow(p.iOptInt, c.nGlobal);
            chain.arrayInt[p.iStatus] = c.nStatus;
            EXPECT_EQ((chain.*p.pTest)(), c.bExpect) << p.name << " global " << c.nGlobal << " status " << c.nStatus;
        }
}

TEST_F(ChainUnits, SaveToGlobalKeepsTheStoresOptionsFile)
{
    SVdim chain;
    LayOut(chain, 2);
    m_options.GetSet().arrayString[SVdim::kStrIniFile] = L"mine.ini";
    chain.arrayDouble[0] = 0.02;
    chain.arrayDouble[1] = 35.0;
    chain.arrayDouble[9] = 1.0;
    chain.arrayDouble[4] = 99.0;  // TickSize is not part of the format
    chain.arrayInt[SVdim::kIntDecimals] = 2;
    chain.arrayInt[SVdim::kIntExtLine] = 0;
    chain.arrayInt[SVdim::kIntLastType] = 5;  // nor is the tick
    chain.arrayString[0] = L"1:50";
    chain.arrayString[SVdim::kStrIniFile] = L"other.ini";
    ASSERT_TRUE(chain.SaveToGlobal());
    EXPECT_DOUBLE_EQ(m_options.GetDouble(0), 0.02);
    EXPECT_DOUBLE_EQ(m_options.GetDouble(1), 35.0);
    EXPECT_DOUBLE_EQ(m_options.GetDouble(9), 1.0);
    EXPECT_DOUBLE_EQ(m_options.GetDouble(4), 4.0);
    EXPECT_EQ(m_options.GetInt(SVdim::kIntDecimals), 2);
    EXPECT_EQ(m_options.GetInt(SVdim::kIntExtLine), 0);
    EXPECT_NE(m_options.GetInt(SVdim::kIntLastType), 5);
    EXPECT_EQ(m_options.GetString(0), CString(L"1:50"));
    EXPECT_EQ(m_options.GetString(SVdim::kStrIniFile), CString(L"mine.ini"));

    pGlobDimOptions = nullptr;
    EXPECT_FALSE(chain.SaveToGlobal());
}

TEST_F(ChainUnits, InitializeCopiesTheLinearSetOnlyOverShorterArrays)
{
    SVdim chain;
    ASSERT_TRUE(chain.Initialize(0));
    EXPECT_TRUE(chain.m_normal.isEqualTo(AcGeVector3d(0, 0, 1)));
    EXPECT_EQ(chain.arrayDouble.GetSize(), m_options.m_setLinear.arrayDouble.GetSize());
    EXPECT_EQ(chain.arrayString.GetSize(), m_options.m_setLinear.arrayString.GetSize());
    EXPECT_EQ(chain.arrayInt.GetSize(), m_options.m_setLinear.arrayInt.GetSize());
    EXPECT_EQ(chain.arrayString[0], m_options.m_setLinear.arrayString[0]);

    chain.arrayDouble[1] = 77.0;  // a chain's own value survives a later Initialize
    ASSERT_TRUE(chain.Initialize(0));
    EXPECT_DOUBLE_EQ(chain.arrayDouble[1], 77.0);

    SVdim orphan;
    pGlobDimOptions = nullptr;
    EXPECT_FALSE(orphan.Initialize(0));
    EXPECT_EQ(orphan.arrayInt.GetSize(), 0);
}

}  // namespace
