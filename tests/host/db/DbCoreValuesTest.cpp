// Value helpers: resbuf chains, group code kinds, colours, the header store and tag lists in records.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbDxfCode.h"
#include "host/db/AcDbTag.h"
#include "host/db/AcDbHeaderVars.h"
#include "host/db/acutads.h"

namespace {

TEST(DbCoreValues, BuildCopyAndReleaseChains)
{
    const ads_real pt[3] = {1, 2, 3};
    const Adesk::LongPtr name[2] = {1234, 0};
    resbuf* rb = acutBuildList(RTSTR, L"Höhe", RTSHORT, 7, RTREAL, 0.5, RT3DPOINT, pt, RTENAME, name, RTLB,
                               RTDXF0, L"LINE", 1004, 3, "abc", RTLE, RTNONE);
    ASSERT_EQ(acutRbLength(rb), 9);
    resbuf* copy = acutCopyRb(rb);
    acutRelRb(rb);  // the copy owns its own strings and chunks
    const resbuf* p = copy;
    EXPECT_STREQ(p->resval.rstring, L"Höhe");
    p = p->rbnext;
    EXPECT_EQ(p->resval.rint, 7);
    p = p->rbnext->rbnext;
    EXPECT_EQ(p->resval.rpoint[2], 3);
    p = p->rbnext;
    EXPECT_EQ(p->resval.rlname[0], 1234);
    p = p->rbnext->rbnext;
    EXPECT_EQ(p->restype, 0) << "RTDXF0 stands for group 0";
    EXPECT_STREQ(p->resval.rstring, L"LINE");
    p = p->rbnext;
    ASSERT_EQ(p->resval.rbinary.clen, 3);
    EXPECT_EQ(std::string(p->resval.rbinary.buf, 3), "abc");
    EXPECT_EQ(acutRelRb(copy), RTNORM);
    EXPECT_EQ(acutBuildList(85, 0), nullptr) << "a code no range covers";
}

TEST(DbCoreValues, GroupCodeKinds)
{
    struct Case {
        int code;
        AcDb::DxfValueKind kind;
        bool pointX;
    };
    const Case cases[] = {
        {0, AcDb::kDxfKindString, false},     {5, AcDb::kDxfKindHandle, false},
        {10, AcDb::kDxfKindPoint, true},      {20, AcDb::kDxfKindPoint, false},
        {38, AcDb::kDxfKindDouble, false},    {62, AcDb::kDxfKindInt16, false},
        {90, AcDb::kDxfKindInt32, false},     {160, AcDb::kDxfKindInt64, false},
        {210, AcDb::kDxfKindPoint, true},     {280, AcDb::kDxfKindInt8, false},
        {290, AcDb::kDxfKindBool, false},     {310, AcDb::kDxfKindBinary, false},
        {330, AcDb::kDxfKindObjectId, false}, {370, AcDb::kDxfKindInt16, false},
        {420, AcDb::kDxfKindInt32, false},    {1004, AcDb::kDxfKindBinary, false},
        {1005, AcDb::kDxfKindHandle, false},  {1011, AcDb::kDxfKindPoint, true},
        {1041, AcDb::kDxfKindDouble, false},  {1070, AcDb::kDxfKindInt16, false},
        {1071, AcDb::kDxfKindInt32, false},   {85, AcDb::kDxfKindUnknown, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        EXPECT_EQ(acdbGroupCodeKind(c.code), c.kind);
        EXPECT_EQ(acdbIsPointXCode(c.code), c.pointX);
    }
}

TEST(DbCoreValues, ColourIndexAndTrueColour)
{
    AcCmEntityColor c;
    EXPECT_TRUE(c.isByLayer());
    EXPECT_EQ(c.colorIndex(), 256);
    EXPECT_FALSE(c.setColorIndex(257));
    EXPECT_TRUE(c.setColorIndex(0));
    EXPECT_TRUE(c.isByBlock());
    c.setRGB(255, 0, 0);
    EXPECT_EQ(c.rgb(), 0xFF0000u);
    EXPECT_EQ(c.colorIndex(), 1) << "nearest palette entry";
    EXPECT_EQ(AcCmEntityColor::lookUpRGB(7), 0xFFFFFFu);
    EXPECT_EQ(AcCmEntityColor::lookUpRGB(250), 0x333333u);
}

TEST(DbCoreValues, HeaderStoreKeepsOrderAndUnknownVariables)
{
    AcDbDatabase db;
    const size_t known = db.headerVars().entries().size();
    ASSERT_EQ(db.setHeaderVar(L"$MYVAR", {AcDbTag::integer(70, 5), AcDbTag::text(1, L"x")}), Acad::eOk);
    EXPECT_EQ(db.headerVars().entries().size(), known + 1);
    EXPECT_EQ(db.headerVars().entries().back().first, L"$MYVAR");
    EXPECT_EQ(db.headerVars().get(L"$myvar")->size(), 2u);
    EXPECT_EQ(db.setHeaderVar(L"NODOLLAR", {}), Acad::eInvalidInput);

    db.setHeaderVar(L"$TEXTSIZE", {AcDbTag::real(40, 2.5)});
    EXPECT_DOUBLE_EQ(db.textsize(), 2.5);
    EXPECT_EQ(db.setTextsize(0.35), Acad::eOk);
    EXPECT_DOUBLE_EQ(db.headerVars().getReal(L"$TEXTSIZE", 0), 0.35);

    db.setHeaderVar(L"$HANDSEED", {AcDbTag::text(5, L"FFFF")});
    EXPECT_EQ(db.handseed().value(), 0xFFFFu);
    EXPECT_EQ(db.allocateHandle().value(), 0xFFFFu);
    EXPECT_EQ(db.headerVars().getText(L"$HANDSEED", L""), L"10000");

    EXPECT_EQ(db.setClayer(db.modelSpaceId()), Acad::eWrongObjectType);
}

// A tag list of every value kind survives a binary record whole, the 2D flag and bytes too;
// a cut record leaves the list that was there.
TEST(DbCoreValues, TagListsSurviveABinaryRecord)
{
    using T = AcDbTag;
    const AcDbTagList tags = {T::integer(70, -7),       T::real(40, 2.5),          T::text(1, L"Maß"),
                              T::point(10, {1, 2, 3}),  T::point2d(11, 4, 5),       T::binary(310, {0, 255, 7}),
                              AcDbTag{999, {}, false}};
    AcDbBinaryFiler out;
    acdbWriteTags(&out, tags);
    AcDbBinaryFiler in(out.bytes(), AcDb::kCopyFiler);
    AcDbTagList read;
    ASSERT_EQ(acdbReadTags(&in, read), Acad::eOk);
    EXPECT_EQ(read, tags);

    std::vector<Adesk::UInt8> cut = out.bytes();
    cut.resize(cut.size() / 2);
    AcDbBinaryFiler short_(cut, AcDb::kCopyFiler);
    AcDbTagList kept = {T::integer(5, 1)};
    EXPECT_NE(acdbReadTags(&short_, kept), Acad::eOk);
    EXPECT_EQ(kept, AcDbTagList{T::integer(5, 1)});
}

}  // namespace
