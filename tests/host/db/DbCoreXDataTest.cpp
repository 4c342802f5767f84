// Extended data: registration, the size limit, 16-bit integers and per-application replace.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/acutads.h"

namespace {

struct XDataFixture {
    AcDbDatabase db;
    AcDbObjectId id = dbcoreAppend(&db);
    XDataFixture() { acdbRegApp(&db, L"SORVANE_OBJECT"); }
    Acad::ErrorStatus set(resbuf* chain)
    {
        AcDbObject* obj = nullptr;
        acdbOpenAcDbObject(obj, id, AcDb::kForWrite);
        const Acad::ErrorStatus es = obj->setXData(chain);
        obj->close();
        acutRelRb(chain);
        return es;
    }
    resbuf* get(const ACHAR* app)
    {
        AcDbObject* obj = nullptr;
        acdbOpenAcDbObject(obj, id, AcDb::kForRead);
        resbuf* rb = obj->xData(app);
        obj->close();
        return rb;
    }
};

TEST(DbCoreXData, RefusalsChangeNothing)
{
    struct Case {
        const char* what;
        resbuf* chain;
        Acad::ErrorStatus expected;
    };
    std::wstring big(16400, L'x');
    const Case cases[] = {
        {"unregistered application", acutBuildList(1001, L"NOT_THERE", 1000, L"a", 0), Acad::eRegappIdNotFound},
        {"no 1001 first", acutBuildList(1000, L"a", 0), Acad::eInvalidResBuf},
        {"a type xdata cannot hold", acutBuildList(1001, L"SORVANE_OBJECT", 10, nullptr, 0), Acad::eInvalidResBuf},
        {"over 16 KB", acutBuildList(1001, L"SORVANE_OBJECT", 1000, big.c_str(), 0), Acad::eXdataSizeExceeded},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        XDataFixture f;
        ASSERT_EQ(f.set(acutBuildList(1001, L"SORVANE_OBJECT", 1000, L"keep", 0)), Acad::eOk);
        EXPECT_EQ(f.set(c.chain), c.expected);
        resbuf* rb = f.get(L"SORVANE_OBJECT");
        ASSERT_NE(rb, nullptr);
        ASSERT_NE(rb->rbnext, nullptr);
        EXPECT_STREQ(rb->rbnext->resval.rstring, L"keep");
        acutRelRb(rb);
    }
}

TEST(DbCoreXData, SizeLimitIsCountedAcrossApplications)
{
    XDataFixture f;
    acdbRegApp(&f.db, L"SECOND");
    const std::wstring half(8000, L'x');
    EXPECT_EQ(f.set(acutBuildList(1001, L"SORVANE_OBJECT", 1000, half.c_str(), 0)), Acad::eOk);
    EXPECT_EQ(f.set(acutBuildList(1001, L"SECOND", 1000, half.c_str(), 1000, half.c_str(), 0)),
              Acad::eXdataSizeExceeded);
    const std::wstring justFits(16383 - (2 + 14 + 2) - (2 + 2) - 8, L'y');  // app name + one string
    XDataFixture g;
    resbuf* chain = acutBuildList(1001, L"SORVANE_OBJECT", 1000, justFits.c_str(), 0);
    EXPECT_EQ(acdbXDataSize(chain), 16383u - 8u);
    EXPECT_EQ(g.set(chain), Acad::eOk);
}

TEST(DbCoreXData, ValuesRoundTripAndInt16IsSixteenBits)
{
    XDataFixture f;
    const ads_real pt[3] = {1.5, -2, 3};
    resbuf* chain = acutBuildList(1001, L"SORVANE_OBJECT", 1000, L"Maß²", 1002, L"{", 1070, -2, 1071, 100000,
                                  1040, 2.5, 1010, pt, 1005, L"1F3", 1002, L"}", 0);
    // 1070 carries a short: 40000 does not fit and comes back as its 16-bit value.
    resbuf* last = chain;
    while (last->rbnext)
        last = last->rbnext;
    last->rbnext = acutBuildList(1070, 40000, 0);
    ASSERT_EQ(f.set(chain), Acad::eOk);
    resbuf* rb = f.get(nullptr);
    ASSERT_EQ(acutRbLength(rb), 10);
    const resbuf* p = rb;
    EXPECT_EQ(p->restype, 1001);
    p = p->rbnext;
    EXPECT_STREQ(p->resval.rstring, L"Maß²");
    p = p->rbnext->rbnext;
    EXPECT_EQ(p->resval.rint, -2);
    p = p->rbnext;
    EXPECT_EQ(p->resval.rlong, 100000);
    p = p->rbnext;
    EXPECT_DOUBLE_EQ(p->resval.rreal, 2.5);
    p = p->rbnext;
    EXPECT_DOUBLE_EQ(p->resval.rpoint[1], -2.0);
    p = p->rbnext;
    EXPECT_STREQ(p->resval.rstring, L"1F3");
    p = p->rbnext->rbnext;
    EXPECT_EQ(p->restype, 1070);
    EXPECT_EQ(p->resval.rint, static_cast<short>(40000));
    acutRelRb(rb);
}

TEST(DbCoreXData, ChainWithOnlyTheNameRemovesTheApplication)
{
    XDataFixture f;
    acdbRegApp(&f.db, L"OTHER");
    ASSERT_EQ(f.set(acutBuildList(1001, L"SORVANE_OBJECT", 1070, 1, 1001, L"OTHER", 1070, 2, 0)), Acad::eOk);
    ASSERT_EQ(f.set(acutBuildList(1001, L"sorvane_object", 0)), Acad::eOk);
    EXPECT_EQ(f.get(L"SORVANE_OBJECT"), nullptr);
    resbuf* other = f.get(L"OTHER");
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(other->rbnext->resval.rint, 2);
    acutRelRb(other);
}

TEST(DbCoreXData, ReadableFromAnErasedObject)
{
    XDataFixture f;
    ASSERT_EQ(f.set(acutBuildList(1001, L"SORVANE_OBJECT", 1000, L"tag", 0)), Acad::eOk);
    AcDbObject* obj = nullptr;
    acdbOpenAcDbObject(obj, f.id, AcDb::kForWrite);
    obj->erase();
    obj->close();
    ASSERT_EQ(acdbOpenAcDbObject(obj, f.id, AcDb::kForRead, true), Acad::eOk);
    resbuf* rb = obj->xData(L"SORVANE_OBJECT");
    obj->close();
    ASSERT_NE(rb, nullptr);
    acutRelRb(rb);
}

}  // namespace
