// Editor reactors and the editor object that holds them, published in the system registry
// as "AcEditor". The editor fires the command and variable events; the document layer
// fires the drawing events through the fire functions below.
#pragma once

#include <vector>

#include "host/rx/AcChar.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/Adesk.h"

class AcDbDatabase;

class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);
    ~AcEditorReactor() override;

    virtual void commandWillStart(const ACHAR* cmdStr);
    virtual void commandEnded(const ACHAR* cmdStr);
    virtual void commandCancelled(const ACHAR* cmdStr);
    virtual void commandFailed(const ACHAR* cmdStr);
    virtual void unknownCommand(const ACHAR* cmdStr, void* al);
    virtual void lispWillStart(const ACHAR* firstLine);
    virtual void lispEnded();
    virtual void lispCancelled();
    virtual void beginSave(AcDbDatabase* db, const ACHAR* pIntendedName);
    virtual void saveComplete(AcDbDatabase* db, const ACHAR* pActualName);
    virtual void abortSave(AcDbDatabase* db);
    virtual void beginDwgOpen(const ACHAR* filename);
    virtual void endDwgOpen(const ACHAR* filename, AcDbDatabase* db);
    virtual void databaseConstructed(AcDbDatabase* db);
    virtual void databaseToBeDestroyed(AcDbDatabase* db);
    virtual void beginClose(AcDbDatabase* db);
    virtual void sysVarWillChange(const ACHAR* varName);
    virtual void sysVarChanged(const ACHAR* varName, Adesk::Boolean success);
    virtual void pickfirstModified();
    virtual void modelessOperationWillStart(const ACHAR* contextStr);
    virtual void modelessOperationEnded(const ACHAR* contextStr);
};

// The editor: the reactor list. Reactors are not owned; one added twice is kept once; a
// reactor removed during an event gets no later events of it.
class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);
    void addReactor(AcEditorReactor* reactor);
    void removeReactor(AcEditorReactor* reactor);
    const std::vector<AcEditorReactor*>& reactors() const { return m_reactors; }

private:
    std::vector<AcEditorReactor*> m_reactors;
};

// The editor in the system registry (made on first use).
AcEditor* acedEditorPtr();
#define acedEditor (acedEditorPtr())

// Firing, for the host's layers. Each calls every reactor in the order added.
namespace AcEdEvents {
void commandWillStart(const ACHAR* name);
void commandEnded(const ACHAR* name);
void commandCancelled(const ACHAR* name);
void commandFailed(const ACHAR* name);
void unknownCommand(const ACHAR* name);
void beginSave(AcDbDatabase* db, const ACHAR* intendedName);
void saveComplete(AcDbDatabase* db, const ACHAR* actualName);
void abortSave(AcDbDatabase* db);
void beginDwgOpen(const ACHAR* filename);
void endDwgOpen(const ACHAR* filename, AcDbDatabase* db);
void databaseConstructed(AcDbDatabase* db);
void databaseToBeDestroyed(AcDbDatabase* db);
void beginClose(AcDbDatabase* db);
void sysVarWillChange(const ACHAR* name);
void sysVarChanged(const ACHAR* name, bool success);
void pickfirstModified();
} // namespace AcEdEvents
