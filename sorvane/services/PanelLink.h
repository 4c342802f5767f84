// The few things the drawing services ask of the main panel: whether it exists and shows,
// hiding it round a pick, and closing it when the last drawing has gone. The panel lives
// in app/, above the services, so app/ installs these when it starts.
#pragma once

struct CPanelLink {
    bool (*pfnExists)() = nullptr;
    bool (*pfnIsVisible)() = nullptr;
    void (*pfnHide)() = nullptr;  // HideDlgMain
    void (*pfnShow)() = nullptr;  // ShowDlgMain
    void (*pfnEndApp)(int iSave, int iDestroy) = nullptr;
};

// Installs the hooks (copied); null removes them. Without hooks there is no panel.
void SetPanelLink(const CPanelLink* pLink);

bool PanelExists();
bool PanelIsVisible();
void PanelHide();
void PanelShow();
// EndApp(1, 1): the panel is destroyed, its state written.
void PanelEndApp();
