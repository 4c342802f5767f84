// AcDbPolyline: the lightweight polyline, planar vertices with bulges and widths in the
// object coordinate system of its normal at one elevation.
#pragma once

#include <vector>

#include "host/db/AcDbCurve.h"
#include "host/ge/AcGeCircArc2d.h"

class AcDbPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int numVerts);  // reserves room only

    // Vertices -------------------------------------------------------------------
    unsigned int numVerts() const;
    // Inserts before index (index == numVerts appends). Negative widths mean 0. eInvalidIndex
    // past the end.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& pt, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& pt) const;  // object coordinates
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& pt) const;  // world
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& pt);
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    // The width every segment has; eInvalidInput when the widths differ.
    Acad::ErrorStatus getConstantWidth(double& width) const;
    Acad::ErrorStatus setConstantWidth(double width);
    bool hasWidth() const;
    bool hasBulges() const;
    bool isOnlyLines() const { return !hasBulges(); }

    // Whole polyline ---------------------------------------------------------------
    Adesk::Boolean isClosed() const override;
    void setClosed(Adesk::Boolean closed);
    bool hasPlinegen() const;
    void setPlinegen(bool on);
    double elevation() const;
    void setElevation(double elevation);
    double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double length() const;

    // Segments: index i runs from vertex i to i + 1 (the last one back to vertex 0 when
    // closed). An index that names no segment gives kEmpty / eInvalidIndex; a segment of
    // two equal points kCoincident; a single vertex kPoint.
    SegType segType(unsigned int index) const;
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg3d& line) const;
    // The 3D arc runs counter-clockwise about the normal: for a negative bulge it starts at
    // the segment's end vertex.
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const;
    // The 2D arc runs in the segment's own sense: clockwise for a negative bulge.
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const;
    // Segment index and fraction of a parameter.
    unsigned int numSegments() const;

    // Parameters: vertex i has parameter i; within a segment the parameter runs linearly
    // with the distance along it.
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    Acad::ErrorStatus getArea(double& area) const override;
    void getPieces(AcDbCurvePieces& pieces) const override;
    // An open polyline extends its first and last segments; a closed one is not extended.
    void getExtendedPieces(AcDbCurvePieces& pieces) const override;

    // Mirroring negates the bulges; widths scale with the polyline.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    void getEcs(AcGeMatrix3d& retVal) const override;
    // Lines and arcs with this polyline's properties (widths are dropped).
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    // Grips and stretch points: the vertices.
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& stretchPoints) const override;
    Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    struct Vertex {
        AcGePoint2d pt;
        double bulge = 0.0;
        double startWidth = 0.0;
        double endWidth = 0.0;
    };
    // World point of an object-coordinate point at the elevation.
    AcGePoint3d toWorld(const AcGePoint2d& pt) const;
    bool segmentEnds(unsigned int index, const Vertex*& a, const Vertex*& b) const;
    double segmentLength(unsigned int index) const;
    // The piece of a segment in world coordinates; false for an index that names none.
    bool segmentPiece(unsigned int index, AcDbCurvePiece& piece) const;

    std::vector<Vertex> m_verts;
    bool m_closed = false;
    bool m_plinegen = false;
    double m_elevation = 0.0;
    double m_thickness = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
