// libFuzzer target: arbitrary bytes through the DXF tag reader, record grouping and writer.
// Only DxfError may come out of reading; anything else, or a broken invariant, is a crash.
#include "host/win/Utf8.h"
#include "host/dxf/DxfCodepage.h"
#include "host/dxf/DxfTagReader.h"
#include "host/dxf/DxfTagRecord.h"
#include "host/dxf/DxfTagWriter.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

void check(bool ok)
{
    if (!ok)
        std::abort();
}

template <typename F>
void typed(F f)
{
    try {
        f();
    } catch (const DxfError&) {
    }
}

// Every typed view of a tag; values the reader accepted must keep its promises.
void touch(const DxfTag& t)
{
    check(t.value.find_first_of(std::string_view("\n\r\0", 3)) == std::string_view::npos);
    const DxfValueType type = t.type();
    if (type == DxfValueType::String)
        check(svwin::IsValidUtf8(t.value));
    if (type == DxfValueType::Double)
        check(std::isfinite(t.asDouble()));
    if (type == DxfValueType::Int16)
        t.asInt16();
    if (type == DxfValueType::Int32)
        t.asInt32();
    if (type == DxfValueType::Handle)
        t.asHandle();
    if (type == DxfValueType::Binary)
        t.asBinary();
    typed([&] { t.asInt16(); });
    typed([&] { t.asInt32(); });
    typed([&] { t.asInt64(); });
    typed([&] { check(std::isfinite(t.asDouble())); });
    typed([&] { t.asBool(); });
    typed([&] { t.asHandle(); });
    typed([&] { t.asBinary(); });
}

struct Seen {
    int code;
    std::string value;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    DxfReadOptions options;
    options.maxLineLength = 4096;  // small enough for the fuzzer to reach
    options.warning = [](const std::string& w) { check(!w.empty()); };

    // Tags one by one, with lookahead, then written back and read again.
    std::vector<Seen> seen;
    bool complete = false;
    try {
        DxfTagReader reader(bytes, "fuzz.dxf", options);
        DxfTag t;
        while (reader.next(t)) {
            touch(t);
            seen.push_back({t.code, std::string(t.value)});
            if (seen.size() % 3 == 0) {
                reader.unget();
                check(reader.next(t) && t.code == seen.back().code);
            }
        }
        complete = true;
    } catch (const DxfError&) {
    }
    if (complete) {
        std::string out;
        {
            DxfTagWriter writer(out, {DxfLineEnd::Lf, "fuzz-out.dxf"});
            for (const Seen& s : seen)
                writer.writeString(s.code, s.value);  // a value that was read can be written
        }
        DxfReadOptions utf8 = options;
        utf8.encoding = DxfTextEncoding::Utf8;
        utf8.maxLineLength = std::size_t(1) << 20;
        DxfTagReader again(out, "fuzz-out.dxf", utf8);
        DxfTag t;
        for (const Seen& s : seen) {
            check(again.next(t) && t.code == s.code);
            if (s.value.find('\\') == std::string::npos)
                check(t.value == s.value);
        }
        check(!again.next(t));
    }

    // Sections and records with their points.
    try {
        DxfTagReader reader(bytes, "fuzz.dxf", options);
        DxfTagRecordReader records(reader);
        DxfSection section;
        DxfRecord record;
        while (records.nextSection(section))
            while (records.nextRecord(record))
                for (const DxfItem& item : record.items)
                    if (item.isPoint)
                        check(std::isfinite(item.point.x) && std::isfinite(item.point.y));
    } catch (const DxfError&) {
    }
    try {
        DxfTagReader reader(bytes, "fuzz.dxf", options);
        DxfTagRecordReader records(reader);
        DxfRecord record;
        while (records.nextRecord(record)) {
        }
    } catch (const DxfError&) {
    }

    // The text conversions on raw bytes.
    const std::string utf8 = dxfCp1252ToUtf8(bytes);
    check(svwin::IsValidUtf8(utf8));
    check(dxfDecodeUnicodeEscapes(dxfEncodeUnicodeEscapes(utf8)) == utf8
          || utf8.find('\\') != std::string::npos);
    dxfDecodeUnicodeEscapes(bytes);
    return 0;
}
