// AcDbUndoManager: the undo groups of one database and their replay.
#pragma once

#include <memory>
#include <vector>

#include "host/db/AcDbHandle.h"
#include "host/db/AcDbHeaderVars.h"
#include "host/db/AcDbObjectId.h"
#include "host/rx/AcadStrc.h"

class AcDbBinaryFiler;
class AcDbDatabase;
class AcDbObject;
class AcRxClass;

// Records, per group in the order they happened: full snapshots of objects before their
// first change (through dwgOutFields with an undo filer), appends, ids an owner took into
// its list, erase toggles, partial records and header snapshots. Undo replays a group
// backwards. Containers that only grow by one id (a block's entity list, a dictionary's new
// key) record that id instead of a snapshot, so an append costs the same in any drawing.
class AcDbUndoManager {
public:
    explicit AcDbUndoManager(AcDbDatabase* db);
    // The database whose contents this history belongs to (they move together).
    void setDatabase(AcDbDatabase* db) { m_db = db; }
    ~AcDbUndoManager();

    void startGroup();
    void endGroup();
    bool groupOpen() const { return m_depth > 0; }
    int groupCount() const;
    Acad::ErrorStatus undo(int groups);
    void clear();

    void setDisabled(bool disabled) { m_disabled = disabled; }
    bool recording() const { return !m_disabled && !m_undoing; }
    bool undoing() const { return m_undoing; }
    // Serial of the current group; objects compare it to know whether they are recorded.
    unsigned serial() const { return m_serial; }

    // Recording (each a no-op while not recording).
    void recordSnapshot(const AcDbObject* obj);
    void recordAppend(AcDbObjectId id);
    void recordErase(AcDbObjectId id, bool erasing);
    // owner put id at the end of its list (a block record's entities, a dictionary's
    // entries); undo takes it out again.
    void recordOwnerAdd(AcDbObjectId owner, AcDbObjectId id);
    void recordHeader(const AcDbHeaderVars& before, AcDbHandle seed);
    AcDbBinaryFiler* recordPartial(const AcDbObject* obj, AcRxClass* classObj);
    // The database made an object resident; counts those made while not recording.
    void noteAdd();

private:
    struct Record;
    struct Group;
    Group& current();
    std::unique_ptr<Group> newGroup() const;
    Record& push(int kind, AcDbObjectId id);
    AcDbDatabase* m_db;
    std::vector<std::unique_ptr<Group>> m_groups;
    std::unique_ptr<Group> m_implicit;  // changes made outside any group
    int m_depth = 0;
    bool m_disabled = false;
    bool m_undoing = false;
    unsigned m_serial = 1;
    bool m_headerRecorded = false;
    unsigned long long m_unrecordedAdds = 0;
};
