// SVdimJig: the interactive placement of a chain. The cursor first moves the
// dimension line, then every click fixes a point and a new one follows it.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/ed/AcEdJig.h"
#include "host/ge/AcGePoint3d.h"
#include "host/win/WinMessages.h"

class SVdim;

// The pixel of the last left button press ClickRecorder saw; -1 while none
// was seen since the recorder was armed.
extern int iLastClickX;
extern int iLastClickY;

// Message filter: notes the pixel of a left button press. Never swallows.
bool ClickRecorder(MSG* pMsg);
// Forgets the last click and registers ClickRecorder; DisarmClickRecorder
// removes it. TRUE from HasRecordedClick once a press was seen in between.
void ArmClickRecorder();
void DisarmClickRecorder();
bool HasRecordedClick();

// When the pixel shows a chain, lays pSVdim's dimension line parallel to it
// at DimLinesDistance, on the side the user names, and gives a point of the
// new line in ptResult. 0 when no chain lies under the pixel.
int TakeLineFromPickedChain(SVdim* pSVdim, const POINT& pixel, AcGePoint3d& ptResult);

class SVdimJig : public AcEdJig {
public:
    // A chain through pt1 and pt2 (WCS) with its dimension line through their
    // midpoint; arcId and iArcSegment name the curve of an arc chain.
    SVdimJig(const AcGePoint3d& pt1, const AcGePoint3d& pt2, int iType, AcDbObjectId arcId, int iArcSegment);
    // Deletes a chain that was never appended.
    ~SVdimJig() override;

    DragStatus sampler() override;
    Adesk::Boolean update() override;
    AcDbEntity* entity() const override;

    // The whole interaction: place the line, add points, finish and append.
    // True when the last drag ended with kNormal or kOther.
    bool dragAcquire();

    // Most points one chain takes in one placement.
    static constexpr int kMaxPoints = 100;

    AcDbObjectId m_dimObjId;     // the appended chain; null until then
    SVdim* m_pSVdim = nullptr;   // owned until appended
    int m_bPlaced = 0;           // 0: the line is placed; 1: points are added
    AcGePoint3d m_ptAcquired;    // the last acquired point (WCS)
    int m_iPointIndex = 0;       // the extension that follows the cursor

private:
    // The prompt of the first phase, by the chain's kind and DimLineDist.
    void SetPlacementPrompt();
    // The keyword answer: a position point and a side point put the line at
    // DimLineDist from the first. kCancel when either is refused.
    DragStatus AskPositionPoint();
    // Takes out the following point and tidies and appends the chain.
    void Finish(bool bAppend);
    double DimLineDist() const;
};
