// Running commands: the command loop's public face (acedCommand, acedPostCommand), the
// AutoLISP function table (acedDefun and friends), and the state of active commands.
#pragma once

#include <string>
#include <vector>

#include "host/db/adsdef.h"
#include "host/rx/AcChar.h"

// Runs a command inside the current one. The arguments are (type, value) pairs ended by
// RTNONE (or 0), as acutBuildList takes them: the first RTSTR names the command, the rest
// answer its prompts in order (RTSTR "\\" is a pause: that answer comes from the user). When
// they run out while the command still asks, the user (the script) answers. RTNORM when the
// command ended normally, RTCAN when it was cancelled, RTERROR for an unknown command or a
// bad list.
int acedCommandS(int rtype, ...);
int acedCommand(int rtype, ...);
int acedCmdS(const resbuf* rb);
int acedCmd(const resbuf* rb);
// The value for a pause in acedCommand lists.
#define PAUSE ACRX_T("\\")

// Queues keystrokes. Each Esc character (27) cancels the command that is active now (its
// next prompt answers RTCAN; with no command active it does nothing). Other text runs when
// the command that was active when it was posted has returned: a blank or newline acts as
// Enter, so "NAME " runs NAME. RTNORM.
int acedPostCommand(const ACHAR* str);
// Shows the command prompt again (a transcript line "Command:" when idle).
void acedPostCommandPrompt();

// AutoLISP functions ------------------------------------------------------------------
// Defines a function by name with a code for kInvkSubrMsg; "C:NAME" is also the command
// NAME. Defining a name again replaces its code. RTNORM, RTERROR for an empty name.
int acedDefun(const ACHAR* sname, short funcnumber);
// Removes the definition when name and code match. RTNORM, or RTERROR.
int acedUndef(const ACHAR* sname, short funcnumber);
// Calls fhdl directly (instead of sending kInvkSubrMsg) for the code. RTNORM.
int acedRegFunc(int (*fhdl)(), short fcode);
// The code of the function being called; RTERROR outside a call.
int acedGetFunCode();
// The arguments of the function being called (a chain the editor owns), or null.
resbuf* acedGetArgs();
// Results of a defun'd function: recorded only (see acedLastFunctionResult).
int acedRetVoid();
int acedRetInt(int ival);
int acedRetReal(ads_real rval);
int acedRetStr(const ACHAR* s);
int acedRetNil();
int acedRetT();
int acedRetPoint(const ads_point pt);
int acedRetName(const ads_name aname, int type);
int acedRetVal(const resbuf* rbuf);
int acedRetList(const resbuf* rbuf);

// The host's side of AutoLISP ------------------------------------------------------------
// Calls a defined function by name (case ignored): through its acedRegFunc handler, or
// through the invoker hook (the dynamic linker, which sends kInvkSubrMsg). The function's
// status (RTNORM ...), or RTERROR when the name is not defined or nothing can call it.
int acedInvokeFunction(const ACHAR* name, const resbuf* args = nullptr);
// The restype of the last acedRet* (RTVOID, RTSHORT, RTNIL, ...), 0 before any.
int acedLastFunctionResult();
// Defined function names with their codes, in definition order.
std::vector<std::pair<std::wstring, short>> acedDefinedFunctions();

// The state of the command loop ---------------------------------------------------------
// The active commands' global names, outermost first, upper case.
std::vector<std::wstring> acedActiveCommands();
bool acedIsCommandActive();
// Runs a command by the name typed (a leading "_", "." or "'" is dropped; a "C:" function
// counts). Blocks until it returns. RTNORM, RTCAN when cancelled, RTERROR when unknown
// (after unknownCommand fired and an error was written).
int acedRunCommand(const ACHAR* name);
// Runs what acedPostCommand queued and what is ready; returns how many commands ran.
int acedRunPostedCommands();
