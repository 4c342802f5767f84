// Extents: a box grown point by point.
#include "host/db/AcDbExtents.h"

#include <algorithm>
#include <limits>

AcDbExtents::AcDbExtents()
{
    const double big = std::numeric_limits<double>::max();
    m_min.set(big, big, big);
    m_max.set(-big, -big, -big);
}

AcDbExtents::AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) : AcDbExtents()
{
    addPoint(min);
    addPoint(max);
}

Acad::ErrorStatus AcDbExtents::set(const AcGePoint3d& min, const AcGePoint3d& max)
{
    if (min.x > max.x || min.y > max.y || min.z > max.z)
        return Acad::eInvalidExtents;
    m_min = min;
    m_max = max;
    return Acad::eOk;
}

void AcDbExtents::addPoint(const AcGePoint3d& p)
{
    m_min.set(std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z));
    m_max.set(std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z));
}

void AcDbExtents::addExt(const AcDbExtents& other)
{
    if (other.isEmpty())
        return;
    addPoint(other.m_min);
    addPoint(other.m_max);
}

void AcDbExtents::transformBy(const AcGeMatrix3d& mat)
{
    if (isEmpty())
        return;
    const AcGePoint3d lo = m_min, hi = m_max;
    *this = AcDbExtents();
    for (int i = 0; i < 8; ++i) {
        AcGePoint3d p((i & 1) ? hi.x : lo.x, (i & 2) ? hi.y : lo.y, (i & 4) ? hi.z : lo.z);
        addPoint(p.transformBy(mat));
    }
}
