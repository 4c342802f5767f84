// Malformed drawings: each is refused with the file, the line and what was expected.
#include "DxfFileTestSupport.h"

#include "host/dxf/DxfError.h"

#include <gtest/gtest.h>

namespace {

struct BadFile {
    const char* what;
    std::string entities;  // the ENTITIES section's records (line 1 of it is line 7 of the file)
    std::size_t line;      // where the error is reported
    const char* fragment;  // part of the message
};

const std::string kHead = "0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";  // 10 lines

std::string fileOf(const std::string& entities)
{
    return kHead + entities + "0\nENDSEC\n0\nEOF\n";
}

}  // namespace

TEST(DxfFileErrors, MalformedDrawingsAreRefusedWithFileAndLine)
{
    const BadFile cases[] = {
        {"a coordinate that is no number", "0\nLINE\n8\n0\n10\nabc\n", 16, "abc"},
        {"a group code that is no number", "0\nLINE\nxx\n0\n", 13, "xx"},
        {"a handle used twice", "0\nPOINT\n5\n2F\n8\n0\n0\nPOINT\n5\n2F\n8\n0\n", 19, "handle 2F is used twice"},
        {"an unclosed reactor group", "0\nLINE\n5\n2F\n102\n{ACAD_REACTORS\n330\n1\n", 15, "102 }"},
        {"a reactor group that runs into the entity", "0\nLINE\n102\n{ACAD_REACTORS\n100\nAcDbEntity\n", 15,
         "expected group 330 in {ACAD_REACTORS, found \"100/AcDbEntity\""},
        {"a reactor group with the wrong code", "0\nLINE\n102\n{ACAD_REACTORS\n40\n1.0\n102\n}\n", 15, "group 330"},
        {"a custom record of the wrong size",
         "0\nSV_TEST_RECORD\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nSvBinaryRecord\n90\n9\n310\n0A0B\n", 19,
         "custom record holds 2 bytes, group 90 says 9"},
        {"a custom record without size", "0\nSV_TEST_RECORD\n100\nSvBinaryRecord\n310\n0A0B\n", 13, "group 90"},
        {"a negative custom record size", "0\nSV_TEST_RECORD\n100\nSvBinaryRecord\n90\n-1\n", 15, "size of 0 or more"},
        {"a stray group among extended data", "0\nLINE\n1001\nACAD\n40\n1.0\n", 15,
         "expected an extended data group (1000-1071), found \"40/1.0\""},
        {"a bad hex chunk", "0\nSV_TEST_RECORD\n100\nSvBinaryRecord\n90\n1\n310\nXY\n", 18, "XY"},
    };
    for (const BadFile& bad : cases) {
        SCOPED_TRACE(bad.what);
        try {
            dxfTestLoad(fileOf(bad.entities), "bad.dxf");
            ADD_FAILURE() << "no error";
        } catch (const DxfError& e) {
            EXPECT_EQ(e.file(), "bad.dxf");
            EXPECT_EQ(e.line(), bad.line) << e.what();
            EXPECT_NE(std::string(e.what()).find(bad.fragment), std::string::npos) << e.what();
        }
    }
}

TEST(DxfFileErrors, BrokenStructureIsRefused)
{
    const struct {
        const char* what;
        std::string text;
        const char* fragment;
    } cases[] = {
        {"an empty file", "", "SECTION"},
        {"no sections at all", "0\nEOF\n", "SECTION"},
        {"ENDBLK without BLOCK", "0\nSECTION\n2\nBLOCKS\n0\nENDBLK\n0\nENDSEC\n0\nEOF\n", "0/BLOCK before 0/ENDBLK"},
        {"BLOCK without name", "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n0\nENDBLK\n0\nENDSEC\n0\nEOF\n", "block name"},
        {"an unfinished block", "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n0\nENDSEC\n0\nEOF\n", "0/ENDBLK"},
        {"a CLASS without type", "0\nSECTION\n2\nCLASSES\n0\nCLASS\n2\nX\n0\nENDSEC\n0\nEOF\n", "group 1"},
        {"a table twice",
         "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nENDTAB\n0\nTABLE\n2\nLAYER\n0\nENDTAB\n0\nENDSEC\n0\nEOF\n",
         "appears twice"},
        {"a section cut short", "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n", ""},
    };
    for (const auto& bad : cases) {
        SCOPED_TRACE(bad.what);
        try {
            dxfTestLoad(bad.text, "bad.dxf");
            ADD_FAILURE() << "no error";
        } catch (const DxfError& e) {
            EXPECT_EQ(e.file(), "bad.dxf");
            EXPECT_NE(std::string(e.what()).find(bad.fragment), std::string::npos) << e.what();
        }
    }
}
