// Reading and writing a 100,000-entity drawing made by ezdxf, with ezdxf's own read and write
// of the same file timed once in the same run for comparison: counter ezdxf_s is ezdxf's time
// in seconds, ratio how many times faster we are.
#include "host/db/AcDbDatabase.h"
#include "host/dxf/DxfFileIo.h"
#include "host/dxf/DxfFileReader.h"
#include "host/dxf/DxfFileWriter.h"
#include "host/dxf/DxfTagRecord.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

namespace {

const std::string kScripts = SV_BENCH_DXF_SCRIPTS;
const std::string kData = SV_BENCH_DXF_DATA;

std::string drawingPath()
{
    return kData + "/drawing-100k.dxf";
}

// The drawing, made once into the build folder.
const std::string& drawing()
{
    static const std::string text = [] {
        std::filesystem::create_directories(kData);
        if (!std::filesystem::exists(drawingPath())) {
            const std::string command = "/usr/bin/python3 '" + kScripts + "/make_drawing.py' '" + drawingPath() + "'";
            if (std::system(command.c_str()) != 0) {
                std::fprintf(stderr, "cannot make the drawing: %s\n", command.c_str());
                std::exit(1);
            }
        }
        std::ifstream in(drawingPath(), std::ios::binary);
        std::stringstream all;
        all << in.rdbuf();
        return all.str();
    }();
    return text;
}

struct EzdxfTimes {
    double read = 0;  // wall
    double write = 0;
    double readCpu = 0;
    double writeCpu = 0;
};

// ezdxf's best of one read and one write of the drawing; zero when ezdxf is missing or when
// SV_BENCH_NO_EZDXF is set (for profiling our side alone).
const EzdxfTimes& ezdxf()
{
    static const EzdxfTimes times = [] {
        EzdxfTimes t;
        if (std::getenv("SV_BENCH_NO_EZDXF"))
            return t;
        const std::string command =
            "/usr/bin/python3 '" + kScripts + "/ezdxf_timing.py' '" + drawingPath() + "' 1 2>/dev/null";
        FILE* pipe = popen(command.c_str(), "r");
        if (!pipe)
            return t;
        char name[64];
        double seconds = 0;
        while (std::fscanf(pipe, "%63s %lf", name, &seconds) == 2) {
            if (std::string(name) == "ezdxf_read_s")
                t.read = seconds;
            else if (std::string(name) == "ezdxf_write_s")
                t.write = seconds;
            else if (std::string(name) == "ezdxf_read_cpu_s")
                t.readCpu = seconds;
            else if (std::string(name) == "ezdxf_write_cpu_s")
                t.writeCpu = seconds;
        }
        pclose(pipe);
        return t;
    }();
    return times;
}

void report(benchmark::State& state, double ezdxfSeconds, double ezdxfCpuSeconds)
{
    state.counters["ezdxf_cpu_s"] = ezdxfCpuSeconds;
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * drawing().size()));
    state.counters["ezdxf_s"] = ezdxfSeconds;
    state.counters["ratio"] = benchmark::Counter(ezdxfSeconds * static_cast<double>(state.iterations()),
                                                 benchmark::Counter::kIsRate);
}

void BM_ReadDrawing(benchmark::State& state)
{
    const std::string& text = drawing();
    for (auto _ : state) {
        auto db = std::make_unique<AcDbDatabase>(false, true);
        dxfReadDatabase(*db, text, "drawing-100k.dxf");
        benchmark::DoNotOptimize(db.get());
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
    report(state, ezdxf().read, ezdxf().readCpu);
}

// The tag level alone: every record of the file grouped, for the floor under reading.
void BM_ReadRecordsOnly(benchmark::State& state)
{
    const std::string& text = drawing();
    for (auto _ : state) {
        DxfTagReader tags(text, "drawing-100k.dxf");
        DxfTagRecordReader records(tags);
        DxfSection section;
        DxfRecord record;
        std::size_t count = 0;
        while (records.nextSection(section))
            while (records.nextRecord(record))
                ++count;
        benchmark::DoNotOptimize(count);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

// The database's own readDwgFile: the file is read, loaded into a scratch database and, once it
// loaded, into the database (so that a failure leaves it as it was).
void BM_ReadDwgFile(benchmark::State& state)
{
    drawing();
    dxfInstallFileIo();
    const std::wstring path = std::filesystem::path(drawingPath()).wstring();
    for (auto _ : state) {
        auto db = std::make_unique<AcDbDatabase>(false, true);
        if (db->readDwgFile(path.c_str()) != Acad::eOk)
            state.SkipWithError(dxfLastError().c_str());
        state.PauseTiming();
        db.reset();
        state.ResumeTiming();
    }
    report(state, ezdxf().read, ezdxf().readCpu);
}

void BM_WriteDrawing(benchmark::State& state)
{
    auto db = std::make_unique<AcDbDatabase>(false, true);
    dxfReadDatabase(*db, drawing(), "drawing-100k.dxf");
    std::string out;
    for (auto _ : state) {
        out.clear();
        dxfWriteDatabase(*db, out);
        benchmark::DoNotOptimize(out.data());
    }
    // SV_BENCH_DXF_OUT=FILE keeps what was written, to compare writers byte for byte.
    if (const char* keep = std::getenv("SV_BENCH_DXF_OUT"))
        std::ofstream(keep, std::ios::binary).write(out.data(), static_cast<std::streamsize>(out.size()));
    report(state, ezdxf().write, ezdxf().writeCpu);
}

}  // namespace

BENCHMARK(BM_ReadRecordsOnly)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ReadDrawing)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_ReadDwgFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_WriteDrawing)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
