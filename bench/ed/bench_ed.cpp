// The command loop's cost per input, on 100,000-line scripts: answers to one prompt loop,
// commands that do nothing (start, undo group, reactors, end), and LINE commands that draw.
#include <benchmark/benchmark.h>

#include <string>

#include "host/ap/AcApDocManager.h"
#include "host/ap/ApHost.h"
#include "host/ed/AcEd.h"

namespace {

constexpr int kLines = 100000;

void pointLoop()
{
    ads_point p;
    while (acedGetPoint(nullptr, L"\nPoint: ", p) == RTNORM) {
    }
}

void nothing() {}

void setUp()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    apHostStartup();
    acedRegCmds->addCommand(L"SV_BENCH", L"BENCH_POINTS", L"BENCH_POINTS", ACRX_CMD_MODAL, pointLoop);
    acedRegCmds->addCommand(L"SV_BENCH", L"BENCH_NOP", L"BENCH_NOP", ACRX_CMD_MODAL, nothing);
}

void runScript(benchmark::State& state, const std::wstring& script)
{
    setUp();
    AcEdSession::Options quiet;
    quiet.strict = true;
    for (auto _ : state) {
        state.PauseTiming();
        acDocManager->closeAll();
        acDocManager->appContextNewDocument(nullptr);
        state.ResumeTiming();
        AcEdSession session(quiet);
        if (!session.runScriptText(script, L"bench"))
            state.SkipWithError("the script failed");
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}

void BM_PointAnswers(benchmark::State& state)
{
    std::wstring script = L"BENCH_POINTS\n";
    for (int i = 1; i < kLines - 1; ++i)
        script += std::to_wstring(i % 1000) + L"," + std::to_wstring(i / 1000) + L"\n";
    script += L"\n";
    runScript(state, script);
}

void BM_EmptyCommands(benchmark::State& state)
{
    std::wstring script;
    for (int i = 0; i < kLines; ++i)
        script += L"BENCH_NOP\n";
    runScript(state, script);
}

void BM_LineCommands(benchmark::State& state)
{
    std::wstring script;
    for (int i = 0; i < kLines / 4; ++i)
        script += L"LINE\n" + std::to_wstring(i % 100) + L",0\n@1,1\n\n";
    runScript(state, script);
}

BENCHMARK(BM_PointAnswers)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EmptyCommands)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LineCommands)->Unit(benchmark::kMillisecond);

} // namespace
