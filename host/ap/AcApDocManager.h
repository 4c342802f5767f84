// Open drawings: the document manager (acDocManager), its documents with their locks, and
// the reactors that hear of documents being made, switched and closed. The working database
// follows the current document.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/ap/AcAp.h"
#include "host/ed/AcEdWindow.h"
#include "host/rx/AcChar.h"
#include "host/rx/AcRxObject.h"
#include "host/rx/AcadStrc.h"

class AcDbDatabase;

class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument);
    ~AcApDocument() override;

    AcDbDatabase* database() const { return m_db; }
    // The full path of the drawing's file; for a new drawing its name ("Drawing1.dxf").
    const ACHAR* fileName() const { return m_fileName.c_str(); }
    // The name shown in a title bar: the file name without the folder.
    const ACHAR* docTitle() const { return m_title.c_str(); }
    // The mode of the newest lock held (kNotLocked when none): kAutoWrite while only a
    // running command holds it, kWrite after an explicit lockDocument.
    AcAp::DocLockMode myLockMode() const;
    // The strongest mode among all locks held (kNotLocked when none). With
    // bIncludeMyLocks false the same here: there is one execution context.
    AcAp::DocLockMode lockMode(bool bIncludeMyLocks = false) const;
    // How many locks are held.
    int lockCount() const { return static_cast<int>(m_locks.size()); }
    // No command is running in this document.
    bool isQuiescent() const;
    bool isReadOnly() const { return false; }
    // True for a drawing made new and not saved yet.
    bool isNew() const { return m_new; }

private:
    friend class AcApDocManager;
    AcApDocument(AcDbDatabase* db, std::wstring fileName, bool isNew);
    void setFileName(const std::wstring& path);

    AcDbDatabase* m_db;
    std::wstring m_fileName;
    std::wstring m_title;
    bool m_new;
    std::vector<AcAp::DocLockMode> m_locks;  // newest last
    AcEdViewState m_view;                    // the view while another drawing is current
};

// Walks the open documents in the order they were opened. The caller deletes it.
class AcApDocumentIterator {
public:
    explicit AcApDocumentIterator(std::vector<AcApDocument*> docs) : m_docs(std::move(docs)) {}
    bool done() const { return m_pos >= m_docs.size(); }
    void step()
    {
        if (!done())
            ++m_pos;
    }
    AcApDocument* document() { return done() ? nullptr : m_docs[m_pos]; }

private:
    std::vector<AcApDocument*> m_docs;
    size_t m_pos = 0;
};

class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);
    ~AcApDocManagerReactor() override;

    virtual void documentCreateStarted(AcApDocument* doc);
    virtual void documentCreated(AcApDocument* doc);
    virtual void documentCreateCanceled(AcApDocument* doc);
    virtual void documentToBeDestroyed(AcApDocument* doc);
    virtual void documentDestroyed(const ACHAR* fileName);
    virtual void documentLockModeChanged(AcApDocument* doc, AcAp::DocLockMode myPreviousMode,
                                         AcAp::DocLockMode myCurrentMode, AcAp::DocLockMode currentMode,
                                         const ACHAR* globalCommandName);
    virtual void documentBecameCurrent(AcApDocument* doc);
    virtual void documentToBeActivated(AcApDocument* doc);
    virtual void documentToBeDeactivated(AcApDocument* doc);
    virtual void documentActivated(AcApDocument* doc);
};

class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager);
    AcApDocManager();
    ~AcApDocManager() override;

    // The document commands work in; null while no drawing is open.
    AcApDocument* curDocument() const { return m_current; }
    // The document shown on top (the same as the current one here).
    AcApDocument* mdiActiveDocument() const { return m_active; }
    int documentCount() const { return static_cast<int>(m_docs.size()); }
    AcApDocumentIterator* newAcApDocumentIterator() const;
    // The document of a database, or null.
    AcApDocument* document(const AcDbDatabase* db) const;

    // Locks count per document; each unlockDocument releases the newest lock. eInvalidInput
    // for a document that is not open or a mode that is no lock; eNotApplicable when
    // unlocking a document that holds no lock.
    Acad::ErrorStatus lockDocument(AcApDocument* doc, AcAp::DocLockMode mode = AcAp::kWrite,
                                   const ACHAR* globalCmdName = nullptr, const ACHAR* localCmdName = nullptr,
                                   bool prompt = true);
    Acad::ErrorStatus unlockDocument(AcApDocument* doc);

    // True outside commands (the modeless panel's world) and inside
    // executeInApplicationContext.
    bool isApplicationContext() const;
    // Calls fn(data) at once in application context.
    void executeInApplicationContext(void (*fn)(void*), void* data);
    // Scripted input still waiting (always 0: the script is read as prompts ask).
    int inputPending(AcApDocument* doc) const;

    // A new drawing from the template file, or from the built-in metric template when
    // the name is null or empty. It becomes current and active.
    Acad::ErrorStatus appContextNewDocument(const ACHAR* templateName);
    // Opens a DXF drawing (one already open is only activated). It becomes current.
    Acad::ErrorStatus appContextOpenDocument(const ACHAR* fileName);
    // The forms used inside commands: the same here.
    Acad::ErrorStatus newDocument() { return appContextNewDocument(nullptr); }
    Acad::ErrorStatus openDocument(const ACHAR* fileName) { return appContextOpenDocument(fileName); }
    // Makes the document current and active; the working database follows.
    Acad::ErrorStatus activateDocument(AcApDocument* doc, bool bPassScript = false);
    Acad::ErrorStatus setCurDocument(AcApDocument* doc, AcAp::DocLockMode mode = AcAp::kNone,
                                     bool activate = false);
    // Closes without saving. The database is deleted once no command runs.
    Acad::ErrorStatus closeDocument(AcApDocument* doc);
    // Makes the document current and posts the string to the command line.
    Acad::ErrorStatus sendStringToExecute(AcApDocument* doc, const ACHAR* pszExecute, bool bActivate = true,
                                          bool bWrapUpInactiveDoc = false, bool bEchoString = true);

    // Saves the document's drawing as DXF with the save events (beginSave, kSaveMsg,
    // saveComplete or abortSave). A null or empty path saves under the document's name.
    // On success the document takes the new name. The error text is in *error.
    Acad::ErrorStatus saveDocument(AcApDocument* doc, const ACHAR* path, std::wstring* error = nullptr);

    // Reactors are not owned; one added twice is kept once.
    void addReactor(AcApDocManagerReactor* reactor);
    void removeReactor(AcApDocManagerReactor* reactor);

    // Closes every document (at the end of a session).
    void closeAll();
    // Deletes the databases of documents closed while a command ran, once none runs.
    void flushClosed();
    // The message of the last failed open or save.
    const std::wstring& lastError() const { return m_lastError; }

private:
    friend class ApDocAccess;
    Acad::ErrorStatus addDocument(AcDbDatabase* db, const std::wstring& fileName, bool isNew);
    void makeCurrent(AcApDocument* doc, bool activate);
    template <class F>
    void fire(F f);
    bool isOpen(const AcApDocument* doc) const;

    std::vector<AcApDocument*> m_docs;
    AcApDocument* m_current = nullptr;
    AcApDocument* m_active = nullptr;
    std::vector<AcApDocManagerReactor*> m_reactors;
    std::vector<AcDbDatabase*> m_closed;  // awaiting deletion
    // Each drawing has its own AutoLISP functions; the editor's table holds the current one's.
    std::map<const AcApDocument*, std::vector<std::pair<std::wstring, short>>> m_functions;
    int m_appContext = 0;
    int m_newCount = 0;
    std::wstring m_lastError;
};

// The process's document manager (made on first use).
AcApDocManager* acDocManagerPtr();
#define acDocManager (acDocManagerPtr())

// Where the document manager tells the module loader about documents; the dynamic linker
// installs itself here. Internal to host/ap.
struct ApDocumentListener {
    virtual ~ApDocumentListener() = default;
    virtual void documentOpened(AcApDocument* doc) = 0;   // after it became current
    virtual void documentClosing(AcApDocument* doc) = 0;  // while it is still current
    virtual void documentSaving(AcApDocument* doc) = 0;
};
void apSetDocumentListener(ApDocumentListener* listener);
