// AcDb2dPolyline: the heavy planar polyline, its AcDb2dVertex objects and the closing
// AcDbSequenceEnd (POLYLINE, VERTEX and SEQEND records in DXF).
#pragma once

#include <memory>
#include <vector>

#include "host/db/AcDbCurve.h"

class AcDbPolyline;

class AcDb2dVertex : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dVertex);
    AcDb2dVertex() = default;
    // Position in the polyline's object coordinates (z is the polyline's elevation).
    explicit AcDb2dVertex(const AcGePoint3d& position, double bulge = 0.0, double startWidth = 0.0,
                          double endWidth = 0.0);

    AcGePoint3d position() const { assertReadEnabled(); return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { assertWriteEnabled(); m_position = p; return Acad::eOk; }
    double bulge() const { assertReadEnabled(); return m_bulge; }
    Acad::ErrorStatus setBulge(double b) { assertWriteEnabled(); m_bulge = b; return Acad::eOk; }
    double startWidth() const { assertReadEnabled(); return m_startWidth; }
    Acad::ErrorStatus setStartWidth(double w) { assertWriteEnabled(); m_startWidth = w; return Acad::eOk; }
    double endWidth() const { assertReadEnabled(); return m_endWidth; }
    Acad::ErrorStatus setEndWidth(double w) { assertWriteEnabled(); m_endWidth = w; return Acad::eOk; }
    // DXF 70 of the vertex (1 extra vertex by fitting, 2 tangent defined, 8 spline vertex...).
    int vertexFlags() const { assertReadEnabled(); return m_flags; }
    Acad::ErrorStatus setVertexFlags(int flags) { assertWriteEnabled(); m_flags = flags; return Acad::eOk; }

    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDbVertex", "100 AcDb2dVertex", 10, 40, 41, 42, 70.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    AcGePoint3d m_position;
    double m_bulge = 0.0;
    double m_startWidth = 0.0;
    double m_endWidth = 0.0;
    int m_flags = 0;
};

// The record that ends a POLYLINE's vertices; it has only the common entity part.
class AcDbSequenceEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
    AcDbSequenceEnd() = default;
};

// Walks a polyline's vertices in order (the platform's object iterator shape).
class AcDb2dPolylineVertexIterator {
public:
    void start() { m_pos = 0; }
    bool done() const { return m_pos >= m_vertices.size(); }
    void step() { ++m_pos; }
    // The vertex; owned by the polyline. Null when done.
    AcDb2dVertex* vertex() const { return done() ? nullptr : m_vertices[m_pos]; }
    AcDbEntity* entity() const { return vertex(); }
    // Vertices belong to their polyline and have no id of their own: always null.
    AcDbObjectId objectId() const { return AcDbObjectId::kNull; }

private:
    friend class AcDb2dPolyline;
    explicit AcDb2dPolylineVertexIterator(std::vector<AcDb2dVertex*> vertices) : m_vertices(std::move(vertices)) {}
    std::vector<AcDb2dVertex*> m_vertices;
    size_t m_pos = 0;
};

class AcDb2dPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline);
    enum Poly2dType { k2dSimplePoly = 0, k2dFitCurvePoly = 1, k2dQuadSplinePoly = 2, k2dCubicSplinePoly = 3 };

    AcDb2dPolyline() = default;
    ~AcDb2dPolyline() override;

    // Takes ownership of the vertex.
    Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex);
    // A new iterator the caller deletes.
    AcDb2dPolylineVertexIterator* vertexIterator() const;
    int numVertices() const { assertReadEnabled(); return static_cast<int>(m_vertices.size()); }
    AcDb2dVertex* vertexAt(int index) const;
    // The world position of a vertex.
    AcGePoint3d vertexPosition(const AcDb2dVertex* vertex) const;

    Adesk::Boolean isClosed() const override { assertReadEnabled(); return m_closed; }
    Acad::ErrorStatus makeClosed() { assertWriteEnabled(); m_closed = true; return Acad::eOk; }
    Acad::ErrorStatus makeOpen() { assertWriteEnabled(); m_closed = false; return Acad::eOk; }
    Poly2dType polyType() const { assertReadEnabled(); return m_type; }
    Acad::ErrorStatus setPolyType(Poly2dType type) { assertWriteEnabled(); m_type = type; return Acad::eOk; }
    double elevation() const { assertReadEnabled(); return m_elevation; }
    Acad::ErrorStatus setElevation(double e) { assertWriteEnabled(); m_elevation = e; return Acad::eOk; }
    AcGeVector3d normal() const { assertReadEnabled(); return m_normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    double defaultStartWidth() const { assertReadEnabled(); return m_startWidth; }
    double defaultEndWidth() const { assertReadEnabled(); return m_endWidth; }
    Acad::ErrorStatus setDefaultStartWidth(double w) { assertWriteEnabled(); m_startWidth = w; return Acad::eOk; }
    Acad::ErrorStatus setDefaultEndWidth(double w) { assertWriteEnabled(); m_endWidth = w; return Acad::eOk; }
    // The same vertices as a lightweight polyline (curve queries go through it).
    void toLightweight(AcDbPolyline& polyline) const;

    // Curve queries as on the lightweight polyline with the same vertices.
    Acad::ErrorStatus getStartParam(double& param) const override;
    Acad::ErrorStatus getEndParam(double& param) const override;
    Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
    Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
    Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
    Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
    void getPieces(AcDbCurvePieces& pieces) const override;
    void getExtendedPieces(AcDbCurvePieces& pieces) const override;

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entitySet) const override;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const override;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
    Adesk::Boolean worldDraw(AcGiWorldDraw* worldDraw) override;
    void list() const override;

    // The vertices are filed with the polyline in the binary record. In DXF they are
    // records of their own, which the file layer writes after this one.
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    // "100 AcDb2dPolyline", 66 1, 10 (0, 0, elevation), 70, 40, 41, 75, 210.
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

private:
    std::vector<std::unique_ptr<AcDb2dVertex>> m_vertices;
    bool m_closed = false;
    Poly2dType m_type = k2dSimplePoly;
    double m_elevation = 0.0;
    double m_startWidth = 0.0;
    double m_endWidth = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
