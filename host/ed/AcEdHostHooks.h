// Hooks through which other host layers take part in the editor's work: the dynamic
// linker's function calls, the document lock around commands, grip drags, and the dialog
// layer's share of the script. Each setter returns the previous hook; empty means none.
#pragma once

#include <functional>
#include <string>

#include "host/db/AcDbObjectId.h"
#include "host/ge/AcGePoint3d.h"
#include "host/rx/AcChar.h"

struct AcEdInputItem;
class AcEdCommand;

namespace AcEdHooks {

// Sends kInvkSubrMsg for a defun'd function (acedGetFunCode answers code meanwhile);
// returns the entry point's result converted to RTNORM/RTERROR by the caller's rules.
using SubrInvoker = std::function<int(const std::wstring& name, short code)>;
SubrInvoker setSubrInvoker(SubrInvoker hook);

// Called before a command's function runs (begin true) and after it returned (false), at
// every nesting level, e.g. to take the document's automatic write lock.
using CommandScope = std::function<void(const AcEdCommand* command, bool begin)>;
CommandScope setCommandScope(CommandScope hook);

// A grip drag of the entity's grip to a WCS point (GRIP_STRETCH). False: refused; the
// script line is then an error.
using GripDrag = std::function<bool(AcDbObjectId entity, int gripIndex, const AcGePoint3d& to)>;
GripDrag setGripDrag(GripDrag hook);

// A @@dialog or @@file line the script reached outside a modal dialog (modeless panels
// act on it at once). False: not understood; the line is then an error.
using DialogDirective = std::function<bool(const AcEdInputItem& item)>;
DialogDirective setDialogDirective(DialogDirective hook);

// Resolves a handle (hex text) in the working database; the default asks the database.
using HandleResolver = std::function<AcDbObjectId(const std::wstring& handle)>;
HandleResolver setHandleResolver(HandleResolver hook);

} // namespace AcEdHooks
