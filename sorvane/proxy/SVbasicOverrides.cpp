// SVdim: the operations of the host's entity that the chain replaces. Each
// answers as the base class does until the chain's own form is written:
// drawing, filing, notifications, grips, snapping and transformation.
#include "proxy/SVbasic.h"

Adesk::UInt32 SVdim::setAttributes(void* traits)
{
    return AcDbEntity::setAttributes(traits);
}

Adesk::Boolean SVdim::isPlanar() const
{
    return AcDbEntity::isPlanar();
}

Adesk::UInt32 SVdim::viewportDrawLogicalFlags(AcGiViewportDraw*)
{
    return 0;
}

Acad::ErrorStatus SVdim::applyPartialUndo(AcDbDwgFiler* pUndoFiler, AcRxClass* pClass)
{
    return AcDbEntity::applyPartialUndo(pUndoFiler, pClass);
}

void SVdim::erased(const AcDbObject* pObj, Adesk::Boolean bErasing)
{
    AcDbEntity::erased(pObj, bErasing);
}

void SVdim::modified(const AcDbObject* pObj)
{
    AcDbEntity::modified(pObj);
}

Acad::ErrorStatus SVdim::getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                        const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                        const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                        AcDbIntArray& geomIds) const
{
    return AcDbEntity::getOsnapPoints(osnapMode, gsSelectionMark, pickPoint, lastPoint, viewXform, snapPoints,
                                      geomIds);
}

Acad::ErrorStatus SVdim::getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                        const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                        const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                        AcDbIntArray& geomIds, const AcGeMatrix3d& insertionMat) const
{
    return AcDbEntity::getOsnapPoints(osnapMode, gsSelectionMark, pickPoint, lastPoint, viewXform, snapPoints,
                                      geomIds, insertionMat);
}

Acad::ErrorStatus SVdim::transformBy(const AcGeMatrix3d& xform)
{
    return AcDbEntity::transformBy(xform);
}

Acad::ErrorStatus SVdim::getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& pEnt) const
{
    return AcDbEntity::getTransformedCopy(xform, pEnt);
}

Acad::ErrorStatus SVdim::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const
{
    return AcDbEntity::getGripPoints(gripPoints, osnapModes, geomIds);
}

Acad::ErrorStatus SVdim::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    return AcDbEntity::moveGripPointsAt(indices, offset);
}

Acad::ErrorStatus SVdim::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    return AcDbEntity::moveStretchPointsAt(indices, offset);
}

Acad::ErrorStatus SVdim::getSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker gsMark,
                                                  const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                                  int& numPaths, AcDbFullSubentPath*& subentPaths,
                                                  int numInserts, AcDbObjectId* entAndInsertStack) const
{
    return AcDbEntity::getSubentPathsAtGsMarker(type, gsMark, pickPoint, viewXform, numPaths, subentPaths,
                                                numInserts, entAndInsertStack);
}

Acad::ErrorStatus SVdim::getGsMarkersAtSubentPath(const AcDbFullSubentPath& subPath,
                                                  AcDbGsMarkerArray& gsMarkers) const
{
    return AcDbEntity::getGsMarkersAtSubentPath(subPath, gsMarkers);
}

Acad::ErrorStatus SVdim::getStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    return AcDbEntity::getStretchPoints(stretchPoints);
}
