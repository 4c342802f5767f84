// AcDbIdCursor: a position in a copy of an id list that can step over erased ids; the walk
// behind the block record and symbol table iterators.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/rx/AcadStrc.h"

class AcDbIdCursor {
public:
    AcDbIdCursor() = default;
    explicit AcDbIdCursor(const AcDbObjectIdArray& ids) : m_ids(ids) {}

    void start(bool atBeginning, bool skipDeleted)
    {
        m_pos = atBeginning ? 0 : m_ids.length() - 1;
        skip(atBeginning, skipDeleted);
    }
    bool done() const { return m_pos < 0 || m_pos >= m_ids.length(); }
    void step(bool forward, bool skipDeleted)
    {
        if (done())
            return;
        m_pos += forward ? 1 : -1;
        skip(forward, skipDeleted);
    }
    // eIteratorDone past either end.
    Acad::ErrorStatus id(AcDbObjectId& id) const
    {
        if (done())
            return Acad::eIteratorDone;
        id = m_ids[m_pos];
        return Acad::eOk;
    }
    // eKeyNotFound when the id is not in the list; erased ids can be reached.
    Acad::ErrorStatus seek(AcDbObjectId id)
    {
        const int i = m_ids.find(id);
        if (i < 0)
            return Acad::eKeyNotFound;
        m_pos = i;
        return Acad::eOk;
    }

private:
    void skip(bool forward, bool skipDeleted)
    {
        while (skipDeleted && !done() && m_ids[m_pos].isErased())
            m_pos += forward ? 1 : -1;
    }
    AcDbObjectIdArray m_ids;  // a copy: adding while iterating is safe
    int m_pos = 0;
};
