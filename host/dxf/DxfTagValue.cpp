// Number, handle and binary text of DXF values, both directions.
#include "host/dxf/DxfTagValue.h"

#include "host/win/Utf8.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

std::string_view trimBlanks(std::string_view s) noexcept
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t'))
        s.remove_suffix(1);
    return s;
}

// Drops a leading '+' (from_chars takes only '-'); false when nothing number-like is left.
bool stripPlus(std::string_view& s) noexcept
{
    if (!s.empty() && s.front() == '+') {
        s.remove_prefix(1);
        if (!s.empty() && (s.front() == '-' || s.front() == '+'))
            return false;
    }
    return !s.empty();
}


constexpr char kHexDigits[] = "0123456789ABCDEF";

} // namespace

bool dxfParseInt(std::string_view text, std::int64_t& out) noexcept
{
    text = trimBlanks(text);
    if (!stripPlus(text))
        return false;
    const char* end = text.data() + text.size();
    const auto r = std::from_chars(text.data(), end, out);
    return r.ec == std::errc() && r.ptr == end;
}

bool dxfParseDouble(std::string_view text, double& out) noexcept
{
    text = trimBlanks(text);
    if (!stripPlus(text))
        return false;
    // from_chars would take "inf" and "nan"; a value must start like a number.
    const char c0 = text.front() == '-' && text.size() > 1 ? text[1] : text.front();
    if (!(c0 == '.' || (c0 >= '0' && c0 <= '9')))
        return false;
    const char* end = text.data() + text.size();
    double v = 0;
    const auto r = std::from_chars(text.data(), end, v, std::chars_format::general);
    if (r.ec != std::errc() || r.ptr != end || !std::isfinite(v))
        return false;
    out = v;
    return true;
}

bool dxfParseHandle(std::string_view text, std::uint64_t& out) noexcept
{
    text = trimBlanks(text);
    if (text.empty() || text.size() > 16)
        return false;
    std::uint64_t v = 0;
    for (char c : text) {
        const int h = svwin::HexDigitValue(c);
        if (h < 0)
            return false;
        v = (v << 4) | static_cast<std::uint64_t>(h);
    }
    out = v;
    return true;
}

bool dxfParseBinary(std::string_view text, std::vector<std::uint8_t>* out)
{
    text = trimBlanks(text);
    if (text.size() % 2 != 0)
        return false;
    const std::size_t before = out ? out->size() : 0;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int hi = svwin::HexDigitValue(text[i]);
        const int lo = svwin::HexDigitValue(text[i + 1]);
        if (hi < 0 || lo < 0) {
            if (out)
                out->resize(before);
            return false;
        }
        if (out)
            out->push_back(static_cast<std::uint8_t>(hi * 16 + lo));
    }
    return true;
}

std::size_t dxfFormatDouble(double value, char* buffer) noexcept
{
    // Whole numbers of up to four digits (coordinates, sizes, zeros) are the common case; their
    // shortest form is the plain digits, which is cheaper to make than the general search.
    // Beyond four digits the shortest form may be the exponent one (1e+05), so those take the
    // general path. -0.0 keeps its sign there too.
    if (value > -10000.0 && value < 10000.0 && !(value == 0.0 && std::signbit(value))) {
        const int whole = static_cast<int>(value);
        if (static_cast<double>(whole) == value) {
            const std::size_t n = dxfFormatInt(whole, 0, buffer);
            buffer[n] = '.';
            buffer[n + 1] = '0';
            return n + 2;
        }
    }
    char tmp[kDxfNumberBufferSize];
    const auto r = std::to_chars(tmp, tmp + sizeof tmp, value);
    const std::size_t n = static_cast<std::size_t>(r.ptr - tmp);
    const char* e = static_cast<const char*>(std::memchr(tmp, 'e', n));
    const std::size_t mantissa = e ? static_cast<std::size_t>(e - tmp) : n;
    const bool hasPoint = std::memchr(tmp, '.', mantissa) != nullptr;
    std::size_t k = 0;
    std::memcpy(buffer, tmp, mantissa);
    k += mantissa;
    if (!hasPoint) {
        buffer[k++] = '.';
        buffer[k++] = '0';
    }
    if (e) {
        buffer[k++] = 'E';
        const std::size_t rest = n - mantissa - 1;
        std::memcpy(buffer + k, e + 1, rest);
        k += rest;
    }
    return k;
}

std::size_t dxfFormatHandle(std::uint64_t handle, char* buffer) noexcept
{
    char tmp[16];
    std::size_t n = 0;
    do {
        tmp[n++] = kHexDigits[handle & 0xF];
        handle >>= 4;
    } while (handle != 0);
    for (std::size_t i = 0; i < n; ++i)
        buffer[i] = tmp[n - 1 - i];
    return n;
}

std::size_t dxfFormatInt(std::int64_t value, int width, char* buffer) noexcept
{
    char tmp[24];
    const auto r = std::to_chars(tmp, tmp + sizeof tmp, value);
    const std::size_t n = static_cast<std::size_t>(r.ptr - tmp);
    std::size_t pad = width > 0 && static_cast<std::size_t>(width) > n ? width - n : 0;
    std::memset(buffer, ' ', pad);
    std::memcpy(buffer + pad, tmp, n);
    return pad + n;
}

void dxfAppendHex(const std::uint8_t* data, std::size_t size, std::string& out)
{
    const std::size_t at = out.size();
    out.resize(at + 2 * size);
    char* p = out.data() + at;
    for (std::size_t i = 0; i < size; ++i) {
        *p++ = kHexDigits[data[i] >> 4];
        *p++ = kHexDigits[data[i] & 0xF];
    }
}
