// Case tables for CString, kept in code so that results never depend on the
// process locale.
#include "host/win/CaseFold.h"

#include <string_view>

namespace svwin {
namespace {

// Base letters of U+0100..U+017F, one per code point; the ligatures Ĳ/ĳ and
// Œ/œ are expanded separately.
constexpr std::wstring_view kExtABase =
    L"AaAaAa" L"CcCcCcCc" L"DdDd" L"EeEeEeEeEe" L"GgGgGgGg" L"HhHh" L"IiIiIiIiIi" L"Ii" L"Jj" L"Kkk"
    L"LlLlLlLlLl" L"NnNnNnn" L"Nn" L"OoOoOo" L"Oo" L"RrRrRr" L"SsSsSsSs" L"TtTtTt" L"UuUuUuUuUuUu"
    L"Ww" L"YyY" L"ZzZzZz" L"s";
static_assert(kExtABase.size() == 0x80);

// Base letters of U+00C0..U+00FF; '*' marks a character without one.
constexpr std::wstring_view kLatin1Base =
    L"AAAAAA*CEEEEIIII" L"DNOOOOO*OUUUUY**" L"aaaaaa*ceeeeiiii" L"dnooooo*ouuuuy*y";
static_assert(kLatin1Base.size() == 0x40);

bool IsExtAUpper(wchar_t ch)
{
    if (ch >= 0x0100 && ch <= 0x0137)
        return ch != 0x0131 && (ch % 2) == 0;
    if (ch >= 0x0139 && ch <= 0x0148)
        return (ch % 2) == 1;
    if (ch >= 0x014A && ch <= 0x0177)
        return (ch % 2) == 0;
    if (ch >= 0x0179 && ch <= 0x017E)
        return (ch % 2) == 1;
    return ch == 0x0178;
}

bool IsExtALower(wchar_t ch)
{
    if (ch >= 0x0101 && ch <= 0x0137)
        return ch != 0x0131 && (ch % 2) == 1;
    if (ch >= 0x013A && ch <= 0x0148)
        return (ch % 2) == 0;
    if (ch >= 0x014B && ch <= 0x0177)
        return (ch % 2) == 1;
    if (ch >= 0x017A && ch <= 0x017E)
        return (ch % 2) == 0;
    return false;
}

} // namespace

wchar_t ToLowerChar(wchar_t ch)
{
    if (ch < 0x80)
        return (ch >= L'A' && ch <= L'Z') ? ch + 32 : ch;
    if (ch >= 0xC0 && ch <= 0xDE && ch != 0xD7)
        return ch + 32;
    if (ch == 0x0130)
        return L'i';
    if (ch == 0x0178)
        return 0xFF;
    if (IsExtAUpper(ch))
        return ch + 1;
    if (ch >= 0x0391 && ch <= 0x03AB && ch != 0x03A2)
        return ch + 32;
    if (ch == 0x0386)
        return 0x03AC;
    if (ch >= 0x0388 && ch <= 0x038A)
        return ch + 37;
    if (ch == 0x038C)
        return 0x03CC;
    if (ch == 0x038E || ch == 0x038F)
        return ch + 63;
    if (ch >= 0x0410 && ch <= 0x042F)
        return ch + 32;
    if (ch >= 0x0400 && ch <= 0x040F)
        return ch + 80;
    if (ch == 0x1E9E)
        return 0xDF;
    return ch;
}

wchar_t ToUpperChar(wchar_t ch)
{
    if (ch < 0x80)
        return (ch >= L'a' && ch <= L'z') ? ch - 32 : ch;
    if (ch >= 0xE0 && ch <= 0xFE && ch != 0xF7)
        return ch - 32;
    if (ch == 0xFF)
        return 0x0178;
    if (ch == 0x0131)
        return L'I';
    if (ch == 0x017F)
        return L'S';
    if (IsExtALower(ch))
        return ch - 1;
    if (ch >= 0x03B1 && ch <= 0x03CB && ch != 0x03C2)
        return ch - 32;
    if (ch == 0x03C2)
        return 0x03A3;
    if (ch == 0x03AC)
        return 0x0386;
    if (ch >= 0x03AD && ch <= 0x03AF)
        return ch - 37;
    if (ch == 0x03CC)
        return 0x038C;
    if (ch == 0x03CD || ch == 0x03CE)
        return ch - 63;
    if (ch >= 0x0430 && ch <= 0x044F)
        return ch - 32;
    if (ch >= 0x0450 && ch <= 0x045F)
        return ch - 80;
    return ch;
}

std::wstring FoldCase(std::wstring_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (wchar_t ch : text) {
        if (ch == 0xDF || ch == 0x1E9E)
            out += L"ss";
        else if (ch == 0x017F)
            out += L's';
        else if (ch == 0x03C2)
            out += wchar_t(0x03C3);  // final sigma folds with sigma
        else
            out += ToLowerChar(ch);
    }
    return out;
}

std::wstring BaseLetters(std::wstring_view text)
{
    std::wstring out;
    out.reserve(text.size());
    for (wchar_t ch : text) {
        switch (ch) {
        case 0xC6: case 0xE6: out += L"ae"; continue;
        case 0xDE: case 0xFE: out += L"th"; continue;
        case 0xDF: case 0x1E9E: out += L"ss"; continue;
        case 0x0132: case 0x0133: out += L"ij"; continue;
        case 0x0152: case 0x0153: out += L"oe"; continue;
        default: break;
        }
        wchar_t base = 0;
        if (ch >= 0xC0 && ch <= 0xFF && kLatin1Base[ch - 0xC0] != L'*')
            base = kLatin1Base[ch - 0xC0];
        else if (ch >= 0x0100 && ch <= 0x017F)
            base = kExtABase[ch - 0x0100];
        out += ToLowerChar(base ? base : ch);
    }
    // Greek final sigma and the other folds apply as well.
    return FoldCase(out);
}

int CompareOrdinal(std::wstring_view a, std::wstring_view b)
{
    const int c = a.compare(b);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

} // namespace svwin
