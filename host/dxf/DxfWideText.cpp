// UTF-8 <-> wide text for the file layer.
#include "host/dxf/DxfWideText.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

}  // namespace

void dxfAppendUtf8AsWide(std::string_view utf8, std::wstring& out)
{
    const auto* p = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* end = p + utf8.size();
    // Most values are ASCII: copied in one go up to the first other byte.
    const std::size_t start = out.size();
    std::size_t ascii = 0;
    while (ascii < utf8.size() && p[ascii] < 0x80)
        ++ascii;
    out.resize(start + ascii);
    for (std::size_t i = 0; i < ascii; ++i)
        out[start + i] = static_cast<wchar_t>(p[i]);
    p += ascii;
    if (p == end)
        return;
    out.reserve(out.size() + static_cast<std::size_t>(end - p));
    while (p < end) {
        const unsigned char c = *p;
        if (c < 0x80) {
            out.push_back(static_cast<wchar_t>(c));
            ++p;
            continue;
        }
        int extra = 0;
        char32_t cp = 0;
        char32_t min = 0;
        if ((c & 0xE0) == 0xC0) { extra = 1; cp = c & 0x1F; min = 0x80; }
        else if ((c & 0xF0) == 0xE0) { extra = 2; cp = c & 0x0F; min = 0x800; }
        else if ((c & 0xF8) == 0xF0) { extra = 3; cp = c & 0x07; min = 0x10000; }
        else { out.push_back(static_cast<wchar_t>(kReplacement)); ++p; continue; }
        if (end - p <= extra) { out.push_back(static_cast<wchar_t>(kReplacement)); ++p; continue; }
        bool ok = true;
        for (int i = 1; i <= extra; ++i) {
            if (!isContinuation(p[i])) { ok = false; break; }
            cp = (cp << 6) | (p[i] & 0x3F);
        }
        if (!ok || cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            out.push_back(static_cast<wchar_t>(kReplacement));
            ++p;
            continue;
        }
        out.push_back(static_cast<wchar_t>(cp));
        p += extra + 1;
    }
}

std::wstring dxfWide(std::string_view utf8)
{
    std::wstring out;
    dxfAppendUtf8AsWide(utf8, out);
    return out;
}

void dxfAppendWideAsUtf8(std::wstring_view wide, std::string& out)
{
    // Names and most text are ASCII: that prefix is narrowed in place, byte per character.
    std::size_t ascii = 0;
    while (ascii < wide.size() && static_cast<char32_t>(wide[ascii]) < 0x80)
        ++ascii;
    const std::size_t start = out.size();
    out.resize(start + ascii);
    for (std::size_t i = 0; i < ascii; ++i)
        out[start + i] = static_cast<char>(wide[i]);
    wide.remove_prefix(ascii);
    if (wide.empty())
        return;
    out.reserve(out.size() + wide.size());
    for (const wchar_t w : wide) {
        auto cp = static_cast<char32_t>(w);
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
            continue;
        }
        if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            cp = kReplacement;
        if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        }
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

std::string dxfUtf8(std::wstring_view wide)
{
    std::string out;
    dxfAppendWideAsUtf8(wide, out);
    return out;
}
