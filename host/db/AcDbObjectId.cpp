// Object id queries: they read the stub the id points at.
#include "host/db/AcDbObjectId.h"

#include "host/db/AcDbObject.h"
#include "host/db/AcDbStub.h"

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const
{
    return m_stub && m_stub->object && !m_stub->removed;
}

bool AcDbObjectId::isErased() const
{
    return m_stub && (m_stub->erased || m_stub->removed);
}

AcDbHandle AcDbObjectId::handle() const
{
    return m_stub ? m_stub->handle : AcDbHandle();
}

AcDbDatabase* AcDbObjectId::database() const
{
    return m_stub ? m_stub->database : nullptr;
}

AcRxClass* AcDbObjectId::objectClass() const
{
    return isValid() ? m_stub->object->isA() : nullptr;
}

bool AcDbObjectId::operator<(const AcDbObjectId& o) const
{
    const AcDbHandle a = handle();
    const AcDbHandle b = o.handle();
    if (a != b)
        return a < b;
    return std::less<AcDbStub*>()(m_stub, o.m_stub);
}
