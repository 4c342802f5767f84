// Wiring the host layers together at start-up, and taking them down at the end.
#include "host/ap/ApHost.h"

#include <vector>

#include "host/ap/AcApDocManager.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/ap/ApCommands.h"
#include "host/ap/ApPicker.h"
#include "host/dxf/DxfFileIo.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/ed/AcEditorReactor.h"

namespace {

// Documents closed during a command are deleted once it has ended.
class ClosedDocumentSweeper : public AcEditorReactor {
public:
    void commandEnded(const ACHAR*) override { acDocManager->flushClosed(); }
    void commandCancelled(const ACHAR*) override { acDocManager->flushClosed(); }
    void commandFailed(const ACHAR*) override { acDocManager->flushClosed(); }
};

// The documents whose automatic lock each running command level took.
std::vector<AcApDocument*>& commandLocks()
{
    static std::vector<AcApDocument*> locks;
    return locks;
}

// A document closed by a running command has no lock left to release.
class LockForgetter : public AcApDocManagerReactor {
public:
    void documentToBeDestroyed(AcApDocument* doc) override
    {
        for (AcApDocument*& d : commandLocks())
            if (d == doc)
                d = nullptr;
    }
};

void commandScope(const AcEdCommand*, bool begin)
{
    std::vector<AcApDocument*>& locks = commandLocks();
    if (begin) {
        AcApDocument* doc = acDocManager->curDocument();
        if (doc && acDocManager->lockDocument(doc, AcAp::kAutoWrite) != Acad::eOk)
            doc = nullptr;
        locks.push_back(doc);
        return;
    }
    if (locks.empty())
        return;
    AcApDocument* doc = locks.back();
    locks.pop_back();
    if (doc)
        acDocManager->unlockDocument(doc);
}

bool gStarted = false;

} // namespace

void apHostStartup()
{
    if (gStarted)
        return;
    gStarted = true;
    dxfInstallFileIo();
    static ApPicker picker;
    acedSetPicker(&picker);
    static ClosedDocumentSweeper sweeper;
    acedEditor->addReactor(&sweeper);
    static LockForgetter forgetter;
    acDocManager->addReactor(&forgetter);
    AcEdHooks::setCommandScope(commandScope);
    AcEdHooks::setGripDrag(apGripDrag);
    acrxDynamicLinker->loadedModules();  // makes the linker
    apRegisterHostCommands();
}

void apHostShutdown()
{
    acDocManager->closeAll();
    acDocManager->flushClosed();
    acrxDynamicLinker->quit();
}
