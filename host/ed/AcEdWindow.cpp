// The window side: message filters and watchers, the main window and view handles, and
// the pixel/world mapping of the view.
#include "host/ed/AcEdWindow.h"

#include <algorithm>
#include <cmath>

#include "host/ed/AcEdSysVar.h"
#include "host/ed/EdCore.h"
#include "host/ge/geassign.h"
#include "host/win/WinTimer.h"
#include "host/win/WinWindow.h"

using namespace eded;

namespace {

HWND Window(HWND& slot, const wchar_t* name, WinMessageHandler handler = {})
{
    if (!slot || !IsWindow(slot))
        slot = svwin::CreateSimWindow(name, std::move(handler));
    return slot;
}

// A left button going down on the view while no command runs selects the topmost entity
// under it into the pickfirst set, as a click on the drawing does.
LRESULT ViewProc(HWND, UINT message, WPARAM, LPARAM lParam)
{
    if (message != WM_LBUTTONDOWN || !state().commands.empty())
        return 0;
    POINT px;
    px.x = GET_X_LPARAM(lParam);
    px.y = GET_Y_LPARAM(lParam);
    selectAtPixel(px);
    return 0;
}

HWND g_main = nullptr;
HWND g_view = nullptr;

constexpr int kViewWinNum = 2;

} // namespace

bool acedRegisterFilterWinMsg(const AcedFilterWinMsgFn pfn)
{
    auto& f = state().filters;
    if (!pfn || std::find(f.begin(), f.end(), pfn) != f.end())
        return false;
    f.push_back(pfn);
    return true;
}

bool acedRemoveFilterWinMsg(const AcedFilterWinMsgFn pfn)
{
    auto& f = state().filters;
    const auto it = std::find(f.begin(), f.end(), pfn);
    if (it == f.end())
        return false;
    f.erase(it);
    return true;
}

bool acedRegisterWatchWinMsg(const AcedWatchWinMsgFn pfn)
{
    auto& w = state().watchers;
    if (!pfn || std::find(w.begin(), w.end(), pfn) != w.end())
        return false;
    w.push_back(pfn);
    return true;
}

bool acedRemoveWatchWinMsg(const AcedWatchWinMsgFn pfn)
{
    auto& w = state().watchers;
    const auto it = std::find(w.begin(), w.end(), pfn);
    if (it == w.end())
        return false;
    w.erase(it);
    return true;
}

HWND adsw_acadMainWnd()
{
    return Window(g_main, L"main");
}

HWND acedGetAcadFrame()
{
    return adsw_acadMainWnd();
}

HWND acedGetAcadDwgView()
{
    return Window(g_view, L"view", ViewProc);
}

int acedGetWinNum(int ptx, int pty)
{
    const AcEdViewState v = acedGetViewState();
    return ptx >= 0 && pty >= 0 && ptx < v.width && pty < v.height ? kViewWinNum : 0;
}

AcEdViewState acedGetViewState()
{
    return state().view;
}

bool acedSetViewState(const AcEdViewState& view)
{
    if (!(view.unitsPerPixel > 0.0) || view.width <= 0 || view.height <= 0)
        return false;
    state().view = view;
    return true;
}

POINT acedWorldToPixel(const AcGePoint3d& wcs)
{
    const AcEdViewState& v = state().view;
    POINT p;
    p.x = static_cast<LONG>(std::lround(v.width / 2.0 + (wcs.x - v.center.x) / v.unitsPerPixel));
    p.y = static_cast<LONG>(std::lround(v.height / 2.0 - (wcs.y - v.center.y) / v.unitsPerPixel));
    return p;
}

AcGePoint3d acedPixelToWorld(const POINT& pixel)
{
    const AcEdViewState& v = state().view;
    return AcGePoint3d(v.center.x + (pixel.x - v.width / 2.0) * v.unitsPerPixel,
                       v.center.y - (pixel.y - v.height / 2.0) * v.unitsPerPixel, 0.0);
}

bool acedCoordFromPixelToWorld(const POINT& ptIn, ads_point ptOut)
{
    if (!ptOut)
        return false;
    const AcGePoint3d p = acedPixelToWorld(ptIn);
    ptOut[0] = p.x;
    ptOut[1] = p.y;
    ptOut[2] = p.z;
    return true;
}

bool acedCoordFromPixelToWorld(int windnum, POINT ptIn, ads_point ptOut)
{
    return windnum == kViewWinNum && acedCoordFromPixelToWorld(ptIn, ptOut);
}

bool acedCoordFromWorldToPixel(int windnum, const ads_point ptIn, POINT& ptOut)
{
    if (windnum != kViewWinNum || !ptIn)
        return false;
    ptOut = acedWorldToPixel(asPnt3d(ptIn));
    return true;
}

void acedUpdateDisplay() {}

namespace eded {

double aperture()
{
    int pickbox = 3;
    AcEdSysVars::getInt(L"PICKBOX", pickbox);
    return (pickbox > 0 ? pickbox : 1) * state().view.unitsPerPixel;
}

bool selectAtPixel(const POINT& px)
{
    const std::vector<AcEdPickHit> hits = acedPicker()->pickAt(acedPixelToWorld(px), aperture());
    if (hits.empty())
        return false;
    std::vector<AcDbObjectId> ids = state().pickfirst;
    if (std::find(ids.begin(), ids.end(), hits.back().id) == ids.end())
        ids.push_back(hits.back().id);
    setPickfirst(std::move(ids));
    return true;
}

} // namespace eded

int acedRedraw(const ads_name, int)
{
    return RTNORM;
}

bool acedDispatchWinMsg(UINT message, const POINT& pt, WPARAM wParam)
{
    SetCursorPos(pt.x, pt.y);
    MSG msg;
    msg.hwnd = acedGetAcadDwgView();
    msg.message = message;
    msg.wParam = wParam;
    msg.lParam = MAKELPARAM(pt.x, pt.y);
    msg.time = svwin::SimClockNow();
    msg.pt = pt;
    for (AcedWatchWinMsgFn w : std::vector<AcedWatchWinMsgFn>(state().watchers))
        w(&msg);
    // A filter may remove itself (or others) while it runs.
    for (AcedFilterWinMsgFn f : std::vector<AcedFilterWinMsgFn>(state().filters)) {
        const auto& now = state().filters;
        if (std::find(now.begin(), now.end(), f) == now.end())
            continue;
        if (f(&msg))
            return true;
    }
    return false;
}
