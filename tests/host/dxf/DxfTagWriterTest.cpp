// Tests of the DXF tag writer: layout, round trips through the reader, refused values.
#include "host/dxf/DxfTagReader.h"
#include "host/dxf/DxfTagValue.h"
#include "host/dxf/DxfTagWriter.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>

namespace {

TEST(DxfTagWriter, LayoutOfCodesAndNumbers)
{
    std::string out;
    {
        DxfTagWriter w(out, {DxfLineEnd::Lf});
        w.writeString(0, "LINE");
        w.writeDouble(10, 1.0);
        w.writeString(100, "AcDbLine");
        w.writeString(1001, "APP");
        w.writeInt(70, -5);
        w.writeInt(90, 7);
        w.writeInt(160, 123456789012);
        w.writeBool(290, true);
        w.writeHandle(5, 0x1A2B);
        w.writeHandle(330, 0);
    }
    EXPECT_EQ(out, "  0\nLINE\n 10\n1.0\n100\nAcDbLine\n1001\nAPP\n 70\n    -5\n 90\n        7\n"
                   "160\n123456789012\n290\n     1\n  5\n1A2B\n330\n0\n");

    std::string crlf;
    DxfTagWriter w(crlf);
    w.writeEof();
    EXPECT_EQ(crlf, "  0\r\nEOF\r\n");
    EXPECT_EQ(w.line(), 2u);
}

TEST(DxfTagWriter, DoubleText)
{
    const struct {
        double v;
        const char* text;
    } cases[] = {
        {1.0, "1.0"},           {0.1, "0.1"},     {-0.0, "-0.0"},
        {1e20, "1.0E+20"},      {1e-300, "1.0E-300"}, {123.456, "123.456"},
        {1.0 / 3, "0.3333333333333333"}, {-2.5e-5, "-2.5E-05"}, {4503599627370496.0, "4503599627370496.0"},
    };
    for (const auto& c : cases) {
        char buf[kDxfNumberBufferSize];
        EXPECT_EQ(std::string(buf, dxfFormatDouble(c.v, buf)), c.text);
    }
}

// Writes the doubles under code 40, reads them back, and compares bit for bit.
void expectDoublesRoundTrip(const std::vector<double>& values)
{
    std::string out;
    {
        DxfTagWriter w(out);
        for (double v : values)
            w.writeDouble(40, v);
    }
    DxfTagReader r(out);
    DxfTag t;
    for (double v : values) {
        ASSERT_TRUE(r.next(t));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(t.asDouble()), std::bit_cast<std::uint64_t>(v))
            << t.value;
    }
}

TEST(DxfTagWriter, DoublesRoundTripBitForBit)
{
    expectDoublesRoundTrip({0.1, 1e-300, -0.0, 0.0, 1.0 / 3, -2.0 / 3, DBL_MAX, -DBL_MAX, DBL_MIN,
                            std::numeric_limits<double>::denorm_min(), 1e308, 1e22, 1e23,
                            9007199254740993.0, 9007199254740992.0, 1.0, -42.0, 100000.0, 1e15,
                            123456789012345678.0, 0.30000000000000004, M_PI});
    std::mt19937_64 rng(20240611);
    std::vector<double> random;
    while (random.size() < 20000) {
        const double d = std::bit_cast<double>(rng());
        if (std::isfinite(d))
            random.push_back(d);
    }
    expectDoublesRoundTrip(random);
}

TEST(DxfTagWriter, EveryValueTypeRoundTrips)
{
    std::vector<std::uint8_t> blob(300);
    for (std::size_t i = 0; i < blob.size(); ++i)
        blob[i] = static_cast<std::uint8_t>(i * 7);
    for (DxfLineEnd eol : {DxfLineEnd::CrLf, DxfLineEnd::Lf}) {
        std::ostringstream os;
        {
            DxfTagWriter w(os, {eol, "out.dxf"});
            w.beginSection("ENTITIES");
            w.writeString(1, "Maßkette €  ");
            w.writeInt(70, INT16_MIN);
            w.writeInt(71, INT16_MAX);
            w.writeInt(90, INT32_MIN);
            w.writeInt(91, INT32_MAX);
            w.writeInt(160, INT64_MIN);
            w.writeInt(161, INT64_MAX);
            w.writeBool(290, false);
            w.writeHandle(5, UINT64_MAX);
            w.writePoint(10, 1.5, -2.5, 0.1);
            w.writePoint(11, 3.0, 4.0);
            w.writeBinary(310, blob.data(), blob.size());
            w.endSection();
            w.writeEof();
        }
        DxfTagReader r(os.str(), "out.dxf");
        DxfTag t;
        const auto nextTag = [&](int code) -> const DxfTag& {
            EXPECT_TRUE(r.next(t));
            EXPECT_EQ(t.code, code);
            return t;
        };
        nextTag(0);
        EXPECT_EQ(nextTag(2).value, "ENTITIES");
        EXPECT_EQ(nextTag(1).value, "Maßkette €  ");
        EXPECT_EQ(nextTag(70).asInt16(), INT16_MIN);
        EXPECT_EQ(nextTag(71).asInt16(), INT16_MAX);
        EXPECT_EQ(nextTag(90).asInt32(), INT32_MIN);
        EXPECT_EQ(nextTag(91).asInt32(), INT32_MAX);
        EXPECT_EQ(nextTag(160).asInt64(), INT64_MIN);
        EXPECT_EQ(nextTag(161).asInt64(), INT64_MAX);
        EXPECT_FALSE(nextTag(290).asBool());
        EXPECT_EQ(nextTag(5).asHandle(), UINT64_MAX);
        EXPECT_EQ(nextTag(10).asDouble(), 1.5);
        EXPECT_EQ(nextTag(20).asDouble(), -2.5);
        EXPECT_EQ(nextTag(30).asDouble(), 0.1);
        EXPECT_EQ(nextTag(11).asDouble(), 3.0);
        EXPECT_EQ(nextTag(21).asDouble(), 4.0);
        std::vector<std::uint8_t> back;
        for (std::size_t chunk : {127u, 127u, 46u}) {
            nextTag(310).appendBinary(back);
            EXPECT_EQ(t.value.size(), 2 * chunk);
        }
        EXPECT_EQ(back, blob);
        EXPECT_EQ(nextTag(0).value, "ENDSEC");
        EXPECT_EQ(nextTag(0).value, "EOF");
        EXPECT_TRUE(r.sawEof());
    }
}

TEST(DxfTagWriter, RefusedValues)
{
    std::string out;
    DxfTagWriter w(out, {DxfLineEnd::Lf, "out.dxf"});
    w.writeString(8, "L");
    try {
        w.writeString(1, "two\nlines");
        ADD_FAILURE() << "no error";
    } catch (const DxfError& e) {
        EXPECT_STREQ(e.what(), "out.dxf:4: a value can't hold a line break or NUL, found "
                               "\"two\\x0Alines\"");
    }
    EXPECT_THROW(w.writeString(1, "cr\r"), DxfError);
    EXPECT_THROW(w.writeDouble(40, std::nan("")), DxfError);
    EXPECT_THROW(w.writeDouble(40, INFINITY), DxfError);
    EXPECT_THROW(w.writeInt(40, 1), std::invalid_argument);      // a double code
    EXPECT_THROW(w.writeInt(70, 40000), std::invalid_argument);  // beyond 16 bits
    EXPECT_THROW(w.writeInt(90, INT64_MAX), std::invalid_argument);
    EXPECT_THROW(w.writeString(70, "x"), std::invalid_argument);
    EXPECT_THROW(w.writeString(1072, "x"), std::invalid_argument);
    EXPECT_THROW(w.writeHandle(8, 1), std::invalid_argument);
    EXPECT_THROW(w.writePoint(18, 1, 2, 3), std::invalid_argument);
    EXPECT_EQ(out, "  8\nL\n");  // nothing half-written
}

} // namespace

namespace {

TEST(DxfTagWriter, FileRoundTripAndUnreadableFile)
{
    const auto path = std::filesystem::temp_directory_path() / "sv_dxf_tag_writer_test.dxf";
    {
        std::ofstream f(path, std::ios::binary);
        DxfTagWriter w(f);
        for (int i = 0; i < 5000; ++i)  // more than one 64 KiB block
            w.writePoint(10, i, -i, 0.5 * i);
        w.writeEof();
        w.flush();
    }
    DxfTagReader r = DxfTagReader::fromFile(path);
    EXPECT_EQ(r.fileName(), path.string());
    DxfTag t;
    int n = 0;
    while (r.next(t))
        ++n;
    EXPECT_EQ(n, 15001);
    EXPECT_TRUE(r.sawEof());
    std::filesystem::remove(path);
    try {
        DxfTagReader::fromFile(path);
        ADD_FAILURE() << "no error";
    } catch (const DxfError& e) {
        EXPECT_EQ(e.line(), 0u);
        EXPECT_EQ(std::string(e.what()), path.string() + ": cannot open the file for reading");
    }
}

} // namespace
