// Editor reactors: the no-op defaults, the editor's reactor list and the firing helpers.
#include "host/ed/AcEditorReactor.h"

#include <algorithm>

#include "host/rx/AcRxBoiler.h"
#include "host/rx/AcRxDictionary.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcEditorReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcEditor, AcRxObject)

AcEditorReactor::~AcEditorReactor() = default;
void AcEditorReactor::commandWillStart(const ACHAR*) {}
void AcEditorReactor::commandEnded(const ACHAR*) {}
void AcEditorReactor::commandCancelled(const ACHAR*) {}
void AcEditorReactor::commandFailed(const ACHAR*) {}
void AcEditorReactor::unknownCommand(const ACHAR*, void*) {}
void AcEditorReactor::lispWillStart(const ACHAR*) {}
void AcEditorReactor::lispEnded() {}
void AcEditorReactor::lispCancelled() {}
void AcEditorReactor::beginSave(AcDbDatabase*, const ACHAR*) {}
void AcEditorReactor::saveComplete(AcDbDatabase*, const ACHAR*) {}
void AcEditorReactor::abortSave(AcDbDatabase*) {}
void AcEditorReactor::beginDwgOpen(const ACHAR*) {}
void AcEditorReactor::endDwgOpen(const ACHAR*, AcDbDatabase*) {}
void AcEditorReactor::databaseConstructed(AcDbDatabase*) {}
void AcEditorReactor::databaseToBeDestroyed(AcDbDatabase*) {}
void AcEditorReactor::beginClose(AcDbDatabase*) {}
void AcEditorReactor::sysVarWillChange(const ACHAR*) {}
void AcEditorReactor::sysVarChanged(const ACHAR*, Adesk::Boolean) {}
void AcEditorReactor::pickfirstModified() {}
void AcEditorReactor::modelessOperationWillStart(const ACHAR*) {}
void AcEditorReactor::modelessOperationEnded(const ACHAR*) {}

void AcEditor::addReactor(AcEditorReactor* reactor)
{
    if (reactor && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void AcEditor::removeReactor(AcEditorReactor* reactor)
{
    m_reactors.erase(std::remove(m_reactors.begin(), m_reactors.end(), reactor), m_reactors.end());
}

AcEditor* acedEditorPtr()
{
    AcRxDictionary* reg = acrxSysRegistry();
    if (auto* ed = AcEditor::cast(reg->at(ACRX_T("AcEditor"))))
        return ed;
    auto* ed = new AcEditor;  // lives for the process, as the registry does
    reg->atPut(ACRX_T("AcEditor"), ed);
    return ed;
}

namespace {

// Calls fn on each reactor still registered when its turn comes.
template <class Fn>
void Fire(Fn fn)
{
    AcEditor* ed = acedEditorPtr();
    const std::vector<AcEditorReactor*> snapshot = ed->reactors();
    for (AcEditorReactor* r : snapshot) {
        const auto& now = ed->reactors();
        if (std::find(now.begin(), now.end(), r) != now.end())
            fn(r);
    }
}

} // namespace

namespace AcEdEvents {
void commandWillStart(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->commandWillStart(n); }); }
void commandEnded(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->commandEnded(n); }); }
void commandCancelled(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->commandCancelled(n); }); }
void commandFailed(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->commandFailed(n); }); }
void unknownCommand(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->unknownCommand(n, nullptr); }); }
void beginSave(AcDbDatabase* db, const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->beginSave(db, n); }); }
void saveComplete(AcDbDatabase* db, const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->saveComplete(db, n); }); }
void abortSave(AcDbDatabase* db) { Fire([&](AcEditorReactor* r) { r->abortSave(db); }); }
void beginDwgOpen(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->beginDwgOpen(n); }); }
void endDwgOpen(const ACHAR* n, AcDbDatabase* db) { Fire([&](AcEditorReactor* r) { r->endDwgOpen(n, db); }); }
void databaseConstructed(AcDbDatabase* db) { Fire([&](AcEditorReactor* r) { r->databaseConstructed(db); }); }
void beginClose(AcDbDatabase* db) { Fire([&](AcEditorReactor* r) { r->beginClose(db); }); }
void sysVarWillChange(const ACHAR* n) { Fire([&](AcEditorReactor* r) { r->sysVarWillChange(n); }); }
void sysVarChanged(const ACHAR* n, bool ok) { Fire([&](AcEditorReactor* r) { r->sysVarChanged(n, ok); }); }
void pickfirstModified() { Fire([&](AcEditorReactor* r) { r->pickfirstModified(); }); }
} // namespace AcEdEvents
