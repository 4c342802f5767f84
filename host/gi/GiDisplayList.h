// A display list: the primitives one or more world draws produced, in world coordinates and
// in drawing order, each with the traits it was drawn with. Renderers, picking, explode and
// proxy graphics all read it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/ge/AcGePoint2d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/gi/AcCmColor.h"
#include "host/gi/AcGi.h"
#include "host/gi/AcGiTextStyle.h"
#include "host/rx/Adesk.h"

enum class GiPrimitiveKind { kPolyline, kPolygon, kCircle, kArc, kXline, kRay, kText };

struct GiTraits {
    AcCmEntityColor color;  // ByLayer unless set
    AcGiLayerKey layer = 0;
    AcGiLinetypeKey linetype = 0;
    AcGiFillType fill = kAcGiFillNever;
    Adesk::GsMarker marker = 0;  // 0: no marker
    int lineWeight = AcGiLineWeight::kByLayer;
    double linetypeScale = 1.0;
    double thickness = 0.0;

    bool operator==(const GiTraits& o) const;
};

struct GiTextData {
    std::wstring string;  // as given: codes are translated when drawn, unless raw
    bool raw = false;
    bool styled = false;  // true: drawn through the text-style overload (the style is kept)
    AcGiTextStyle style;  // its text size is the height, its x scale the width factor
    AcGePoint3d position;
    AcGeVector3d direction{1, 0, 0};  // unit, the baseline's direction
    AcGeVector3d normal{0, 0, 1};     // unit
    AcGePoint2d boxMin, boxMax;       // extentsBox with pen-ups, in the text's own axes

    // The text's y axis: normal x direction.
    AcGeVector3d upDirection() const { return normal.crossProduct(direction).normal(); }
    // The box's corners in world coordinates, counter-clockwise from the lower left.
    void corners(AcGePoint3d out[4]) const;
};

struct GiPrimitive {
    GiPrimitiveKind kind = GiPrimitiveKind::kPolyline;
    GiTraits traits;
    // Polyline and polygon vertices; the base and the second point of an xline or ray;
    // the three points of a circle or arc given by three points.
    std::vector<AcGePoint3d> points;
    bool threePoint = false;     // circle or arc given by three points
    bool hasNormal = false;      // a polyline drawn with a normal
    AcGeVector3d normal{0, 0, 1};  // circles, arcs, polylines with a normal
    Adesk::GsMarker baseMarker = -1;  // a polyline's segments are marked base + index
    // Circles and arcs: a circle is an arc of sweep 2 pi starting at normal.perpVector().
    AcGePoint3d center;
    double radius = 0.0;
    AcGeVector3d startVector{1, 0, 0};  // unit
    double sweep = 0.0;                 // counter-clockwise about normal, radians
    AcGiArcType arcType = kAcGiArcSimple;
    std::shared_ptr<const GiTextData> text;

    // The marker a hit on segment i (of a polyline or polygon) reports.
    Adesk::GsMarker markerOf(std::size_t segment) const;
    // For a circle or arc: the point at angle t along the sweep.
    AcGePoint3d arcPoint(double t) const;
    AcGePoint3d arcStart() const { return arcPoint(0.0); }
    AcGePoint3d arcEnd() const { return arcPoint(sweep); }
    // Whether the primitive is an area that is painted (a filled polygon, circle or closed arc).
    bool isFilled() const;
};

struct GiExtents {
    AcGePoint3d min{1e300, 1e300, 1e300};
    AcGePoint3d max{-1e300, -1e300, -1e300};
    bool isValid() const { return min.x <= max.x; }
    void add(const AcGePoint3d& p);
    void add(const GiExtents& e);
};

class GiDisplayList {
public:
    std::vector<GiPrimitive> primitives;
    AcGiRegenType regenType = kAcGiStandardDisplay;

    bool empty() const { return primitives.empty(); }
    std::size_t size() const { return primitives.size(); }
    void clear() { primitives.clear(); }
    // The box of everything drawn; an xline or ray counts with its base point only.
    GiExtents extents() const;
};

// The box of one primitive (arcs by their true extremes, texts by their box corners).
GiExtents giPrimitiveExtents(const GiPrimitive& p);

// The circle or arc through three points (start, a point on it, end); false, with nothing
// changed, when the points are collinear or coincide.
bool giArcThroughPoints(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end,
                        GiPrimitive& arc);
