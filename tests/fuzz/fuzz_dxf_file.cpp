// libFuzzer target: arbitrary bytes through the whole DXF reader into a database. Only
// DxfError may come out; a drawing that loads must save, and what was saved must load again.
#include "host/db/AcDbDatabase.h"
#include "host/dxf/DxfError.h"
#include "host/dxf/DxfFileReader.h"
#include "host/dxf/DxfFileWriter.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

[[noreturn]] void fail(const char* what, const std::string& detail)
{
    std::fprintf(stderr, "%s: %s\n", what, detail.c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string bytes(reinterpret_cast<const char*>(data), size);
    AcDbDatabase db(false, true);
    try {
        dxfReadDatabase(db, std::move(bytes), "fuzz.dxf");
    } catch (const DxfError&) {
        return 0;
    }
    std::string saved;
    try {
        dxfWriteDatabase(db, saved, DxfFileWriteOptions{DxfLineEnd::Lf, "fuzz-out.dxf"});
    } catch (const DxfError& e) {
        fail("a drawing that loaded could not be saved", e.what());
    }
    AcDbDatabase again(false, true);
    try {
        dxfReadDatabase(again, saved, "fuzz-out.dxf");
    } catch (const DxfError& e) {
        fail("a saved drawing could not be read again", e.what());
    }
    return 0;
}
