// Numbers and folders as text: precision, trimming, signed zero, decimal
// signs, the number test, and the folder of a path.
#include <gtest/gtest.h>

#include <string>

#include "services/Folders.h"
#include "services/Numbers.h"

namespace {

TEST(FormatDouble, Table)
{
    struct Case {
        double value;
        int decimals, trim;
        const wchar_t *sign, *expected;
    };
    const Case cases[] = {
        {1.5, 3, 1, nullptr, L"1.5"},    {2.0, 3, 1, nullptr, L"2"},        {2.0, 3, 0, nullptr, L"2.000"},
        {100.0, 2, 1, nullptr, L"100"},  {100.0, 0, 1, nullptr, L"100"},    {-0.0004, 3, 1, nullptr, L"0"},
        {-0.0004, 3, 0, nullptr, L"0.000"}, {-1.25, 2, 1, L",", L"-1,25"}, {12.5, 1, 0, L",", L"12,5"},
        {12.5, 1, 0, L"'", L"12'5"},     {12.5, 1, 0, L"", L"12.5"},        {3.7, -2, 0, nullptr, L"4"},
        {1.0 / 3.0, 20, 0, nullptr, L"0.33333333333333"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(std::wstring(FormatDouble(c.value, c.decimals, c.trim, c.sign)), c.expected)
            << c.value << " / " << c.decimals << " / " << c.trim;
    EXPECT_EQ(std::wstring(Double2Str(2.50, 3)), L"2.5");
}

TEST(Str2Double, EitherDecimalSign)
{
    const std::pair<const wchar_t*, double> cases[] = {
        {L"12,5", 12.5}, {L"12.5", 12.5}, {L"-3,25", -3.25}, {L"", 0.0}, {nullptr, 0.0}, {L"abc", 0.0}};
    for (const auto& [text, expected] : cases) {
        EXPECT_DOUBLE_EQ(Str2Double(text), expected) << (text ? text : L"(null)");
        EXPECT_DOUBLE_EQ(StrToDouble(text), expected) << (text ? text : L"(null)");
    }
}

TEST(IsNumber, Table)
{
    const std::pair<const wchar_t*, int> cases[] = {
        {L"-12.5", 1}, {L"12,5", 1}, {L"- 12", 1},  {L"12 m", 0},     {L"1+2", 0},  {L"--2", 0},
        {L"3/4", 0},   {L"1.5E3", 0}, {L"W", 0},    {L"\u00b15", 0},  {L"5\"", 0},  {L"1:50", 0}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(IsNumber(text), expected) << text;
}

TEST(GetFolderOf, Table)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"C:\\a/b.dwg", L"C:\\a\\"}, {L"C:\\a\\b\\c.ini", L"C:\\a\\b\\"}, {L"/home/x/p.dwg", L"/home/x\\"},
        {L"plan.dwg", L""},           {L"", L""},                          {nullptr, L""}};
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(std::wstring(GetFolderOf(path)), expected) << (path ? path : L"(null)");
}

} // namespace
