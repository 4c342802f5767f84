// Texts: MText format codes read into plain text and runs; text and MText transformations.
#include <gtest/gtest.h>

#include <cmath>

#include "host/db/AcDbMText.h"
#include "host/db/AcDbMTextFormat.h"
#include "host/db/AcDbText.h"
#include "host/ge/AcGePlane.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

TEST(DbEntityText, MTextPlainText)
{
    struct Case {
        const wchar_t* contents;
        const wchar_t* plain;
    } cases[] = {
        {L"plain", L"plain"},
        {L"\\A1;3{\\H0.7x;\\S76^;}", L"376"},
        {L"{\\H0.7x;\\S5^;}", L"5"},
        {L"\\S1/2;", L"1/2"},
        {L"\\S1#4;", L"1/4"},
        {L"\\S+0.1^-0.2;", L"+0.1 -0.2"},
        {L"one\\Ptwo", L"one\ntwo"},
        {L"{\\fArial|b0|i0|c0|p34;Maß}", L"Maß"},
        {L"\\C1;red\\C256;", L"red"},
        {L"a\\\\b \\{c\\}", L"a\\b {c}"},
        {L"\\Lunder\\l \\Oover\\o \\Kstrike\\k", L"under over strike"},
        {L"%%c50 %%d %%p1 100%%%", L"\u230050 \u00B0 \u00B11 100%"},
        {L"\\U+00C4rger", L"\u00C4rger"},
        {L"tab^Ihere^Jnext", L"tab\there\nnext"},
        {L"\\pxi-3,l3,t3;item", L"item"},
        {L"\\Q15;\\W0.8;\\T1.1;slant", L"slant"},
        {L"unknown \\Zcode", L"unknown \\Zcode"},
        {L"no end \\H2.5", L"no end "},
        {L"{{nested}}}", L"nested"},
        {L"trailing\\", L"trailing\\"},
        {L"\\S12^", L"12"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(AcDbMTextFormat::plainText(c.contents), c.plain) << "contents: " << std::wstring(c.contents).size();
}

TEST(DbEntityText, MTextRunsCarryTheirFormat)
{
    auto items = AcDbMTextFormat::parse(L"a{\\H2x;\\fArial|b1|i0;\\C3;b}c\\H0.5;\\S1^2;");
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].text, L"a");
    EXPECT_DOUBLE_EQ(items[0].format.effectiveHeight(2.0), 2.0);
    EXPECT_EQ(items[1].text, L"b");
    EXPECT_DOUBLE_EQ(items[1].format.effectiveHeight(2.0), 4.0);
    EXPECT_EQ(items[1].format.fontName, L"Arial");
    EXPECT_TRUE(items[1].format.bold);
    EXPECT_EQ(items[1].format.colorIndex, 3);
    // The group ends: its properties end with it.
    EXPECT_EQ(items[2].text, L"c");
    EXPECT_EQ(items[2].format.colorIndex, -1);
    EXPECT_FALSE(items[2].format.bold);
    ASSERT_EQ(items[3].kind, AcDbMTextItemKind::kStack);
    EXPECT_EQ(items[3].text, L"1");
    EXPECT_EQ(items[3].lower, L"2");
    EXPECT_EQ(items[3].stackType, L'^');
    EXPECT_DOUBLE_EQ(items[3].format.effectiveHeight(2.0), 0.5);
}

TEST(DbEntityText, MTextKeepsContentsVerbatim)
{
    AcDbMText mt;
    const wchar_t* raw = L"\\A1;3{\\H0.7x;\\S76^;}";
    mt.setContents(raw);
    EXPECT_EQ(mt.contentsString(), raw);
    EXPECT_EQ(mt.text(), L"376");
    ACHAR* copy = mt.contents();
    EXPECT_STREQ(copy, raw);
    delete[] copy;
}

TEST(DbEntityText, TextTransforms)
{
    struct Case {
        const char* name;
        AcGeMatrix3d xform;
        AcGePoint3d position;
        double rotation;
        double height;
        bool backward;
    } cases[] = {
        {"mirror in the y axis", AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis)),
         AcGePoint3d(-1, 2, 0), 0.0, 0.5, true},
        {"mirror in the x axis", AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kYAxis)),
         AcGePoint3d(1, -2, 0), kPi, 0.5, true},
        {"quarter turn", AcGeMatrix3d::rotation(kPi / 2.0, AcGeVector3d::kZAxis), AcGePoint3d(-2, 1, 0), kPi / 2.0,
         0.5, false},
        {"scale 2", AcGeMatrix3d::scaling(2.0), AcGePoint3d(2, 4, 0), 0.0, 1.0, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        AcDbText text(AcGePoint3d(1, 2, 0), L"F", AcDbObjectId::kNull, 0.5, 0.0);
        ASSERT_EQ(text.transformBy(c.xform), Acad::eOk);
        EXPECT_TRUE(text.position().isEqualTo(c.position));
        EXPECT_NEAR(text.rotation(), c.rotation, 1e-12);
        EXPECT_DOUBLE_EQ(text.height(), c.height);
        EXPECT_EQ(text.isMirroredInX(), c.backward);
        EXPECT_TRUE(text.normal().isEqualTo(AcGeVector3d::kZAxis));
    }
    AcDbText text(AcGePoint3d(1, 2, 0), L"F");
    EXPECT_EQ(text.transformBy(AcGeMatrix3d::scaling(AcGeScale3d(1, 2, 1))), Acad::eCannotScaleNonUniformly);

    AcDbMText mt;
    mt.setAttachment(AcDbMText::kTopLeft);
    ASSERT_EQ(mt.transformBy(AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis))), Acad::eOk);
    EXPECT_TRUE(mt.direction().isEqualTo(AcGeVector3d::kXAxis));  // still reads forward
    EXPECT_EQ(mt.attachment(), AcDbMText::kTopRight);
}

}  // namespace
