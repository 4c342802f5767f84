// Cost per segment of a chain against a native rotated dimension: 2,000 chains of 20 segments
// and 2,000 x 20 rotated dimensions, drawn and rendered to SVG in the same run; prints the ratio.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRender.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/gi/GiRecordingDraw.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"

namespace {

constexpr int kChains = 2000;
constexpr int kSegments = 20;
constexpr double kPitch = 3.0;  // rows of chains, in drawing units (metres at 1:100)

// The widths of a storey: doors, walls and windows in a repeating run.
double SegmentLength(int i)
{
    static const double lengths[] = {0.885, 1.01, 2.26, 0.24, 1.51, 0.365, 3.635};
    return lengths[i % 7];
}

AcDbObjectId AppendToModelSpace(AcDbDatabase* db, AcDbEntity* pEnt)
{
    AcDbBlockTableRecord* space = nullptr;
    acdbOpenObject(space, db->modelSpaceId(), AcDb::kForWrite);
    AcDbObjectId id;
    space->appendAcDbEntity(id, pEnt);
    space->close();
    pEnt->close();
    return id;
}

// A horizontal chain through x0.., its texts measured and centred.
SVdim* MakeChain(double y)
{
    auto* pChain = new SVdim(AcGePoint3d(0, y, 0), AcGePoint3d(1, y, 0), AcGePoint3d(0, y + 2, 0),
                             SVdim::kHorizontal, nullptr, AcDbObjectId::kNull, 0, &AcGeMatrix3d::kIdentity);
    pChain->m_points.setLogicalLength(0);
    double x = 0.0;
    for (int i = 0; i <= kSegments; ++i) {
        pChain->m_points.append(AcGePoint3d(x, y, 0));
        pChain->m_points.append(AcGePoint3d(x, y + 0.5, 0));
        pChain->m_points.append(AcGePoint3d(x, y + 2.0, 0));
        pChain->m_points.append(AcGePoint3d(x, y + 2.0, 0));
        x += SegmentLength(i);
    }
    pChain->m_dimTexts.SetSize(kSegments + 1);
    pChain->m_extFlags.SetSize(kSegments + 1);
    for (int i = 1; i <= kSegments; ++i) {
        pChain->RefreshDimText(i);
        pChain->SetDimTextPos(i, 8);
        pChain->CenterPointText(i);
    }
    pChain->SetTickType(-1, 1);
    return pChain;
}

std::unique_ptr<AcDbDatabase> MakeChains()
{
    auto db = std::make_unique<AcDbDatabase>(true, true);
    for (int c = 0; c < kChains; ++c)
        AppendToModelSpace(db.get(), MakeChain(c * kPitch));
    return db;
}

// The same runs as native dimensions: one per segment, slash ticks, texts above at 5 mm.
std::unique_ptr<AcDbDatabase> MakeDimensions()
{
    auto db = std::make_unique<AcDbDatabase>(true, true);
    for (int c = 0; c < kChains; ++c) {
        const double y = c * kPitch;
        double x = 0.0;
        for (int i = 0; i < kSegments; ++i) {
            const double dNext = x + SegmentLength(i);
            auto* pDim = new AcDbRotatedDimension(0.0, AcGePoint3d(x, y, 0), AcGePoint3d(dNext, y, 0),
                                                  AcGePoint3d(x, y + 2.0, 0));
            pDim->setDimscale(0.1);
            pDim->setDimtxt(5.0);
            pDim->setDimtsz(4.0);
            pDim->setDimtad(1);
            pDim->setDimdec(2);
            AppendToModelSpace(db.get(), pDim);
            x = dNext;
        }
    }
    return db;
}

// The run's shared state: an option store in a private folder, and both drawings.
struct Fixture {
    CGlobDimOptions options;
    std::unique_ptr<AcDbDatabase> chains;
    std::unique_ptr<AcDbDatabase> dimensions;

    static Fixture& Get()
    {
        static Fixture* pFixture = new Fixture();
        return *pFixture;
    }

private:
    Fixture()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sv_bench_XXXXXX").string();
        if (mkdtemp(pattern.data()))
            setenv("XDG_CONFIG_HOME", pattern.c_str(), 1);
        if (!SVdim::desc())
            SVdim::rxInit();
        pGlobDimOptions = &options;
        options.LoadOptions();
        chains = MakeChains();
        dimensions = MakeDimensions();
    }
};

// Seconds per segment, as the reporter shows it.
void PerSegment(benchmark::State& state)
{
    state.counters["per_segment"] = benchmark::Counter(static_cast<double>(kChains) * kSegments,
                                                       benchmark::Counter::kIsIterationInvariantRate |
                                                           benchmark::Counter::kInvert);
}

void Render(benchmark::State& state, AcDbDatabase* db)
{
    AcDbRenderOptions options;
    options.fitMm = 841;
    std::string bytes;
    for (auto _ : state) {
        if (acdbRenderDatabase(db, options, bytes) != Acad::eOk)
            state.SkipWithError("render failed");
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["svg_MB"] = static_cast<double>(bytes.size()) / 1e6;
    PerSegment(state);
}

void Draw(benchmark::State& state, AcDbDatabase* db)
{
    size_t nPrimitives = 0;
    for (auto _ : state) {
        GiDisplayList list;
        acdbDrawSpace(db, list);
        nPrimitives = list.size();
        benchmark::DoNotOptimize(list.primitives.data());
    }
    state.counters["primitives"] = static_cast<double>(nPrimitives);
    PerSegment(state);
}

void BM_ChainsToSvg(benchmark::State& state) { Render(state, Fixture::Get().chains.get()); }
void BM_DimensionsToSvg(benchmark::State& state) { Render(state, Fixture::Get().dimensions.get()); }
void BM_ChainsDraw(benchmark::State& state) { Draw(state, Fixture::Get().chains.get()); }
void BM_DimensionsDraw(benchmark::State& state) { Draw(state, Fixture::Get().dimensions.get()); }
BENCHMARK(BM_ChainsToSvg)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DimensionsToSvg)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChainsDraw)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DimensionsDraw)->Unit(benchmark::kMillisecond);

// The console report, keeping each run's time per segment for the ratios at the end.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        // With repetitions the median stands for the benchmark.
        for (const Run& run : runs) {
            const auto it = run.counters.find("per_segment");
            if (it == run.counters.end() || run.error_occurred)
                continue;
            const bool bAggregate = run.run_type == Run::RT_Aggregate;
            if (!bAggregate || run.aggregate_name == "median")
                m_perSegment[run.run_name.function_name] = it->second.value;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatio(const char* pszWhat, const std::string& chain, const std::string& native) const
    {
        const auto c = m_perSegment.find(chain);
        const auto n = m_perSegment.find(native);
        if (c == m_perSegment.end() || n == m_perSegment.end() || n->second <= 0.0)
            return;
        std::printf("%s: chain %.2f us/segment, native %.2f us/segment, ratio %.2f\n", pszWhat, c->second * 1e6,
                    n->second * 1e6, c->second / n->second);
    }

private:
    std::map<std::string, double> m_perSegment;
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("draw + SVG", "BM_ChainsToSvg", "BM_DimensionsToSvg");
    reporter.PrintRatio("draw only ", "BM_ChainsDraw", "BM_DimensionsDraw");
    benchmark::Shutdown();
    return 0;
}
