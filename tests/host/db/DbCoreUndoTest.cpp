// Undo: appends, changes, erases and header changes come back byte for byte.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbHostApplicationServices.h"

namespace {

// Snapshots of every object plus the header: the whole observable state.
struct State {
    std::vector<std::pair<Adesk::UInt64, std::vector<Adesk::UInt8>>> objects;
    std::vector<AcDbHeaderVars::Entry> header;
    bool operator==(const State& o) const
    {
        if (objects != o.objects || header.size() != o.header.size())
            return false;
        for (size_t i = 0; i < header.size(); ++i)
            if (header[i].first != o.header[i].first || !(header[i].second == o.header[i].second))
                return false;
        return true;
    }
};

State capture(AcDbDatabase& db)
{
    State s;
    for (const AcDbObjectId& id : db.objectIds())
        s.objects.emplace_back(id.handle().value(), id.isErased() ? std::vector<Adesk::UInt8>{0xEE} : dbcoreSnapshot(id));
    s.header = db.headerVars().entries();
    return s;
}

DbCoreTestEntity* open(AcDbObjectId id, AcDb::OpenMode mode)
{
    DbCoreTestEntity* e = nullptr;
    EXPECT_EQ(acdbOpenObject(e, id, mode, true), Acad::eOk);
    return e;
}

struct UndoCase {
    const char* what;
    void (*change)(AcDbDatabase&, AcDbObjectId);
};

TEST(DbCoreUndo, OneGroupRestoresTheExactState)
{
    const UndoCase cases[] = {
        {"append", [](AcDbDatabase& db, AcDbObjectId) { dbcoreAppend(&db, 9); }},
        {"modify twice",
         [](AcDbDatabase&, AcDbObjectId id) {
             DbCoreTestEntity* e = open(id, AcDb::kForWrite);
             e->setValue(42);
             e->setColorIndex(3);
             e->close();
             e = open(id, AcDb::kForWrite);
             e->setPoint(AcGePoint3d(5, 5, 5));
             e->close();
         }},
        {"erase",
         [](AcDbDatabase&, AcDbObjectId id) {
             DbCoreTestEntity* e = open(id, AcDb::kForWrite);
             e->erase();
             e->close();
         }},
        {"append, reference and change",
         [](AcDbDatabase& db, AcDbObjectId id) {
             const AcDbObjectId added = dbcoreAppend(&db, 1);
             DbCoreTestEntity* e = open(id, AcDb::kForWrite);
             e->setRef(added);
             e->addPersistentReactor(added);
             e->close();
         }},
        {"header and layer",
         [](AcDbDatabase& db, AcDbObjectId) {
             db.setTextsize(3.5);
             AcDbLayerTable* layers = nullptr;
             db.getLayerTable(layers, AcDb::kForWrite);
             auto* rec = new AcDbLayerTableRecord();
             rec->setName(L"NEU");
             layers->add(rec);
             db.setClayer(rec->objectId());
             rec->close();
             layers->close();
         }},
    };
    for (const UndoCase& c : cases) {
        SCOPED_TRACE(c.what);
        AcDbDatabase db;
        const AcDbObjectId id = dbcoreAppend(&db, 5);
        db.clearUndo();
        const State before = capture(db);
        const AcDbHandle seed = db.handseed();
        db.startUndoGroup();
        c.change(db, id);
        db.endUndoGroup();
        EXPECT_FALSE(capture(db) == before);
        ASSERT_EQ(db.undo(1), Acad::eOk);
        EXPECT_TRUE(capture(db) == before);
        EXPECT_EQ(db.handseed(), seed);
        EXPECT_EQ(db.undo(1), Acad::eUndoNoGroupBegin);
    }
}

TEST(DbCoreUndo, UndoingIsVisibleAndUnappendedIdsDie)
{
    AcDbDatabase db;
    const AcDbObjectId source = dbcoreAppend(&db);
    const AcDbObjectId chain = dbcoreAppend(&db);
    DbCoreTestEntity* e = open(source, AcDb::kForWrite);
    e->addPersistentReactor(chain);
    e->close();
    db.clearUndo();

    db.startUndoGroup();
    e = open(source, AcDb::kForWrite);
    e->setValue(11);
    e->close();
    const AcDbObjectId added = dbcoreAppend(&db);
    db.endUndoGroup();
    ASSERT_EQ(db.undo(1), Acad::eOk);

    e = open(chain, AcDb::kForRead);
    EXPECT_TRUE(e->sourceWasUndoing) << "the replayed change is sent with isUndoing true";
    e->close();
    EXPECT_FALSE(added.isValid());
    AcDbObject* obj = nullptr;
    EXPECT_EQ(acdbOpenAcDbObject(obj, added, AcDb::kForRead, true), Acad::ePermanentlyErased);
    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
    EXPECT_FALSE(ms->entityIds().contains(added));
    ms->close();
}

TEST(DbCoreUndo, DisabledRecordingAndSeparateGroups)
{
    AcDbDatabase db;
    const AcDbObjectId id = dbcoreAppend(&db, 1);
    db.clearUndo();
    db.startUndoGroup();
    open(id, AcDb::kForWrite)->close();  // no change: no group
    db.endUndoGroup();
    EXPECT_EQ(db.undoGroupCount(), 0);

    for (int v = 2; v <= 3; ++v) {
        db.startUndoGroup();
        DbCoreTestEntity* e = open(id, AcDb::kForWrite);
        e->setValue(v);
        e->close();
        db.endUndoGroup();
    }
    db.disableUndoRecording(true);
    db.startUndoGroup();
    DbCoreTestEntity* e = open(id, AcDb::kForWrite);
    e->setValue(50);
    e->close();
    db.endUndoGroup();
    db.disableUndoRecording(false);
    EXPECT_EQ(db.undoGroupCount(), 2);
    ASSERT_EQ(db.undo(1), Acad::eOk);
    e = open(id, AcDb::kForRead);
    EXPECT_EQ(e->value(), 2);
    e->close();
    ASSERT_EQ(db.undo(1), Acad::eOk);
    e = open(id, AcDb::kForRead);
    EXPECT_EQ(e->value(), 1);
    e->close();
}

}  // namespace
