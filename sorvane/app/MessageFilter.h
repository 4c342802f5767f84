// The right-click road: the window-message filter notes the object under the
// cursor, lets the host select it, and a one-shot timer opens the object's
// context menu; the chosen item runs as a command of its own.
#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/win/WinMessages.h"
#include "host/win/WinTimer.h"

// The timer of the context menu and its delay; the menu opens this far off
// the cursor.
constexpr UINT_PTR kPopupTimerId = 123456;
constexpr UINT kPopupTimerDelay = 100;
constexpr int kPopupMenuOffset = 5;

// Kinds of object under a right click (the second result of GetDimType).
constexpr int kMdTypeForeign = 0;
constexpr int kMdTypeText = 10;
constexpr int kMdTypeDimension = 50;
constexpr int kMdTypeRadial = 60;

// The command the context menu chose and its object, for the command that
// carries it out.
extern UINT nPendingMenuId;
extern AcDbObjectId pendingPopupObjectId;

// The filter: true swallows the message.
bool filterProc(MSG* pMsg);
// The timer: opens the menu of popupObjectId.
void timerProc(HWND hWnd, UINT nMsg, UINT_PTR nIdEvent, DWORD dwTime);

// The topmost entity under a pixel of the drawing view; the null id if none.
AcDbObjectId GetObjectAtPixel(const POINT& pixel);
// Classifies an object for its context menu. Returns iDimType: a chain 100 +
// its LastType, a plan mark 300 + LastType, a base plane 250 (251 when fixed),
// another height mark 200 + LastType, anything else 0. iMDType: the chain's or
// mark's type, 60 for a tagged radial or diametric dimension, 50 for another
// tagged dimension, 10 for another tagged object, 0 for a foreign one.
int GetDimType(AcDbObjectId objectId, int& iMDType);

// The context menu's choice: records an undo step on the object and posts
// the command that carries it out ("KOVA_SorvanePopUp " for chains and
// tagged objects, "KOVA_SorvanePopUpH " for height marks).
void OnPopupCommand(UINT nMenuId, AcDbObjectId objectId);
void OnPopupCommandH(UINT nMenuId, AcDbObjectId objectId);

// The panel mode and the menu resource of a classification.
struct CPopupMenuChoice {
    int iMode = 0;
    UINT nMenuId = 0;
};
CPopupMenuChoice ChoosePopupMenu(int iDimType, int iMDType);

// A per-object display switch: 0 follows the global switch, 1 is on, 2 off.
bool IsSwitchShown(UINT nObjectFlag, bool bGlobalOn);
