// Proxy graphics: our writer and reader agree, malformed data is reported, and ezdxf reads
// what we wrote as the same primitives.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

#include "host/gi/GiProxyGraphics.h"
#include "host/gi/GiRecordingDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// A custom entity's picture: one of each primitive, with changing traits.
GiDisplayList picture()
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list, {.regenType = kAcGiSaveWorldDrawForProxy});
    AcGiSubEntityTraits& t = draw.subEntityTraits();
    AcGiWorldGeometry& g = draw.geometry();
    t.setColor(1);
    t.setLayer(AcGiLayerKey{7});
    t.setLineWeight(35);
    t.setSelectionMarker(2);
    const AcGePoint3d line[2] = {{0, 0, 0}, {10, 0, 0}};
    g.polyline(2, line);
    t.setFillType(kAcGiFillAlways);
    t.setSelectionMarker(3);
    const AcGePoint3d tri[3] = {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}};
    g.polygon(3, tri);
    t.setFillType(kAcGiFillNever);
    t.setColor(256);
    g.circle(AcGePoint3d(5, 5, 0), 2, AcGeVector3d::kZAxis);
    t.setTrueColor(AcCmEntityColor(255, 128, 0));
    g.circularArc(AcGePoint3d(0, 0, 0), 3, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, kPi / 2);
    t.setColor(5);
    t.setLayer(AcGiLayerKey{0});
    g.circularArc(AcGePoint3d(1, 0, 0), AcGePoint3d(0, 1, 0), AcGePoint3d(-1, 0, 0));
    t.setSelectionMarker(1001);
    g.text(AcGePoint3d(1, 2, 0), AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, 2.5, 0.8, 0.25, L"Höhe %%c12");
    AcGiTextStyle style(L"romans.shx", L"", 1.75, 1.0, 0.0, 1.0, false, false, false, false, false);
    g.text(AcGePoint3d(3, 4, 0), AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"5\U0001F600", -1, true, style);
    g.xline(AcGePoint3d(0, 40, 0), AcGePoint3d(2, 40, 0));
    g.ray(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 2, 0));
    const AcGeVector3d n(0, 0, 1);
    g.polyline(2, line, &n);
    return list;
}

void expectSame(const GiPrimitive& a, const GiPrimitive& b, std::size_t i)
{
    EXPECT_EQ(a.kind, b.kind) << i;
    EXPECT_TRUE(a.traits == b.traits) << i;
    EXPECT_EQ(a.points.size(), b.points.size()) << i;
    for (std::size_t k = 0; k < a.points.size() && k < b.points.size(); ++k)
        EXPECT_TRUE(a.points[k].isEqualTo(b.points[k])) << i;
    EXPECT_EQ(a.threePoint, b.threePoint) << i;
    EXPECT_EQ(a.hasNormal, b.hasNormal) << i;
    EXPECT_TRUE(a.center.isEqualTo(b.center)) << i;
    EXPECT_NEAR(a.radius, b.radius, 1e-12) << i;
    EXPECT_NEAR(a.sweep, b.sweep, 1e-12) << i;
    EXPECT_TRUE(a.startVector.isEqualTo(b.startVector)) << i;
    EXPECT_TRUE(a.normal.isEqualTo(b.normal)) << i;
    EXPECT_EQ(a.arcType, b.arcType) << i;
    ASSERT_EQ(a.text == nullptr, b.text == nullptr) << i;
    if (a.text) {
        EXPECT_EQ(a.text->string, b.text->string) << i;
        EXPECT_EQ(a.text->raw, b.text->raw) << i;
        EXPECT_EQ(a.text->styled, b.text->styled) << i;
        EXPECT_EQ(std::wstring(a.text->style.fileName()), b.text->style.fileName()) << i;
        EXPECT_DOUBLE_EQ(a.text->style.textSize(), b.text->style.textSize()) << i;
        EXPECT_DOUBLE_EQ(a.text->style.xScale(), b.text->style.xScale()) << i;
        EXPECT_DOUBLE_EQ(a.text->style.obliquingAngle(), b.text->style.obliquingAngle()) << i;
        EXPECT_DOUBLE_EQ(a.text->boxMax.x, b.text->boxMax.x) << i;
    }
}

TEST(ProxyGraphics, EncodeDecodeRoundTrip)
{
    const GiDisplayList list = picture();
    const std::vector<std::uint8_t> bytes = giEncodeProxyGraphics(list);
    ASSERT_GE(bytes.size(), 8u);
    EXPECT_EQ(bytes[0] | bytes[1] << 8 | bytes[2] << 16 | bytes[3] << 24, static_cast<int>(bytes.size()));
    EXPECT_EQ(bytes.size() % 4, 0u);
    GiDisplayList back;
    std::string error;
    ASSERT_TRUE(giDecodeProxyGraphics(bytes, back, &error)) << error;
    ASSERT_EQ(back.size(), list.size());
    for (std::size_t i = 0; i < list.size(); ++i)
        expectSame(list.primitives[i], back.primitives[i], i);
    // Writing what was read gives the same bytes.
    EXPECT_EQ(giEncodeProxyGraphics(back), bytes);
}

TEST(ProxyGraphics, LayerAndLinetypeIndexesGoThroughTheTables)
{
    GiDisplayList list;
    GiRecordingWorldDraw draw(list);
    draw.subEntityTraits().setLayer(AcGiLayerKey{0xABC0});
    draw.subEntityTraits().setLineType(AcGiLinetypeKey{0xDEF0});
    const AcGePoint3d p[2] = {{0, 0, 0}, {1, 0, 0}};
    draw.geometry().polyline(2, p);
    GiProxyEncodeOptions enc;
    enc.layerIndex = [](AcGiLayerKey k) { return k == 0xABC0 ? 4u : 0u; };
    enc.linetypeIndex = [](AcGiLinetypeKey k) { return k == 0xDEF0 ? 2u : 0u; };
    GiProxyDecodeOptions dec;
    dec.layerKey = [](std::uint32_t i) { return i == 4 ? AcGiLayerKey{0xABC0} : AcGiLayerKey{0}; };
    dec.linetypeKey = [](std::uint32_t i) { return i == 2 ? AcGiLinetypeKey{0xDEF0} : AcGiLinetypeKey{0}; };
    GiDisplayList back;
    ASSERT_TRUE(giDecodeProxyGraphics(giEncodeProxyGraphics(list, enc), back, nullptr, dec));
    ASSERT_EQ(back.size(), 1u);
    EXPECT_EQ(back.primitives[0].traits.layer, AcGiLayerKey{0xABC0});
    EXPECT_EQ(back.primitives[0].traits.linetype, AcGiLinetypeKey{0xDEF0});
}

// Little-endian building blocks for hand-made data.
void rl(std::vector<std::uint8_t>& b, std::uint32_t v)
{
    for (int i = 0; i < 4; ++i)
        b.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
}
void rd(std::vector<std::uint8_t>& b, double d)
{
    std::uint64_t u;
    std::memcpy(&u, &d, 8);
    for (int i = 0; i < 8; ++i)
        b.push_back(static_cast<std::uint8_t>(u >> (8 * i)));
}
void finishHeader(std::vector<std::uint8_t>& b, std::uint32_t count)
{
    const auto total = static_cast<std::uint32_t>(b.size());
    for (int i = 0; i < 4; ++i) {
        b[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(total >> (8 * i));
        b[static_cast<std::size_t>(4 + i)] = static_cast<std::uint8_t>(count >> (8 * i));
    }
}

TEST(ProxyGraphics, MatricesAndUnknownRecords)
{
    std::vector<std::uint8_t> b(8, 0);
    rl(b, 8 + 128), rl(b, 29);  // push: translate by (100, 0, 0)
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            rd(b, r == c ? 1.0 : (r == 0 && c == 3 ? 100.0 : 0.0));
    rl(b, 12), rl(b, 99), rl(b, 0);  // a type this reader does not know
    rl(b, 8 + 4 + 48), rl(b, 6), rl(b, 2);
    for (double v : {0.0, 0.0, 0.0, 1.0, 0.0, 0.0})
        rd(b, v);
    rl(b, 8), rl(b, 31);  // pop
    rl(b, 8 + 4 + 48), rl(b, 6), rl(b, 2);
    for (double v : {0.0, 0.0, 0.0, 1.0, 0.0, 0.0})
        rd(b, v);
    finishHeader(b, 5);
    GiDisplayList list;
    std::string error;
    ASSERT_TRUE(giDecodeProxyGraphics(b, list, &error)) << error;
    ASSERT_EQ(list.size(), 2u);
    EXPECT_DOUBLE_EQ(list.primitives[0].points[1].x, 101.0);
    EXPECT_DOUBLE_EQ(list.primitives[1].points[1].x, 1.0);
}

TEST(ProxyGraphics, MalformedDataIsReported)
{
    const std::vector<std::uint8_t> good = giEncodeProxyGraphics(picture());
    struct Case {
        const char* name;
        std::function<void(std::vector<std::uint8_t>&)> spoil;
        const char* message;
    } cases[] = {
        {"too short", [](auto& b) { b.resize(5); }, "shorter than its 8-byte header"},
        {"total too big", [](auto& b) { b[0] = 0xFF, b[1] = 0xFF; }, "total size"},
        {"count too big", [](auto& b) { b[4] = 0xFF; }, "records announced"},
        {"record too big", [](auto& b) { b[9] = 0x7F; }, "record 1 at byte 8 (type 1): size"},
        {"record too small", [](auto& b) { b[8] = 4; }, "record 1 at byte 8"},
        {"fields cut short",
         [](auto& b) {
             // A circle record with room for its centre's x only.
             b.assign(8, 0);
             rl(b, 16), rl(b, 2);
             rd(b, 1.0);
             finishHeader(b, 1);
         },
         "record 1 at byte 8 (type 2): its 16 bytes end before its fields do"},
        {"too many vertices",
         [](auto& b) {
             b.assign(8, 0);
             rl(b, 16), rl(b, 6), rl(b, 1000), rl(b, 0);
             finishHeader(b, 1);
         },
         "1000 vertices do not fit"},
    };
    for (const Case& c : cases) {
        std::vector<std::uint8_t> bytes = good;
        c.spoil(bytes);
        GiDisplayList list;
        std::string error;
        EXPECT_FALSE(giDecodeProxyGraphics(bytes, list, &error)) << c.name;
        EXPECT_NE(error.find(c.message), std::string::npos) << c.name << ": " << error;
        EXPECT_EQ(error.rfind("proxy graphics: ", 0), 0u) << c.name;
    }
}

std::string run(const std::string& command)
{
    std::string out;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return out;
    char buffer[4096];
    std::size_t n;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0)
        out.append(buffer, n);
    const int status = pclose(pipe);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        out = "FAILED(" + std::to_string(status) + "): " + out;
    return out;
}

TEST(ProxyGraphics, EzdxfReadsWhatWeWrite)
{
    if (std::system("/usr/bin/python3 -c 'import ezdxf' >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "ezdxf is not installed for /usr/bin/python3";
    const char* source = std::getenv("SV_SOURCE_DIR");
    const std::string script = std::string(source ? source : SV_TEST_SOURCE_DIR) + "/tests/host/gi/ezdxf/decode_proxy.py";
    const std::string path = ::testing::TempDir() + "gi_proxy.bin";
    GiProxyEncodeOptions enc;
    // ezdxf's table: 0, Defpoints, L1, L2, L3.
    enc.layerIndex = [](AcGiLayerKey k) { return k == 7 ? 3u : 0u; };
    const std::vector<std::uint8_t> bytes = giEncodeProxyGraphics(picture(), enc);
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()),
                                                static_cast<std::streamsize>(bytes.size()));
    const std::string out = run("/usr/bin/python3 " + script + " " + path);
    std::istringstream lines(out);
    std::vector<std::string> got;
    for (std::string line; std::getline(lines, line);)
        got.push_back(line);
    const std::vector<std::string> expected = {
        R"({"layers": ["0", "Defpoints", "L1", "L2", "L3"]})",
        R"({"closed": false, "color": 1, "layer": "L2", "lineweight": 35, "type": "POLYLINE", "vertices": [[0.0, 0.0, 0.0], [10.0, 0.0, 0.0]]})",
        R"({"color": 1, "layer": "L2", "lineweight": 35, "type": "HATCH", "vertices": [[0.0, 0.0], [4.0, 0.0], [0.0, 3.0]]})",
        R"({"center": [5.0, 5.0, 0.0], "color": 256, "layer": "L2", "lineweight": 35, "radius": 2.0, "type": "CIRCLE"})",
        R"({"center": [0.0, 0.0, 0.0], "color": 256, "end": 180.0, "layer": "L2", "lineweight": 35, "radius": 3.0, "start": 90.0, "true_color": 16744448, "type": "ARC"})",
        R"({"center": [0.0, 0.0, 0.0], "color": 5, "end": 180.0, "layer": "0", "lineweight": 35, "radius": 1.0, "start": 0.0, "type": "ARC"})",
        R"({"color": 5, "height": 2.5, "insert": [1.0, 2.0, 0.0], "layer": "0", "lineweight": 35, "oblique": 14.3239, "rotation": 90.0, "style": "Standard", "text": "H\u00f6he %%c12", "type": "TEXT", "width": 0.8})",
        R"({"color": 5, "height": 1.75, "insert": [3.0, 4.0, 0.0], "layer": "0", "lineweight": 35, "oblique": 0.0, "rotation": 0.0, "style": "romans.shx", "text": "5\ud83d\ude00", "type": "TEXT", "width": 1.0})",
        R"({"color": 5, "direction": [1.0, 0.0, 0.0], "layer": "0", "lineweight": 35, "start": [0.0, 40.0, 0.0], "type": "XLINE"})",
        R"({"color": 5, "direction": [0.0, 1.0, 0.0], "layer": "0", "lineweight": 35, "start": [0.0, 0.0, 0.0], "type": "RAY"})",
        R"({"closed": false, "color": 5, "layer": "0", "lineweight": 35, "type": "POLYLINE", "vertices": [[0.0, 0.0, 0.0], [10.0, 0.0, 0.0]]})",
    };
    ASSERT_EQ(got.size(), expected.size()) << out;
    for (std::size_t i = 0; i < got.size(); ++i)
        EXPECT_EQ(got[i], expected[i]) << i;
    std::remove(path.c_str());
}

}  // namespace
