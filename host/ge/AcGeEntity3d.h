// AcGeEntity3d and AcGeCurve3d: the bases through which geometry is passed generically.
#pragma once

#include "host/ge/AcGeEnums.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeTol.h"

class AcGeMatrix3d;

class AcGeEntity3d {
public:
    virtual ~AcGeEntity3d() = default;

    virtual AcGe::EntityId type() const = 0;
    // True for the entity's own kind and for every kind it derives from.
    virtual bool isKindOf(AcGe::EntityId id) const { return id == AcGe::kEntity3d; }
    virtual AcGeEntity3d* copy() const = 0;
    virtual bool isOn(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const = 0;
    virtual AcGeEntity3d& transformBy(const AcGeMatrix3d& m) = 0;

protected:
    AcGeEntity3d() = default;
    AcGeEntity3d(const AcGeEntity3d&) = default;
    AcGeEntity3d& operator=(const AcGeEntity3d&) = default;
};

class AcGeCurve3d : public AcGeEntity3d {
public:
    bool isKindOf(AcGe::EntityId id) const override
    {
        return id == AcGe::kCurve3d || AcGeEntity3d::isKindOf(id);
    }
    AcGeCurve3d* copy() const override = 0;

    // Parameter of the curve point nearest to pt.
    virtual double paramOf(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const = 0;
    virtual AcGePoint3d evalPoint(double param) const = 0;
    virtual AcGePoint3d closestPointTo(const AcGePoint3d& pt,
                                       const AcGeTol& tol = AcGeContext::gTol) const = 0;
    virtual bool hasStartPoint(AcGePoint3d& pt) const = 0;
    virtual bool hasEndPoint(AcGePoint3d& pt) const = 0;
    virtual bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const;
    // Turns the sense of the parameter; the point set stays the same.
    virtual AcGeCurve3d& reverseParam() = 0;

    // On the curve when the nearest curve point lies within the point tolerance.
    bool isOn(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const override;
    bool isOn(const AcGePoint3d& pt, double& param, const AcGeTol& tol = AcGeContext::gTol) const;
    double distanceTo(const AcGePoint3d& pt, const AcGeTol& tol = AcGeContext::gTol) const;

protected:
    AcGeCurve3d() = default;
    AcGeCurve3d(const AcGeCurve3d&) = default;
    AcGeCurve3d& operator=(const AcGeCurve3d&) = default;
};
