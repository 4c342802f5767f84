// Timings of the display layer: a 100,000-primitive drawing to SVG, and the recording of one
// dimension-like group (the yardstick for a chain's worldDraw).
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

#include "host/gi/GiRecordingDraw.h"
#include "host/gi/GiRenderer.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// Lines, arcs and texts in equal parts, laid out on a grid.
void drawMix(AcGiWorldDraw& draw, int count)
{
    AcGiWorldGeometry& g = draw.geometry();
    const AcGiTextStyle style(L"arial.ttf", L"", 0.25, 1.0, 0.0, 1.0, false, false, false, false, false);
    const int side = static_cast<int>(std::sqrt(count)) + 1;
    for (int i = 0; i < count; ++i) {
        const double x = (i % side) * 2.0, y = (i / side) * 2.0;
        draw.subEntityTraits().setColor(static_cast<Adesk::UInt16>(1 + i % 7));
        switch (i % 3) {
        case 0: {
            const AcGePoint3d p[2] = {{x, y, 0}, {x + 1.5, y + 0.5, 0}};
            g.polyline(2, p);
            break;
        }
        case 1:
            g.circularArc(AcGePoint3d(x + 0.75, y, 0), 0.6, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kPi * 0.75);
            break;
        default:
            g.text(AcGePoint3d(x, y, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"1,23", -1, false, style);
            break;
        }
    }
}

void BM_Svg100kPrimitives(benchmark::State& state)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    drawMix(draw, static_cast<int>(state.range(0)));
    GiRenderOptions options;
    options.format = GiOutputFormat::kSvg;
    options.fitMm = 841;
    std::string bytes;
    for (auto _ : state) {
        if (!giRenderToBytes({&list}, options, bytes))
            state.SkipWithError("render failed");
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["primitives"] = static_cast<double>(list.size());
    state.counters["svg_MB"] = static_cast<double>(bytes.size()) / 1e6;
}
BENCHMARK(BM_Svg100kPrimitives)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_Record100kPrimitives(benchmark::State& state)
{
    for (auto _ : state) {
        GiDisplayList list;
        GiRecordingWorldDraw draw(list);
        drawMix(draw, static_cast<int>(state.range(0)));
        benchmark::DoNotOptimize(list.primitives.data());
    }
}
BENCHMARK(BM_Record100kPrimitives)->Arg(100000)->Unit(benchmark::kMillisecond);

// Two extension lines, a dimension line, two slash ticks and a value text placed by its
// measured width, as a chain segment draws them.
void BM_RecordDimensionGroup(benchmark::State& state)
{
    const AcGiTextStyle style(L"arial.ttf", L"", 0.25, 1.0, 0.0, 1.0, false, false, false, false, false);
    GiDisplayList list;
    list.primitives.reserve(16);
    for (auto _ : state) {
        list.clear();
        GiRecordingWorldDraw draw(list);
        AcGiSubEntityTraits& t = draw.subEntityTraits();
        AcGiWorldGeometry& g = draw.geometry();
        const AcGePoint3d e1[2] = {{0, -0.2, 0}, {0, 1.2, 0}};
        const AcGePoint3d e2[2] = {{3.65, -0.2, 0}, {3.65, 1.2, 0}};
        const AcGePoint3d dim[2] = {{-0.2, 1, 0}, {3.85, 1, 0}};
        const AcGePoint3d t1[2] = {{-0.15, 0.85, 0}, {0.15, 1.15, 0}};
        const AcGePoint3d t2[2] = {{3.5, 0.85, 0}, {3.8, 1.15, 0}};
        t.setSelectionMarker(2);
        g.polyline(2, e1);
        t.setSelectionMarker(5);
        g.polyline(2, e2);
        t.setSelectionMarker(3);
        g.polyline(2, dim);
        g.polyline(2, t1);
        g.polyline(2, t2);
        t.setSelectionMarker(4);
        t.setColor(1);
        const double w = style.extents(L"3,65", Adesk::kTrue, -1, Adesk::kFalse).x;
        g.text(AcGePoint3d(1.825 - w / 2, 1.08, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"3,65", -1,
               Adesk::kFalse, style);
        benchmark::DoNotOptimize(list.primitives.data());
    }
}
BENCHMARK(BM_RecordDimensionGroup);

}  // namespace
