// The deep clone id map.
#include "host/db/AcDbIdMapping.h"

Acad::ErrorStatus AcDbIdMapping::assign(const AcDbIdPair& pair)
{
    m_pairs[pair.key()] = pair;
    return Acad::eOk;
}

bool AcDbIdMapping::compute(AcDbIdPair& pair) const
{
    const auto it = m_pairs.find(pair.key());
    if (it == m_pairs.end())
        return false;
    pair = it->second;
    return true;
}

bool AcDbIdMapping::change(const AcDbIdPair& pair)
{
    const auto it = m_pairs.find(pair.key());
    if (it == m_pairs.end())
        return false;
    it->second = pair;
    return true;
}

bool AcDbIdMapping::del(AcDbObjectId key)
{
    return m_pairs.erase(key) > 0;
}

AcDbObjectId AcDbIdMapping::lookup(AcDbObjectId key) const
{
    const auto it = m_pairs.find(key);
    return it == m_pairs.end() ? AcDbObjectId() : it->second.value();
}
