// AcGeCircArc2d: a circular arc in the plane. Angles are measured from the reference
// vector, counter-clockwise, or clockwise for an arc that runs clockwise.
#pragma once

#include "host/ge/AcGeEnums.h"
#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGeTol.h"
#include "host/ge/AcGeVector2d.h"

class AcGeCircArc2d {
public:
    AcGeCircArc2d() = default; // unit circle about the origin
    AcGeCircArc2d(const AcGePoint2d& center, double radius);
    AcGeCircArc2d(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                  const AcGeVector2d& refVec = AcGeVector2d::kXAxis, bool isClockWise = false);
    // From start through pnt to end; collinear points give a zero-radius arc at startPoint.
    AcGeCircArc2d(const AcGePoint2d& startPoint, const AcGePoint2d& pnt, const AcGePoint2d& endPoint);

    AcGeCircArc2d& set(const AcGePoint2d& center, double radius);
    AcGeCircArc2d& set(const AcGePoint2d& center, double radius, double startAngle, double endAngle,
                       const AcGeVector2d& refVec = AcGeVector2d::kXAxis, bool isClockWise = false);
    AcGeCircArc2d& set(const AcGePoint2d& startPoint, const AcGePoint2d& pnt, const AcGePoint2d& endPoint);

    AcGe::EntityId type() const { return AcGe::kCircArc2d; }

    AcGePoint2d center() const { return m_center; }
    double radius() const { return m_radius; }
    double startAng() const { return m_startAng; }
    double endAng() const { return m_endAng; }
    AcGeVector2d refVec() const { return m_refVec; }
    bool isClockWise() const { return m_clockwise; }
    AcGePoint2d startPoint() const { return evalPoint(m_startAng); }
    AcGePoint2d endPoint() const { return evalPoint(m_endAng); }
    double length() const;
    bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const;

    AcGePoint2d evalPoint(double param) const;
    double paramOf(const AcGePoint2d& pt, const AcGeTol& tol = AcGeContext::gTol) const;
    AcGePoint2d closestPointTo(const AcGePoint2d& pt, const AcGeTol& tol = AcGeContext::gTol) const;
    bool isOn(const AcGePoint2d& pt, const AcGeTol& tol = AcGeContext::gTol) const;
    // Runs the other way round: start and end points exchange.
    AcGeCircArc2d& reverseParam();

private:
    double toLocal(double angle) const;

    AcGePoint2d m_center;
    double m_radius = 1.0;
    double m_startAng = 0.0;
    double m_endAng = 6.28318530717958647692;
    AcGeVector2d m_refVec{1.0, 0.0};
    bool m_clockwise = false;
};
