// CDlgMain: the main panel as the rest of the module sees it. Until the
// panel's controls exist it is headless: it keeps the mode and type, its
// window state (visible, iconic, maximised, placement) and fills an entity's
// parameter arrays from the option store.
#pragma once

#include "host/mfc/afxcoll.h"
#include "host/win/WinMessages.h"
#include "options/DoubleArray.h"

class AcDbObject;
class CParamSet;

#ifndef SW_HIDE
#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOWMINIMIZED 2
#define SW_SHOWMAXIMIZED 3
#define SW_SHOW 5
#define SW_MINIMIZE 6
#define SW_RESTORE 9
#endif

class CDlgMain {
public:
    // The dialog template of the panel.
    static constexpr UINT IDD = 129;

    CDlgMain() = default;
    ~CDlgMain();
    CDlgMain(const CDlgMain&) = delete;
    CDlgMain& operator=(const CDlgMain&) = delete;

    // Makes the (hidden) window. FALSE if it exists already.
    BOOL Create(UINT nIDTemplate, HWND hParent);
    BOOL DestroyWindow();
    HWND GetSafeHwnd() const { return m_hWnd; }

    // --- window state ------------------------------------------------------------
    // SW_HIDE, SW_SHOW, SW_SHOWNORMAL, SW_RESTORE, SW_SHOWMAXIMIZED, SW_MINIMIZE /
    // SW_SHOWMINIMIZED. Answers whether the window was visible before.
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const { return m_bVisible; }
    BOOL IsIconic() const { return m_bIconic; }
    BOOL IsZoomed() const { return m_bZoomed; }
    // The normal (restored) placement in screen pixels.
    void GetWindowRect(RECT* pRect) const;
    void MoveWindow(int x, int y, int nWidth, int nHeight);
    void SetFocus();
    void EnableWindow(BOOL bEnable);
    BOOL IsWindowEnabled() const { return m_bEnabled; }

    // --- mode and type -------------------------------------------------------------
    // Sets the panel's mode and the store's (a negative mode only repairs the
    // store's from the panel's and answers 0); clears the selection flag.
    int AdjustMode(int iMode);
    // Sets the type of the current mode and the store's LastType; a negative
    // type changes nothing. 0 while the panel's mode is negative.
    int AdjustType(int iType);
    // The drawing-dependent lists (text styles, layers): nothing to reload yet.
    void ReloadDwgData() {}
    // The type the user defines himself in the current mode (no forced type).
    BOOL IsUserDefinedType() const;

    // --- parameters ------------------------------------------------------------------
    // Writes the panel's values into the entity's parameter arrays; *piResult
    // becomes 2 when the scale or the text height changed (geometry), else it
    // is left alone. 0 for an entity the panel cannot serve in its mode.
    int InitParameters(AcDbObject* pEntity, int* piResult);
    // The same on bare arrays, with the store's set of the given mode behind
    // them; missing entries are padded from that set first.
    int InitParameterArrays(CStringArray& arrayString, CUIntArray& arrayInt, CDoubleArray& arrayDouble, int iSetMode,
                            int* piResult);

    int m_iCurrentMode = 2;  // 1 mixed, 2 chains, 3 section marks, 4 plan marks, 5 texts
    int m_iCurrentType = 1;  // the placement type within the mode

private:
    HWND m_hWnd = nullptr;
    BOOL m_bVisible = FALSE;
    BOOL m_bIconic = FALSE;
    BOOL m_bZoomed = FALSE;
    BOOL m_bEnabled = TRUE;
    RECT m_rect{0, 0, 260, 420};
};
