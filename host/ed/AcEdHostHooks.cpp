// Storage for the hooks other host layers install into the editor.
#include "host/ed/AcEdHostHooks.h"

#include <utility>

namespace AcEdHooks {

namespace {
template <class T>
T Swap(T& slot, T hook)
{
    T before = std::move(slot);
    slot = std::move(hook);
    return before;
}
SubrInvoker g_subr;
CommandScope g_scope;
GripDrag g_grip;
DialogDirective g_dialog;
HandleResolver g_handle;
} // namespace

SubrInvoker setSubrInvoker(SubrInvoker hook) { return Swap(g_subr, std::move(hook)); }
CommandScope setCommandScope(CommandScope hook) { return Swap(g_scope, std::move(hook)); }
GripDrag setGripDrag(GripDrag hook) { return Swap(g_grip, std::move(hook)); }
DialogDirective setDialogDirective(DialogDirective hook) { return Swap(g_dialog, std::move(hook)); }
HandleResolver setHandleResolver(HandleResolver hook) { return Swap(g_handle, std::move(hook)); }

} // namespace AcEdHooks
