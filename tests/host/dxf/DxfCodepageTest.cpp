// Tests of the text encodings: Windows-1252, UTF-8 checks, \U+ escapes, header detection.
#include "host/win/Utf8.h"
#include "host/dxf/DxfCodepage.h"
#include "host/dxf/DxfTagReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(DxfCodepage, Cp1252ToUtf8)
{
    const struct {
        std::string in;
        std::string out;
    } cases[] = {
        {"\xE4\xF6\xFC\xDF\x80", "äöüß€"},
        {"plain ASCII", "plain ASCII"},
        {"\x82\x84\x85\x8A\x8C\x8E\x91\x92\x93\x94\x96\x97\x99\x9A\x9C\x9E\x9F",
         "‚„…ŠŒŽ‘’“”–—™šœžŸ"},
        {"\x81\x8D\x8F\x90\x9D", "\u0081\u008D\u008F\u0090\u009D"},
        {"\xA0\xB0\xFF", "\u00A0°ÿ"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(dxfCp1252ToUtf8(c.in), c.out);
}

TEST(DxfCodepage, Utf8Validation)
{
    EXPECT_TRUE(svwin::IsValidUtf8("äöü € 😀"));
    EXPECT_FALSE(svwin::IsValidUtf8("\xE4"));             // 1252 ä
    EXPECT_FALSE(svwin::IsValidUtf8("\xC0\xAF"));         // overlong
    EXPECT_FALSE(svwin::IsValidUtf8("\xED\xA0\x80"));     // surrogate
    EXPECT_FALSE(svwin::IsValidUtf8("\xF4\x90\x80\x80")); // above U+10FFFF
    EXPECT_FALSE(svwin::IsValidUtf8("\xE2\x82"));         // cut short
}

TEST(DxfCodepage, UnicodeEscapes)
{
    const struct {
        std::string in;
        std::string out;
    } cases[] = {
        {"Ma\\U+00DFkette", "Maßkette"},
        {"\\U+20ac \\u+20ac", "€ \\u+20ac"},           // upper-case U only
        {"\\U+D83D\\U+DE00", "😀"},                    // surrogate pair
        {"\\U+D83D alone", "\\U+D83D alone"},          // lone surrogate stays
        {"\\U+000A", "\\U+000A"},                      // controls stay escaped
        {"\\U+00E", "\\U+00E"},                        // too short
        {"\\M+1A4A4", "\\M+1A4A4"},                    // double-byte code page: kept
        {"C:\\Users\\x", "C:\\Users\\x"},
        {"end\\", "end\\"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.in);
        EXPECT_EQ(dxfDecodeUnicodeEscapes(c.in), c.out);
    }
    EXPECT_EQ(dxfEncodeUnicodeEscapes("Maßkette €😀"), "Ma\\U+00DFkette \\U+20AC\\U+D83D\\U+DE00");
    EXPECT_EQ(dxfEncodeUnicodeEscapes("a\xFF"), "a\\U+FFFD");
    for (const char* s : {"äöüß€", "😀 x", "plain"})
        EXPECT_EQ(dxfDecodeUnicodeEscapes(dxfEncodeUnicodeEscapes(s)), s);
}

TEST(DxfCodepage, EncodingFromHeader)
{
    const struct {
        const char* acadver;
        const char* codepage;
        DxfTextEncoding encoding;
        bool warns;
    } cases[] = {
        {"AC1032", "ANSI_1252", DxfTextEncoding::Utf8, false},
        {"AC1021", "ANSI_1251", DxfTextEncoding::Utf8, false},
        {"AC1018", "ANSI_1252", DxfTextEncoding::Windows1252, false},
        {"AC1009", " ansi_1252 ", DxfTextEncoding::Windows1252, false},
        {"", "cp1252", DxfTextEncoding::Windows1252, false},
        {"AC1015", "UTF-8", DxfTextEncoding::Utf8, false},
        {"AC1015", "", DxfTextEncoding::Detect, false},
        {"AC1015", "ANSI_932", DxfTextEncoding::Windows1252, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.acadver) + " " + c.codepage);
        int warnings = 0;
        EXPECT_EQ(dxfTextEncodingFor(c.acadver, c.codepage, [&](const std::string&) { ++warnings; }),
                  c.encoding);
        EXPECT_EQ(warnings, c.warns ? 1 : 0);
    }
}

// The value of the 1 tag of a file with the given header, read with default options.
std::string readText(const std::string& acadver, const std::string& codepage,
                     const std::string& value, std::vector<std::string>* warnings = nullptr)
{
    std::string data = "0\nSECTION\n2\nHEADER\n";
    if (!acadver.empty())
        data += "9\n$ACADVER\n1\n" + acadver + "\n";
    if (!codepage.empty())
        data += "9\n$DWGCODEPAGE\n3\n" + codepage + "\n";
    data += "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nTEXT\n1\n" + value + "\n0\nENDSEC\n0\nEOF\n";
    DxfReadOptions options;
    if (warnings)
        options.warning = [warnings](const std::string& w) { warnings->push_back(w); };
    DxfTagReader reader(data, "t.dxf", options);
    DxfTag t;
    std::string text;
    while (reader.next(t))
        if (t.code == 1 && t.line > 10)
            text = t.value;
    return text;
}

TEST(DxfCodepage, ReaderConvertsByHeader)
{
    EXPECT_EQ(readText("AC1015", "ANSI_1252", "\xE4\xF6\xFC\xDF\x80"), "äöüß€");
    EXPECT_EQ(readText("AC1032", "ANSI_1252", "äöüß€"), "äöüß€");
    EXPECT_EQ(readText("AC1015", "ANSI_1252", "\\U+00E4 x"), "ä x");
    EXPECT_EQ(readText("", "", "äöü"), "äöü");               // no header: UTF-8 kept
    EXPECT_EQ(readText("", "", "\xE4\xF6\xFC"), "äöü");      // ... else read as 1252
    std::vector<std::string> warnings;
    EXPECT_EQ(readText("AC1032", "ANSI_1252", "\xE4", &warnings), "ä");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], "t.dxf:22: text that isn't valid UTF-8 is read as Windows-1252");
    warnings.clear();
    EXPECT_EQ(readText("AC1015", "ANSI_1250", "\xE4", &warnings), "ä");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], "t.dxf:12: code page ANSI_1250 is not supported; its text is read as "
                           "Windows-1252");

    DxfReadOptions raw;
    raw.encoding = DxfTextEncoding::Utf8;
    raw.decodeUnicodeEscapes = false;
    DxfTagReader reader("1\n\\U+00E4\n", "t.dxf", raw);
    DxfTag t;
    ASSERT_TRUE(reader.next(t));
    EXPECT_EQ(t.value, "\\U+00E4");
}

} // namespace
