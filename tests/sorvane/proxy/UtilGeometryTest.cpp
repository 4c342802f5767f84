// The forgiving geometry helpers: tolerance retries, hit choice, and point
// placement along lines and between circles.
#include <gtest/gtest.h>

#include <numbers>

#include "host/rx/acutPrintf.h"
#include "proxy/Util.h"
#include "tests/sorvane/services/LogFixture.h"

namespace {

using P = AcGePoint3d;
using UtilGeometry = LogFixture;
const AcGeVector3d kX(1, 0, 0), kZ(0, 0, 1);
constexpr double kPi = std::numbers::pi;

#define EXPECT_POINT(actual, expected) \
    EXPECT_LT((actual).distanceTo(expected), 1e-6) << (actual).x << "," << (actual).y << "," << (actual).z

TEST_F(UtilGeometry, IntersectCircleForgivesMissesUpTo001AndIgnoresArcLimits)
{
    const AcGeCircArc3d quarter(P(0, 0, 0), kZ, kX, 10.0, 0.0, kPi / 2);
    for (double y : {10.0, 10.0049, 10.0099, 10.0101}) {
        P p1, p2(9, 9, 9);
        EXPECT_EQ(IntersectCircle(quarter, AcGeLine3d(P(0, y, 0), kX), p1, p2), y < 10.01) << y;
        if (y < 10.01) {
            EXPECT_POINT(p1, P(0, y, 0));
            EXPECT_POINT(p2, p1); // a touching hit fills both outputs
        }
    }
    P p1, p2;
    ASSERT_TRUE(IntersectCircle(quarter, AcGeLine3d(P(0, -6, 0), kX), p1, p2)); // off the arc itself
    EXPECT_POINT(p1, P(-8, -6, 0));
    EXPECT_POINT(p2, P(8, -6, 0));
}

TEST_F(UtilGeometry, IntersectLinesRetriesAndNamesTheFailure)
{
    const AcGeLineSeg3d base(P(0, 0, 0), P(10, 0, 0));
    const std::pair<AcGeLineSeg3d, const wchar_t*> cases[] = { // null: a hit near (5, 0)
        {AcGeLineSeg3d(P(5, -5, 0.0008), P(5, 5, 0.0008)), nullptr}, // skew within 0.001
        {AcGeLineSeg3d(P(5, -5, 0.002), P(5, 5, 0.002)), L"\n********Unknown Intersect Error "},
        {AcGeLineSeg3d(P(0, 0.01, 0), P(10, 0.01, 0)), L"\n*******lineDim isParallelTo lineExt "},
        {AcGeLineSeg3d(P(15, -5, 0), P(15, 5, 0)), L"\n********Unknown Intersect Error "}}; // past the end
    for (const auto& [other, failure] : cases) {
        ClearLog();
        P result(-1, -1, -1);
        EXPECT_EQ(IntersectLines(base, other, result), failure == nullptr);
        EXPECT_POINT(result, failure ? P(-1, -1, -1) : P(5, 0, 0.0004));
        EXPECT_EQ(LogText().find(failure ? failure : L"*"), failure ? 11u : std::wstring::npos);
    }
    // The retries never leave the library-wide tolerance changed.
    EXPECT_EQ(AcGeContext::gTol.equalPoint(), AcGeTol().equalPoint());
    EXPECT_EQ(AcGeContext::gTol.equalVector(), AcGeTol().equalVector());
}

TEST_F(UtilGeometry, MyIntersectChoosesTheHit)
{
    const AcGeCircArc3d circle(P(0, 0, 0), kZ, 5.0), leftHalf(P(0, 0, 0), kZ, kX, 5.0, kPi / 2, 3 * kPi / 2);
    const AcGeLine3d right(P(0, 0, 0), kX), left(P(0, 0, 0), -kX);
    struct Case {
        const AcGeLine3d& line;
        P nearPoint;
        const AcGeCurve3d* restrictTo;
        P expected;
    } const cases[] = {
        {right, P(-4, 1, 0), nullptr, P(-5, 0, 0)},
        {right, P(0, 3, 0), nullptr, P(5, 0, 0)}, {left, P(0, 3, 0), nullptr, P(-5, 0, 0)}, // a tie: second hit
        {right, P(4, 0, 0), &leftHalf, P(-5, 0, 0)}, // only the farther hit is on the curve
        {right, P(4, 0, 0), &circle, P(5, 0, 0)}};   // both on it: nearness decides
    for (const Case& c : cases) {
        P result;
        EXPECT_EQ(MyIntersect(circle, c.line, result, c.nearPoint, c.restrictTo), 1);
        EXPECT_POINT(result, c.expected);
    }
    P kept(7, 7, 7);
    EXPECT_EQ(MyIntersect(circle, AcGeLine3d(P(0, 6, 0), kX), kept, P(0, 0, 0), nullptr), 0);
    EXPECT_POINT(kept, P(7, 7, 7));
    EXPECT_TRUE(LogHas(L"\n **** MyIntersect ***"));
}

TEST_F(UtilGeometry, SetExtendPoint)
{
    struct Case {
        P point, from;
        double distance;
        int ret;
        P expected;
    } const cases[] = {
        {P(10, 0, 0), P(0, 0, 0), 5.0, 1, P(15, 0, 0)}, {P(3, 4, 7), P(0, 0, 7), 5.0, 1, P(6, 8, 7)},
        {P(-2, -2, 0), P(0, 0, 0), 0.0, 1, P(-2, -2, 0)}, {P(1, 1, 0), P(1, 1, 0), 5.0, 0, P(1, 1, 0)},
        {P(0, 0, 5), P(0, 0, 0), 2.0, 1, P(0, 0, 5)}}; // one above the other: no plan line to follow
    for (const Case& c : cases) {
        P point = c.point;
        EXPECT_EQ(SetExtendPoint(point, c.from, c.distance), c.ret);
        EXPECT_POINT(point, c.expected);
    }
    EXPECT_TRUE(LogHas(L"\n************** SetExtendPoint 2.000000 !intersects "));
}

TEST_F(UtilGeometry, SetBoundaryPointProjectsAndClamps)
{
    const std::pair<P, P> cases[] = { // A (0,0) r 1, B (10,0) r 2: boundaries at x = 1 and x = 8
        {P(5, 3, 0), P(5, 0, 0)},   {P(-4, 2, 0), P(1, 0, 0)}, {P(0.5, 0, 0), P(1, 0, 0)},
        {P(9.5, 1, 0), P(8, 0, 0)}, {P(12, 0, 0), P(8, 0, 0)}};
    for (const auto& [start, expected] : cases) {
        P point = start;
        EXPECT_EQ(SetBoundaryPoint(point, P(0, 0, 0), 1.0, P(10, 0, 0), 2.0), 1);
        EXPECT_POINT(point, expected);
    }
    P slanted(-3, -1, 0), same(3, 3, 0), high(5, 3, 4);
    EXPECT_EQ(SetBoundaryPoint(slanted, P(0, 0, 0), 2.0, P(6, 8, 0), 1.0), 1);
    EXPECT_POINT(slanted, P(1.2, 1.6, 0));
    EXPECT_EQ(SetBoundaryPoint(same, P(1, 1, 0), 1.0, P(1, 1, 0), 2.0), 0);
    EXPECT_POINT(same, P(3, 3, 0));
    AcConsoleRecorder console; // off the plane through the line: stays, and says so
    EXPECT_EQ(SetBoundaryPoint(high, P(0, 0, 0), 1.0, P(10, 0, 0), 2.0), 1);
    EXPECT_POINT(high, P(5, 3, 4));
    EXPECT_EQ(console.Text(), L"\n !lineMain.isOn( planePoint ) ");
}

TEST(SameQuadrant, LopsidedAroundZero)
{
    struct Case {
        double a[3], b[3];
        int expected;
    } const cases[] = {{{-0.0005, 1, 0}, {1, 1, 0}, 1}, {{-0.002, 1, 0}, {1, 1, 0}, 0},
                       {{1, 1, 0}, {-0.002, 1, 0}, 0},  {{1, -0.002, 0}, {1, 0, 0}, 0},
                       {{-0.002, 0, 0}, {-0.0005, 0, 0}, 1}, {{1, 1, -5}, {1, 1, 5}, 1}};
    for (const Case& c : cases)
        EXPECT_EQ(SameQuadrant(c.a, c.b), c.expected) << c.a[0] << "," << c.a[1] << " / " << c.b[0] << "," << c.b[1];
}

} // namespace
