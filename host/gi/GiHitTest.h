// Picking on a display list: what lies under a point, on a fence, in a window or crossing it.
// Pure geometry in the plan view (world x and y); the database maps the answers to entities.
#pragma once

#include <cstddef>
#include <vector>

#include "host/ge/AcGePoint2d.h"
#include "host/gi/GiDisplayList.h"

struct GiHit {
    std::size_t index = 0;        // of the primitive in the list
    Adesk::GsMarker marker = 0;   // of the part that was hit (a polyline's segment marker)
    double distance = 0.0;        // from the point; 0 inside a filled area or a text box
};

// The primitives within aperture of point, in drawing order: the topmost comes last.
// Lines, arcs and outlines count by distance; filled areas and text boxes also from inside.
std::vector<GiHit> giHitPoint(const GiDisplayList& list, const AcGePoint2d& point, double aperture);

// The primitives an open polyline (the fence) crosses or touches, in drawing order.
std::vector<std::size_t> giHitFence(const GiDisplayList& list, const std::vector<AcGePoint2d>& fence);

// The primitives wholly inside the rectangle of two corners (xlines and rays never are).
std::vector<std::size_t> giHitWindow(const GiDisplayList& list, const AcGePoint2d& corner1,
                                     const AcGePoint2d& corner2);

// The primitives inside the rectangle or crossing its edges.
std::vector<std::size_t> giHitCrossing(const GiDisplayList& list, const AcGePoint2d& corner1,
                                       const AcGePoint2d& corner2);
