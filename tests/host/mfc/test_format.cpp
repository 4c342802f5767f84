// The wide formatting engine: Windows conversions, limits and buffer rules.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "host/win/wsprintf.h"

namespace {

struct FormatCase {
    const char* name;
    std::wstring got;
    std::wstring want;
};

TEST(Format, WindowsConventionConversions)
{
    const wchar_t* nullWide = nullptr;
    const char* nullNarrow = nullptr;
    const FormatCase cases[] = {
        {"wide %s", FormatWide(L"[%s]", L"Maß"), L"[Maß]"},
        {"%ls wide", FormatWide(L"[%ls]", L"x"), L"[x]"},
        {"%S narrow utf8", FormatWide(L"[%S]", "H\xC3\xB6he"), L"[Höhe]"},
        {"%hs narrow", FormatWide(L"[%hs]", "ab"), L"[ab]"},
        {"%c wide", FormatWide(L"%c%c", L'ä', L'€'), L"ä€"},
        {"%hc narrow", FormatWide(L"%hc", 'z'), L"z"},
        {"%C narrow", FormatWide(L"%C", 'q'), L"q"},
        {"%d", FormatWide(L"%d|%i", -42, 7), L"-42|7"},
        {"%u", FormatWide(L"%u", 4000000000u), L"4000000000"},
        {"%.2f", FormatWide(L"%.2f", 3.14159), L"3.14"},
        {"%5.1f", FormatWide(L"[%5.1f]", 2.25), L"[  2.2]"},
        {"%-4s|", FormatWide(L"%-4s|", L"ab"), L"ab  |"},
        {"%4s", FormatWide(L"%4s|", L"ab"), L"  ab|"},
        {"%.2s precision", FormatWide(L"%.2s", L"abcdef"), L"ab"},
        {"%.2S narrow precision", FormatWide(L"%.2S", "abcdef"), L"ab"},
        {"%%", FormatWide(L"100%%"), L"100%"},
        {"%x %X %o", FormatWide(L"%x %X %o", 255, 255, 8), L"ff FF 10"},
        {"%#x", FormatWide(L"%#x", 255), L"0xff"},
        {"%08.3f", FormatWide(L"%08.3f", -1.5), L"-001.500"},
        {"%+d", FormatWide(L"%+d", 5), L"+5"},
        {"%I64d", FormatWide(L"%I64d", LLONG_MIN), L"-9223372036854775808"},
        {"%I64u", FormatWide(L"%I64u", 18446744073709551615ull), L"18446744073709551615"},
        {"%lld", FormatWide(L"%lld", 1234567890123ll), L"1234567890123"},
        {"%ld", FormatWide(L"%ld", -5l), L"-5"},
        {"%hd truncates", FormatWide(L"%hd", 65537), L"1"},
        {"%Iu size_t", FormatWide(L"%Iu", static_cast<std::size_t>(99)), L"99"},
        {"%lf double", FormatWide(L"%lf", 0.5), L"0.500000"},
        {"%e", FormatWide(L"%.2e", 12345.0), L"1.23e+04"},
        {"%g", FormatWide(L"%g", 0.0001), L"0.0001"},
        {"* width", FormatWide(L"[%*d]", 4, 7), L"[   7]"},
        {"negative * width", FormatWide(L"[%*d]", -4, 7), L"[7   ]"},
        {"* precision", FormatWide(L"%.*f", 1, 2.26), L"2.3"},
        {"%p", FormatWide(L"%p", reinterpret_cast<void*>(0xABCDEF)), L"0000000000ABCDEF"},
        {"null %s", FormatWide(L"[%s]", nullWide), L"[(null)]"},
        {"null %S", FormatWide(L"[%S]", nullNarrow), L"[(null)]"},
        {"invalid utf8", FormatWide(L"%S", "a\xFF" "b"), L"a\xFFFD" L"b"},
        {"non-BMP", FormatWide(L"%s", L"\U0001F600"), L"\U0001F600"},
        {"unknown conversion kept", FormatWide(L"%y%d", 3), L"%y3"},
        {"trailing percent", FormatWide(L"50%"), L"50%"},
        {"no conversions", FormatWide(L"plain"), L"plain"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.got, c.want) << c.name;
}

TEST(Format, NullFormatGivesEmptyText)
{
    EXPECT_EQ(FormatWide(nullptr), L"");
}

TEST(Format, LongOutputHasNoLimitInTheEngine)
{
    const std::wstring big(5000, L'x');
    EXPECT_EQ(FormatWide(L"%s!", big.c_str()).size(), 5001u);
}

TEST(Format, WsprintfTruncatesAt1024IncludingTerminator)
{
    const std::wstring big(3000, L'y');
    wchar_t buf[2048];
    std::fill(std::begin(buf), std::end(buf), L'#');
    EXPECT_EQ(wsprintfW(buf, L"%s", big.c_str()), 1023);
    EXPECT_EQ(buf[1022], L'y');
    EXPECT_EQ(buf[1023], L'\0');
    EXPECT_EQ(buf[1024], L'#');  // nothing written past the limit

    EXPECT_EQ(wsprintfW(buf, L"%d-%s", 12, L"ab"), 5);
    EXPECT_STREQ(buf, L"12-ab");
}

TEST(Format, SnwprintfFollowsCrtRules)
{
    wchar_t buf[8];
    std::fill(std::begin(buf), std::end(buf), L'#');
    EXPECT_EQ(_snwprintf(buf, 8, L"%s", L"abc"), 3);
    EXPECT_STREQ(buf, L"abc");

    std::fill(std::begin(buf), std::end(buf), L'#');
    EXPECT_EQ(_snwprintf(buf, 3, L"%s", L"abc"), 3);  // fits exactly: no terminator
    EXPECT_EQ(buf[2], L'c');
    EXPECT_EQ(buf[3], L'#');

    std::fill(std::begin(buf), std::end(buf), L'#');
    EXPECT_EQ(_snwprintf(buf, 3, L"%s", L"abcdef"), -1);
    EXPECT_EQ(buf[2], L'c');
    EXPECT_EQ(buf[3], L'#');

    EXPECT_EQ(_scwprintf(L"%d%s", 123, L"ab"), 5);
}

TEST(Format, SecureFormEmptiesTheBufferOnOverflow)
{
    wchar_t buf[4];
    EXPECT_EQ(swprintf_s(buf, L"%s", L"abc"), 3);
    EXPECT_STREQ(buf, L"abc");
    EXPECT_EQ(swprintf_s(buf, L"%s", L"abcd"), -1);
    EXPECT_STREQ(buf, L"");
}

TEST(Utf8, RoundTripsAndRepairs)
{
    const std::wstring wide = L"Maß Höhe Ünïcödé € \U0001F600 \U00010348";
    EXPECT_EQ(svwin::Utf8ToWide(svwin::WideToUtf8(wide)), wide);

    const struct {
        const char* name;
        std::string bytes;
        std::wstring want;
    } bad[] = {
        {"lone continuation", "a\x80z", L"a\xFFFDz"},
        {"truncated 3-byte", "a\xE2\x82", L"a\xFFFD"},
        {"truncated then ascii", "\xE2\x82x", L"\xFFFDx"},
        {"overlong slash", "\xC0\xAF", L"\xFFFD\xFFFD"},
        {"overlong 3-byte", "\xE0\x80\xAF", L"\xFFFD"},
        {"surrogate", "\xED\xA0\x80", L"\xFFFD"},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80", L"\xFFFD"},
        {"F5 lead", "\xF5z", L"\xFFFDz"},
    };
    for (const auto& c : bad)
        EXPECT_EQ(svwin::Utf8ToWide(c.bytes), c.want) << c.name;

    EXPECT_EQ(svwin::WideToUtf8(std::wstring(1, wchar_t(0xD800))), "\xEF\xBF\xBD");
}

} // namespace
