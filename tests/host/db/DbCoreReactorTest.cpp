// Persistent and database reactors: what is sent, when, and in which open state.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbDatabaseReactor.h"

namespace {

struct Recorder : AcDbDatabaseReactor {
    std::vector<std::string> events;
    bool appendedWasReadable = false;
    void objectAppended(const AcDbDatabase*, const AcDbObject* obj) override
    {
        events.push_back("appended");
        appendedWasReadable = obj->isReadEnabled() && obj->isWriteEnabled();
    }
    void objectModified(const AcDbDatabase*, const AcDbObject*) override { events.push_back("modified"); }
    void objectErased(const AcDbDatabase*, const AcDbObject* obj, bool erased) override
    {
        events.push_back(std::string(erased ? "erased" : "unerased") + (obj->isErased() == erased ? "" : "!flag"));
    }
};

DbCoreTestEntity* open(AcDbObjectId id, AcDb::OpenMode mode)
{
    DbCoreTestEntity* e = nullptr;
    EXPECT_EQ(acdbOpenObject(e, id, mode, true), Acad::eOk);
    return e;
}

TEST(DbCoreReactor, DatabaseReactorSeesAppendModifyEraseOnce)
{
    AcDbDatabase db;
    Recorder r;
    db.addReactor(&r);
    db.addReactor(&r);  // twice is harmless
    const AcDbObjectId id = dbcoreAppend(&db);
    EXPECT_TRUE(r.appendedWasReadable);
    r.events.clear();

    DbCoreTestEntity* e = open(id, AcDb::kForWrite);
    e->setValue(7);
    e->close();
    e = open(id, AcDb::kForWrite);
    e->close();  // nothing changed: no event
    e = open(id, AcDb::kForWrite);
    e->erase();
    e->erase();  // already erased: nothing
    e->close();
    e = open(id, AcDb::kForWrite);
    e->erase(false);
    e->close();
    db.removeReactor(&r);
    e = open(id, AcDb::kForWrite);
    e->setValue(8);
    e->close();
    const std::vector<std::string> expected = {"modified", "erased", "modified", "unerased", "modified"};
    EXPECT_EQ(r.events, expected);
}

TEST(DbCoreReactor, PersistentReactorHearsModifiedErasedCopied)
{
    AcDbDatabase db;
    const AcDbObjectId source = dbcoreAppend(&db, 1);
    const AcDbObjectId chain = dbcoreAppend(&db, 100);
    DbCoreTestEntity* src = open(source, AcDb::kForWrite);
    src->addPersistentReactor(chain);
    src->addPersistentReactor(chain);
    EXPECT_EQ(src->persistentReactorIds().length(), 1);
    src->close();

    src = open(source, AcDb::kForWrite);
    src->setPoint(AcGePoint3d(1, 2, 3));
    src->close();
    DbCoreTestEntity* c = open(chain, AcDb::kForRead);
    EXPECT_EQ(c->modifiedCalls, 1);
    EXPECT_EQ(c->nestedOpenStatus, Acad::eOk) << "the source opens for read inside modified";
    EXPECT_EQ(c->upgradeStatus, Acad::eWasNotifying);
    EXPECT_EQ(c->value(), 101) << "the change made through upgradeFromNotify stays";
    c->close();

    src = open(source, AcDb::kForWrite);
    src->erase();
    src->close();
    c = open(chain, AcDb::kForRead);
    EXPECT_EQ(c->erasedCalls, 1);
    EXPECT_TRUE(c->lastErasing);
    EXPECT_EQ(c->modifiedCalls, 2) << "an erase is a change too";
    c->close();

    src = open(source, AcDb::kForWrite);
    src->erase(false);
    AcDbObject* copy = AcDbObject::cast(src->clone());
    src->close();
    delete copy;
    c = open(chain, AcDb::kForRead);
    EXPECT_FALSE(c->lastErasing);
    EXPECT_EQ(c->copiedCalls, 1);
    c->close();
}

TEST(DbCoreReactor, SourceIsOpenForNotifyNotWriteDuringTheCall)
{
    AcDbDatabase db;
    const AcDbObjectId source = dbcoreAppend(&db);
    struct Probe : AcDbDatabaseReactor {
        bool write = true, notifying = false;
        void objectModified(const AcDbDatabase*, const AcDbObject* obj) override
        {
            write = obj->isWriteEnabled();
            notifying = obj->isNotifying();
        }
    } probe;
    db.addReactor(&probe);
    DbCoreTestEntity* src = open(source, AcDb::kForWrite);
    src->setValue(3);
    src->close();
    db.removeReactor(&probe);
    EXPECT_FALSE(probe.write);
    EXPECT_TRUE(probe.notifying);
}

TEST(DbCoreReactor, ReactorCycleEnds)
{
    AcDbDatabase db;
    const AcDbObjectId a = dbcoreAppend(&db);
    const AcDbObjectId b = dbcoreAppend(&db);
    DbCoreTestEntity* e = open(a, AcDb::kForWrite);
    e->addPersistentReactor(b);
    e->close();
    e = open(b, AcDb::kForWrite);
    e->addPersistentReactor(a);
    e->close();
    e = open(a, AcDb::kForWrite);
    e->setValue(1);
    e->close();  // b changes in its modified, which notifies a, which is still notifying
    e = open(b, AcDb::kForRead);
    EXPECT_EQ(e->modifiedCalls, 1);
    e->close();
}

}  // namespace
