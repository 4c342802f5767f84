// AcDbExtents: an axis-aligned box in world coordinates, empty until a point is added.
#pragma once

#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcadStrc.h"

class AcDbExtents {
public:
    AcDbExtents();
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max);

    const AcGePoint3d& minPoint() const { return m_min; }
    const AcGePoint3d& maxPoint() const { return m_max; }
    // eInvalidExtents when min is not below max on every axis.
    Acad::ErrorStatus set(const AcGePoint3d& min, const AcGePoint3d& max);
    void addPoint(const AcGePoint3d& pt);
    void addExt(const AcDbExtents& other);
    // Transforms the eight corners and takes their box.
    void transformBy(const AcGeMatrix3d& mat);
    bool isEmpty() const { return m_min.x > m_max.x; }

private:
    AcGePoint3d m_min;
    AcGePoint3d m_max;
};
