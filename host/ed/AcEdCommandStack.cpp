// The command stack: groups of commands found by global or local name, case ignored.
#include "host/ed/AcEdCommandStack.h"

#include "host/ed/EdCore.h"
#include "host/rx/AcRxBoiler.h"
#include "host/rx/AcRxDictionary.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommand, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

AcEdCommand::AcEdCommand(std::wstring group, std::wstring globalName, std::wstring localName, Adesk::Int32 flags,
                         AcRxFunctionPtr function, AcEdUIContext* uiContext, int functionCode, HINSTANCE resource)
    : m_group(std::move(group)), m_global(std::move(globalName)), m_local(std::move(localName)), m_flags(flags),
      m_function(function), m_uiContext(uiContext), m_code(functionCode), m_resource(resource)
{
}

AcEdCommandStack::AcEdCommandStack() = default;

AcEdCommandStack::~AcEdCommandStack()
{
    for (Group& g : m_groups)
        for (AcEdCommand* c : g.commands)
            delete c;
    for (AcEdCommand* c : m_retired)
        delete c;
}

AcEdCommandStack::Group* AcEdCommandStack::findGroup(const ACHAR* name)
{
    if (!name)
        return nullptr;
    for (Group& g : m_groups)
        if (eded::equalsNoCase(g.name, name))
            return &g;
    return nullptr;
}

Acad::ErrorStatus AcEdCommandStack::addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                               const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                               AcRxFunctionPtr functionAddr, AcEdUIContext* UIContext, int fcode,
                                               HINSTANCE hResourceHandle, AcEdCommand** cmdPtrRet)
{
    if (cmdPtrRet)
        *cmdPtrRet = nullptr;
    if (!cmdGroupName || !*cmdGroupName || !cmdGlobalName || !*cmdGlobalName || !functionAddr)
        return Acad::eInvalidInput;
    const std::wstring local = cmdLocalName && *cmdLocalName ? cmdLocalName : cmdGlobalName;
    Group* g = findGroup(cmdGroupName);
    if (g) {
        for (const AcEdCommand* c : g->commands)
            if (eded::equalsNoCase(c->globalName(), cmdGlobalName) || eded::equalsNoCase(c->localName(), local))
                return Acad::eDuplicateKey;
    } else {
        m_groups.push_back(Group{cmdGroupName, {}});
        g = &m_groups.back();
    }
    auto* cmd = new AcEdCommand(g->name, cmdGlobalName, local, commandFlags, functionAddr, UIContext, fcode,
                                hResourceHandle);
    g->commands.push_back(cmd);
    if (cmdPtrRet)
        *cmdPtrRet = cmd;
    return Acad::eOk;
}

AcEdCommand* AcEdCommandStack::lookupCmd(const ACHAR* cmdName, bool globalFlag)
{
    if (!cmdName || !*cmdName)
        return nullptr;
    for (auto g = m_groups.rbegin(); g != m_groups.rend(); ++g)
        for (AcEdCommand* c : g->commands)
            if (eded::equalsNoCase(globalFlag ? c->globalName() : c->localName(), cmdName))
                return c;
    return nullptr;
}

AcEdCommand* AcEdCommandStack::lookupGlobalCmd(const ACHAR* cmdName)
{
    return lookupCmd(cmdName, true);
}

AcEdCommand* AcEdCommandStack::lookupLocalCmd(const ACHAR* cmdName)
{
    return lookupCmd(cmdName, false);
}

AcEdCommand* AcEdCommandStack::lookupCmd(const ACHAR* cmdName)
{
    if (AcEdCommand* c = lookupCmd(cmdName, true))
        return c;
    return lookupCmd(cmdName, false);
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName)
{
    Group* g = findGroup(cmdGroupName);
    if (!g || !cmdGlobalName)
        return Acad::eKeyNotFound;
    for (auto it = g->commands.begin(); it != g->commands.end(); ++it)
        if (eded::equalsNoCase((*it)->globalName(), cmdGlobalName)) {
            m_retired.push_back(*it);
            g->commands.erase(it);
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const ACHAR* groupName)
{
    for (auto it = m_groups.begin(); it != m_groups.end(); ++it)
        if (groupName && eded::equalsNoCase(it->name, groupName)) {
            for (AcEdCommand* c : it->commands)
                m_retired.push_back(c);
            m_groups.erase(it);
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::popGroupToTop(const ACHAR* groupName)
{
    for (auto it = m_groups.begin(); it != m_groups.end(); ++it)
        if (groupName && eded::equalsNoCase(it->name, groupName)) {
            Group g = std::move(*it);
            m_groups.erase(it);
            m_groups.push_back(std::move(g));
            return Acad::eOk;
        }
    return Acad::eKeyNotFound;
}

AcEdCommandIterator* AcEdCommandStack::iterator()
{
    std::vector<AcEdCommand*> all;
    for (auto g = m_groups.rbegin(); g != m_groups.rend(); ++g)
        all.insert(all.end(), g->commands.begin(), g->commands.end());
    return new AcEdCommandIterator(std::move(all));
}

int AcEdCommandStack::commandCount() const
{
    int n = 0;
    for (const Group& g : m_groups)
        n += static_cast<int>(g.commands.size());
    return n;
}

AcEdCommandStack* acedRegCmdsPtr()
{
    AcRxDictionary* reg = acrxSysRegistry();
    if (auto* stack = AcEdCommandStack::cast(reg->at(ACRX_COMMAND_DOCK)))
        return stack;
    auto* stack = new AcEdCommandStack;  // lives for the process, as the registry does
    reg->atPut(ACRX_COMMAND_DOCK, stack);
    return stack;
}
