// Picking on display lists: point and aperture, fence, window and crossing.
#include <gtest/gtest.h>

#include "host/gi/GiHitTest.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// A small scene of overlapping primitives, each with its own marker:
//   0  line (0,0)-(10,0)                       marker 2
//   1  filled triangle (20,0) (30,0) (20,10)    marker 3
//   2  circle about (50,0), radius 5            marker 4
//   3  quarter arc about (0,20), r 5, 0..90 deg marker 5
//   4  text "1.23" at (40,20), height 2.5       marker 1001
//   5  line (0,-5)-(10,5) crossing line 0       marker 6
//   6  polyline (60,0)-(70,0)-(70,10), segment markers from 100
//   7  xline through (0,40) along x            marker 8
//   8  filled sector about (80,0), r 5, 0..90  marker 9
GiDisplayList scene()
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    AcGiSubEntityTraits& t = draw.subEntityTraits();
    AcGiWorldGeometry& g = draw.geometry();
    auto line = [&](AcGePoint3d a, AcGePoint3d b) {
        const AcGePoint3d p[2] = {a, b};
        g.polyline(2, p);
    };
    t.setSelectionMarker(2);
    line({0, 0, 0}, {10, 0, 0});
    t.setSelectionMarker(3);
    t.setFillType(kAcGiFillAlways);
    const AcGePoint3d tri[3] = {{20, 0, 0}, {30, 0, 0}, {20, 10, 0}};
    g.polygon(3, tri);
    t.setFillType(kAcGiFillNever);
    t.setSelectionMarker(4);
    g.circle(AcGePoint3d(50, 0, 0), 5, AcGeVector3d::kZAxis);
    t.setSelectionMarker(5);
    g.circularArc(AcGePoint3d(0, 20, 0), 5, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kPi / 2);
    t.setSelectionMarker(1001);
    g.text(AcGePoint3d(40, 20, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, 2.5, 1.0, 0.0, L"1.23");
    t.setSelectionMarker(6);
    line({0, -5, 0}, {10, 5, 0});
    t.setSelectionMarker(7);
    const AcGePoint3d pl[3] = {{60, 0, 0}, {70, 0, 0}, {70, 10, 0}};
    g.polyline(3, pl, nullptr, 100);
    t.setSelectionMarker(8);
    g.xline(AcGePoint3d(0, 40, 0), AcGePoint3d(1, 40, 0));
    t.setSelectionMarker(9);
    t.setFillType(kAcGiFillAlways);
    g.circularArc(AcGePoint3d(80, 0, 0), 5, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kPi / 2, kAcGiArcSector);
    return list;
}

TEST(HitTest, PointAndAperture)
{
    const GiDisplayList list = scene();
    struct Case {
        AcGePoint2d at;
        double aperture;
        std::vector<std::pair<std::size_t, Adesk::GsMarker>> hits;  // in drawing order
    } cases[] = {
        {{2, 0.05}, 0.1, {{0, 2}}},
        {{2, 0.2}, 0.1, {}},
        {{5, 0}, 0.1, {{0, 2}, {5, 6}}},           // where the lines cross: the later one on top
        {{22, 2}, 0.1, {{1, 3}}},                  // inside the filled triangle
        {{30.05, 0}, 0.1, {{1, 3}}},               // at its corner, from outside
        {{50, 0}, 0.1, {}},                        // the centre of an unfilled circle
        {{55.05, 0}, 0.1, {{2, 4}}},
        {{0, 25}, 0.1, {{3, 5}}},                  // on the arc (90 degrees)
        {{0, 15}, 0.1, {}},                        // on its circle, off the arc
        {{-5, 20}, 0.1, {}},
        {{41, 21}, 0.1, {{4, 1001}}},              // inside the text box
        {{40 + 7.0724, 21}, 0.1, {{4, 1001}}},
        {{49, 21}, 0.1, {}},
        {{65, 0}, 0.1, {{6, 100}}},                // polyline segment markers
        {{70, 5}, 0.1, {{6, 101}}},
        {{-1000, 40.05}, 0.1, {{7, 8}}},           // the xline reaches everywhere
        {{81, 1}, 0.1, {{8, 9}}},                  // inside the filled sector
        {{79, -1}, 0.1, {}},                       // the other quadrant
    };
    for (const Case& c : cases) {
        const std::vector<GiHit> hits = giHitPoint(list, c.at, c.aperture);
        std::vector<std::pair<std::size_t, Adesk::GsMarker>> got;
        for (const GiHit& h : hits)
            got.emplace_back(h.index, h.marker);
        EXPECT_EQ(got, c.hits) << c.at.x << "," << c.at.y;
    }
}

TEST(HitTest, FenceWindowAndCrossing)
{
    const GiDisplayList list = scene();
    using Ids = std::vector<std::size_t>;
    struct FenceCase {
        std::vector<AcGePoint2d> fence;
        Ids expected;
    } fences[] = {
        {{{5, -10}, {5, 10}}, {0, 5}},
        {{{-10, 1}, {100, 1}}, {1, 2, 5, 6, 8}},
        {{{-1, 22}, {10, 22}}, {3}},
        {{{-10, 22}, {-1, 22}}, {}},                      // on its circle, off the arc
        {{{41, 19}, {41, 30}, {45, 30}}, {4}},            // into the text box
        {{{21, 1}, {22, 2}}, {1}},                        // wholly inside the filled triangle
        {{{0, 30}, {0, 50}}, {7}},
    };
    for (const FenceCase& f : fences)
        EXPECT_EQ(giHitFence(list, f.fence), f.expected);

    struct RectCase {
        AcGePoint2d a, b;
        Ids window, crossing;
    } rects[] = {
        {{-1, -6}, {11, 6}, {0, 5}, {0, 5}},
        {{11, 6}, {-1, -6}, {0, 5}, {0, 5}},              // corners in any order
        {{-1, -1}, {11, 1}, {0}, {0, 5}},
        {{44, -6}, {56, 6}, {2}, {2}},
        {{48, -2}, {52, 2}, {}, {}},                      // inside an unfilled circle
        {{21, 1}, {22, 2}, {}, {1}},                      // inside the filled triangle
        {{39, 19}, {48, 23}, {4}, {4}},
        {{39, 19}, {45, 23}, {}, {4}},
        {{-100, -100}, {100, 100}, {0, 1, 2, 3, 4, 5, 6, 8}, {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        {{-2, 18}, {2, 22}, {}, {}},                      // the arc's centre region
    };
    for (const RectCase& r : rects) {
        EXPECT_EQ(giHitWindow(list, r.a, r.b), r.window) << r.a.x << "," << r.a.y;
        EXPECT_EQ(giHitCrossing(list, r.a, r.b), r.crossing) << r.a.x << "," << r.a.y;
    }
}

}  // namespace
