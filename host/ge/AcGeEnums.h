// Enumerations shared by the geometry classes: entity kinds and error conditions.
#pragma once

struct AcGe {
    enum EntityId {
        kEntity2d,
        kCurve2d,
        kCircArc2d,
        kEntity3d,
        kCurve3d,
        kLinearEnt3d,
        kLine3d,
        kLineSeg3d,
        kRay3d,
        kCircArc3d,
        kPlanarEnt,
        kPlane,
    };

    enum ErrorCondition {
        kOk,
        k0This,
        k0Arg1,
        k0Arg2,
        kEqualArg1Arg2,
        kEqualArg1Arg3,
        kEqualArg2Arg3,
        kLinearlyDependentArg1Arg2Arg3,
        kDegenerateGeometry,
    };
};
