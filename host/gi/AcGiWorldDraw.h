// AcGiWorldDraw and AcGiViewportDraw: what an entity's worldDraw/viewportDraw is given.
#pragma once

#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"
#include "host/gi/AcGi.h"
#include "host/gi/AcGiGeometry.h"
#include "host/gi/AcGiSubEntityTraits.h"
#include "host/rx/Adesk.h"

class AcDbDatabase;

// Where the drawing goes: the database being drawn and whether this is a plot.
class AcGiContext {
public:
    virtual ~AcGiContext() = default;
    virtual AcDbDatabase* database() const = 0;
    virtual Adesk::Boolean isPlotGeneration() const = 0;
    virtual Adesk::Boolean isPsOut() const { return Adesk::kFalse; }
    virtual Adesk::Boolean isBoundaryClipping() const { return Adesk::kFalse; }
};

class AcGiCommonDraw {
public:
    virtual ~AcGiCommonDraw() = default;
    virtual AcGiRegenType regenType() const = 0;
    // True when the user or the host asked the regeneration to stop.
    virtual Adesk::Boolean regenAbort() const = 0;
    virtual AcGiSubEntityTraits& subEntityTraits() const = 0;
    virtual AcGiGeometry* rawGeometry() const = 0;
    virtual Adesk::Boolean isDragging() const = 0;
    virtual AcGiContext* context() = 0;
    virtual Adesk::UInt32 numberOfIsolines() const = 0;
    // The largest chord error allowed when a curve is broken into segments.
    virtual double deviation(AcGiDeviationType type, const AcGePoint3d& point) const = 0;

    // A shorthand for context()->isPlotGeneration(); false without a context.
    Adesk::Boolean isPlotGeneration()
    {
        AcGiContext* c = context();
        return c != nullptr && c->isPlotGeneration();
    }
};

class AcGiWorldDraw : public AcGiCommonDraw {
public:
    virtual AcGiWorldGeometry& geometry() const = 0;
};

// The view a viewportDraw is made for.
class AcGiViewport {
public:
    virtual ~AcGiViewport() = default;
    virtual void getModelToEyeTransform(AcGeMatrix3d& m) const = 0;
    virtual void getEyeToModelTransform(AcGeMatrix3d& m) const = 0;
    virtual void getWorldToEyeTransform(AcGeMatrix3d& m) const = 0;
    virtual void getEyeToWorldTransform(AcGeMatrix3d& m) const = 0;
    virtual void getCameraLocation(AcGePoint3d& location) const = 0;
    virtual void getCameraTarget(AcGePoint3d& target) const = 0;
    virtual void getCameraUpVector(AcGeVector3d& upVector) const = 0;
    // From the target towards the camera.
    virtual AcGeVector3d viewDir() const = 0;
    virtual Adesk::ULongPtr viewportId() const = 0;
};

class AcGiViewportDraw : public AcGiCommonDraw {
public:
    virtual AcGiViewportGeometry& geometry() const = 0;
    virtual AcGiViewport& viewport() const = 0;
    virtual Adesk::UInt32 sequenceNumber() const = 0;
};

// The plan view of world space: looking down the z axis, x to the right, y up.
class GiPlanViewport : public AcGiViewport {
public:
    void getModelToEyeTransform(AcGeMatrix3d& m) const override { m.setToIdentity(); }
    void getEyeToModelTransform(AcGeMatrix3d& m) const override { m.setToIdentity(); }
    void getWorldToEyeTransform(AcGeMatrix3d& m) const override { m.setToIdentity(); }
    void getEyeToWorldTransform(AcGeMatrix3d& m) const override { m.setToIdentity(); }
    void getCameraLocation(AcGePoint3d& location) const override { location.set(0, 0, 1); }
    void getCameraTarget(AcGePoint3d& target) const override { target.set(0, 0, 0); }
    void getCameraUpVector(AcGeVector3d& upVector) const override { upVector.set(0, 1, 0); }
    AcGeVector3d viewDir() const override { return AcGeVector3d::kZAxis; }
    Adesk::ULongPtr viewportId() const override { return 1; }
};
