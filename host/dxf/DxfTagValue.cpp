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

// Powers of ten that doubles hold exactly.
constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Most coordinates in files are short plain decimals ("10.0", "-2.25"). With at most 15
// digits the digits form an exact double and so does the power of ten, so one division gives
// the correctly rounded value, the same as the general parser's. Anything else (exponents,
// long values, stray characters) returns false and goes to the general parser.
bool parseShortDecimal(std::string_view text, double& out) noexcept
{
    const char* p = text.data();
    const char* const end = p + text.size();
    const bool negative = *p == '-';
    if (negative)
        ++p;
    std::uint64_t digits = 0;
    int count = 0;
    int fraction = -1;  // digits after the point; -1 before it
    for (; p != end; ++p) {
        const char c = *p;
        if (c >= '0' && c <= '9') {
            if (++count > 15)
                return false;
            digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
            if (fraction >= 0)
                ++fraction;
        } else if (c == '.' && fraction < 0) {
            fraction = 0;
        } else {
            return false;
        }
    }
    if (count == 0)
        return false;
    double v = static_cast<double>(digits);
    if (fraction > 0)
        v /= kExactPowers[fraction];
    out = negative ? -v : v;
    return true;
}

// Values below 10000 with one or two decimals (2.25, 7.5, 0.05) are next most common. When
// digits / 10^k is exactly the double (both exact, so the division rounds correctly, as a
// reader's parse does), those digits are its shortest form: any other decimal of as few digits
// lies at least 0.01 away, far beyond the rounding at this size. Returns 0 when that doesn't
// hold, for the general path.
std::size_t formatShortDecimal(double value, char* buffer) noexcept
{
    if (!(value > -10000.0 && value < 10000.0) || value == 0.0)  // -0.0 keeps its sign elsewhere
        return 0;
    for (int places = 1; places <= 2; ++places) {
        const double scale = places == 1 ? 10.0 : 100.0;
        const double scaled = std::nearbyint(value * scale);
        if (scaled / scale != value)
            continue;
        auto digits = static_cast<std::int64_t>(scaled);
        std::size_t n = 0;
        if (digits < 0) {
            buffer[n++] = '-';
            digits = -digits;
        }
        char tmp[8];
        std::size_t k = 0;
        for (int i = 0; i < places || digits != 0 || i == places; ++i) {
            tmp[k++] = static_cast<char>('0' + digits % 10);
            digits /= 10;
            if (i + 1 == places)
                tmp[k++] = '.';
        }
        while (k != 0)
            buffer[n++] = tmp[--k];
        return n;
    }
    return 0;
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
    if (parseShortDecimal(text, out))
        return true;
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
    if (const std::size_t n = formatShortDecimal(value, buffer))
        return n;
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
