// Selection sets (ads_name based), acedSSGet with its modes and filters, the pickfirst set,
// wildcard matching, and the picker through which the editor asks which entities lie
// under a pick, a window or a fence.
#pragma once

#include <memory>
#include <vector>

#include "host/db/AcDbObjectId.h"
#include "host/db/adsdef.h"
#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcChar.h"
#include "host/rx/Adesk.h"

// ERRNO after a selection or pick that got Enter, and after one that found nothing.
constexpr int kErrnoNullInput = 52;
constexpr int kErrnoNoEntity = 7;

// acedSSGet modes. str may be null (interactive until Enter) or hold these, with or
// without a leading "_" and combined as "_-W-C:S:E":
//   ":S" one pick (or one answer) only; ":E" everything in the aperture of a pick (the
//   order is the picker's, topmost last); "-W"/"-C" forbid windows and crossings;
//   "_F" fence (pt1 is a resbuf chain of RTPOINT/RT3DPOINT, UCS); "_W"/"_C" window and
//   crossing between pt1 and pt2 (UCS); "_X" everything (with the filter); "L" the last
//   entity; "P" the previous set; "I" the pickfirst set; "" or null with pt1 a pick at
//   that point.
// RTNORM with a new set; RTERROR when nothing was selected (ERRNO 52 after Enter, 7 after
// a miss), RTCAN on Esc. The filter (a resbuf chain of group codes 0, 8, 2, 62 and -4
// "<or" "or>" "<and" "and>" "<not" "not>" "<xor" "xor>", strings matched by acutWcMatch)
// applies to every mode.
// In a command flagged ACRX_CMD_USEPICKSET, the first acedSSGet returns the pickfirst set
// (filtered) without asking, and clears it.
int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const resbuf* filter, ads_name ss);
int acedSSFree(const ads_name sname);
int acedSSLength(const ads_name sname, Adesk::Int32* len);
// RTERROR for an index out of range or an unknown set.
int acedSSName(const ads_name ss, Adesk::Int32 i, ads_name entres);
// The pick path of item i, a new chain the caller frees with acutRelRb:
//   RTLB, RTSHORT selection method (0 none, 1 pick, 2 window, 3 crossing, 4 fence),
//   RTENAME entity, RTLONG selection marker (0 when none), RTLB, RTSHORT 0, RT3DPOINT
//   pick point (WCS), RTLE, RTLE.
// So the entity is the first RTENAME and its marker is the link right after it.
int acedSSNameX(resbuf** rbpp, const ads_name ss, Adesk::Int32 i, unsigned int flags = 0);
// Adds ename to sname (a null sname makes a new set; a null ename an empty one).
int acedSSAdd(const ads_name ename, const ads_name sname, ads_name result);
int acedSSDel(const ads_name ename, const ads_name ss);
// RTNORM when the entity is in the set, RTERROR otherwise.
int acedSSMemb(const ads_name ename, const ads_name ss);
// Makes pset (a set or null) the pickfirst set; unused is ignored.
int acedSSSetFirst(const ads_name pset, const ads_name unused);
// gset: null (no grips kept); pset: a chain with one RTPICKS holding a new set of the
// pickfirst entities, or RTNIL when there are none. Free with acutRelRb (and the set with
// acedSSFree).
int acedSSGetFirst(resbuf** gset, resbuf** pset);

// RTNORM when the string matches the pattern, RTERROR otherwise. Case is ignored. The
// pattern: "," separates alternatives; "#" a digit, "@" a letter, "." a character that is
// neither, "*" any sequence, "?" any character, "~" at the start negates, "[...]" a class
// ("[~...]" its complement, "a-z" ranges), "`" makes the next character literal.
int acutWcMatch(const ACHAR* string, const ACHAR* pattern);

// One entity found by the picker. The marker is the selection (GS) marker of the part hit.
struct AcEdPickHit {
    AcDbObjectId id;
    Adesk::GsMarker marker = 0;
    AcGePoint3d point;  // WCS, on or near the entity
};

// The geometry of selection, supplied by the layer that knows the display. All points are
// WCS; windows are axis-aligned in the XY plane of the view. Results follow draw order
// (topmost last).
class AcEdPicker {
public:
    virtual ~AcEdPicker() = default;
    // Entities within aperture (world units) of the point.
    virtual std::vector<AcEdPickHit> pickAt(const AcGePoint3d& point, double aperture) = 0;
    // Inside the window, or (crossing) inside or crossing it.
    virtual std::vector<AcEdPickHit> window(const AcGePoint3d& corner1, const AcGePoint3d& corner2,
                                            bool crossing) = 0;
    // Crossed by the open polyline.
    virtual std::vector<AcEdPickHit> fence(const std::vector<AcGePoint3d>& points) = 0;
    // Every selectable entity of the current space.
    virtual std::vector<AcDbObjectId> all() = 0;
    // A pick on a known entity: fills the hit (the marker of the part nearest to the
    // entity's first drawn geometry when marker is 0). False when it cannot be picked.
    virtual bool pickEntity(AcDbObjectId id, Adesk::GsMarker marker, AcEdPickHit& hit) = 0;
};

// Installs the picker (not owned); null restores the default, which finds nothing under a
// pick or window and returns no entities for "all".
AcEdPicker* acedSetPicker(AcEdPicker* picker);
AcEdPicker* acedPicker();

// The host side of selections ----------------------------------------------------------
// The pickfirst set as ids (what a click on the view or @@select made).
std::vector<AcDbObjectId> acedPickfirstIds();
void acedSetPickfirstIds(const std::vector<AcDbObjectId>& ids);
// True when the entity passes the filter chain (null passes everything).
bool acedFilterMatches(AcDbObjectId id, const resbuf* filter);
// The number of live selection sets (the platform allows 128; here there is no limit).
int acedSSCount();
