// Straight curves: the infinite line, the ray and the segment, all AcGeLinearEnt3d.
// The parameter t gives pointOnLine() + t * (defining vector); a segment built from
// two points runs from 0 at the start to 1 at the end. The extent is part of the
// value, so a linear entity copied by value keeps behaving as what it was.
#pragma once

#include "host/ge/AcGeEntity3d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"

class AcGeLine3d;
class AcGePlane;

class AcGeLinearEnt3d : public AcGeCurve3d {
public:
    AcGeLinearEnt3d() = default; // the x axis
    AcGeLinearEnt3d(const AcGeLinearEnt3d&) = default;
    AcGeLinearEnt3d& operator=(const AcGeLinearEnt3d&) = default;

    AcGe::EntityId type() const override;
    bool isKindOf(AcGe::EntityId id) const override;
    AcGeLinearEnt3d* copy() const override;
    AcGeLinearEnt3d& transformBy(const AcGeMatrix3d& m) override;

    using AcGeCurve3d::isOn;
    double paramOf(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const override;
    AcGePoint3d evalPoint(double param) const override;
    AcGePoint3d closestPointTo(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool hasStartPoint(AcGePoint3d& pt) const override;
    bool hasEndPoint(AcGePoint3d& pt) const override;
    AcGeLinearEnt3d& reverseParam() override;

    AcGePoint3d pointOnLine() const { return m_point; }
    AcGeVector3d direction() const; // unit
    void getLine(AcGeLine3d& line) const;

    // A hit when the two lines come within the point tolerance of each other, inside
    // both extents. Lines parallel within the vector tolerance never meet.
    bool intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& pt,
                       const AcGeTol& tol = AcGeContext::gTol) const;
    bool intersectWith(const AcGePlane& plane, AcGePoint3d& pt,
                       const AcGeTol& tol = AcGeContext::gTol) const;

    bool isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;
    // Parallel and on one common infinite line.
    bool isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    enum class Extent { kLine, kRay, kSegment };
    AcGeLinearEnt3d(Extent extent, const AcGePoint3d& pt, const AcGeVector3d& vec)
        : m_extent(extent), m_point(pt), m_vector(vec) {}
    void setPointVector(const AcGePoint3d& pt, const AcGeVector3d& vec) { m_point = pt; m_vector = vec; }
    bool paramInExtent(double t, const AcGeTol& tol) const;

    Extent m_extent = Extent::kLine;
    AcGePoint3d m_point;
    AcGeVector3d m_vector{1.0, 0.0, 0.0};
};

class AcGeLine3d : public AcGeLinearEnt3d {
public:
    AcGeLine3d() = default;
    AcGeLine3d(const AcGePoint3d& pt, const AcGeVector3d& vec) : AcGeLinearEnt3d(Extent::kLine, pt, vec) {}
    AcGeLine3d(const AcGePoint3d& p1, const AcGePoint3d& p2) : AcGeLinearEnt3d(Extent::kLine, p1, p2 - p1) {}

    static const AcGeLine3d kXAxis;
    static const AcGeLine3d kYAxis;
    static const AcGeLine3d kZAxis;

    AcGeLine3d& set(const AcGePoint3d& pt, const AcGeVector3d& vec) { setPointVector(pt, vec); return *this; }
    AcGeLine3d& set(const AcGePoint3d& p1, const AcGePoint3d& p2) { setPointVector(p1, p2 - p1); return *this; }
};

class AcGeRay3d : public AcGeLinearEnt3d {
public:
    AcGeRay3d() : AcGeLinearEnt3d(Extent::kRay, AcGePoint3d(), AcGeVector3d(1, 0, 0)) {}
    AcGeRay3d(const AcGePoint3d& pt, const AcGeVector3d& vec) : AcGeLinearEnt3d(Extent::kRay, pt, vec) {}
    AcGeRay3d(const AcGePoint3d& p1, const AcGePoint3d& p2) : AcGeLinearEnt3d(Extent::kRay, p1, p2 - p1) {}

    AcGeRay3d& set(const AcGePoint3d& pt, const AcGeVector3d& vec) { setPointVector(pt, vec); return *this; }
    AcGeRay3d& set(const AcGePoint3d& p1, const AcGePoint3d& p2) { setPointVector(p1, p2 - p1); return *this; }
};

class AcGeLineSeg3d : public AcGeLinearEnt3d {
public:
    AcGeLineSeg3d() : AcGeLinearEnt3d(Extent::kSegment, AcGePoint3d(), AcGeVector3d(1, 0, 0)) {}
    // From start point and the vector to the end point.
    AcGeLineSeg3d(const AcGePoint3d& pt, const AcGeVector3d& vec) : AcGeLinearEnt3d(Extent::kSegment, pt, vec) {}
    AcGeLineSeg3d(const AcGePoint3d& p1, const AcGePoint3d& p2) : AcGeLinearEnt3d(Extent::kSegment, p1, p2 - p1) {}

    AcGeLineSeg3d& set(const AcGePoint3d& pt, const AcGeVector3d& vec) { setPointVector(pt, vec); return *this; }
    AcGeLineSeg3d& set(const AcGePoint3d& p1, const AcGePoint3d& p2) { setPointVector(p1, p2 - p1); return *this; }

    AcGePoint3d startPoint() const { return m_point; }
    AcGePoint3d endPoint() const { return m_point + m_vector; }
    AcGePoint3d midPoint() const { return m_point + m_vector * 0.5; }
    double length() const { return m_vector.length(); }
};
