// The fast paths of number text and code lines must give exactly what the general paths give.
#include "host/dxf/DxfTagReader.h"
#include "host/dxf/DxfTagValue.h"
#include "host/dxf/DxfTagWriter.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <string>

namespace {

using namespace std::string_literals;

std::string formatted(double v)
{
    char buf[kDxfNumberBufferSize];
    return std::string(buf, dxfFormatDouble(v, buf));
}

// Shortest round-trip digits the long way, in the file's form.
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

TEST(DxfShortcut, DecimalsFormatAsTheGeneralForm)
{
    // Hundredths and tenths across the shortcut's range and past it, and their neighbours,
    // which must not be mistaken for short decimals.
    for (int i = -1000500; i <= 1000500; i += 7) {
        for (const double v : {i / 100.0, i / 10.0}) {
            ASSERT_EQ(formatted(v), generalForm(v)) << i;
            const double up = std::nextafter(v, 1e9);
            ASSERT_EQ(formatted(up), generalForm(up)) << i;
        }
    }
    const double cases[] = {0.01, -0.01, 0.05, 0.1, 0.3, 9999.99, -9999.99, 0.001, 1e-7, 0.125, -0.0};
    for (const double v : cases)
        EXPECT_EQ(formatted(v), generalForm(v)) << v;
}

TEST(DxfShortcut, DecimalsParseAsTheGeneralParser)
{
    const char* texts[] = {"10.0",  "-2.25", "7.5",   ".5",    "5.",     "-0.0",   "0.1",
                           "123456789012345", "1234567890.12345", "0.000000000000001",
                           "1234567890123456", "0.3", "  2.5  ", "+1.5", "00012.50"};
    for (const char* text : texts) {
        std::string_view t = text;
        while (t.front() == ' ' || t.front() == '+')
            t.remove_prefix(1);
        while (t.back() == ' ')
            t.remove_suffix(1);
        double expected = 0;
        std::from_chars(t.data(), t.data() + t.size(), expected);
        double got = 1;
        ASSERT_TRUE(dxfParseDouble(text, got)) << text;
        EXPECT_EQ(got, expected) << text;
        EXPECT_EQ(std::signbit(got), std::signbit(expected)) << text;
    }
    for (int i = -200000; i <= 200000; i += 3) {
        const std::string text = std::to_string(i / 1000) + "." + std::to_string(std::abs(i % 1000) + 1000).substr(1);
        const std::string signedText = (i < 0 && i / 1000 == 0 ? "-" : "") + text;
        double expected = 0;
        double got = 1;
        std::from_chars(signedText.data(), signedText.data() + signedText.size(), expected);
        ASSERT_TRUE(dxfParseDouble(signedText, got)) << signedText;
        ASSERT_EQ(got, expected) << signedText;
    }
    for (const char* bad : {".", "-", "-.", "1.2.3", "1..", "--1", "1-"}) {
        double v = 0;
        EXPECT_FALSE(dxfParseDouble(bad, v)) << bad;
    }
}

TEST(DxfShortcut, CodeLinesOffThePlainFormReadTheSame)
{
    const struct {
        const char* name;
        std::string data;
        int code;
        const char* value;
    } cases[] = {
        {"four digits", "1071\n1\n", 1071, "1"},
        {"leading zeros past four digits", "00008\nL\n", 8, "L"},
        {"blank after the digits", "  8 \r\nL\r\n", 8, "L"},
        {"lone CR", "  8\rL\r", 8, "L"},
        {"tab before", "\t8\nL\n", 8, "L"},
    };
    for (const auto& c : cases) {
        DxfTagReader reader(c.data, "t.dxf");
        DxfTag tag;
        ASSERT_TRUE(reader.next(tag)) << c.name;
        EXPECT_EQ(tag.code, c.code) << c.name;
        EXPECT_EQ(tag.value, c.value) << c.name;
        EXPECT_EQ(tag.line, 1u) << c.name;
        EXPECT_EQ(reader.line(), 2u) << c.name;
    }
}

TEST(DxfShortcut, CodeLineErrorsAreTheGeneralOnes)
{
    const struct {
        const char* name;
        std::string data;
        DxfReadOptions options;
        const char* what;
    } cases[] = {
        {"past the last code", "1072\nX\n", {}, "t.dxf:1: expected a group code from 0 to 1071, found \"1072\""},
        {"NUL after the code", "  8\0\nL\n"s, {}, "t.dxf:1: expected text, found a NUL byte"},
        {"NUL after a lone CR", "  8\r\0\nL\n"s, {}, "t.dxf:2: expected text, found a NUL byte"},
        {"no value at the end", "  8", {}, "t.dxf:2: expected the value of group code 8, found the end of the file"},
        {"no value after the line end", "  8\r\n", {}, "t.dxf:2: expected the value of group code 8, found the end of the file"},
        {"code line over the limit", "   8\nL\n", [] { DxfReadOptions o; o.maxLineLength = 3; return o; }(),
         "t.dxf:1: expected a line of at most 3 bytes, found a longer one"},
    };
    for (const auto& c : cases) {
        DxfTagReader reader(c.data, "t.dxf", c.options);
        DxfTag tag;
        try {
            reader.next(tag);
            ADD_FAILURE() << c.name << ": no error";
        } catch (const DxfError& e) {
            EXPECT_EQ(std::string(e.what()), c.what) << c.name;
        }
    }
}

TEST(DxfShortcut, WriterPutsEveryCodeWidth)
{
    const std::string longValue(300, 'a');
    const struct {
        int code;
        const char* value;
        DxfLineEnd end;
        const char* text;
    } cases[] = {
        {0, "LINE", DxfLineEnd::CrLf, "  0\r\nLINE\r\n"},
        {8, "", DxfLineEnd::Lf, "  8\n\n"},
        {40, "2.5", DxfLineEnd::Lf, " 40\n2.5\n"},
        {100, "AcDbEntity", DxfLineEnd::CrLf, "100\r\nAcDbEntity\r\n"},
        {1000, "note", DxfLineEnd::Lf, "1000\nnote\n"},
        {1, longValue.c_str(), DxfLineEnd::Lf, nullptr},
    };
    for (const auto& c : cases) {
        std::string out = "kept";
        DxfWriteOptions options;
        options.lineEnd = c.end;
        DxfTagWriter writer(out, options);
        writer.writeString(c.code, c.value);
        const std::string expected = c.text ? c.text : "  1\n" + std::string(c.value) + "\n";
        EXPECT_EQ(out, "kept" + expected) << c.code;
        EXPECT_EQ(writer.line(), 2u);
    }
}

}  // namespace
