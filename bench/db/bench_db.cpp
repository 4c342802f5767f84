// Timings of drawing a database: 100,000 native entities drawn and rendered to SVG, and the
// worldDraw of one rotated dimension (the yardstick for the chain's drawing later).
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <string>

#include "host/db/AcDbArc.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbRender.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/db/AcDbText.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// Lines, arcs, circles, polylines and texts in equal parts on a grid.
std::unique_ptr<AcDbDatabase> MakeDrawing(int count)
{
    auto db = std::make_unique<AcDbDatabase>(true, true);
    AcDbBlockTableRecord* space = nullptr;
    acdbOpenObject(space, db->modelSpaceId(), AcDb::kForWrite);
    const int side = static_cast<int>(std::sqrt(count)) + 1;
    for (int i = 0; i < count; ++i) {
        const double x = (i % side) * 2.0, y = (i / side) * 2.0;
        AcDbEntity* e = nullptr;
        switch (i % 5) {
        case 0: e = new AcDbLine(AcGePoint3d(x, y, 0), AcGePoint3d(x + 1.5, y + 0.5, 0)); break;
        case 1: e = new AcDbArc(AcGePoint3d(x + 0.75, y, 0), 0.6, 0.0, kPi * 0.75); break;
        case 2: e = new AcDbCircle(AcGePoint3d(x + 0.75, y + 0.75, 0), AcGeVector3d::kZAxis, 0.5); break;
        case 3: {
            auto* pl = new AcDbPolyline();
            pl->addVertexAt(0, AcGePoint2d(x, y));
            pl->addVertexAt(1, AcGePoint2d(x + 1, y), 0.5);
            pl->addVertexAt(2, AcGePoint2d(x + 1.5, y + 1));
            e = pl;
            break;
        }
        default: e = new AcDbText(AcGePoint3d(x, y, 0), L"1,23", AcDbObjectId::kNull, 0.25); break;
        }
        e->setColorIndex(static_cast<Adesk::UInt16>(1 + i % 7));
        space->appendAcDbEntity(e);
        e->close();
    }
    space->close();
    return db;
}

void BM_DrawAndSvg100kEntities(benchmark::State& state)
{
    const auto db = MakeDrawing(static_cast<int>(state.range(0)));
    AcDbRenderOptions options;
    options.fitMm = 841;
    std::string bytes;
    for (auto _ : state) {
        if (acdbRenderDatabase(db.get(), options, bytes) != Acad::eOk)
            state.SkipWithError("render failed");
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["svg_MB"] = static_cast<double>(bytes.size()) / 1e6;
}
BENCHMARK(BM_DrawAndSvg100kEntities)->Arg(100000)->Unit(benchmark::kMillisecond);

// Only the drawing into a display list, without the picture.
void BM_Draw100kEntities(benchmark::State& state)
{
    const auto db = MakeDrawing(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        GiDisplayList list;
        acdbDrawSpace(db.get(), list);
        benchmark::DoNotOptimize(list.primitives.data());
    }
}
BENCHMARK(BM_Draw100kEntities)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_RotatedDimensionWorldDraw(benchmark::State& state)
{
    AcDbRotatedDimension dim(0.0, AcGePoint3d(0, 0, 0), AcGePoint3d(3625, 0, 0), AcGePoint3d(0, 800, 0));
    dim.setDimscale(50);
    dim.setDimtad(1);
    dim.setDimdec(2);
    dim.setDimlfac(0.001);
    dim.setDimensionText(L"\\A1;<>{\\H0.7x;\\S5^;}");
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    for (auto _ : state) {
        list.clear();
        dim.worldDraw(&draw);
        benchmark::DoNotOptimize(list.primitives.data());
    }
    state.counters["primitives"] = static_cast<double>(list.size());
}
BENCHMARK(BM_RotatedDimensionWorldDraw)->Unit(benchmark::kMicrosecond);

}  // namespace
