// The annotation-scale watch: an editor reactor that the module adds at start-up
// and takes off at shut-down.
#include "app/SysVarWatch.h"

#include <cwctype>
#include <memory>

#include "services/Guard.h"
#include "services/Regen.h"
#include "services/Trace.h"

namespace {

// The module's single watch, alive between InstallSysVarWatch and RemoveSysVarWatch.
std::unique_ptr<CSysVarWatch> pWatch;

bool IsAnnoScaleVar(const ACHAR* pszName)
{
    const wchar_t kName[] = L"CANNOSCALE";
    if (!pszName)
        return false;
    size_t i = 0;
    for (; kName[i] && pszName[i]; ++i)
        if (std::towupper(pszName[i]) != static_cast<wint_t>(kName[i]))
            return false;
    return !kName[i] && !pszName[i];
}

} // namespace

void CSysVarWatch::sysVarChanged(const ACHAR* varName, Adesk::Boolean success)
{
    if (!success || !IsAnnoScaleVar(varName))
        return;
    // Annotative chains take their factor from the drawing: redraw them all.
    if (!RunGuarded([] {
            DwgRegenSVdim(4);
            DwgRefresh();
        }))
        Trace(L"\n!!! sysVarChanged(CANNOSCALE): the redraw failed ");
}

void InstallSysVarWatch()
{
    if (pWatch)
        return;
    pWatch = std::make_unique<CSysVarWatch>();
    acedEditor->addReactor(pWatch.get());
}

void RemoveSysVarWatch()
{
    if (!pWatch)
        return;
    acedEditor->removeReactor(pWatch.get());
    pWatch.reset();
}

BOOL IsSysVarWatchInstalled()
{
    return pWatch ? TRUE : FALSE;
}
