// The binary filer: every primitive round trips; a mismatched read fails cleanly.
#include <gtest/gtest.h>

#include <cstring>

#include "DbCoreTestEntity.h"

namespace {

TEST(DbCoreFiler, EveryPrimitiveRoundTrips)
{
    AcDbDatabase db;
    const AcDbObjectId target = dbcoreAppend(&db);
    AcDbBinaryFiler out(AcDb::kFileFiler, &db);
    const char bytes[5] = {1, 0, -1, 127, 42};
    out.writeBool(true);
    out.writeInt8(-8);
    out.writeUInt8(200);
    out.writeInt16(-30000);
    out.writeUInt16(60000);
    out.writeInt32(-2000000000);
    out.writeUInt32(4000000000u);
    out.writeInt64(-(1ll << 60));
    out.writeUInt64(1ull << 63);
    out.writeDouble(-0.1);
    out.writePoint2d(AcGePoint2d(1, 2));
    out.writePoint3d(AcGePoint3d(1, 2, 3));
    out.writeVector2d(AcGeVector2d(4, 5));
    out.writeVector3d(AcGeVector3d(6, 7, 8));
    out.writeScale3d(AcGeScale3d(2, 3, 4));
    out.writeString(L"Maß² äöü €");
    out.writeString(L"");
    out.writeBytes(bytes, sizeof(bytes));
    out.writeBinaryChunk(bytes, 3);
    out.writeAcDbHandle(AcDbHandle(0x1F3));
    out.writeHardOwnershipId(target);
    out.writeSoftOwnershipId(target);
    out.writeHardPointerId(target);
    out.writeSoftPointerId(AcDbObjectId());
    ASSERT_EQ(out.filerStatus(), Acad::eOk);

    AcDbBinaryFiler in(out.bytes(), AcDb::kFileFiler, &db);
    bool b = false;
    Adesk::Int8 i8 = 0;
    Adesk::UInt8 u8 = 0;
    Adesk::Int16 i16 = 0;
    Adesk::UInt16 u16 = 0;
    Adesk::Int32 i32 = 0;
    Adesk::UInt32 u32 = 0;
    Adesk::Int64 i64 = 0;
    Adesk::UInt64 u64 = 0;
    double d = 0;
    AcGePoint2d p2;
    AcGePoint3d p3;
    AcGeVector2d v2;
    AcGeVector3d v3;
    AcGeScale3d s3;
    std::wstring text, empty = L"x";
    char back[5] = {};
    char* chunk = nullptr;
    Adesk::UInt32 chunkSize = 0;
    AcDbHandle h;
    AcDbHardOwnershipId ho;
    AcDbSoftOwnershipId so;
    AcDbHardPointerId hp;
    AcDbSoftPointerId sp;
    in.readBool(&b);
    in.readInt8(&i8);
    in.readUInt8(&u8);
    in.readInt16(&i16);
    in.readUInt16(&u16);
    in.readInt32(&i32);
    in.readUInt32(&u32);
    in.readInt64(&i64);
    in.readUInt64(&u64);
    in.readDouble(&d);
    in.readPoint2d(&p2);
    in.readPoint3d(&p3);
    in.readVector2d(&v2);
    in.readVector3d(&v3);
    in.readScale3d(&s3);
    in.readString(text);
    in.readString(empty);
    in.readBytes(back, sizeof(back));
    in.readBinaryChunk(&chunk, chunkSize);
    in.readAcDbHandle(&h);
    in.readHardOwnershipId(&ho);
    in.readSoftOwnershipId(&so);
    in.readHardPointerId(&hp);
    in.readSoftPointerId(&sp);
    ASSERT_EQ(in.filerStatus(), Acad::eOk) << std::string(in.errorText().begin(), in.errorText().end());
    EXPECT_TRUE(in.atEnd());
    EXPECT_TRUE(b);
    EXPECT_EQ(i8, -8);
    EXPECT_EQ(u8, 200);
    EXPECT_EQ(i16, -30000);
    EXPECT_EQ(u16, 60000);
    EXPECT_EQ(i32, -2000000000);
    EXPECT_EQ(u32, 4000000000u);
    EXPECT_EQ(i64, -(1ll << 60));
    EXPECT_EQ(u64, 1ull << 63);
    EXPECT_EQ(d, -0.1);
    EXPECT_EQ(p2.x, 1);
    EXPECT_EQ(p2.y, 2);
    EXPECT_EQ(p3, AcGePoint3d(1, 2, 3));
    EXPECT_EQ(v2.y, 5);
    EXPECT_EQ(v3.z, 8);
    EXPECT_EQ(s3.sz, 4);
    EXPECT_EQ(text, L"Maß² äöü €");
    EXPECT_EQ(empty, L"");
    EXPECT_EQ(std::memcmp(back, bytes, sizeof(bytes)), 0);
    ASSERT_EQ(chunkSize, 3u);
    EXPECT_EQ(std::memcmp(chunk, bytes, 3), 0);
    delete[] chunk;
    EXPECT_EQ(h.value(), 0x1F3u);
    EXPECT_EQ(ho, target);
    EXPECT_EQ(so, target);
    EXPECT_EQ(hp, target);
    EXPECT_TRUE(sp.isNull());
}

TEST(DbCoreFiler, MismatchedOrShortReadsFailWithoutGarbage)
{
    struct Case {
        const char* what;
        void (*write)(AcDbBinaryFiler&);
        void (*read)(AcDbBinaryFiler&);
        const wchar_t* errorPart;
    };
    const Case cases[] = {
        {"double read as int16", [](AcDbBinaryFiler& f) { f.writeDouble(1.0); },
         [](AcDbBinaryFiler& f) { Adesk::Int16 v = 9; f.readInt16(&v); EXPECT_EQ(v, 0); },
         L"expected Int16 at byte 0, found Double"},
        {"past the end", [](AcDbBinaryFiler& f) { f.writeInt16(1); },
         [](AcDbBinaryFiler& f) { Adesk::Int16 v; f.readInt16(&v); f.readInt16(&v); }, L"end of the record"},
        {"bytes of another size", [](AcDbBinaryFiler& f) { f.writeBytes("abc", 3); },
         [](AcDbBinaryFiler& f) { char buf[4] = {'z', 'z', 'z', 'z'}; f.readBytes(buf, 4); EXPECT_EQ(buf[0], 0); },
         L"expected 4 bytes"},
        {"later reads fail too", [](AcDbBinaryFiler& f) { f.writeDouble(1.0); f.writeInt16(3); },
         [](AcDbBinaryFiler& f) { Adesk::Int32 v; f.readInt32(&v); Adesk::Int16 w = 7; f.readInt16(&w); EXPECT_EQ(w, 0); },
         L"Int32"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        AcDbBinaryFiler out;
        c.write(out);
        AcDbBinaryFiler in(out.bytes(), AcDb::kCopyFiler);
        c.read(in);
        EXPECT_EQ(in.filerStatus(), Acad::eFilerError);
        EXPECT_NE(in.errorText().find(c.errorPart), std::wstring::npos)
            << std::string(in.errorText().begin(), in.errorText().end());
    }
}

TEST(DbCoreFiler, TruncatedStringLengthIsCaught)
{
    AcDbBinaryFiler out;
    out.writeString(L"long enough text");
    std::vector<Adesk::UInt8> bytes = out.bytes();
    bytes.resize(bytes.size() - 4);
    AcDbBinaryFiler in(bytes, AcDb::kCopyFiler);
    std::wstring s = L"old";
    in.readString(s);
    EXPECT_EQ(in.filerStatus(), Acad::eFilerError);
    EXPECT_EQ(s, L"");
}

TEST(DbCoreFiler, FileReadResolvesForwardReferencesAndErasedState)
{
    AcDbDatabase db(false);
    AcDbBinaryFiler out(AcDb::kFileFiler, &db);
    out.writeUInt64(0);  // placeholder so the handle below is what matters
    AcDbBinaryFiler rec(AcDb::kFileFiler, &db);
    // Write a handle that no object has yet, as a record read before its target would.
    AcDbDatabase other;
    const AcDbObjectId there = dbcoreAppend(&other);
    rec.writeHardPointerId(there);
    AcDbBinaryFiler in(rec.bytes(), AcDb::kFileFiler, &db);
    AcDbHardPointerId ref;
    in.readHardPointerId(&ref);
    ASSERT_FALSE(ref.isNull());
    EXPECT_FALSE(ref.isValid());
    AcDbObjectId filled;
    ASSERT_EQ(db.addAcDbObjectAsRead(filled, new DbCoreTestEntity(), there.handle()), Acad::eOk);
    EXPECT_EQ(filled, ref);
    EXPECT_TRUE(ref.isValid());
    EXPECT_FALSE(ref.isErased());
}

}  // namespace
