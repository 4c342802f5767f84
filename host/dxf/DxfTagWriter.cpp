// Tag writing into a string or a stream, with the number forms every reader accepts.
#include "host/dxf/DxfTagWriter.h"

#include "host/dxf/DxfTagValue.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ostream>
#include <stdexcept>

namespace {

constexpr std::size_t kFlushSize = 64 * 1024;

bool isIntegerType(DxfValueType t) noexcept
{
    return t == DxfValueType::Int16 || t == DxfValueType::Int32 || t == DxfValueType::Int64
        || t == DxfValueType::Bool;
}

bool validText(DxfValueType type, std::string_view v)
{
    std::int64_t i = 0;
    double d = 0;
    std::uint64_t h = 0;
    switch (type) {
    case DxfValueType::String: return true;
    case DxfValueType::Int16:
    case DxfValueType::Bool: return dxfParseInt(v, i) && i >= -32768 && i <= 32767;
    case DxfValueType::Int32: return dxfParseInt(v, i) && i >= INT32_MIN && i <= INT32_MAX;
    case DxfValueType::Int64: return dxfParseInt(v, i);
    case DxfValueType::Double: return dxfParseDouble(v, d);
    case DxfValueType::Handle: return dxfParseHandle(v, h);
    case DxfValueType::Binary: return dxfParseBinary(v, nullptr);
    }
    return false;
}

} // namespace

DxfTagWriter::DxfTagWriter(std::string& out, DxfWriteOptions options)
    : m_out(out)
    , m_options(std::move(options))
{
    m_eol = m_options.lineEnd == DxfLineEnd::CrLf ? "\r\n" : "\n";
}

DxfTagWriter::DxfTagWriter(std::ostream& out, DxfWriteOptions options)
    : m_out(m_buffer)
    , m_stream(&out)
    , m_options(std::move(options))
{
    m_eol = m_options.lineEnd == DxfLineEnd::CrLf ? "\r\n" : "\n";
    m_buffer.reserve(kFlushSize + 4096);
}

DxfTagWriter::~DxfTagWriter()
{
    try {
        flush();
    } catch (...) {
        // Reported by an explicit flush() only.
    }
}

void DxfTagWriter::flush()
{
    if (!m_stream)
        return;
    if (!m_buffer.empty()) {
        m_stream->write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
        m_buffer.clear();
    }
    m_stream->flush();
    if (!*m_stream)
        throw DxfError(m_options.name, 0, "cannot write the file");
}

void DxfTagWriter::maybeFlush()
{
    if (m_stream && m_buffer.size() >= kFlushSize) {
        m_stream->write(m_buffer.data(), static_cast<std::streamsize>(m_buffer.size()));
        m_buffer.clear();
        if (!*m_stream)
            throw DxfError(m_options.name, 0, "cannot write the file");
    }
}

void DxfTagWriter::checkCode(int code, bool ok, const char* what) const
{
    if (!dxfIsValidGroupCode(code))
        throw std::invalid_argument("DXF group code " + std::to_string(code) + " is out of range");
    if (!ok)
        throw std::invalid_argument("DXF group code " + std::to_string(code) + " doesn't take "
                                    + what);
}

void DxfTagWriter::put(int code, std::string_view value)
{
    // Every group goes through here, so its two lines are written straight into the output
    // (no staging buffer: copying bytes stored one by one stalls the store forwarding), the
    // usual three-digit code without a general number formatter.
    const bool crlf = m_eol.size() == 2;
    char wide[kDxfNumberBufferSize];
    std::size_t codeSize = 3;
    if (code < 0 || code >= 1000)
        codeSize = dxfFormatInt(code, 3, wide);
    const std::size_t eol = crlf ? 2 : 1;
    const std::size_t n = codeSize + eol + value.size() + eol;
    const std::size_t at = m_out.size();
    if (m_out.capacity() - at < n)
        m_out.reserve(std::max(at + n, 2 * m_out.capacity()));
    m_out.resize(at + n);
    char* p = m_out.data() + at;
    if (codeSize == 3 && code >= 0) {
        p[0] = code >= 100 ? static_cast<char>('0' + code / 100) : ' ';
        p[1] = code >= 10 ? static_cast<char>('0' + code / 10 % 10) : ' ';
        p[2] = static_cast<char>('0' + code % 10);
    } else {
        std::memcpy(p, wide, codeSize);
    }
    p += codeSize;
    if (crlf)
        *p++ = '\r';
    *p++ = '\n';
    if (!value.empty())
        std::memcpy(p, value.data(), value.size());
    p += value.size();
    if (crlf)
        *p++ = '\r';
    *p = '\n';
    m_line += 2;
    if (m_stream)
        maybeFlush();
}

void DxfTagWriter::writeString(int code, std::string_view value)
{
    checkCode(code, true, "");
    for (char c : value)
        if (c == '\n' || c == '\r' || c == '\0')
            throw DxfError(m_options.name, m_line + 2,
                           "a value can't hold a line break or NUL, found "
                               + DxfError::quote(value));
    if (!validText(dxfValueType(code), value))
        throw std::invalid_argument("\"" + std::string(value.substr(0, 40))
                                    + "\" isn't a valid value for DXF group code "
                                    + std::to_string(code));
    put(code, value);
}

void DxfTagWriter::writeInt(int code, std::int64_t value)
{
    const DxfValueType t = dxfValueType(code);
    checkCode(code, isIntegerType(t), "an integer");
    const bool small = t == DxfValueType::Int16 || t == DxfValueType::Bool;
    if ((small && (value < -32768 || value > 32767))
        || (t == DxfValueType::Int32 && (value < INT32_MIN || value > INT32_MAX)))
        throw std::invalid_argument(std::to_string(value) + " is out of range for DXF group code "
                                    + std::to_string(code));
    char buf[kDxfNumberBufferSize];
    const int width = small ? 6 : t == DxfValueType::Int32 ? 9 : 0;
    put(code, std::string_view(buf, dxfFormatInt(value, width, buf)));
}

void DxfTagWriter::writeBool(int code, bool value)
{
    writeInt(code, value ? 1 : 0);
}

void DxfTagWriter::writeDouble(int code, double value)
{
    checkCode(code, dxfValueType(code) == DxfValueType::Double, "a floating-point number");
    if (!std::isfinite(value))
        throw DxfError(m_options.name, m_line + 2,
                       "expected a finite number for group code " + std::to_string(code)
                           + ", found " + (std::isnan(value) ? "NaN" : "infinity"));
    char buf[kDxfNumberBufferSize];
    put(code, std::string_view(buf, dxfFormatDouble(value, buf)));
}

void DxfTagWriter::writeHandle(int code, std::uint64_t handle)
{
    checkCode(code, dxfValueType(code) == DxfValueType::Handle, "a handle");
    char buf[kDxfNumberBufferSize];
    put(code, std::string_view(buf, dxfFormatHandle(handle, buf)));
}

void DxfTagWriter::writeBinary(int code, const std::uint8_t* data, std::size_t size)
{
    checkCode(code, dxfValueType(code) == DxfValueType::Binary, "binary data");
    std::string hex;
    hex.reserve(2 * kBinaryChunk);
    std::size_t at = 0;
    do {
        const std::size_t n = size - at < kBinaryChunk ? size - at : kBinaryChunk;
        hex.clear();
        dxfAppendHex(data + at, n, hex);
        put(code, hex);
        at += n;
    } while (at < size);
}

void DxfTagWriter::writePoint(int xCode, double x, double y)
{
    checkCode(xCode, dxfIsPointCode(xCode), "a point");
    writeDouble(xCode, x);
    writeDouble(dxfPointYCode(xCode), y);
}

void DxfTagWriter::writePoint(int xCode, double x, double y, double z)
{
    checkCode(xCode, dxfIsPointCode(xCode) && dxfPointZCode(xCode) >= 0, "a 3D point");
    writeDouble(xCode, x);
    writeDouble(dxfPointYCode(xCode), y);
    writeDouble(dxfPointZCode(xCode), z);
}

void DxfTagWriter::writePoint(int xCode, const DxfPoint& point)
{
    if (point.hasZ)
        writePoint(xCode, point.x, point.y, point.z);
    else
        writePoint(xCode, point.x, point.y);
}

void DxfTagWriter::beginSection(std::string_view name)
{
    writeString(0, "SECTION");
    writeString(2, name);
}

void DxfTagWriter::endSection()
{
    writeString(0, "ENDSEC");
}

void DxfTagWriter::writeEof()
{
    writeString(0, "EOF");
}
