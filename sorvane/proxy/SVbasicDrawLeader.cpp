// SVdim: where the marks beside a value text go - the leader from the
// dimension line to a text moved away, and the line under a user value.
#include <cmath>
#include <cstdlib>

#include "proxy/SVbasic.h"

namespace {

// Position codes of the upper row; a text moved there always gets a leader.
constexpr unsigned kUpperRowCodes = 9362;  // bits 1, 4, 7, 10, 13

double TextHeight(const SVdim& chain)
{
    return chain.ToDrawing(chain.arrayDouble[SVdim::kDblTextHeight] / 10.0);
}

// The parameter a along the first line where p + a*dp meets q + b*dq in the
// plane of the normal; false for parallel lines.
bool MeetAt(const AcGePoint3d& p, const AcGeVector3d& dp, const AcGePoint3d& q, const AcGeVector3d& dq,
            const AcGeVector3d& normal, double& a, double& b)
{
    const double dDenom = dp.crossProduct(dq).dotProduct(normal);
    if (std::fabs(dDenom) < 1e-12)
        return false;
    const AcGeVector3d w = q - p;
    a = w.crossProduct(dq).dotProduct(normal) / dDenom;
    b = w.crossProduct(dp).dotProduct(normal) / dDenom;
    return true;
}

} // namespace

int SVdim::GetPointsTextUser(int iExt, AcGePoint3d& pt1, AcGePoint3d& pt2) const
{
    const bool bNearEdge = iExt == -1000;
    if (bNearEdge)
        iExt = 1;
    if (iExt < 0 || iExt >= GetExtensions())
        return 0;
    const double dMargin = TextHeight(*this) / (m_dimType == kArc ? 5.0 : 3.0);
    AcGePoint3dArray corners;
    double dWidth = 0.0, dHeight = 0.0;
    GetTextCorners(iExt, dMargin, corners, dWidth, dHeight);
    if (corners.length() < 4)
        return 0;
    pt1 = bNearEdge ? corners[0] : corners[2];
    pt2 = bNearEdge ? corners[1] : corners[3];
    return 1;
}

bool SVdim::IsLeaderShown(int iExt) const
{
    if (iExt < 1 || iExt >= GetExtensions() || !IsLeader(iExt))
        return false;
    const int iCode = std::abs(GetDimTextPos(iExt));
    // A text still at its anchor was put there on purpose: the bit decides.
    if (GetPointTextRef(iExt).distanceTo(GetTextAnchor(iExt, iCode)) < 0.0001)
        return true;
    return iCode <= 13 && ((kUpperRowCodes >> iCode) & 1U) != 0;
}

int SVdim::GetLeaderPoints(int iExt, AcGePoint3dArray& points) const
{
    points.setLogicalLength(0);
    if (iExt < 1 || iExt >= GetExtensions())
        return 0;
    const double dText = TextHeight(*this);
    AcGePoint3dArray box;
    double dWidth = 0.0, dHeight = 0.0;
    GetTextCorners(iExt, dText / 5.0, box, dWidth, dHeight);
    if (box.length() < 4)
        return 0;

    const AcGeVector3d normal = GetChainNormal();
    const AcGePoint3d ptMid = GetPointDim(iExt - 1) + (GetPointDim(iExt) - GetPointDim(iExt - 1)) / 2.0;
    const AcGeVector3d vLine = m_vectorDim.isZeroLength() ? AcGeVector3d::kXAxis : m_vectorDim.normal();
    const AcGeVector3d vAcross = normal.crossProduct(vLine).normal();
    const AcGeVector3d vEdge = box[1] - box[0];
    const double dEdge = vEdge.length();
    if (dEdge < 1e-12)
        return 0;
    // Scale-free: what counts as "on the edge" grows with the text.
    const double dTol = 0.1 * dText;

    // Straight across from the middle of the segment to the box's lower edge.
    double a = 0.0, b = 0.0;
    if (!MeetAt(ptMid, vAcross, box[0], vEdge, normal, a, b))
        return 0;
    points.append(ptMid);
    const double dAlong = b * dEdge;
    if (dAlong >= -dTol && dAlong <= dEdge + dTol) {
        // The text stands over the segment: one line to the edge that faces
        // the dimension line, the upper one for a text below it.
        double aFar = 0.0, bFar = 0.0;
        MeetAt(ptMid, vAcross, box[3], vEdge, normal, aFar, bFar);
        points.append(ptMid + vAcross * (std::fabs(aFar) < std::fabs(a) ? aFar : a));
        return points.length();
    }

    // The text stands aside: across to the height of its middle, then along
    // to the nearer side.
    const AcGePoint3d ptLeftMid = box[0] + (box[3] - box[0]) / 2.0;
    const AcGePoint3d ptRightMid = box[1] + (box[2] - box[1]) / 2.0;
    if (!MeetAt(ptMid, vAcross, ptLeftMid, vEdge, normal, a, b))
        return points.length();
    const AcGePoint3d ptElbow = ptMid + vAcross * a;
    if (ptElbow.distanceTo(ptMid) > dTol)
        points.append(ptElbow);
    points.append(ptElbow.distanceTo(ptLeftMid) <= ptElbow.distanceTo(ptRightMid) ? ptLeftMid : ptRightMid);
    return points.length();
}
