// AcGiGeometry: the primitives an entity draws with. Every call answers false when the
// primitive was taken and true when the regeneration was aborted and drawing should stop.
#pragma once

#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/gi/AcGi.h"
#include "host/rx/AcChar.h"
#include "host/rx/Adesk.h"

class AcGiTextStyle;

class AcGiGeometry {
public:
    virtual ~AcGiGeometry() = default;

    virtual Adesk::Boolean circle(const AcGePoint3d& center, double radius,
                                  const AcGeVector3d& normal) const = 0;
    // The circle through three points.
    virtual Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2,
                                  const AcGePoint3d& p3) const = 0;
    // An arc about normal from center + startVector * radius, counter-clockwise by sweepAngle.
    virtual Adesk::Boolean circularArc(const AcGePoint3d& center, double radius,
                                       const AcGeVector3d& normal, const AcGeVector3d& startVector,
                                       double sweepAngle,
                                       AcGiArcType arcType = kAcGiArcSimple) const = 0;
    // The arc from start through point to end.
    virtual Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point,
                                       const AcGePoint3d& end,
                                       AcGiArcType arcType = kAcGiArcSimple) const = 0;
    // A polyline; with baseSubEntMarker >= 0 its segments take the markers base, base + 1, ...
    virtual Adesk::Boolean polyline(Adesk::UInt32 nbPoints, const AcGePoint3d* pVertexList,
                                    const AcGeVector3d* pNormal = nullptr,
                                    Adesk::LongPtr baseSubEntMarker = -1) const = 0;
    // A closed polygon, filled when the fill type is kAcGiFillAlways.
    virtual Adesk::Boolean polygon(Adesk::UInt32 nbPoints, const AcGePoint3d* pVertexList) const = 0;
    // Text in the default font: height, width factor and obliquing angle (radians).
    virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                const AcGeVector3d& direction, double height, double width,
                                double oblique, const ACHAR* pMsg) const = 0;
    // Text in a text style. length < 0 takes the string up to its end; raw true leaves the
    // %% codes as they stand.
    virtual Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                const AcGeVector3d& direction, const ACHAR* pMsg,
                                Adesk::Int32 length, Adesk::Boolean raw,
                                const AcGiTextStyle& textStyle) const = 0;
    // Infinite lines: through both points, and from the first through the second.
    virtual Adesk::Boolean xline(const AcGePoint3d& one, const AcGePoint3d& two) const = 0;
    virtual Adesk::Boolean ray(const AcGePoint3d& start, const AcGePoint3d& through) const = 0;

    // Model transforms apply to everything drawn until the matching pop.
    virtual Adesk::Boolean pushModelTransform(const AcGeMatrix3d& xMat) = 0;
    virtual Adesk::Boolean popModelTransform() = 0;
    virtual AcGeMatrix3d getModelToWorldTransform() const = 0;
};

class AcGiWorldGeometry : public AcGiGeometry {};
class AcGiViewportGeometry : public AcGiGeometry {};
