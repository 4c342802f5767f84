// The editor's window side, simulated: message filters that see every click, the main
// window and drawing view handles, and a fixed mapping between view pixels and world
// points.
#pragma once

#include "host/db/adsdef.h"
#include "host/ge/AcGePoint3d.h"
#include "host/win/WinMessages.h"

// A filter sees each message before the editor acts on it; true swallows it.
using AcedFilterWinMsgFn = bool (*)(MSG* pMsg);
using AcedWatchWinMsgFn = void (*)(const MSG* pMsg);
// False when the filter is already registered (or null).
bool acedRegisterFilterWinMsg(const AcedFilterWinMsgFn pfn);
bool acedRemoveFilterWinMsg(const AcedFilterWinMsgFn pfn);
bool acedRegisterWatchWinMsg(const AcedWatchWinMsgFn pfn);
bool acedRemoveWatchWinMsg(const AcedWatchWinMsgFn pfn);

// The main window and the drawing view (fake handles; see host/win/WinWindow.h).
HWND adsw_acadMainWnd();
HWND acedGetAcadFrame();
HWND acedGetAcadDwgView();

// The viewport number under a pixel of the view: 2 (the model view) inside the view,
// 0 outside it.
int acedGetWinNum(int ptx, int pty);
// View pixel (y grows downwards) to the world point in the view plane (z 0). The form
// with a window number is false for a number other than the view's.
bool acedCoordFromPixelToWorld(const POINT& ptIn, ads_point ptOut);
bool acedCoordFromPixelToWorld(int windnum, POINT ptIn, ads_point ptOut);
bool acedCoordFromWorldToPixel(int windnum, const ads_point ptIn, POINT& ptOut);
// Redraws: no-ops headless.
void acedUpdateDisplay();
int acedRedraw(const ads_name ent, int mode);

// The view: the world point at the view's centre, world units per pixel, and the size in
// pixels. Defaults: centre (500, 400), 1 unit per pixel, 1000 x 800 pixels, so the
// world origin is the pixel (0, 800).
struct AcEdViewState {
    AcGePoint3d center{500.0, 400.0, 0.0};
    double unitsPerPixel = 1.0;
    int width = 1000;
    int height = 800;
};
AcEdViewState acedGetViewState();
// False (nothing changed) for a scale or size not above 0.
bool acedSetViewState(const AcEdViewState& view);
POINT acedWorldToPixel(const AcGePoint3d& wcs);
AcGePoint3d acedPixelToWorld(const POINT& pixel);

// Sends a message through the filters (and watchers) as a click in the view would be;
// true when a filter swallowed it. pt is the view pixel; the cursor moves there.
bool acedDispatchWinMsg(UINT message, const POINT& pt, WPARAM wParam = 0);
