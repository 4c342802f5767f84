// Number conversions and bounded string functions as the module's code
// expects them from the Microsoft runtime.
#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <clocale>
#include <cmath>
#include <string>

#include "host/win/WinCrt.h"
#include "host/win/WinTime.h"

namespace {

TEST(WinCrt, ParsesTheLeadingNumber)
{
    const struct {
        const wchar_t* text;
        double d;
        int i;
    } rows[] = {
        {L"1,5", 1.0, 1},       {L" 2.5x", 2.5, 2},     {L"", 0.0, 0},         {L"-3", -3.0, -3},
        {L"abc", 0.0, 0},       {L"\t+7", 7.0, 7},      {L".5", 0.5, 0},       {L"-.5e-1", -0.05, 0},
        {L"1e3", 1000.0, 1},    {L"1e", 1.0, 1},        {L"1.2.3", 1.2, 1},    {L"0x10", 0.0, 0},
        {L"- 5", 0.0, 0},       {L"+", 0.0, 0},         {L"12abc", 12.0, 12},  {L"1e400", HUGE_VAL, 1},
    };
    for (const auto& r : rows) {
        EXPECT_DOUBLE_EQ(_wtof(r.text), r.d) << r.text;
        EXPECT_EQ(_wtoi(r.text), r.i) << r.text;
    }
    EXPECT_EQ(_wtof(nullptr), 0.0);
    EXPECT_EQ(_wtoi(nullptr), 0);
}

TEST(WinCrt, IntegersClampToTheirRange)
{
    EXPECT_EQ(_wtoi(L"99999999999"), INT_MAX);
    EXPECT_EQ(_wtoi(L"-99999999999"), INT_MIN);
    EXPECT_EQ(_wtoi(L"-2147483648"), INT_MIN);
    EXPECT_EQ(_wtol(L"3000000000"), 2147483647L);
    EXPECT_EQ(_wtoi64(L"-9223372036854775808"), LLONG_MIN);
    EXPECT_EQ(_wtoi64(L"123456789012"), 123456789012LL);
    EXPECT_EQ(_wtoi64(L"99999999999999999999"), LLONG_MAX);
}

TEST(WinCrt, DecimalPointDoesNotDependOnLocale)
{
    // Where a locale with a decimal comma is installed, it is switched on.
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8"})
        if (std::setlocale(LC_NUMERIC, name)) break;
    EXPECT_DOUBLE_EQ(_wtof(L"2.5"), 2.5);
    EXPECT_DOUBLE_EQ(_wtof(L"2,5"), 2.0);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(WinCrt, ComparesWithoutCase)
{
    EXPECT_EQ(_wcsicmp(L"Äpfel", L"äPFEL"), 0);
    EXPECT_LT(_wcsicmp(L"a", L"B"), 0);
    EXPECT_GT(_wcsicmp(L"b", L"A"), 0);
    EXPECT_LT(_wcsicmp(L"ab", L"ABC"), 0);
    EXPECT_EQ(_wcsnicmp(L"DimParam.ini", L"DIMPARAM.dat", 8), 0);
    EXPECT_NE(_wcsnicmp(L"DimParam.ini", L"DIMPARAM.dat", 10), 0);
    EXPECT_EQ(_wcsicmp(nullptr, L"a"), _NLSCMPERROR);
}

TEST(WinCrt, IntegersToText)
{
    wchar_t buf[72];
    EXPECT_STREQ(_itow(-42, buf, 10), L"-42");
    EXPECT_STREQ(_itow(-1, buf, 16), L"ffffffff");
    EXPECT_STREQ(_itow(5, buf, 2), L"101");
    EXPECT_STREQ(_itow(INT_MIN, buf, 10), L"-2147483648");
    EXPECT_STREQ(_ltow(-1L, buf, 16), L"ffffffff");
    EXPECT_STREQ(_i64tow(-1LL, buf, 16), L"ffffffffffffffff");
    EXPECT_STREQ(_ultow(255UL, buf, 36), L"73");
    wchar_t small[3];
    EXPECT_EQ(_itow_s(-42, small, 10), ERANGE);
    EXPECT_STREQ(small, L"");
    EXPECT_EQ(_itow_s(42, small, 10), 0);
    EXPECT_STREQ(small, L"42");
}

TEST(WinCrt, BoundedCopies)
{
    wchar_t buf[6];
    EXPECT_EQ(_countof(buf), 6u);
    EXPECT_EQ(wcscpy_s(buf, L"hello"), 0);
    EXPECT_STREQ(buf, L"hello");
    EXPECT_EQ(wcscpy_s(buf, L"hello!"), ERANGE);
    EXPECT_STREQ(buf, L"");
    EXPECT_EQ(wcsncpy_s(buf, L"abcdefgh", 3), 0);
    EXPECT_STREQ(buf, L"abc");
    EXPECT_EQ(wcsncpy_s(buf, L"abcdefgh", _TRUNCATE), STRUNCATE);
    EXPECT_STREQ(buf, L"abcde");
    EXPECT_EQ(wcsncpy_s(buf, L"abcdefgh", 6), ERANGE);
    EXPECT_EQ(wcscpy_s(buf, L"ab"), 0);
    EXPECT_EQ(wcscat_s(buf, L"cd"), 0);
    EXPECT_STREQ(buf, L"abcd");
    EXPECT_EQ(wcscat_s(buf, L"ef"), ERANGE);
    EXPECT_STREQ(buf, L"");
    EXPECT_EQ(wcscpy_s(buf, nullptr), EINVAL);
}

TEST(WinTime, TickCountFollowsSleep)
{
    const DWORD start = GetTickCount();
    Sleep(20);
    EXPECT_GE(GetTickCount() - start, 19u);
    const FILETIME ft = svwin::FileTimeFromUnix(1700000000);
    EXPECT_EQ(svwin::UnixFromFileTime(ft), 1700000000);
    EXPECT_EQ(svwin::UnixFromFileTime(svwin::FileTimeFromUnix(-5, 500000000)), -5);
}

} // namespace
