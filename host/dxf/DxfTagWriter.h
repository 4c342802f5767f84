// Writes DXF tags: group codes right-aligned in three columns, values on the next line.
#pragma once

#include "host/dxf/DxfError.h"
#include "host/dxf/DxfTag.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

enum class DxfLineEnd { CrLf, Lf };

struct DxfWriteOptions {
    DxfLineEnd lineEnd = DxfLineEnd::CrLf;  // what files from the reference writer use
    std::string name = "<output>";          // for messages
};

// Numbers: 16-bit integers and booleans right-aligned in 6 columns, 32-bit in 9, 64-bit plain;
// doubles in their shortest exact form with a decimal point (1.0, 0.1, 1.0E+20); handles in
// upper-case hex. String values are written as UTF-8 and may not hold a line break or NUL
// (DxfError). Values that don't fit their code's type throw std::invalid_argument: that is a
// programming error, and it keeps the writer from producing a file the reader refuses.
class DxfTagWriter {
public:
    // Appends to a caller's string.
    explicit DxfTagWriter(std::string& out, DxfWriteOptions options = {});
    // Writes to a stream in 64 KiB blocks.
    explicit DxfTagWriter(std::ostream& out, DxfWriteOptions options = {});
    // Flushes to the stream; errors are lost there, so call flush() to see them.
    ~DxfTagWriter();
    DxfTagWriter(const DxfTagWriter&) = delete;
    DxfTagWriter& operator=(const DxfTagWriter&) = delete;

    // Hands buffered text to the stream; DxfError when the stream fails.
    void flush();

    // Any code; the text must be a valid value of the code's type.
    void writeString(int code, std::string_view value);
    void writeInt(int code, std::int64_t value);  // 16/32/64-bit and boolean codes, range-checked
    void writeBool(int code, bool value);
    void writeDouble(int code, double value);     // finite values only (DxfError otherwise)
    void writeHandle(int code, std::uint64_t handle);
    // As many tags of the code (310-319, 1004) as needed, each at most 127 bytes (254 digits).
    void writeBinary(int code, const std::uint8_t* data, std::size_t size);
    // x, y (and z) under the codes xCode, xCode + 10, xCode + 20.
    void writePoint(int xCode, double x, double y);
    void writePoint(int xCode, double x, double y, double z);
    void writePoint(int xCode, const DxfPoint& point);
    // A tag as read, its value written verbatim (after the same checks as writeString).
    void writeTag(const DxfTag& tag) { writeString(tag.code, tag.value); }
    void writeTag(const DxfOwnedTag& tag) { writeString(tag.code, tag.value); }

    void beginSection(std::string_view name);  // 0/SECTION, 2/name
    void endSection();                         // 0/ENDSEC
    void writeEof();                           // 0/EOF

    // Lines written so far.
    std::size_t line() const noexcept { return m_line; }

    static constexpr std::size_t kBinaryChunk = 127;

private:
    void put(int code, std::string_view value);
    void checkCode(int code, bool ok, const char* what) const;
    void maybeFlush();

    std::string m_buffer;
    std::string& m_out;
    std::ostream* m_stream = nullptr;
    DxfWriteOptions m_options;
    std::string_view m_eol;
    std::size_t m_line = 0;
};
