// The main panel as the drawing services see it, through hooks the application installs.
#include "services/PanelLink.h"

namespace {

CPanelLink g_panelLink;

} // namespace

void SetPanelLink(const CPanelLink* pLink)
{
    g_panelLink = pLink ? *pLink : CPanelLink{};
}

bool PanelExists()
{
    return g_panelLink.pfnExists && g_panelLink.pfnExists();
}

bool PanelIsVisible()
{
    return PanelExists() && g_panelLink.pfnIsVisible && g_panelLink.pfnIsVisible();
}

void PanelHide()
{
    if (g_panelLink.pfnHide)
        g_panelLink.pfnHide();
}

void PanelShow()
{
    if (g_panelLink.pfnShow)
        g_panelLink.pfnShow();
}

void PanelEndApp()
{
    if (g_panelLink.pfnEndApp)
        g_panelLink.pfnEndApp(1, 1);
}
