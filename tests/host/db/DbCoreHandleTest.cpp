// Handles: text form, never one digit, handle <-> id <-> entity name round trips.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbHostApplicationServices.h"

namespace {

TEST(DbCoreHandle, TextForms)
{
    struct Case {
        const wchar_t* text;
        Adesk::UInt64 value;
        const wchar_t* printed;
    };
    const Case cases[] = {
        {L"1F3", 0x1F3, L"1F3"},     {L"1f3", 0x1F3, L"1F3"},         {L"  00A0 ", 0xA0, L"A0"},
        {L"", 0, L"0"},              {L"XYZ", 0, L"0"},               {L"12 34", 0, L"0"},
        {L"FFFFFFFFFFFFFFFF", 0xFFFFFFFFFFFFFFFFull, L"FFFFFFFFFFFFFFFF"},
        {L"10000000000000000", 0, L"0"},  // 17 digits do not fit
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << std::string(c.text, c.text + wcslen(c.text)) << "'");
        const AcDbHandle h(c.text);
        EXPECT_EQ(h.value(), c.value);
        ACHAR buf[17];
        h.getIntoAsciiBuffer(buf);
        EXPECT_STREQ(buf, c.printed);
    }
}

TEST(DbCoreHandle, EveryObjectHasAHandleOfTwoDigitsOrMore)
{
    AcDbDatabase db;
    dbcoreAppend(&db);
    const AcDbObjectIdArray ids = db.objectIds();
    ASSERT_GT(ids.length(), 20);
    for (const AcDbObjectId& id : ids) {
        EXPECT_GE(id.handle().value(), 0x10u);
        ACHAR buf[17];
        id.handle().getIntoAsciiBuffer(buf);
        EXPECT_GE(wcslen(buf), 2u);
    }
    EXPECT_EQ(db.setHandseed(AcDbHandle(5)), Acad::eInvalidInput);
    EXPECT_EQ(db.setHandseed(AcDbHandle(0x10)), Acad::eInvalidInput) << "below handles in use";
}

TEST(DbCoreHandle, HandleIdAndEntityNameRoundTrip)
{
    AcDbDatabase db;
    const AcDbObjectId id = dbcoreAppend(&db);
    ACHAR text[17];
    id.handle().getIntoAsciiBuffer(text);

    AcDbObjectId back;
    ASSERT_EQ(db.getAcDbObjectId(back, false, AcDbHandle(text)), Acad::eOk);
    EXPECT_EQ(back, id);
    EXPECT_EQ(back.database(), &db);
    EXPECT_EQ(back.objectClass(), DbCoreTestEntity::desc());

    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, id), Acad::eOk);
    AcDbObjectId fromName;
    ASSERT_EQ(acdbGetObjectId(fromName, name), Acad::eOk);
    EXPECT_EQ(fromName, id);

    acdbHostApplicationServices()->setWorkingDatabase(&db);
    ads_name viaHandle;
    EXPECT_EQ(acdbHandEnt(text, viaHandle), RTNORM);
    EXPECT_EQ(viaHandle[0], name[0]);
    EXPECT_EQ(acdbHandEnt(L"FFFFF", viaHandle), RTERROR);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

TEST(DbCoreHandle, UnknownHandlesAndPlaceholders)
{
    AcDbDatabase db;
    AcDbObjectId id;
    EXPECT_EQ(db.getAcDbObjectId(id, false, AcDbHandle(0xABCDEF)), Acad::eUnknownHandle);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(db.getAcDbObjectId(id, false, AcDbHandle()), Acad::eNullHandle);
    // A forward reference: the placeholder is a real id, not yet valid, filled later.
    ASSERT_EQ(db.getAcDbObjectId(id, true, AcDbHandle(0xABCDEF)), Acad::eOk);
    EXPECT_FALSE(id.isValid());
    AcDbObject* obj = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(obj, id, AcDb::kForRead), Acad::eUnknownHandle);
    AcDbObjectId filled;
    ASSERT_EQ(db.addAcDbObjectAsRead(filled, new DbCoreTestEntity(), AcDbHandle(0xABCDEF)), Acad::eOk);
    EXPECT_EQ(filled, id);
    EXPECT_TRUE(id.isValid());
    EXPECT_GT(db.handseed().value(), 0xABCDEFu);
    auto* dup = new DbCoreTestEntity();
    EXPECT_EQ(db.addAcDbObjectAsRead(filled, dup, AcDbHandle(0xABCDEF)), Acad::eHandleInUse);
    delete dup;
}

}  // namespace
