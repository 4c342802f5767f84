// Renderers: SVG parsed and checked per primitive kind, PDF and PNG produced, layers, colours.
#include <gtest/gtest.h>

#include <cairo.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "host/gi/GiRecordingDraw.h"
#include "host/gi/GiRenderer.h"

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPt = 72.0 / 25.4;  // points per millimetre

struct SvgPath {
    std::string style;
    std::vector<char> commands;
    std::vector<double> numbers;
};

struct Svg {
    std::vector<SvgPath> paths;  // drawn paths (glyph outlines in <defs> left out)
    std::vector<std::pair<double, double>> glyphs;  // <use> positions
    double width = 0, height = 0;
};

// Reads what a test needs of an SVG: drawn paths with their commands and numbers, glyph uses.
Svg parseSvg(const std::string& text)
{
    Svg svg;
    std::smatch m;
    if (std::regex_search(text, m, std::regex(R"re(<svg[^>]*width="([0-9.]+)pt" height="([0-9.]+)pt")re"))) {
        svg.width = std::stod(m[1]);
        svg.height = std::stod(m[2]);
    }
    const std::string body = text.substr(text.find("<g id=\"surface"));
    const std::regex pathRe(R"re(<path style="([^"]*)" d="([^"]*)")re");
    for (auto it = std::sregex_iterator(body.begin(), body.end(), pathRe); it != std::sregex_iterator(); ++it) {
        SvgPath p;
        p.style = (*it)[1];
        const std::string d = (*it)[2];
        const std::regex tok(R"re([MLCZ]|-?[0-9.]+(?:e-?[0-9]+)?)re");
        for (auto t = std::sregex_iterator(d.begin(), d.end(), tok); t != std::sregex_iterator(); ++t) {
            const std::string s = t->str();
            if (std::isalpha(static_cast<unsigned char>(s[0])))
                p.commands.push_back(s[0]);
            else
                p.numbers.push_back(std::stod(s));
        }
        svg.paths.push_back(p);
    }
    const std::regex useRe(R"re(<use xlink:href="#glyph[^"]*" x="([-0-9.e]+)" y="([-0-9.e]+)")re");
    for (auto it = std::sregex_iterator(body.begin(), body.end(), useRe); it != std::sregex_iterator(); ++it)
        svg.glyphs.emplace_back(std::stod((*it)[1]), std::stod((*it)[2]));
    return svg;
}

// Window (0,0)-(100,100) at 1:1 in millimetres without margin: world (x, y) is device
// (x, 100 - y) millimetres.
GiRenderOptions unitOptions(GiOutputFormat format = GiOutputFormat::kSvg)
{
    GiRenderOptions o;
    o.format = format;
    o.hasWindow = true;
    o.windowMin = {0, 0};
    o.windowMax = {100, 100};
    o.scale = 1;
    o.unitsPerMm = 1;
    o.marginMm = 0;
    return o;
}

Svg renderSvg(const GiDisplayList& list, const GiRenderOptions& o = unitOptions())
{
    std::string bytes, error;
    EXPECT_TRUE(giRenderToBytes({&list}, o, bytes, &error)) << error;
    return parseSvg(bytes);
}

double dx(double x) { return x * kPt; }
double dy(double y) { return (100 - y) * kPt; }

struct Golden {
    const char* name;
    std::function<void(AcGiWorldDraw&)> draw;
    std::vector<char> commands;  // of the one drawn path, or empty for text
    std::vector<std::pair<std::size_t, double>> numbers;  // index -> expected device value
    bool filled;
};

TEST(Renderer, OneSvgGoldenPerPrimitiveKind)
{
    const Golden goldens[] = {
        {"polyline",
         [](AcGiWorldDraw& w) {
             const AcGePoint3d p[3] = {{10, 10, 0}, {50, 10, 0}, {50, 40, 0}};
             w.geometry().polyline(3, p);
         },
         {'M', 'L', 'L'},
         {{0, dx(10)}, {1, dy(10)}, {2, dx(50)}, {5, dy(40)}},
         false},
        {"filled polygon",
         [](AcGiWorldDraw& w) {
             const AcGePoint3d p[3] = {{10, 10, 0}, {20, 10, 0}, {10, 30, 0}};
             w.subEntityTraits().setFillType(kAcGiFillAlways);
             w.geometry().polygon(3, p);
         },
         {'M', 'L', 'L', 'Z', 'M'},
         {{0, dx(10)}, {3, dy(10)}, {5, dy(30)}},
         true},
        {"circle",
         [](AcGiWorldDraw& w) { w.geometry().circle(AcGePoint3d(50, 50, 0), 20, AcGeVector3d::kZAxis); },
         {'M', 'C', 'C', 'C', 'C', 'Z', 'M'},
         {{0, dx(70)}, {1, dy(50)}},  // starts at the right, on the x axis
         false},
        {"arc",
         [](AcGiWorldDraw& w) {
             w.geometry().circularArc(AcGePoint3d(50, 50, 0), 20, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kPi / 2);
         },
         {'M', 'C'},
         {{0, dx(70)}, {1, dy(50)}, {6, dx(50)}, {7, dy(70)}},
         false},
        {"three-point arc",
         [](AcGiWorldDraw& w) {
             w.geometry().circularArc(AcGePoint3d(30, 50, 0), AcGePoint3d(50, 70, 0), AcGePoint3d(70, 50, 0));
         },
         {'M', 'C', 'C'},
         {{0, dx(30)}, {1, dy(50)}, {12, dx(70)}, {13, dy(50)}},
         false},
        {"filled sector",
         [](AcGiWorldDraw& w) {
             w.subEntityTraits().setFillType(kAcGiFillAlways);
             w.geometry().circularArc(AcGePoint3d(50, 50, 0), 20, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, kPi / 2,
                                      kAcGiArcSector);
         },
         {'M', 'L', 'C', 'Z', 'M'},
         {{0, dx(50)}, {1, dy(50)}, {2, dx(50)}, {3, dy(70)}, {8, dx(30)}, {9, dy(50)}},
         true},
        {"xline",
         [](AcGiWorldDraw& w) { w.geometry().xline(AcGePoint3d(0, 50, 0), AcGePoint3d(1, 50, 0)); },
         {'M', 'L'},
         {{1, dy(50)}, {3, dy(50)}},
         false},
        {"ray",
         [](AcGiWorldDraw& w) { w.geometry().ray(AcGePoint3d(50, 20, 0), AcGePoint3d(50, 30, 0)); },
         {'M', 'L'},
         {{0, dx(50)}, {1, dy(20)}, {2, dx(50)}},
         false},
    };
    for (const Golden& g : goldens) {
        GiDisplayList list;
        GiRecordingWorldDraw draw(list);
        g.draw(draw);
        const Svg svg = renderSvg(list);
        EXPECT_NEAR(svg.width, 100 * kPt, 1e-3) << g.name;
        ASSERT_EQ(svg.paths.size(), 1u) << g.name;
        const SvgPath& p = svg.paths[0];
        EXPECT_EQ(p.commands, g.commands) << g.name;
        for (const auto& [index, value] : g.numbers) {
            ASSERT_LT(index, p.numbers.size()) << g.name;
            EXPECT_NEAR(p.numbers[index], value, 2e-3) << g.name << " number " << index;
        }
        EXPECT_EQ(p.style.find("fill:none") == std::string::npos, g.filled) << g.name;
        EXPECT_TRUE(svg.glyphs.empty()) << g.name;
    }
    // The xline runs across the whole page; the ray goes up from its base only.
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    draw.geometry().xline(AcGePoint3d(0, 50, 0), AcGePoint3d(1, 50, 0));
    draw.geometry().ray(AcGePoint3d(50, 20, 0), AcGePoint3d(50, 30, 0));
    const Svg svg = renderSvg(list);
    ASSERT_EQ(svg.paths.size(), 2u);
    EXPECT_LT(svg.paths[0].numbers[0], 0);
    EXPECT_GT(svg.paths[0].numbers[2], svg.width);
    EXPECT_LT(svg.paths[1].numbers[3], 0);  // beyond the top edge
}

TEST(Renderer, TextGlyphsSitWhereTheyWereMeasured)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    AcGiTextStyle style(L"arial.ttf", L"", 5, 1, 0, 1, false, false, false, false, false);
    const double before = style.extents(L"1.23", true, -1, false).x;
    draw.geometry().text(AcGePoint3d(10, 20, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"1.23", -1, false, style);
    draw.geometry().text(AcGePoint3d(10, 60, 0), AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, L"AB", -1, false, style);
    const Svg svg = renderSvg(list);
    // Drawing shares the font face with the metrics; it must not change them.
    EXPECT_EQ(style.extents(L"1.23", true, -1, false).x, before);
    ASSERT_EQ(svg.glyphs.size(), 6u);
    const double one = style.extents(L"1", true, -1, false).x;
    const double dot = style.extents(L".", true, -1, false).x;
    EXPECT_NEAR(svg.glyphs[0].first, dx(10), 1e-3);
    EXPECT_NEAR(svg.glyphs[0].second, dy(20), 1e-3);
    EXPECT_NEAR(svg.glyphs[2].first, dx(10 + one + dot), 1e-3);
    EXPECT_NEAR(svg.glyphs[2].second, dy(20), 1e-3);
    // Turned text: the second letter sits above the first.
    EXPECT_NEAR(svg.glyphs[5].first, dx(10), 1e-3);
    EXPECT_NEAR(svg.glyphs[5].second, dy(60 + style.extents(L"A", true, -1, false).x), 1e-3);
}

TEST(Renderer, LayersColoursAndPaperScale)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    const AcGePoint3d p[2] = {{10, 10, 0}, {90, 10, 0}};
    struct Line {
        AcGiLayerKey layer;
        int color;  // index, or -1 for a true colour
        const char* expected;
    } lines[] = {
        {1, 7, "rgb(0%,0%,0%)"},
        {1, 1, "rgb(100%,0%,0%)"},
        {2, 5, "hidden"},
        {1, -1, "rgb(100%,50.196078%,0%)"},
        {3, 256, "rgb(0%,100%,0%)"},  // ByLayer through the layer's colour
    };
    for (const Line& l : lines) {
        draw.subEntityTraits().setLayer(l.layer);
        if (l.color >= 0)
            draw.subEntityTraits().setColor(static_cast<Adesk::UInt16>(l.color));
        else
            draw.subEntityTraits().setTrueColor(AcCmEntityColor(255, 128, 0));
        draw.geometry().polyline(2, p);
    }
    GiRenderOptions o = unitOptions();
    o.layerVisible = [](AcGiLayerKey k) { return k != 2; };
    o.layerColor = [](AcGiLayerKey) {
        AcCmEntityColor c;
        c.setColorIndex(3);
        return c;
    };
    const Svg svg = renderSvg(list, o);
    std::vector<std::string> seen;
    for (const SvgPath& path : svg.paths)
        seen.push_back(path.style.substr(path.style.find("stroke:rgb") + 7, path.style.find(';', path.style.find("stroke:rgb")) - path.style.find("stroke:rgb") - 7));
    EXPECT_EQ(seen, (std::vector<std::string>{"rgb(0%,0%,0%)", "rgb(100%,0%,0%)", "rgb(100%,50.196078%,0%)",
                                              "rgb(0%,100%,0%)"}));

    // 1:50 in metres: 100 m is 2000 mm of paper, plus the margins.
    GiRenderOptions metres = unitOptions();
    metres.scale = 50;
    metres.unitsPerMm = 0.001;
    metres.marginMm = 10;
    EXPECT_NEAR(renderSvg(list, metres).width, (2000 + 20) * kPt, 1e-2);
    // Fitted: the longer side becomes fitMm.
    GiRenderOptions fit = unitOptions();
    fit.scale = 0;
    fit.fitMm = 210;
    fit.hasWindow = false;
    EXPECT_NEAR(renderSvg(list, fit).width, 210 * kPt, 1e-2);
}

TEST(Renderer, PdfAndPngAreMadeAndPngShowsTheLine)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    const AcGePoint3d p[2] = {{10, 50, 0}, {90, 50, 0}};
    draw.subEntityTraits().setColor(7);
    draw.subEntityTraits().setLineWeight(200);  // 2 mm: two full pixel rows
    draw.geometry().polyline(2, p);

    std::string pdf, error;
    ASSERT_TRUE(giRenderToBytes({&list}, unitOptions(GiOutputFormat::kPdf), pdf, &error)) << error;
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 283.46"), std::string::npos);

    const std::string path = ::testing::TempDir() + "gi_line.png";
    GiRenderOptions o = unitOptions(GiOutputFormat::kPng);
    o.dpi = 25.4;  // one pixel per millimetre
    ASSERT_TRUE(giRenderToFile({&list}, o, path, &error)) << error;
    cairo_surface_t* png = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_surface_status(png), CAIRO_STATUS_SUCCESS);
    EXPECT_EQ(cairo_image_surface_get_width(png), 100);
    const unsigned char* data = cairo_image_surface_get_data(png);
    const int stride = cairo_image_surface_get_stride(png);
    auto pixel = [&](int x, int y) { return *reinterpret_cast<const std::uint32_t*>(data + y * stride + 4 * x) & 0xFFFFFF; };
    EXPECT_EQ(pixel(50, 49), 0x000000u);  // on the line (y = 50 is the row boundary 49|50)
    EXPECT_EQ(pixel(50, 20), 0xFFFFFFu);  // the white page
    cairo_surface_destroy(png);
}

TEST(Renderer, BadOptionsAndPathsAreReported)
{
    GiDisplayList list;
    std::string bytes, error;
    GiRenderOptions o = unitOptions(GiOutputFormat::kPng);
    o.dpi = 1e6;
    EXPECT_FALSE(giRenderToBytes({&list}, o, bytes, &error));
    EXPECT_NE(error.find("pixels"), std::string::npos);
    o = unitOptions();
    o.unitsPerMm = 0;
    EXPECT_FALSE(giRenderToBytes({&list}, o, bytes, &error));
    EXPECT_NE(error.find("unitsPerMm"), std::string::npos);
    EXPECT_FALSE(giRenderToFile({&list}, unitOptions(), "/nonexistent-dir/x.svg", &error));
    EXPECT_NE(error.find("/nonexistent-dir/x.svg"), std::string::npos);
    // An empty list still gives a (blank) picture.
    GiRenderOptions empty;
    EXPECT_TRUE(giRenderToBytes({&list}, empty, bytes, &error)) << error;
}

}  // namespace
