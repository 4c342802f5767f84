// The chain's point accessors with their index rules, and the per-extension
// flags: visibility, leader and tick type.
#include <gtest/gtest.h>

#include <string>

#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

using ChainAccess = ChainFixture;

enum class Which { Input, Ext1, Dim, TextRef };

TEST_F(ChainAccess, PointAccessorsFollowTheIndexRules)
{
    // expect: the extension read, or -1 for the origin.
    const struct {
        int nExt;
        Which which;
        int iIndex;
        int iExpect;
    } cases[] = {
        {2, Which::Input, 0, 0},     {2, Which::Input, 1, 1},    {2, Which::Input, -1, 1},
        {2, Which::Input, 2, -1},    {1, Which::Input, 0, -1},   {5, Which::Ext1, -2, 2},
        {5, Which::Ext1, 5, -1},     {1, Which::Ext1, 0, -1},    {5, Which::TextRef, 4, 4},
        {5, Which::TextRef, -4, 4},  {0, Which::TextRef, 0, -1}, {1, Which::Dim, 0, 0},
        {1, Which::Dim, 1, 0},       {0, Which::Dim, 0, -1},     {5, Which::Dim, 5, 4},
        {5, Which::Dim, -5, 4},      {5, Which::Dim, 6, -1},     {5, Which::Dim, 100, 1},
        {5, Which::Dim, 99, 0},      {5, Which::Dim, -100, 1},   {5, Which::Dim, -99, 0},
        {1, Which::Dim, 100, 0},     {6, Which::Dim, 100, -1},   {6, Which::Dim, 99, -1},
        {6, Which::Dim, -100, 1},    {6, Which::Dim, -99, 0},    {6, Which::Dim, 6, 5},
        {2, Which::Dim, -1, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "n=" << c.nExt << " which=" << static_cast<int>(c.which)
                                        << " index=" << c.iIndex);
        SVdim chain;
        LayOut(chain, c.nExt);
        AcGePoint3d point;
        int iSlot = 0;
        switch (c.which) {
        case Which::Input:
            point = chain.GetPointInput(c.iIndex);
            iSlot = 0;
            break;
        case Which::Ext1:
            point = chain.GetPointExt1(c.iIndex);
            iSlot = 1;
            break;
        case Which::Dim:
            point = chain.GetPointDim(c.iIndex);
            iSlot = 2;
            break;
        case Which::TextRef:
            point = chain.GetPointTextRef(c.iIndex);
            iSlot = 3;
            break;
        }
        const AcGePoint3d expect =
            c.iExpect < 0 ? AcGePoint3d::kOrigin : AcGePoint3d(c.iExpect + 1, iSlot + 1, 7);
        EXPECT_TRUE(point.isEqualTo(expect)) << point.x << "," << point.y << "," << point.z;
    }
}

TEST_F(ChainAccess, VisibilityAndLeaderReturnTheOldBit)
{
    SVdim chain;
    LayOut(chain, 3);
    EXPECT_TRUE(chain.GetExtLineVisible(1));
    EXPECT_EQ(chain.SetExtLineVisible(1, FALSE), 0);
    EXPECT_FALSE(chain.GetExtLineVisible(1));
    EXPECT_EQ(chain.SetExtLineVisible(1, FALSE), 1);
    EXPECT_EQ(chain.SetLeader(1, TRUE), 0);
    EXPECT_EQ(chain.SetExtLineVisible(1, TRUE), 1);
    EXPECT_TRUE(chain.IsLeader(1));
    EXPECT_EQ(chain.m_extFlags[1], SVdim::kExtLeader);
    EXPECT_EQ(chain.SetLeader(1, FALSE), 1);
    EXPECT_EQ(chain.m_extFlags[1], 0u);
    // Out of range: nothing changes, 0 comes back.
    EXPECT_EQ(chain.SetExtLineVisible(3, FALSE), 0);
    EXPECT_EQ(chain.SetLeader(-1, TRUE), 0);
    EXPECT_TRUE(chain.GetExtLineVisible(3));
}

TEST_F(ChainAccess, TickTypesKeepOnlyWhatDiffersFromTheChain)
{
    // Each step runs on the chain the previous steps left; the chain's tick starts at 2.
    const struct {
        const char* name;
        int iExt, iTick;  // SetTickType(iExt, iTick); iTick -1 skips the call
        BOOL bResult;
        UINT flags[3];
        int ticks[3];
        int iAll;  // GetTickType(-1)
    } steps[] = {
        {"fresh", 0, -1, TRUE, {2, 0, 0}, {2, 2, 2}, 2},
        {"own tick", 1, 4, TRUE, {2, 128, 0}, {2, 4, 2}, -1},
        {"back to the chain's", 1, 2, TRUE, {2, 0, 0}, {2, 2, 2}, 2},
        {"none is a tick too", 2, 0, TRUE, {2, 0, 512}, {2, 2, 0}, -1},
        {"own bits replace each other", 2, 5, TRUE, {2, 0, 256}, {2, 2, 5}, -1},
        {"bad index", 3, 1, FALSE, {2, 0, 256}, {2, 2, 5}, -1},
        {"bad tick", 0, 6, FALSE, {2, 0, 256}, {2, 2, 5}, -1},
        {"chain tick clears all own bits", -1, 3, TRUE, {2, 0, 0}, {3, 3, 3}, 3},
        {"own bit against the new tick", 0, 1, TRUE, {2 | 16, 0, 0}, {1, 3, 3}, -1},
    };
    SVdim chain;
    LayOut(chain, 3);
    chain.arrayInt[SVdim::kIntLastType] = 2;
    chain.SetLeader(0, TRUE);  // a non-tick bit that must survive
    for (const auto& s : steps) {
        SCOPED_TRACE(s.name);
        if (s.iTick != -1) {
            EXPECT_EQ(chain.SetTickType(s.iExt, s.iTick), s.bResult);
        }
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(chain.m_extFlags[i], s.flags[i]) << "flags " << i;
            EXPECT_EQ(chain.GetTickType(i), s.ticks[i]) << "tick " << i;
        }
        EXPECT_EQ(chain.GetTickType(-1), s.iAll);
    }
}

TEST_F(ChainAccess, TickBitsAreReadInTheirFixedOrder)
{
    const struct {
        UINT flags;
        int iTick;
    } cases[] = {
        {16 | 64, 1}, {64 | 32, 3}, {32 | 128, 2}, {128 | 256, 4}, {256 | 512, 5}, {512, 0}, {2, 4},
    };
    SVdim chain;
    LayOut(chain, 2);
    chain.arrayInt[SVdim::kIntLastType] = 4;
    for (const auto& c : cases) {
        chain.m_extFlags[1] = c.flags;
        EXPECT_EQ(chain.GetTickType(1), c.iTick) << "flags " << c.flags;
    }
}

}  // namespace
