// A small entity for the database core tests: a point, a number, a text and a reference.
#pragma once

#include "host/db/AcDbBinaryFiler.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbOpen.h"
#include "host/db/dbsymtb.h"
#include "host/rx/AcRxBoiler.h"

class DbCoreTestEntity : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(DbCoreTestEntity);

    AcGePoint3d point() const { assertReadEnabled(); return m_point; }
    void setPoint(const AcGePoint3d& p) { assertWriteEnabled(); m_point = p; }
    int value() const { assertReadEnabled(); return m_value; }
    void setValue(int v) { assertWriteEnabled(); m_value = v; }
    AcDbObjectId ref() const { assertReadEnabled(); return m_ref; }
    void setRef(AcDbObjectId id) { assertWriteEnabled(); m_ref = id; }

    // What the reactor callbacks saw, for the reactor tests.
    int modifiedCalls = 0;
    int erasedCalls = 0;
    int copiedCalls = 0;
    bool lastErasing = false;
    bool sourceWasUndoing = false;
    Acad::ErrorStatus nestedOpenStatus = Acad::eNotApplicable;
    Acad::ErrorStatus upgradeStatus = Acad::eNotApplicable;

    void modified(const AcDbObject* src) override
    {
        ++modifiedCalls;
        sourceWasUndoing = src->isUndoing();
        AcDbObject* again = nullptr;
        nestedOpenStatus = acdbOpenAcDbObject(again, src->objectId(), AcDb::kForRead);
        if (again)
            again->close();
        upgradeStatus = upgradeOpen();
        Adesk::Boolean was = false;
        if (upgradeFromNotify(was) == Acad::eOk) {
            m_value += 1;  // a change made inside the notification
            assertWriteEnabled();
            downgradeToNotify(was);
        }
    }
    void erased(const AcDbObject*, Adesk::Boolean erasing) override
    {
        ++erasedCalls;
        lastErasing = erasing;
    }
    void copied(const AcDbObject*, const AcDbObject*) override { ++copiedCalls; }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* f) const override
    {
        Acad::ErrorStatus es = AcDbEntity::dwgOutFields(f);
        if (es != Acad::eOk)
            return es;
        f->writePoint3d(m_point);
        f->writeInt32(m_value);
        f->writeHardPointerId(m_ref);
        return f->filerStatus();
    }
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* f) override
    {
        Acad::ErrorStatus es = AcDbEntity::dwgInFields(f);
        if (es != Acad::eOk)
            return es;
        Adesk::Int32 v = 0;
        AcDbHardPointerId ref;
        f->readPoint3d(&m_point);
        f->readInt32(&v);
        f->readHardPointerId(&ref);
        m_value = v;
        m_ref = ref;
        return f->filerStatus();
    }

private:
    AcGePoint3d m_point;
    int m_value = 0;
    AcDbObjectId m_ref;
};

// Appends a test entity to model space; the entity is closed again.
inline AcDbObjectId dbcoreAppend(AcDbDatabase* db, int value = 0, const AcDbObjectId& layer = AcDbObjectId())
{
    AcDbBlockTableRecord* ms = nullptr;
    acdbOpenObject(ms, db->modelSpaceId(), AcDb::kForWrite);
    auto* e = new DbCoreTestEntity();
    e->setDatabaseDefaults(db);
    e->setValue(value);
    if (!layer.isNull())
        e->setLayer(layer);
    AcDbObjectId id;
    ms->appendAcDbEntity(id, e);
    e->close();
    ms->close();
    return id;
}

// The object's undo-filer snapshot: every byte of its state.
inline std::vector<Adesk::UInt8> dbcoreSnapshot(AcDbObjectId id)
{
    AcDbObject* obj = nullptr;
    if (acdbOpenAcDbObject(obj, id, AcDb::kForRead, true) != Acad::eOk)
        return {};
    AcDbBinaryFiler f(AcDb::kUndoFiler, id.database());
    obj->dwgOutFields(&f);
    obj->close();
    return f.bytes();
}
