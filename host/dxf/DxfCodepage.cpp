// Windows-1252 and UTF-8 conversion and the \U+XXXX escapes of DXF string values.
#include "host/dxf/DxfCodepage.h"

#include "host/win/Utf8.h"

#include <algorithm>
#include <cstdint>

namespace {

// The code unit of a \U+XXXX escape at text[i], or -1 when there is none.
long escapeAt(std::string_view text, std::size_t i) noexcept
{
    if (text.size() - i < 7 || text[i] != '\\' || text[i + 1] != 'U' || text[i + 2] != '+')
        return -1;
    long v = 0;
    for (std::size_t k = 3; k < 7; ++k) {
        const int h = svwin::HexDigitValue(text[i + k]);
        if (h < 0)
            return -1;
        v = v * 16 + h;
    }
    return v;
}

std::string normalizedName(std::string_view s)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!s.empty() && isBlank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    std::string r(s);
    for (char& c : r)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return r;
}

// "AC1021" -> 1021; 0 when the text isn't of that form.
int acadVersionNumber(std::string_view acadver)
{
    const std::string v = normalizedName(acadver);
    if (v.size() < 3 || v[0] != 'A' || v[1] != 'C')
        return 0;
    int n = 0;
    for (std::size_t i = 2; i < v.size() && i < 8; ++i) {
        if (v[i] < '0' || v[i] > '9')
            return 0;
        n = n * 10 + (v[i] - '0');
    }
    return n;
}

} // namespace

DxfTextEncoding dxfTextEncodingFor(std::string_view acadver, std::string_view dwgcodepage,
                                   const DxfWarningHook& warning)
{
    if (acadVersionNumber(acadver) >= 1021)
        return DxfTextEncoding::Utf8;
    const std::string cp = normalizedName(dwgcodepage);
    if (cp.empty())
        return DxfTextEncoding::Detect;
    static constexpr std::string_view k1252[] = {"ANSI_1252", "1252", "CP1252", "WINDOWS-1252",
                                                 "WINDOWS_1252", "ISO-8859-1", "ISO8859-1",
                                                 "LATIN1"};
    static constexpr std::string_view kUtf8[] = {"UTF-8", "UTF8", "ANSI_65001", "65001"};
    if (std::find(std::begin(k1252), std::end(k1252), cp) != std::end(k1252))
        return DxfTextEncoding::Windows1252;
    if (std::find(std::begin(kUtf8), std::end(kUtf8), cp) != std::end(kUtf8))
        return DxfTextEncoding::Utf8;
    if (warning)
        warning("code page " + cp + " is not supported; its text is read as Windows-1252");
    return DxfTextEncoding::Windows1252;
}

void dxfAppendCp1252AsUtf8(std::string_view text, std::string& out)
{
    for (char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        if (c < 0x80)
            out += ch;
        else
            svwin::AppendUtf8(svwin::Cp1252ToCodePoint(c), out);
    }
}

std::string dxfCp1252ToUtf8(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 2);
    dxfAppendCp1252AsUtf8(text, out);
    return out;
}


bool dxfHasUnicodeEscapes(std::string_view text) noexcept
{
    for (std::size_t i = text.find('\\'); i != std::string_view::npos; i = text.find('\\', i + 1))
        if (escapeAt(text, i) >= 0)
            return true;
    return false;
}

void dxfAppendDecodedUnicodeEscapes(std::string_view text, std::string& out)
{
    std::size_t i = 0;
    while (i < text.size()) {
        const std::size_t bs = text.find('\\', i);
        if (bs == std::string_view::npos) {
            out.append(text.substr(i));
            return;
        }
        out.append(text.substr(i, bs - i));
        i = bs;
        const long u = escapeAt(text, i);
        if (u >= 0xD800 && u <= 0xDBFF) {
            const long lo = escapeAt(text, i + 7);
            if (lo >= 0xDC00 && lo <= 0xDFFF) {
                svwin::AppendUtf8(static_cast<char32_t>(0x10000 + ((u - 0xD800) << 10) + (lo - 0xDC00)), out);
                i += 14;
                continue;
            }
        } else if (u >= 0x20 && !(u >= 0xDC00 && u <= 0xDFFF)) {
            svwin::AppendUtf8(static_cast<char32_t>(u), out);
            i += 7;
            continue;
        }
        out += '\\';  // not an escape we decode: keep it as written
        ++i;
    }
}

std::string dxfDecodeUnicodeEscapes(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    dxfAppendDecodedUnicodeEscapes(text, out);
    return out;
}

std::string dxfEncodeUnicodeEscapes(std::string_view utf8)
{
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(utf8.size());
    const auto escape = [&](char32_t unit) {
        out += "\\U+";
        for (int shift = 12; shift >= 0; shift -= 4)
            out += kHex[(unit >> shift) & 0xF];
    };
    for (std::size_t i = 0; i < utf8.size();) {
        char32_t cp;
        std::size_t n;
        svwin::DecodeUtf8(utf8, i, cp, n);
        if (cp < 0x80) {
            out += static_cast<char>(cp);
        } else if (cp < 0x10000) {
            escape(cp);
        } else {
            escape(0xD800 + ((cp - 0x10000) >> 10));
            escape(0xDC00 + ((cp - 0x10000) & 0x3FF));
        }
        i += n;
    }
    return out;
}
