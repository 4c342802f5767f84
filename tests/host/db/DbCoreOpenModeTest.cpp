// Open modes: which open of an object in which state succeeds, and mode changes.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "DbCoreTestEntity.h"
#include "host/rx/AcRxAbort.h"

namespace {

struct Fixture {
    AcDbDatabase db;
    AcDbObjectId entity;
    AcDbObjectId lockedEntity;
    AcDbObjectId erasedEntity;
    std::vector<AcDbObject*> held;  // opens the state set-up made, closed at the end

    Fixture()
    {
        entity = dbcoreAppend(&db, 1);
        AcDbLayerTable* layers = nullptr;
        db.getLayerTable(layers, AcDb::kForWrite);
        auto* locked = new AcDbLayerTableRecord();
        locked->setName(L"Locked");
        AcDbObjectId lockedLayer;
        layers->add(lockedLayer, locked);
        locked->close();
        layers->close();
        lockedEntity = dbcoreAppend(&db, 2, lockedLayer);
        AcDbLayerTableRecord* rec = nullptr;
        acdbOpenObject(rec, lockedLayer, AcDb::kForWrite);
        rec->setIsLocked(true);
        rec->close();
        erasedEntity = dbcoreAppend(&db, 3);
        AcDbObject* obj = nullptr;
        acdbOpenAcDbObject(obj, erasedEntity, AcDb::kForWrite);
        obj->erase();
        obj->close();
    }
    void hold(AcDbObjectId id, AcDb::OpenMode mode)
    {
        AcDbObject* obj = nullptr;
        ASSERT_EQ(acdbOpenAcDbObject(obj, id, mode), Acad::eOk);
        held.push_back(obj);
    }
    ~Fixture()
    {
        for (auto it = held.rbegin(); it != held.rend(); ++it)
            (*it)->close();
    }
};

enum class Target { kEntity, kLocked, kErased, kNull };

struct OpenCase {
    const char* state;
    std::vector<AcDb::OpenMode> before;  // opens held on the entity before the request
    Target target;
    AcDb::OpenMode mode;
    bool openErased;
    Acad::ErrorStatus expected;
};

TEST(DbCoreOpenMode, StateTimesRequestedMode)
{
    using namespace AcDb;
    const std::vector<OpenCase> cases = {
        {"closed", {}, Target::kEntity, kForRead, false, Acad::eOk},
        {"closed", {}, Target::kEntity, kForWrite, false, Acad::eOk},
        {"closed", {}, Target::kEntity, kForNotify, false, Acad::eOk},
        {"read", {kForRead}, Target::kEntity, kForRead, false, Acad::eOk},
        {"read", {kForRead}, Target::kEntity, kForWrite, false, Acad::eWasOpenForRead},
        {"read", {kForRead}, Target::kEntity, kForNotify, false, Acad::eOk},
        {"write", {kForWrite}, Target::kEntity, kForRead, false, Acad::eWasOpenForWrite},
        {"write", {kForWrite}, Target::kEntity, kForWrite, false, Acad::eWasOpenForWrite},
        {"write", {kForWrite}, Target::kEntity, kForNotify, false, Acad::eOk},
        {"notify", {kForNotify}, Target::kEntity, kForRead, false, Acad::eOk},
        {"notify", {kForNotify}, Target::kEntity, kForWrite, false, Acad::eWasOpenForNotify},
        {"notify", {kForNotify}, Target::kEntity, kForNotify, false, Acad::eOk},
        {"locked layer", {}, Target::kLocked, kForRead, false, Acad::eOk},
        {"locked layer", {}, Target::kLocked, kForWrite, false, Acad::eOnLockedLayer},
        {"erased", {}, Target::kErased, kForRead, false, Acad::eWasErased},
        {"erased", {}, Target::kErased, kForWrite, false, Acad::eWasErased},
        {"erased, asked", {}, Target::kErased, kForRead, true, Acad::eOk},
        {"erased, asked", {}, Target::kErased, kForWrite, true, Acad::eOk},
        {"null id", {}, Target::kNull, kForRead, false, Acad::eNullObjectId},
    };
    for (const OpenCase& c : cases) {
        SCOPED_TRACE(std::string(c.state) + " -> mode " + std::to_string(c.mode));
        Fixture f;
        for (AcDb::OpenMode m : c.before)
            f.hold(f.entity, m);
        const AcDbObjectId id = c.target == Target::kEntity ? f.entity
                                : c.target == Target::kLocked ? f.lockedEntity
                                : c.target == Target::kErased ? f.erasedEntity
                                                              : AcDbObjectId();
        AcDbObject* obj = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(obj, id, c.mode, c.openErased), c.expected);
        EXPECT_EQ(obj != nullptr, c.expected == Acad::eOk);
        if (obj)
            obj->close();
    }
}

TEST(DbCoreOpenMode, TypedOpenOfAnotherClassLeavesNothingOpen)
{
    Fixture f;
    AcDbLayerTableRecord* layer = nullptr;
    EXPECT_EQ(acdbOpenObject(layer, f.entity, AcDb::kForWrite), Acad::eNotThatKindOfClass);
    EXPECT_EQ(layer, nullptr);
    AcDbEntity* ent = nullptr;
    EXPECT_EQ(acdbOpenAcDbEntity(ent, f.entity, AcDb::kForWrite), Acad::eOk);  // still closed before
    ent->close();
}

struct ModeChangeCase {
    const char* what;
    std::function<Acad::ErrorStatus(Fixture&)> run;
    Acad::ErrorStatus expected;
};

TEST(DbCoreOpenMode, ModeChanges)
{
    const std::vector<ModeChangeCase> cases = {
        {"upgrade a single reader",
         [](Fixture& f) {
             AcDbObject* o = nullptr;
             acdbOpenAcDbObject(o, f.entity, AcDb::kForRead);
             const auto es = o->upgradeOpen();
             EXPECT_TRUE(o->isWriteEnabled());
             EXPECT_TRUE(o->isReadEnabled());
             EXPECT_EQ(o->downgradeOpen(), Acad::eOk);
             EXPECT_FALSE(o->isWriteEnabled());
             o->close();
             return es;
         },
         Acad::eOk},
        {"upgrade with two readers",
         [](Fixture& f) {
             AcDbObject *a = nullptr, *b = nullptr;
             acdbOpenAcDbObject(a, f.entity, AcDb::kForRead);
             acdbOpenAcDbObject(b, f.entity, AcDb::kForRead);
             const auto es = a->upgradeOpen();
             b->close();
             a->close();
             return es;
         },
         Acad::eHadMultipleReaders},
        {"upgrade on a locked layer",
         [](Fixture& f) {
             AcDbObject* o = nullptr;
             acdbOpenAcDbObject(o, f.lockedEntity, AcDb::kForRead);
             const auto es = o->upgradeOpen();
             EXPECT_FALSE(o->isWriteEnabled());
             o->close();
             return es;
         },
         Acad::eOnLockedLayer},
        {"upgrade while open for notify",
         [](Fixture& f) {
             AcDbObject* o = nullptr;
             acdbOpenAcDbObject(o, f.entity, AcDb::kForNotify);
             const auto es = o->upgradeOpen();
             Adesk::Boolean was = true;
             EXPECT_EQ(o->upgradeFromNotify(was), Acad::eOk);
             EXPECT_FALSE(was);
             EXPECT_TRUE(o->isWriteEnabled());
             o->downgradeToNotify(was);
             EXPECT_FALSE(o->isWriteEnabled());
             EXPECT_TRUE(o->isNotifyEnabled());
             o->close();
             return es;
         },
         Acad::eWasNotifying},
        {"upgrade when already writable",
         [](Fixture& f) {
             AcDbObject* o = nullptr;
             acdbOpenAcDbObject(o, f.entity, AcDb::kForWrite);
             const auto es = o->upgradeOpen();
             EXPECT_TRUE(o->isWriteEnabled());
             o->close();
             return es;
         },
         Acad::eWasOpenForWrite},
        {"256 readers, then one more",
         [](Fixture& f) {
             std::vector<AcDbObject*> readers;
             Acad::ErrorStatus last = Acad::eOk;
             for (int i = 0; i < 257 && last == Acad::eOk; ++i) {
                 AcDbObject* o = nullptr;
                 last = acdbOpenAcDbObject(o, f.entity, AcDb::kForRead);
                 if (o)
                     readers.push_back(o);
             }
             EXPECT_EQ(readers.size(), 256u);
             for (AcDbObject* o : readers)
                 o->close();
             return last;
         },
         Acad::eAtMaxReaders},
    };
    for (const ModeChangeCase& c : cases) {
        SCOPED_TRACE(c.what);
        Fixture f;
        EXPECT_EQ(c.run(f), c.expected);
        AcDbObject* o = nullptr;
        EXPECT_EQ(acdbOpenAcDbObject(o, f.entity, AcDb::kForWrite), Acad::eOk) << "left open";
        if (o)
            o->close();
    }
}

TEST(DbCoreOpenMode, NonResidentObjectIsAlwaysEnabled)
{
    DbCoreTestEntity e;
    EXPECT_TRUE(e.isReadEnabled());
    EXPECT_TRUE(e.isWriteEnabled());
    EXPECT_EQ(e.upgradeOpen(), Acad::eOk);
    EXPECT_EQ(e.close(), Acad::eOk);
    EXPECT_EQ(e.erase(), Acad::eNotInDatabase);
}

TEST(DbCoreOpenMode, WritingAClosedObjectAborts)
{
    AcRxThrowOnAbort guard;
    AcDbDatabase db;
    const AcDbObjectId id = dbcoreAppend(&db);
    DbCoreTestEntity* e = nullptr;
    ASSERT_EQ(acdbOpenObject(e, id, AcDb::kForRead), Acad::eOk);
    EXPECT_THROW(e->setValue(4), AcRxAbort);
    e->close();
}

}  // namespace
