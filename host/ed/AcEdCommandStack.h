// The command stack: command groups with global and local names, their flags and
// functions, published in the system registry as "ACAD_REGISTERED_COMMANDS".
#pragma once

#include <string>
#include <vector>

#include "host/rx/AcChar.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AcadStrc.h"
#include "host/rx/Adesk.h"
#include "host/win/WinTypes.h"

#define ACRX_CMD_MODAL 0x00000000
#define ACRX_CMD_TRANSPARENT 0x00000001
#define ACRX_CMD_USEPICKSET 0x00000002
#define ACRX_CMD_REDRAW 0x00000004
#define ACRX_CMD_NOPERSPECTIVE 0x00000008
#define ACRX_CMD_NOMULTIPLE 0x00000010
#define ACRX_CMD_NOTILEMODE 0x00000020
#define ACRX_CMD_NOPAPERSPACE 0x00000040
#define ACRX_CMD_PLOTONLY 0x00000080
#define ACRX_CMD_NOOEM 0x00000100
#define ACRX_CMD_UNDEFINED 0x00000200
#define ACRX_CMD_INPROGRESS 0x00000400
#define ACRX_CMD_DEFUN 0x00000800
#define ACRX_CMD_NONEWSTACK 0x00010000
#define ACRX_CMD_NOINTERNALLOCK 0x00020000
#define ACRX_CMD_DOCREADLOCK 0x00080000
#define ACRX_CMD_DOCEXCLUSIVELOCK 0x00100000
#define ACRX_CMD_SESSION 0x00200000
#define ACRX_CMD_INTERRUPTIBLE 0x00400000
#define ACRX_CMD_NOHISTORY 0x00800000
#define ACRX_CMD_NO_UNDO_MARKER 0x01000000
#define ACRX_CMD_NOBEDIT 0x02000000

#define ACRX_COMMAND_DOCK ACRX_T("ACAD_REGISTERED_COMMANDS")

using AcRxFunctionPtr = void (*)();
class AcEdUIContext;

class AcEdCommand : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);
    AcEdCommand(std::wstring group, std::wstring globalName, std::wstring localName, Adesk::Int32 flags,
                AcRxFunctionPtr function, AcEdUIContext* uiContext, int functionCode, HINSTANCE resource);

    AcRxFunctionPtr functionAddr() const { return m_function; }
    void functionAddr(AcRxFunctionPtr fn) { m_function = fn; }
    Adesk::Int32 commandFlags() const { return m_flags; }
    const ACHAR* globalName() const { return m_global.c_str(); }
    const ACHAR* localName() const { return m_local.c_str(); }
    const ACHAR* commandGroup() const { return m_group.c_str(); }
    int functionCode() const { return m_code; }
    AcEdUIContext* UIContext() const { return m_uiContext; }
    HINSTANCE resourceHandle() const { return m_resource; }

private:
    std::wstring m_group;
    std::wstring m_global;
    std::wstring m_local;
    Adesk::Int32 m_flags;
    AcRxFunctionPtr m_function;
    AcEdUIContext* m_uiContext;
    int m_code;
    HINSTANCE m_resource;
};

class AcEdCommandStack;

// Walks the commands group by group (the newest group first), each group in the order its
// commands were added. Must not outlive a change of the stack.
class AcEdCommandIterator {
public:
    explicit AcEdCommandIterator(std::vector<AcEdCommand*> commands) : m_commands(std::move(commands)) {}
    bool done() const { return m_pos >= m_commands.size(); }
    bool next()
    {
        if (!done())
            ++m_pos;
        return !done();
    }
    const AcEdCommand* command() const { return done() ? nullptr : m_commands[m_pos]; }
    const ACHAR* commandGroup() const { return done() ? nullptr : m_commands[m_pos]->commandGroup(); }

private:
    std::vector<AcEdCommand*> m_commands;
    size_t m_pos = 0;
};

class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);
    AcEdCommandStack();
    ~AcEdCommandStack() override;

    // eDuplicateKey when the group already has the global or local name; eInvalidInput
    // for a null or empty name or function. A name in several groups resolves to the
    // newest group's command.
    Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                 const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                 AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext = nullptr,
                                 int fcode = -1, HINSTANCE hResourceHandle = nullptr,
                                 AcEdCommand** cmdPtrRet = nullptr);
    // Names ignore case. lookupCmd looks at global names first, then local ones.
    AcEdCommand* lookupGlobalCmd(const ACHAR* cmdName);
    AcEdCommand* lookupLocalCmd(const ACHAR* cmdName);
    AcEdCommand* lookupCmd(const ACHAR* cmdName, bool globalFlag);
    AcEdCommand* lookupCmd(const ACHAR* cmdName);
    // eKeyNotFound when missing. A command that is running stays alive until it returns.
    Acad::ErrorStatus removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName);
    Acad::ErrorStatus removeGroup(const ACHAR* groupName);
    // Makes the group the first searched.
    Acad::ErrorStatus popGroupToTop(const ACHAR* groupName);
    AcEdCommandIterator* iterator();  // the caller deletes it
    int commandCount() const;

private:
    struct Group {
        std::wstring name;
        std::vector<AcEdCommand*> commands;
    };
    Group* findGroup(const ACHAR* name);
    std::vector<Group> m_groups;  // newest last
    std::vector<AcEdCommand*> m_retired;  // removed while possibly running
};

// The stack in the system registry (made on first use).
AcEdCommandStack* acedRegCmdsPtr();
#define acedRegCmds (acedRegCmdsPtr())
