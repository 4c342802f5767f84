// The linear placement commands: their driver, the panel preparation they
// share, and a chain made straight from a list of points.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGeArrays.h"
#include "host/win/WinMessages.h"
#include "host/win/WinTypes.h"

// Drives KOVA_Hdim (0), KOVA_vdim (1) and KOVA_Adim (2). 1 when the panel was
// not visible at the start, so the command closes it again; else 0.
int DimPlace(int iType);
// Makes the panel (hidden) if needed, switches it to chains and checks the
// layer rule. FALSE when the command must end.
BOOL PrepareMode();
// FALSE (after the message box) when ForbidLayer0 is set and the chain would
// land on layer "0".
BOOL CheckLayerRule();
// A chain of iType through the points (WCS, at least two; an aligned chain
// runs from the first to the second) with its line through ptDim, added to
// model space. With pPickedPixel, a chain under that pixel gives the line
// instead (see TakeLineFromPickedChain). The null id when none was made.
AcDbObjectId MakeDim(const AcGePoint3dArray& points, const AcGePoint3d& ptDim, int iType,
                     const POINT* pPickedPixel = nullptr);
// What every placement command does around its driver: the driver's 1 closes
// the panel again; then the panel returns, the host gets the focus and the
// panel's controls are enabled.
void RunPlacementCommand(int (*pfnDriver)(int), int iType);
