// Text metrics: extents from the font's own advances, the font table and the text codes.
#include <gtest/gtest.h>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

#include <string>

#include "host/gi/AcGiTextStyle.h"
#include "host/gi/GiFont.h"
#include "host/gi/GiFontMap.h"
#include "host/gi/GiTextCodes.h"

namespace {

const char* const kFontDir = "/usr/share/fonts/truetype/liberation2/";

// An independent reading of the font: advances and cap height straight from FreeType.
double freeTypeWidth(const std::string& file, const std::u32string& text, double height)
{
    FT_Library lib = nullptr;
    FT_Face face = nullptr;
    EXPECT_EQ(FT_Init_FreeType(&lib), 0);
    EXPECT_EQ(FT_New_Face(lib, (kFontDir + file).c_str(), 0, &face), 0);
    long sum = 0;
    for (char32_t c : text) {
        FT_Fixed adv = 0;
        FT_Get_Advance(face, FT_Get_Char_Index(face, c), FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING, &adv);
        sum += adv;
    }
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    const double cap = os2->sCapHeight;
    FT_Done_Face(face);
    FT_Done_FreeType(lib);
    return sum * height / cap;
}

AcGiTextStyle style(const wchar_t* font, double height, double xScale = 1.0, double oblique = 0.0)
{
    return AcGiTextStyle(font, L"", height, xScale, oblique, 1.0, false, false, false, false, false);
}

TEST(TextMetrics, ExtentsAreTheFontsAdvanceSum)
{
    struct Case {
        const wchar_t* font;
        const char* file;
        const wchar_t* text;
        std::u32string shown;
        double height;
    } cases[] = {
        {L"arial.ttf", "LiberationSans-Regular.ttf", L"1.23", U"1.23", 2.5},
        {L"arialbd.ttf", "LiberationSans-Bold.ttf", L"4,875", U"4,875", 3.5},
        {L"times.ttf", "LiberationSerif-Regular.ttf", L"Höhe", U"Höhe", 1.0},
        {L"cour.ttf", "LiberationMono-Regular.ttf", L"WWii", U"WWii", 2.0},
        {L"romans.shx", "LiberationSans-Regular.ttf", L"%%c12", U"\u230012", 0.35},
    };
    for (const Case& c : cases) {
        const AcGePoint2d e = style(c.font, c.height).extents(c.text, true, -1, false);
        EXPECT_NEAR(e.x, freeTypeWidth(c.file, c.shown, c.height), 1e-9) << c.file;
        EXPECT_DOUBLE_EQ(e.y, c.height) << c.file;
    }
}

TEST(TextMetrics, KnownValueIsStableAcrossRuns)
{
    // 1139 + 569 + 1139 + 1139 design units over a cap height of 1409, at 2.5.
    const AcGePoint2d e = style(L"arial.ttf", 2.5).extents(L"1.23", true, -1, false);
    EXPECT_NEAR(e.x, 3986.0 * 2.5 / 1409.0, 1e-12);
    EXPECT_EQ(e.x, style(L"arial.ttf", 2.5).extents(L"1.23", true, -1, false).x);
}

TEST(TextMetrics, ScaleObliqueTrackingAndRaisedPart)
{
    const AcGiTextStyle base = style(L"arial.ttf", 2.5);
    const double w = base.extents(L"1.23", true, -1, false).x;
    EXPECT_NEAR(style(L"arial.ttf", 2.5, 0.8).extents(L"1.23", true, -1, false).x, 0.8 * w, 1e-12);
    // Obliquing leans the letters but keeps the advance box.
    EXPECT_DOUBLE_EQ(style(L"arial.ttf", 2.5, 1.0, 0.26).extents(L"1.23", true, -1, false).x, w);
    AcGiTextStyle tracked = base;
    tracked.setTrackingPercent(1.5);
    EXPECT_NEAR(tracked.extents(L"1.23", true, -1, false).x, 1.5 * w, 1e-12);
    // The raised digit is measured at its own, smaller height: width and box scale with it.
    AcGiTextStyle raised = base;
    raised.setTextSize(2.5 * 0.7);
    const AcGePoint2d five = raised.extents(L"5", true, -1, false);
    EXPECT_NEAR(five.x, freeTypeWidth("LiberationSans-Regular.ttf", U"5", 1.75), 1e-12);
    EXPECT_DOUBLE_EQ(five.y, 1.75);
    EXPECT_LT(five.x, base.extents(L"5", true, -1, false).x);
}

TEST(TextMetrics, PenUpsLengthAndRaw)
{
    const AcGiTextStyle s = style(L"arial.ttf", 1.0);
    const double abc = s.extents(L"abc", true, -1, false).x;
    const double blank = s.extents(L" ", true, -1, false).x;
    EXPECT_NEAR(s.extents(L" abc ", true, -1, false).x, abc + 2 * blank, 1e-12);
    AcGePoint2d lo, hi;
    s.extentsBox(L" abc ", false, -1, false, lo, hi);
    EXPECT_NEAR(lo.x, blank, 1e-12);
    EXPECT_NEAR(hi.x - lo.x, abc, 1e-12);
    EXPECT_EQ(s.extents(L"   ", false, -1, false).x, 0.0);
    EXPECT_NEAR(s.extents(L"abcdef", true, 3, false).x, abc, 1e-12);
    EXPECT_EQ(s.extents(L"", true, -1, false).x, 0.0);
    EXPECT_EQ(s.extents(nullptr, true, -1, false).x, 0.0);
    // Raw keeps "%%d" as three characters; cooked it is one degree sign.
    const double percent = s.extents(L"%", true, -1, true).x;
    EXPECT_NEAR(s.extents(L"%%d", true, -1, true).x, 2 * percent + s.extents(L"d", true, -1, true).x, 1e-12);
    EXPECT_NEAR(s.extents(L"%%d", true, -1, false).x, s.extents(L"\u00B0", true, -1, false).x, 1e-12);
}

TEST(TextMetrics, FontMapping)
{
    struct Case {
        const wchar_t* file;
        const wchar_t* face;
        bool bold, italic;
        const char* expected;
        bool known;
    } cases[] = {
        {L"arial.ttf", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"ARIALBD.TTF", L"", false, false, "LiberationSans-Bold.ttf", true},
        {L"C:\\Windows\\Fonts\\ariali.ttf", L"", false, false, "LiberationSans-Italic.ttf", true},
        {L"times.ttf", L"", false, false, "LiberationSerif-Regular.ttf", true},
        {L"timesnr", L"", false, false, "LiberationSerif-Regular.ttf", true},
        {L"timesbi.ttf", L"", false, false, "LiberationSerif-BoldItalic.ttf", true},
        {L"cour.ttf", L"", false, false, "LiberationMono-Regular.ttf", true},
        {L"courbd.ttf", L"", false, false, "LiberationMono-Bold.ttf", true},
        {L"txt", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"simplex.shx", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"romans.shx", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"isocp.shx", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"isoct.shx", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"gdt.shx", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"", L"", false, false, "LiberationSans-Regular.ttf", true},
        {L"", L"Times New Roman", true, false, "LiberationSerif-Bold.ttf", true},
        {L"cour.ttf", L"Arial", false, true, "LiberationSans-Italic.ttf", true},
        {L"Courier New", L"", false, false, "LiberationSans-Regular.ttf", false},
        {L"wingdings.ttf", L"", false, false, "LiberationSans-Regular.ttf", false},
        {L"", L"Comic Sans MS", false, false, "LiberationSans-Regular.ttf", false},
    };
    for (const Case& c : cases) {
        const GiFontChoice got = giMapFont(c.file, c.face, c.bold, c.italic);
        EXPECT_EQ(got.file, c.expected) << static_cast<int>(c.file[0]);
        EXPECT_EQ(got.known, c.known) << got.file;
    }
}

TEST(TextMetrics, UnknownFontWarnsOnceAndFallsBack)
{
    std::vector<std::string> warnings;
    auto previous = giSetWarningHandler([&](const std::string& m) { warnings.push_back(m); });
    AcGiTextStyle a = style(L"nosuchfont-gi-test.ttf", 1.0);
    AcGiTextStyle b = style(L"nosuchfont-gi-test.ttf", 1.0);
    EXPECT_EQ(a.loadStyleRec() & 0x0B, 0x0A);
    b.extents(L"x", true, -1, false);
    EXPECT_EQ(style(L"arial.ttf", 1.0).loadStyleRec(), 0x01);
    giSetWarningHandler(previous);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find("nosuchfont-gi-test.ttf"), std::string::npos);
    EXPECT_DOUBLE_EQ(a.extents(L"1.23", true, -1, false).x, style(L"arial.ttf", 1.0).extents(L"1.23", true, -1, false).x);
}

TEST(TextMetrics, TextCodes)
{
    struct Case {
        const wchar_t* in;
        bool raw;
        std::u32string out;
    } cases[] = {
        {L"90%%d", false, U"90\u00B0"},
        {L"%%C12", false, U"\u230012"},
        {L"%%p0.5", false, U"\u00B10.5"},
        {L"10%%%", false, U"10%"},
        {L"%%uAB%%u", false, U"AB"},
        {L"%%o1%%O", false, U"1"},
        {L"%%065x", false, U"Ax"},
        {L"%%q", false, U"%%q"},
        {L"\\U+00B2m", false, U"\u00B2m"},
        {L"\\U+00Gm", false, U"\\U+00Gm"},
        {L"90%%d", true, U"90%%d"},
        {L"%%", false, U"%%"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(giShownText(c.in, -1, c.raw), c.out);
    EXPECT_EQ(giShownText(L"%%d", 2, false), U"%%");
}

}  // namespace
