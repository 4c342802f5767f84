// Tests of the DXF tag reader: malformed input, tolerated quirks, lookahead, records and points.
#include "host/dxf/DxfTagReader.h"
#include "host/dxf/DxfTagRecord.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

// Reads everything the way a file reader would: sections, records, typed values of points.
void readAll(const std::string& data, DxfReadOptions options = {})
{
    DxfTagReader tags(data, "t.dxf", std::move(options));
    DxfTagRecordReader records(tags);
    DxfSection section;
    DxfRecord record;
    while (records.nextSection(section))
        while (records.nextRecord(record)) {
        }
}

std::vector<DxfTag> tagsOf(DxfTagReader& reader)
{
    std::vector<DxfTag> out;
    DxfTag t;
    while (reader.next(t))
        out.push_back(t);
    return out;
}

struct Malformed {
    const char* name;
    std::string data;
    std::size_t line;
    const char* what;
};

TEST(DxfTagReader, MalformedInputNamesFileLineAndExpectation)
{
    const std::string sec = "0\nSECTION\n2\nENTITIES\n";  // lines 1-4
    const Malformed cases[] = {
        {"code not a number", sec + "abc\nX\n", 5,
         "t.dxf:5: expected an integer group code, found \"abc\""},
        {"code with junk", sec + "10x\n1\n", 5,
         "t.dxf:5: expected an integer group code, found \"10x\""},
        {"blank code line", sec + "0\nLINE\n\n8\n0\n", 7,
         "t.dxf:7: expected an integer group code, found \"\""},
        {"code too large", sec + "2000\nX\n", 5,
         "t.dxf:5: expected a group code from 0 to 1071, found \"2000\""},
        {"code negative", sec + "-1\nX\n", 5,
         "t.dxf:5: expected a group code from 0 to 1071, found \"-1\""},
        {"code huge", "99999999999999999999\nX\n", 1,
         "t.dxf:1: expected a group code from 0 to 1071, found \"99999999999999999999\""},
        {"double not a number", sec + "0\nLINE\n40\nx\n", 8,
         "t.dxf:8: expected a floating-point number for group code 40, found \"x\""},
        {"double comma", sec + "0\nLINE\n10\n1,5\n", 8,
         "t.dxf:8: expected a floating-point number for group code 10, found \"1,5\""},
        {"double inf", "40\ninf\n", 2,
         "t.dxf:2: expected a floating-point number for group code 40, found \"inf\""},
        {"double nan", "40\n-nan\n", 2,
         "t.dxf:2: expected a floating-point number for group code 40, found \"-nan\""},
        {"double overflow", "40\n1e400\n", 2,
         "t.dxf:2: expected a floating-point number for group code 40, found \"1e400\""},
        {"int16 overflow", "70\n99999\n", 2,
         "t.dxf:2: expected a 16-bit integer for group code 70, found \"99999\""},
        {"int16 decimal", "70\n1.0\n", 2,
         "t.dxf:2: expected a 16-bit integer for group code 70, found \"1.0\""},
        {"int32 overflow", "90\n4294967296\n", 2,
         "t.dxf:2: expected a 32-bit integer for group code 90, found \"4294967296\""},
        {"int64 junk", "160\n12a\n", 2,
         "t.dxf:2: expected a 64-bit integer for group code 160, found \"12a\""},
        {"bool junk", "290\nyes\n", 2,
         "t.dxf:2: expected a boolean (integer) for group code 290, found \"yes\""},
        {"handle junk", "5\nXYZ\n", 2,
         "t.dxf:2: expected a hexadecimal handle for group code 5, found \"XYZ\""},
        {"handle too long", "330\n12345678901234567\n", 2,
         "t.dxf:2: expected a hexadecimal handle for group code 330, found \"12345678901234567\""},
        {"binary odd", "310\nABC\n", 2,
         "t.dxf:2: expected hexadecimal binary data for group code 310, found \"ABC\""},
        {"value missing", sec + "0\nLINE\n10\n", 8,
         "t.dxf:8: expected the value of group code 10, found the end of the file"},
        {"NUL byte", sec + "0\nLI\0NE\n"s, 6, "t.dxf:6: expected text, found a NUL byte"},
        {"binary DXF", "AutoCAD Binary DXF\r\n\x1a\0\0\0"s, 1,
         "t.dxf:1: expected an ASCII DXF file, found a binary DXF file (not supported; save the "
         "drawing as ASCII DXF)"},
        {"ENDSEC missing", sec + "0\nLINE\n8\n0\n", 9,
         "t.dxf:9: expected 0/ENDSEC, found the end of the file"},
        {"EOF inside section", sec + "0\nEOF\n", 5, "t.dxf:5: expected 0/ENDSEC, found \"0/EOF\""},
        {"entity outside section", "0\nLINE\n", 1,
         "t.dxf:1: expected 0/SECTION or 0/EOF, found \"0/LINE\""},
        {"section without name", "0\nSECTION\n8\nX\n", 3,
         "t.dxf:3: expected 2/<section name> after 0/SECTION, found \"8/X\""},
        {"record without 0", sec + "8\nX\n", 5,
         "t.dxf:5: expected a 0 group code opening a record, found \"8/X\""},
        {"header without 9", "0\nSECTION\n2\nHEADER\n1\nX\n", 5,
         "t.dxf:5: expected 9/<variable name>, found \"1/X\""},
    };
    for (const Malformed& c : cases) {
        SCOPED_TRACE(c.name);
        try {
            readAll(c.data);
            ADD_FAILURE() << "no error";
        } catch (const DxfError& e) {
            EXPECT_EQ(e.line(), c.line);
            EXPECT_STREQ(e.what(), c.what);
            EXPECT_EQ(e.file(), "t.dxf");
        }
    }
}

TEST(DxfTagReader, LineLongerThanTheLimitIsRefused)
{
    DxfReadOptions small;
    small.maxLineLength = 8;
    EXPECT_NO_THROW(readAll("0\nSECTION\n2\n12345678\n0\nENDSEC\n", small));
    try {
        readAll("0\nSECTION\n2\n123456789\n0\nENDSEC\n", small);
        ADD_FAILURE() << "no error";
    } catch (const DxfError& e) {
        EXPECT_EQ(e.line(), 4u);
        EXPECT_STREQ(e.what(), "t.dxf:4: expected a line of at most 8 bytes, found a longer one");
    }
    // The default limit of 1 MiB, on a file without any line break.
    EXPECT_THROW(readAll(std::string((1 << 20) + 10, '7')), DxfError);
}

TEST(DxfTagReader, ToleratedQuirks)
{
    struct Case {
        const char* name;
        std::string data;
        std::vector<std::pair<int, std::string>> tags;
        bool sawEof;
    };
    const Case cases[] = {
        {"LF", "0\nSECTION\n0\nEOF\n", {{0, "SECTION"}, {0, "EOF"}}, true},
        {"CRLF", "0\r\nSECTION\r\n0\r\nEOF\r\n", {{0, "SECTION"}, {0, "EOF"}}, true},
        {"lone CR", "0\rSECTION\r0\rEOF\r", {{0, "SECTION"}, {0, "EOF"}}, true},
        {"BOM", "\xEF\xBB\xBF  0\r\nSECTION\r\n", {{0, "SECTION"}}, false},
        {"blanks around the code", "  10 \t\n1.5\n\t 8\nL\n", {{10, "1.5"}, {8, "L"}}, false},
        {"leading zeros", "0010\n1.5\n", {{10, "1.5"}}, false},
        {"value kept exactly", "1\n  text with blanks  \n", {{1, "  text with blanks  "}}, false},
        {"empty value", "1\n\n0\nEOF\n", {{1, ""}, {0, "EOF"}}, true},
        {"last line without line end", "0\nEOF", {{0, "EOF"}}, true},
        {"missing EOF with blank lines", "8\nL\n\n \n\n", {{8, "L"}}, false},
        {"after EOF ignored", "0\nEOF\ngarbage\0\x1a"s, {{0, "EOF"}}, true},
        {"comments skipped", "999\nhello\n8\nL\n", {{8, "L"}}, false},
        {"undocumented code as string", "85\nanything\n", {{85, "anything"}}, false},
        {"empty file", "", {}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        DxfTagReader reader(c.data, "t.dxf");
        const std::vector<DxfTag> tags = tagsOf(reader);
        ASSERT_EQ(tags.size(), c.tags.size());
        for (std::size_t i = 0; i < tags.size(); ++i) {
            EXPECT_EQ(tags[i].code, c.tags[i].first);
            EXPECT_EQ(tags[i].value, c.tags[i].second);
        }
        EXPECT_EQ(reader.sawEof(), c.sawEof);
    }
}

TEST(DxfTagReader, MissingEofWarnsOnce)
{
    std::vector<std::string> warnings;
    DxfReadOptions options;
    options.warning = [&](const std::string& w) { warnings.push_back(w); };
    DxfTagReader reader("8\nL\n", "t.dxf", options);
    tagsOf(reader);
    DxfTag t;
    EXPECT_FALSE(reader.next(t));
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0], "t.dxf:2: the file ends without 0/EOF");
}

TEST(DxfTagReader, LineNumbersAndTypedValues)
{
    DxfTagReader reader("\xEF\xBB\xBF  0\r\nLINE\r\n 70\r\n    -5\r\n 40\r\n 2.5 \r\n"
                        "290\r\n1\r\n  5\r\n1a2B\r\n160\r\n-9223372036854775808\r\n",
                        "t.dxf");
    const std::vector<DxfTag> t = tagsOf(reader);
    ASSERT_EQ(t.size(), 6u);
    EXPECT_EQ(t[0].line, 1u);
    EXPECT_EQ(t[5].line, 11u);
    EXPECT_EQ(t[1].asInt16(), -5);
    EXPECT_EQ(t[1].asInt32(), -5);
    EXPECT_EQ(t[2].asDouble(), 2.5);
    EXPECT_TRUE(t[3].asBool());
    EXPECT_EQ(t[4].asHandle(), 0x1A2Bu);
    EXPECT_EQ(t[5].asInt64(), INT64_MIN);
    EXPECT_THROW(t[5].asInt32(), DxfError);
    // A typed view that doesn't fit the text names the value's line.
    try {
        t[0].asDouble();
        ADD_FAILURE() << "no error";
    } catch (const DxfError& e) {
        EXPECT_STREQ(e.what(), "t.dxf:2: expected a floating-point number for group code 0, "
                               "found \"LINE\"");
    }
    // Integers read as doubles.
    EXPECT_EQ(t[1].asDouble(), -5.0);
}

TEST(DxfTagReader, UngetAndPeek)
{
    DxfTagReader reader("8\nA\n8\nB\n0\nEOF\n");
    DxfTag t;
    ASSERT_NE(reader.peek(), nullptr);
    EXPECT_EQ(reader.peek()->value, "A");
    ASSERT_TRUE(reader.next(t));
    EXPECT_EQ(t.value, "A");
    ASSERT_TRUE(reader.next(t));
    reader.unget();
    EXPECT_THROW(reader.unget(), std::logic_error);
    ASSERT_TRUE(reader.next(t));
    EXPECT_EQ(t.value, "B");
    ASSERT_TRUE(reader.next(t));
    EXPECT_EQ(t.value, "EOF");
    EXPECT_FALSE(reader.next(t));
    EXPECT_EQ(reader.peek(), nullptr);
}

TEST(DxfTagReader, TagsOutliveAMoveOfTheReader)
{
    DxfTagReader a("1\nx\n");  // short enough for the small-string buffer
    DxfTag t;
    ASSERT_TRUE(a.next(t));
    DxfTagReader b = std::move(a);
    EXPECT_EQ(t.value, "x");
    const DxfOwnedTag owned = b.own(t);
    EXPECT_EQ(owned.view().value, "x");
    EXPECT_EQ(*owned.file, "<memory>");
}

TEST(DxfTagRecord, PointsAreGathered)
{
    const std::string data =
        "0\nSECTION\n2\nENTITIES\n"
        "0\nLINE\n8\nL\n10\n1\n20\n2\n30\n3\n11\n4\n21\n5\n"  // 11 without z (R12 2D)
        "0\nLWPOLYLINE\n90\n2\n10\n1\n20\n2\n40\n0.5\n10\n3\n20\n4\n"
        "0\nODD\n10\n7\n8\nL\n18\n1\n28\n2\n38\n9\n210\n0\n220\n0\n230\n1\n"
        "1010\n1\n1020\n2\n1030\n3\n"
        "0\nENDSEC\n0\nEOF\n";
    DxfTagReader tags(data, "t.dxf");
    DxfTagRecordReader records(tags);
    DxfSection section;
    ASSERT_TRUE(records.nextSection(section));
    EXPECT_EQ(section.name, "ENTITIES");
    EXPECT_EQ(section.line, 1u);
    DxfRecord r;

    ASSERT_TRUE(records.nextRecord(r));
    EXPECT_EQ(r.type(), "LINE");
    ASSERT_EQ(r.items.size(), 3u);
    const DxfItem* p10 = r.find(10);
    ASSERT_TRUE(p10 && p10->isPoint);
    EXPECT_EQ(p10->point.x, 1);
    EXPECT_EQ(p10->point.y, 2);
    EXPECT_EQ(p10->point.z, 3);
    EXPECT_TRUE(p10->point.hasZ);
    EXPECT_EQ(p10->tag.line, 9u);
    const DxfItem* p11 = r.find(11);
    ASSERT_TRUE(p11 && p11->isPoint);
    EXPECT_FALSE(p11->point.hasZ);
    EXPECT_EQ(p11->point.y, 5);

    ASSERT_TRUE(records.nextRecord(r));
    EXPECT_EQ(r.type(), "LWPOLYLINE");
    std::vector<int> codes;
    for (const DxfItem& i : r.items)
        codes.push_back(i.tag.code);
    EXPECT_EQ(codes, (std::vector<int>{90, 10, 40, 10}));
    EXPECT_EQ(r.items[3].point.x, 3);
    EXPECT_FALSE(r.items[3].point.hasZ);

    ASSERT_TRUE(records.nextRecord(r));
    ASSERT_EQ(r.items.size(), 6u);
    EXPECT_FALSE(r.items[0].isPoint);  // 10 without its 20
    EXPECT_TRUE(r.items[2].isPoint);   // 18/28: planar, 38 is an elevation
    EXPECT_FALSE(r.items[2].point.hasZ);
    EXPECT_EQ(r.items[3].tag.code, 38);
    EXPECT_TRUE(r.items[4].isPoint && r.items[4].point.hasZ);  // extrusion
    EXPECT_EQ(r.items[5].point.z, 3);                             // 1010 in extended data

    EXPECT_FALSE(records.nextRecord(r));
    EXPECT_FALSE(records.nextSection(section));
    EXPECT_TRUE(tags.sawEof());
}

TEST(DxfTagRecord, HeaderVariablesAndSkippedSections)
{
    const std::string data =
        "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n9\n$INSBASE\n10\n0\n20\n0\n30\n0\n"
        "9\n$EXTMIN\n10\n1\n20\n2\n0\nENDSEC\n"
        "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nENDTAB\n0\nENDSEC\n"
        "0\nSECTION\n2\nENTITIES\n0\nPOINT\n0\nENDSEC\n0\nEOF\n";
    DxfTagReader tags(data);
    DxfTagRecordReader records(tags);
    DxfSection s;
    DxfRecord r;
    ASSERT_TRUE(records.nextSection(s));
    std::vector<std::string> names;
    while (records.nextRecord(r))
        names.emplace_back(r.type());
    EXPECT_EQ(names, (std::vector<std::string>{"$ACADVER", "$INSBASE", "$EXTMIN"}));
    ASSERT_TRUE(records.nextSection(s));
    EXPECT_EQ(s.name, "TABLES");
    ASSERT_TRUE(records.nextSection(s));  // the rest of TABLES is skipped
    EXPECT_EQ(s.name, "ENTITIES");
    ASSERT_TRUE(records.nextRecord(r));
    EXPECT_EQ(r.type(), "POINT");
    EXPECT_TRUE(r.items.empty());
    EXPECT_FALSE(records.nextSection(s));
}

} // namespace
