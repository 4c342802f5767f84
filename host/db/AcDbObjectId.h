// AcDbObjectId: the session-stable name of a database object, and its typed reference forms.
#pragma once

#include <cstddef>
#include <functional>

#include "host/db/AcDbHandle.h"
#include "host/rx/AcArray.h"

class AcDbDatabase;
class AcDbStub;
class AcRxClass;

// An id points at the object's stub in its database's object table. The stub lives as long
// as the database, so an id stays valid (and comparable) for the whole session, also after
// the object is erased. Ids of a deleted database must not be used.
class AcDbObjectId {
public:
    AcDbObjectId() = default;
    explicit AcDbObjectId(AcDbStub* stub) : m_stub(stub) {}

    static const AcDbObjectId kNull;

    bool isNull() const { return m_stub == nullptr; }
    void setNull() { m_stub = nullptr; }
    // Non-null and its object exists (not a placeholder for a forward reference, nor
    // removed for good by an undo).
    bool isValid() const;
    // Erased (also when removed for good); false for the null id.
    bool isErased() const;
    // The object was erased and then removed from the database for good.
    bool isEffectivelyErased() const { return isErased(); }
    bool isResident() const { return isValid(); }
    AcDbHandle handle() const;
    AcDbDatabase* database() const;
    // The class of the object; null for a null or invalid id.
    AcRxClass* objectClass() const;
    // The id as a number, for traces and for ads names.
    Adesk::IntPtr asOldId() const { return reinterpret_cast<Adesk::IntPtr>(m_stub); }
    AcDbObjectId& setFromOldId(Adesk::IntPtr oldId)
    {
        m_stub = reinterpret_cast<AcDbStub*>(oldId);
        return *this;
    }
    AcDbStub* stub() const { return m_stub; }

    bool operator==(const AcDbObjectId& o) const { return m_stub == o.m_stub; }
    bool operator!=(const AcDbObjectId& o) const { return m_stub != o.m_stub; }
    // Ordered by handle (then by stub) so that sorted id lists follow handle order.
    bool operator<(const AcDbObjectId& o) const;
    bool operator>(const AcDbObjectId& o) const { return o < *this; }
    bool operator<=(const AcDbObjectId& o) const { return !(o < *this); }
    bool operator>=(const AcDbObjectId& o) const { return !(*this < o); }
    explicit operator bool() const { return m_stub != nullptr; }

private:
    AcDbStub* m_stub = nullptr;
};

// Reference kinds: they only tell the filers and deep clone how the reference behaves.
class AcDbHardOwnershipId : public AcDbObjectId {
public:
    AcDbHardOwnershipId() = default;
    AcDbHardOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}  // NOLINT
};
class AcDbSoftOwnershipId : public AcDbObjectId {
public:
    AcDbSoftOwnershipId() = default;
    AcDbSoftOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}  // NOLINT
};
class AcDbHardPointerId : public AcDbObjectId {
public:
    AcDbHardPointerId() = default;
    AcDbHardPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}  // NOLINT
};
class AcDbSoftPointerId : public AcDbObjectId {
public:
    AcDbSoftPointerId() = default;
    AcDbSoftPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}  // NOLINT
};

template <>
struct std::hash<AcDbObjectId> {
    size_t operator()(const AcDbObjectId& id) const noexcept { return std::hash<AcDbStub*>()(id.stub()); }
};

using AcDbObjectIdArray = AcArray<AcDbObjectId>;
using AcDbVoidPtrArray = AcArray<void*>;
using AcDbIntArray = AcArray<int>;
using AcDbDoubleArray = AcArray<double>;
