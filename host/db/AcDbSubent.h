// Sub-entity addressing: a sub-entity id (kind + index) on a path of nested object ids.
#pragma once

#include "host/db/AcDb.h"
#include "host/db/AcDbObjectId.h"
#include "host/rx/Adesk.h"

class AcDbSubentId {
public:
    AcDbSubentId() = default;
    AcDbSubentId(AcDb::SubentType type, Adesk::GsMarker index) : m_type(type), m_index(index) {}

    AcDb::SubentType type() const { return m_type; }
    void setType(AcDb::SubentType type) { m_type = type; }
    Adesk::GsMarker index() const { return m_index; }
    void setIndex(Adesk::GsMarker index) { m_index = index; }

    bool operator==(const AcDbSubentId& o) const { return m_type == o.m_type && m_index == o.m_index; }
    bool operator!=(const AcDbSubentId& o) const { return !(*this == o); }

private:
    AcDb::SubentType m_type = AcDb::kNullSubentType;
    Adesk::GsMarker m_index = 0;
};

class AcDbFullSubentPath {
public:
    AcDbFullSubentPath() = default;
    AcDbFullSubentPath(AcDb::SubentType type, Adesk::GsMarker index) : m_subent(type, index) {}
    AcDbFullSubentPath(AcDbObjectId entId, AcDb::SubentType type, Adesk::GsMarker index)
        : m_subent(type, index)
    {
        m_ids.append(entId);
    }
    AcDbFullSubentPath(AcDbObjectId entId, AcDbSubentId subId) : m_subent(subId) { m_ids.append(entId); }
    AcDbFullSubentPath(const AcDbObjectIdArray& objectIds, AcDbSubentId subId)
        : m_ids(objectIds), m_subent(subId) {}

    // Outermost first: the insert path down to the entity itself.
    AcDbObjectIdArray& objectIds() { return m_ids; }
    const AcDbObjectIdArray& objectIds() const { return m_ids; }
    void objectIds(AcDbObjectIdArray& ids) const { ids = m_ids; }
    AcDbSubentId& subentId() { return m_subent; }
    const AcDbSubentId& subentId() const { return m_subent; }

    bool operator==(const AcDbFullSubentPath& o) const { return m_ids == o.m_ids && m_subent == o.m_subent; }
    bool operator!=(const AcDbFullSubentPath& o) const { return !(*this == o); }

private:
    AcDbObjectIdArray m_ids;
    AcDbSubentId m_subent;
};

using AcDbFullSubentPathArray = AcArray<AcDbFullSubentPath>;
using AcDbGsMarkerArray = AcArray<Adesk::GsMarker>;
