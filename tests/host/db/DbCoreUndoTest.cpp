// Undo: appends, changes, erases and header changes come back byte for byte.
#include <gtest/gtest.h>

#include "DbCoreTestEntity.h"
#include "host/db/AcDbDictionary.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbIdMapping.h"

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

// Appends record only the new id; these mixes check that the owner's list still comes back
// exactly, group by group, whatever else happened to the owner in the same group.
TEST(DbCoreUndo, ManyGroupsUndoneOneByOneRestoreEachState)
{
    using Step = void (*)(AcDbDatabase&, int);
    const Step steps[] = {
        [](AcDbDatabase& db, int i) { dbcoreAppend(&db, i); },
        [](AcDbDatabase& db, int i) {
            for (int k = 0; k < 50; ++k)
                dbcoreAppend(&db, i * 100 + k);
        },
        [](AcDbDatabase& db, int i) {  // append, then change the owner itself
            dbcoreAppend(&db, i);
            AcDbBlockTableRecord* ms = nullptr;
            acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite);
            ms->setOrigin(AcGePoint3d(i, 0, 0));
            ms->close();
            dbcoreAppend(&db, i + 1);
        },
        [](AcDbDatabase& db, int i) {  // append and erase in one group
            DbCoreTestEntity* e = open(dbcoreAppend(&db, i), AcDb::kForWrite);
            e->erase();
            e->close();
        },
        [](AcDbDatabase& db, int i) {  // a new dictionary key, then renamed and replaced
            AcDbDictionary* nod = nullptr;
            db.getNamedObjectsDictionary(nod, AcDb::kForWrite);
            const std::wstring key = L"K" + std::to_wstring(i);
            AcDbObjectId id;
            auto* first = new AcDbDictionary();
            nod->setAt(key.c_str(), first, id);
            first->close();
            if (i % 2) {
                nod->setName(key.c_str(), (key + L"R").c_str());
                auto* second = new AcDbDictionary();
                nod->setAt((key + L"R").c_str(), second, id);
                second->close();
            }
            nod->close();
        },
        [](AcDbDatabase& db, int) {  // deep clone of the first entities into model space
            AcDbBlockTableRecord* ms = nullptr;
            acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
            AcDbObjectIdArray ids;
            for (int k = 0; k < 3 && k < ms->entityIds().length(); ++k)
                ids.append(ms->entityIds()[k]);
            ms->close();
            AcDbIdMapping map;
            db.deepCloneObjects(ids, db.modelSpaceId(), map);
        },
    };
    AcDbDatabase db;
    dbcoreAppend(&db, 1);
    db.clearUndo();
    std::vector<State> states{capture(db)};
    for (int round = 0; round < 3; ++round)
        for (const Step step : steps) {
            db.startUndoGroup();
            step(db, static_cast<int>(states.size()));
            db.endUndoGroup();
            states.push_back(capture(db));
        }
    ASSERT_EQ(db.undoGroupCount(), static_cast<int>(states.size()) - 1);
    for (size_t n = states.size() - 1; n > 0; --n) {
        SCOPED_TRACE(n);
        ASSERT_EQ(db.undo(1), Acad::eOk);
        ASSERT_TRUE(capture(db) == states[n - 1]);
    }
}

TEST(DbCoreUndo, ThousandsOfAppendsInOneGroupComeOutInOrder)
{
    AcDbDatabase db;
    const AcDbObjectId kept = dbcoreAppend(&db, 1);
    db.clearUndo();
    const State before = capture(db);
    db.startUndoGroup();
    for (int i = 0; i < 3000; ++i)
        dbcoreAppend(&db, i);
    db.endUndoGroup();
    ASSERT_EQ(db.undo(1), Acad::eOk);
    EXPECT_TRUE(capture(db) == before);
    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForRead);
    ASSERT_EQ(ms->entityIds().length(), 1);
    EXPECT_EQ(ms->entityIds()[0], kept);
    ms->close();
}

TEST(DbCoreUndo, SeedStaysAboveAnObjectMadeWhileNotRecording)
{
    AcDbDatabase db;
    db.clearUndo();
    const AcDbHandle seed = db.handseed();
    db.startUndoGroup();
    dbcoreAppend(&db, 1);
    db.disableUndoRecording(true);
    const AcDbObjectId kept = dbcoreAppend(&db, 2);
    db.disableUndoRecording(false);
    db.endUndoGroup();
    ASSERT_EQ(db.undo(1), Acad::eOk);
    ASSERT_TRUE(kept.isValid());
    EXPECT_GT(db.handseed(), kept.handle());
    EXPECT_GE(db.handseed(), seed);
    EXPECT_NE(dbcoreAppend(&db, 3).handle(), kept.handle());
}

}  // namespace
