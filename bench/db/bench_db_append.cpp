// Timings of appending lines to model space under undo recording: all lines in one undo
// group, one group per line (as a script of LINE commands), and undoing them again.
#include <benchmark/benchmark.h>

#include <memory>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"

namespace {

// Opens model space for each line, as a command would.
void AppendLine(AcDbDatabase& db, int i)
{
    AcDbBlockTableRecord* space = nullptr;
    acdbOpenObject(space, db.modelSpaceId(), AcDb::kForWrite);
    auto* line = new AcDbLine(AcGePoint3d(i, 0, 0), AcGePoint3d(i, 1, 0));
    space->appendAcDbEntity(line);
    line->close();
    space->close();
}

void BM_AppendLinesOneGroup(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto db = std::make_unique<AcDbDatabase>(true, true);
        state.ResumeTiming();
        db->startUndoGroup();
        for (int i = 0; i < count; ++i)
            AppendLine(*db, i);
        db->endUndoGroup();
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_AppendLinesOneGroup)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

void BM_AppendLinesGroupPerLine(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto db = std::make_unique<AcDbDatabase>(true, true);
        state.ResumeTiming();
        for (int i = 0; i < count; ++i) {
            db->startUndoGroup();
            AppendLine(*db, i);
            db->endUndoGroup();
        }
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_AppendLinesGroupPerLine)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

// Undo of every line, one group per line, newest first.
void BM_UndoLinesGroupPerLine(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto db = std::make_unique<AcDbDatabase>(true, true);
        for (int i = 0; i < count; ++i) {
            db->startUndoGroup();
            AppendLine(*db, i);
            db->endUndoGroup();
        }
        state.ResumeTiming();
        db->undo(count);
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_UndoLinesGroupPerLine)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

}  // namespace
