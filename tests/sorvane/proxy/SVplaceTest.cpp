// Text placement on real horizontal chains: the automatic search, the mirror
// rule, the chain label, manual codes through the re-placing modes, and
// appended texts that follow their segment's text.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

#include "options/ParamTable.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

class Placement : public ChainFixture {
protected:
    // A chain of the type in a UCS turned by dUcsDegrees, with its dimension
    // points at the given x (times unit) along the chain's direction, 2 to
    // the side of the input points, and every text automatic.
    static std::unique_ptr<SVdim> Build(const std::vector<double>& xs, double dUnit, double dUcsDegrees = 0.0,
                                        int iType = SVdim::kHorizontal)
    {
        const double a = dUcsDegrees * SVdim::kPi / 180.0;
        AcGeMatrix3d ucs;
        ucs.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d(std::cos(a), std::sin(a), 0),
                           AcGeVector3d(-std::sin(a), std::cos(a), 0), AcGeVector3d::kZAxis);
        auto pChain = std::make_unique<SVdim>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(0, 2, 0),
                                              iType, nullptr, AcDbObjectId::kNull, 0, &ucs);
        SVdim& chain = *pChain;
        const AcGeVector3d u = chain.m_vectorDim;
        const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(u);
        chain.m_points.setLogicalLength(0);
        for (double x : xs) {
            const AcGePoint3d ptInput = AcGePoint3d::kOrigin + u * (x * dUnit);
            chain.m_points.append(ptInput);
            chain.m_points.append(ptInput + up * 0.5);
            chain.m_points.append(ptInput + up * 2.0);
            chain.m_points.append(ptInput + up * 2.0);
        }
        const int n = static_cast<int>(xs.size());
        chain.m_dimTexts.SetSize(n);
        chain.m_extFlags.SetSize(n);
        for (int i = 1; i < n; ++i)
            chain.m_dimTexts[i] = L"1.25#-8";
        return pChain;
    }

    // The boxed width of a text, the unit the layouts are drawn in.
    double TextWidth()
    {
        auto pChain = Build({0, 100}, 1.0);
        SVdim& chain = *pChain;
        AcGePoint3dArray box;
        double dWidth = 0.0, dHeight = 0.0;
        chain.GetTextCorners(1, chain.ToDrawing(chain.arrayDouble[SVdim::kDblTextHeight] / 10.0) / 10.0, box,
                             dWidth, dHeight, nullptr, 0);
        return box[0].distanceTo(box[1]);
    }
};

TEST_F(Placement, BoxesOverlapOnlyOnCrossings)
{
    auto box = [](double x0, double y0, double x1, double y1) {
        AcGePoint3dArray pts;
        pts.append(AcGePoint3d(x0, y0, 0));
        pts.append(AcGePoint3d(x1, y0, 0));
        pts.append(AcGePoint3d(x1, y1, 0));
        pts.append(AcGePoint3d(x0, y1, 0));
        return pts;
    };
    struct Case {
        AcGePoint3dArray b;
        bool bOverlap;
    } cases[] = {
        {box(1, 1, 3, 3), true},        // corner over corner
        {box(5, 0, 6, 2), false},       // beside
        {box(0.2, 0.2, 0.8, 0.8), false},  // wholly inside, no crossing
        {box(0.5, 0.5, 1.5, 1.5), true},   // inside, but across the middle line
        {box(-1, 0.5, 5, 1.5), true},   // a band across: the middle lines cross
        {AcGePoint3dArray(), false},
    };
    const AcGePoint3dArray a = box(0, 0, 2, 2);
    for (const Case& c : cases)
        EXPECT_EQ(SVdim::BoxesOverlap(a, c.b), c.bOverlap);
}

// Layouts in text widths; every text automatic, placed from the first segment up.
TEST_F(Placement, AutomaticSearchFollowsOrderMirrorAndLabel)
{
    const double w = TextWidth();
    struct Case {
        const char* pszWhat;
        const wchar_t* pszOrder;  // null: the default order
        UINT bMirror;
        const wchar_t* pszLabel;
        std::vector<double> xs;
        int iExt;
        int iCode;
    } cases[] = {
        {"short among long goes right", nullptr, 0, L"", {0, 3, 3.5, 7.5, 10.5}, 2, 14},
        {"a long one stays", nullptr, 0, L"", {0, 3, 3.5, 7.5, 10.5}, 3, 8},
        {"right half, no mirror", nullptr, 0, L"", {0, 4, 8, 12, 12.5, 16.5}, 4, 14},
        {"right half, mirrored", L"2,14,2,13,15,3", 1, L"", {0, 4, 8, 12, 12.5, 16.5}, 4, 2},
        {"left half never mirrors", L"2,14,2,13,15,3", 1, L"", {0, 4, 4.5, 8.5, 12.5, 16.5}, 2, 14},
        {"first end free", nullptr, 0, L"", {0, 0.5, 1, 5}, 1, 2},
        {"label at the first end", nullptr, 0, L"1Label", {0, 0.5, 1, 5}, 1, 3},
        {"label at the last end", nullptr, 0, L"2Label", {0, 0.5, 1, 5}, 1, 2},
        {"label at both ends", nullptr, 0, L"3Label", {0, 0.5, 1, 5}, 1, 3},
        {"nothing passes", L"0,13,15", 0, L"", {0, 0.5, 1, 1.5}, 2, 8},
        {"right at the chain's end passes", L"0,13,15", 0, L"", {0, 0.5, 1, 1.5}, 3, 13},
    };
    for (const Case& c : cases) {
        m_options.SetAutoPosOrder(c.pszOrder ? c.pszOrder : L"0,14,2,13,15,3");
        ASSERT_EQ(m_options.GetOptInt(kOptIntAutoPosMirror), static_cast<int>(c.bMirror));
        auto pChain = Build(c.xs, w);
        pChain->arrayString.SetAtGrow(6, c.pszLabel);
        ASSERT_TRUE(pChain->AdjustTexts('A'));
        EXPECT_EQ(pChain->GetDimTextPos(c.iExt), -c.iCode) << c.pszWhat;
        EXPECT_NEAR(pChain->GetPointTextRef(c.iExt).distanceTo(pChain->GetTextAnchor(c.iExt)), 0.0, 1e-9);
    }
}

TEST_F(Placement, ManualCodesStayUntilReset)
{
    const double w = TextWidth();
    auto pChain = Build({0, 4, 8, 12}, w);
    SVdim& chain = *pChain;
    chain.m_dimTexts[2] = L"1.25#5";
    chain.AdjustTexts('R');
    ASSERT_TRUE(chain.MoveText(2, L'N', 0.3 * w));
    const AcGePoint3d ptMoved = chain.GetPointTextRef(2);
    ASSERT_GT(ptMoved.distanceTo(chain.GetTextAnchor(2)), 0.001);

    chain.AdjustTexts('G');
    EXPECT_EQ(chain.GetDimTextPos(2), 5);
    EXPECT_TRUE(chain.GetPointTextRef(2).isEqualTo(ptMoved));

    chain.AdjustTexts('A');
    EXPECT_EQ(chain.GetDimTextPos(2), -8);
    EXPECT_NEAR(chain.GetPointTextRef(2).distanceTo(chain.GetTextAnchor(2)), 0.0, 1e-9);

    chain.AdjustTexts('C');
    EXPECT_EQ(chain.GetDimTextPos(2), 8);
}

TEST_F(Placement, AppendedTextsFollowTheirSegment)
{
    auto pChain = Build({0, 10, 20}, 1.0);
    SVdim& chain = *pChain;
    chain.AdjustTexts('C');
    CAppendTextObject text;
    text.strText = L"OK FFB";
    text.strMemo = L"scratch";
    EXPECT_EQ(chain.SetAppendingText(2, &text), 0);
    EXPECT_EQ(chain.SetAppendingText(0, &text), 1);  // segment 0 files under 1
    CAppendTextObject* pFound = nullptr;
    ASSERT_EQ(chain.GetAppendingText(0, pFound), 1);
    EXPECT_EQ(pFound->iExt, 1);
    ASSERT_EQ(chain.GetAppendingText(2, pFound), 0);
    EXPECT_TRUE(pFound->strMemo.IsEmpty());
    EXPECT_LT(pFound->ptText.y, 2.0);  // below the dimension line
    EXPECT_NEAR(pFound->ptText.x, chain.GetPointTextRef(2).x, 1e-9);

    // A moved value text takes its automatic appended text along; a free one stays.
    const AcGeVector3d vStep(1, 0, 0);
    const AcGePoint3d ptOld = pFound->ptText;
    chain.SetPointText(2, chain.GetPointTextRef(2) + vStep);
    EXPECT_TRUE(pFound->ptText.isEqualTo(ptOld + vStep));
    pFound->bAutoPos = 0;
    chain.SetPointText(2, chain.GetPointTextRef(2) + vStep, 0);
    EXPECT_TRUE(pFound->ptText.isEqualTo(ptOld + vStep));

    // Re-keyed onto segment 1, it makes the entry there a duplicate, dropped on the next look.
    pFound->ptRef = AcGePoint3d(1, 2, 3);
    EXPECT_TRUE(chain.SetAppendingTextPoint(AcGePoint3d(1, 2, 3), AcGePoint3d(5, 5, 0), 1));
    EXPECT_FALSE(chain.SetAppendingTextPoint(AcGePoint3d(9, 9, 9), AcGePoint3d(), 1));
    EXPECT_EQ(chain.GetAppendingText(1, pFound), 0);
    EXPECT_EQ(chain.AppendTextList.GetSize(), 1);
    // Deleting gives the index of the removed entry, or the count without one.
    EXPECT_EQ(chain.SetAppendingText(1, nullptr), 0);
    EXPECT_EQ(chain.SetAppendingText(1, nullptr), 0);
}

TEST_F(Placement, AppendedTextsFollowTheirTextThroughReordering)
{
    // Extension 3 stands left of extension 2: sorting swaps the two, and the
    // text point of extension 3 (with its appended text) becomes extension 2's.
    auto pChain = Build({0, 10, 30, 20}, 1.0);
    SVdim& chain = *pChain;
    chain.AdjustTexts('C');
    CAppendTextObject text;
    text.strText = L"+0.00";
    chain.SetAppendingText(3, &text);
    CAppendTextObject* pFound = nullptr;
    ASSERT_EQ(chain.GetAppendingText(3, pFound), 0);
    const AcGePoint3d ptText = chain.GetPointTextRef(3);

    chain.RearrangeExtensions(-1);
    ASSERT_NEAR(chain.GetPointDim(2).x, 20.0, 1e-9);
    EXPECT_TRUE(chain.GetPointTextRef(2).isEqualTo(ptText));
    EXPECT_EQ(chain.GetAppendingText(3, pFound), -1);
    ASSERT_EQ(chain.GetAppendingText(2, pFound), 0);
    EXPECT_EQ(pFound->strText, L"+0.00");
}

TEST_F(Placement, TextsStandAboveTheLineInTurnedSystems)
{
    struct Case {
        double dUcs;
        int iType;
    } cases[] = {{0, SVdim::kHorizontal}, {30, SVdim::kHorizontal}, {0, SVdim::kVertical}, {30, SVdim::kVertical}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "ucs " << c.dUcs << " type " << c.iType);
        auto pChain = Build({0, 10}, 1.0, c.dUcs, c.iType);
        SVdim& chain = *pChain;
        const AcGeVector3d u = chain.m_vectorDim;
        const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(u);
        const AcGePoint3d ptStart = chain.GetPointDim(0), ptEnd = chain.GetPointDim(1);
        const double dGap = chain.AdaptByTextHeight(7);

        const AcGePoint3d ptMiddle = chain.GetTextAnchor(1, 8);
        EXPECT_TRUE(ptMiddle.isEqualTo(ptStart + (ptEnd - ptStart) / 2.0 + up * dGap, AcGeTol(1e-9, 1e-9)));
        // Right outside: the box starts beyond the segment's end and reads along the chain.
        AcGePoint3dArray box;
        double w = 0, h = 0;
        chain.GetTextCorners(1, 0.0, box, w, h, nullptr, 14);
        EXPECT_GT((box[0] - ptEnd).dotProduct(u), 0.0);
        EXPECT_NEAR((box[1] - box[0]).dotProduct(u), w, 1e-9);
        EXPECT_NEAR((box[3] - box[0]).dotProduct(up), h, 1e-9);
    }
}

TEST_F(Placement, CircleChainValueStandsBesideItsFirstPoint)
{
    auto pChain = Build({0, 10}, 1.0);
    SVdim& chain = *pChain;
    chain.m_dimType = SVdim::kArc;
    chain.arrayInt.SetAtGrow(SVdim::kIntArcAsCircle, 1);
    ASSERT_TRUE(chain.AdjustTexts('C'));
    // Slot 3 holds the circle's value point, off the first dimension point along the chain.
    const AcGePoint3d ptValue = chain.GetPointTextRef(0);
    EXPECT_GT(ptValue.distanceTo(chain.GetPointDim(0)), chain.ToDrawing(chain.arrayDouble[SVdim::kDblTextHeight] / 10.0));
}

}  // namespace

namespace {

// A linear chain's sum stands beyond its last extension line, clear of the
// last value, however short the last segment is.
TEST_F(Placement, SumStandsBeyondTheChainsEnd)
{
    m_options.arrayOptInt[7] = 1;  // ShowSumOfDim
    const double w = TextWidth();
    for (double dLast : {0.3, 1.0, 3.0}) {
        SCOPED_TRACE(dLast);
        auto pChain = Build({0, 2 * w, 2 * w + dLast * w}, 1.0);
        SVdim& chain = *pChain;
        chain.AdjustTexts('C');
        const int n = chain.GetExtensions();
        const double dMargin = chain.ToDrawing(chain.arrayDouble[SVdim::kDblTextHeight] / 10.0) / 5.0;
        AcGePoint3dArray sum, last;
        double dWidth = 0.0, dHeight = 0.0;
        ASSERT_NE(chain.GetTextCorners(n, dMargin, sum, dWidth, dHeight), 0);
        ASSERT_NE(chain.GetTextCorners(n - 1, dMargin, last, dWidth, dHeight), 0);
        const AcGePoint3d ptEnd = chain.GetPointDim(n - 1);
        for (int k = 0; k < 4; ++k)
            EXPECT_GT((sum[k] - ptEnd).dotProduct(chain.m_vectorDim), 0.0) << k;
        if (dLast >= 1.0) {
            EXPECT_FALSE(SVdim::BoxesOverlap(sum, last));
        }
    }
}

}  // namespace
