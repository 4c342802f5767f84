// Double text for whole numbers, which take a shortcut: it must give what the general form gives.
#include <gtest/gtest.h>

#include "host/dxf/DxfTagValue.h"

#include <charconv>
#include <cmath>
#include <string>

namespace {

// The general form, made the long way: shortest round-trip digits, ".0" when there is no point,
// an upper-case exponent.
std::string generalForm(double v)
{
    char tmp[64];
    std::string s(tmp, std::to_chars(tmp, tmp + sizeof tmp, v).ptr);
    const std::size_t e = s.find('e');
    std::string mantissa = s.substr(0, e);
    if (mantissa.find('.') == std::string::npos)
        mantissa += ".0";
    return e == std::string::npos ? mantissa : mantissa + "E" + s.substr(e + 1);
}

std::string formatted(double v)
{
    char buf[kDxfNumberBufferSize];
    return std::string(buf, dxfFormatDouble(v, buf));
}

TEST(DxfNumberForm, WholeNumbersMatchTheGeneralForm)
{
    for (int i = -12000; i <= 12000; ++i)
        ASSERT_EQ(formatted(i), generalForm(i)) << i;
}

TEST(DxfNumberForm, EdgesOfTheShortcut)
{
    const struct {
        double v;
        const char* text;
    } cases[] = {
        {0.0, "0.0"},         {-0.0, "-0.0"},        {9999.0, "9999.0"},   {-9999.0, "-9999.0"},
        {10000.0, "10000.0"}, {100000.0, "1.0E+05"}, {9999.5, "9999.5"},   {-0.5, "-0.5"},
        {1e-320, "1.0E-320"}, {2147483648.0, "2147483648.0"},             {-1e15, "-1.0E+15"},
        {std::nextafter(1.0, 2.0), "1.0000000000000002"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(formatted(c.v), c.text) << c.v;
        EXPECT_EQ(formatted(c.v), generalForm(c.v)) << c.v;
    }
}

}  // namespace
