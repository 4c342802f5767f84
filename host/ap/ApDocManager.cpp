// The document manager: open drawings, the current one, lock counting, and the open, new,
// save and close sequences with their events.
#include "host/ap/AcApDocManager.h"

#include <algorithm>
#include <filesystem>

#include "host/ap/ApTemplate.h"
#include "host/ap/ApText.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/dxf/DxfFileIo.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEditorReactor.h"
#include "host/rx/AcRxBoiler.h"
#include "host/win/WinText.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

namespace {

ApDocumentListener* gListener = nullptr;

// How strong a lock mode is, for lockMode().
int strength(AcAp::DocLockMode m)
{
    switch (m) {
    case AcAp::kXWrite: return 5;
    case AcAp::kWrite: return 4;
    case AcAp::kProtectedAutoWrite: return 3;
    case AcAp::kAutoWrite: return 2;
    case AcAp::kRead: return 1;
    default: return 0;
    }
}

// The first view of a drawing: one centimetre per pixel in its units, the world origin at
// the lower left of the view, so the pick box is a few centimetres wide.
AcEdViewState initialView(const AcDbDatabase* db)
{
    AcEdViewState view;
    switch (db ? db->insunits() : AcDb::kUnitsUndefined) {
    case AcDb::kUnitsMeters: view.unitsPerPixel = 0.01; break;
    case AcDb::kUnitsMillimeters: view.unitsPerPixel = 10.0; break;
    default: view.unitsPerPixel = 1.0; break;
    }
    view.center = AcGePoint3d(view.width / 2.0 * view.unitsPerPixel, view.height / 2.0 * view.unitsPerPixel, 0.0);
    return view;
}

bool isLockMode(AcAp::DocLockMode m)
{
    return strength(m) > 0;
}

std::wstring absolutePath(const std::wstring& path)
{
    std::error_code ec;
    const std::filesystem::path p = std::filesystem::absolute(std::filesystem::path(apText::utf8(path)), ec);
    return ec ? path : apText::wide(p.lexically_normal().string());
}

} // namespace

void apSetDocumentListener(ApDocumentListener* listener)
{
    gListener = listener;
}

// AcApDocument --------------------------------------------------------------------------

AcApDocument::AcApDocument(AcDbDatabase* db, std::wstring fileName, bool isNew)
    : m_db(db), m_new(isNew), m_view(initialView(db))
{
    setFileName(fileName);
}

AcApDocument::~AcApDocument() = default;

void AcApDocument::setFileName(const std::wstring& path)
{
    m_fileName = path;
    m_title = apText::baseName(path);
}

AcAp::DocLockMode AcApDocument::myLockMode() const
{
    return m_locks.empty() ? AcAp::kNotLocked : m_locks.back();
}

AcAp::DocLockMode AcApDocument::lockMode(bool) const
{
    AcAp::DocLockMode best = AcAp::kNotLocked;
    for (AcAp::DocLockMode m : m_locks)
        if (strength(m) > strength(best))
            best = m;
    return best;
}

bool AcApDocument::isQuiescent() const
{
    return acDocManager->curDocument() != this || !acedIsCommandActive();
}

// Reactors --------------------------------------------------------------------------------

AcApDocManagerReactor::~AcApDocManagerReactor()
{
    acDocManager->removeReactor(this);
}
void AcApDocManagerReactor::documentCreateStarted(AcApDocument*) {}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentCreateCanceled(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentDestroyed(const ACHAR*) {}
void AcApDocManagerReactor::documentLockModeChanged(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode,
                                                    AcAp::DocLockMode, const ACHAR*)
{
}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}

// AcApDocManager ------------------------------------------------------------------------------

AcApDocManager* acDocManagerPtr()
{
    static AcApDocManager* manager = new AcApDocManager();  // lives as long as the process
    return manager;
}

AcApDocManager::AcApDocManager() = default;

AcApDocManager::~AcApDocManager()
{
    closeAll();
    flushClosed();
}

template <class F>
void AcApDocManager::fire(F f)
{
    // A reactor may remove itself (or another) while it is called.
    const std::vector<AcApDocManagerReactor*> reactors = m_reactors;
    for (AcApDocManagerReactor* r : reactors)
        if (std::find(m_reactors.begin(), m_reactors.end(), r) != m_reactors.end())
            f(r);
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor)
{
    if (reactor && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor)
{
    m_reactors.erase(std::remove(m_reactors.begin(), m_reactors.end(), reactor), m_reactors.end());
}

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator() const
{
    return new AcApDocumentIterator(m_docs);
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* db) const
{
    if (!db)
        return nullptr;
    for (AcApDocument* d : m_docs)
        if (d->database() == db)
            return d;
    return nullptr;
}

bool AcApDocManager::isOpen(const AcApDocument* doc) const
{
    return doc && std::find(m_docs.begin(), m_docs.end(), doc) != m_docs.end();
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* doc, AcAp::DocLockMode mode, const ACHAR* globalCmdName,
                                              const ACHAR*, bool)
{
    if (!isOpen(doc) || !isLockMode(mode))
        return Acad::eInvalidInput;
    const AcAp::DocLockMode before = doc->myLockMode();
    doc->m_locks.push_back(mode);
    fire([&](AcApDocManagerReactor* r) {
        r->documentLockModeChanged(doc, before, doc->myLockMode(), doc->lockMode(), globalCmdName ? globalCmdName : L"");
    });
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* doc)
{
    if (!isOpen(doc))
        return Acad::eInvalidInput;
    if (doc->m_locks.empty())
        return Acad::eNotApplicable;
    const AcAp::DocLockMode before = doc->myLockMode();
    doc->m_locks.pop_back();
    fire([&](AcApDocManagerReactor* r) {
        r->documentLockModeChanged(doc, before, doc->myLockMode(), doc->lockMode(), L"");
    });
    return Acad::eOk;
}

bool AcApDocManager::isApplicationContext() const
{
    return m_appContext > 0 || !acedIsCommandActive();
}

void AcApDocManager::executeInApplicationContext(void (*fn)(void*), void* data)
{
    if (!fn)
        return;
    ++m_appContext;
    try {
        fn(data);
    } catch (...) {
        --m_appContext;
        throw;
    }
    --m_appContext;
}

int AcApDocManager::inputPending(AcApDocument*) const
{
    return 0;
}

void AcApDocManager::makeCurrent(AcApDocument* doc, bool activate)
{
    if (activate && doc != m_active) {
        if (m_active)
            fire([&](AcApDocManagerReactor* r) { r->documentToBeDeactivated(m_active); });
        if (doc)
            fire([&](AcApDocManagerReactor* r) { r->documentToBeActivated(doc); });
    }
    const bool changed = doc != m_current;
    if (changed) {
        // Swap the AutoLISP functions: the leaving drawing keeps its own.
        if (isOpen(m_current)) {
            m_functions[m_current] = acedDefinedFunctions();
            m_current->m_view = acedGetViewState();
        }
        for (const auto& f : acedDefinedFunctions())
            acedUndef(f.first.c_str(), f.second);
        if (doc) {
            for (const auto& f : m_functions[doc])
                acedDefun(f.first.c_str(), f.second);
            acedSetViewState(doc->m_view);
        }
    }
    m_current = doc;
    acdbHostApplicationServices()->setWorkingDatabase(doc ? doc->database() : nullptr);
    if (changed && doc)
        fire([&](AcApDocManagerReactor* r) { r->documentBecameCurrent(doc); });
    if (activate && doc != m_active) {
        m_active = doc;
        if (doc)
            fire([&](AcApDocManagerReactor* r) { r->documentActivated(doc); });
    }
}

Acad::ErrorStatus AcApDocManager::addDocument(AcDbDatabase* db, const std::wstring& fileName, bool isNew)
{
    AcApDocument* doc = new AcApDocument(db, fileName, isNew);
    fire([&](AcApDocManagerReactor* r) { r->documentCreateStarted(doc); });
    m_docs.push_back(doc);
    makeCurrent(doc, true);
    fire([&](AcApDocManagerReactor* r) { r->documentCreated(doc); });
    if (gListener)
        gListener->documentOpened(doc);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::appContextNewDocument(const ACHAR* templateName)
{
    m_lastError.clear();
    AcDbDatabase* db = nullptr;
    if (templateName && *templateName) {
        db = new AcDbDatabase(false);
        const Acad::ErrorStatus es = db->readDwgFile(templateName);
        if (es != Acad::eOk) {
            m_lastError = L"cannot read the template " + std::wstring(templateName) + L": " +
                          apText::wide(dxfLastError());
            delete db;
            return es;
        }
        db->setFilename(L"");
        db->clearUndo();
    } else {
        db = new AcDbDatabase(true);
        apApplyDefaultTemplate(db);
    }
    AcEdEvents::databaseConstructed(db);
    const std::wstring name = L"Drawing" + std::to_wstring(++m_newCount) + L".dxf";
    return addDocument(db, name, true);
}

Acad::ErrorStatus AcApDocManager::appContextOpenDocument(const ACHAR* fileName)
{
    m_lastError.clear();
    if (!fileName || !*fileName) {
        m_lastError = L"no file name given";
        return Acad::eInvalidInput;
    }
    const std::wstring path = absolutePath(fileName);
    for (AcApDocument* d : m_docs)
        if (svwin::EqualNoCase(d->fileName(), path))
            return activateDocument(d);

    AcEdEvents::beginDwgOpen(path.c_str());
    AcDbDatabase* db = new AcDbDatabase(false);
    const Acad::ErrorStatus es = db->readDwgFile(path.c_str());
    if (es != Acad::eOk) {
        const std::string why = dxfLastError();
        m_lastError = why.empty() ? std::wstring(L"cannot read ") + fileName + L": " + acadErrorStatusText(es)
                                  : apText::wide(why);
        delete db;
        return es;
    }
    db->clearUndo();
    db->setDbmod(0);
    AcEdEvents::endDwgOpen(path.c_str(), db);
    return addDocument(db, path, false);
}

Acad::ErrorStatus AcApDocManager::activateDocument(AcApDocument* doc, bool)
{
    if (!isOpen(doc))
        return Acad::eInvalidInput;
    makeCurrent(doc, true);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* doc, AcAp::DocLockMode mode, bool activate)
{
    if (!isOpen(doc))
        return Acad::eInvalidInput;
    makeCurrent(doc, activate);
    if (isLockMode(mode))
        return lockDocument(doc, mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::closeDocument(AcApDocument* doc)
{
    if (!isOpen(doc))
        return Acad::eInvalidInput;
    // The module hears of the close while the drawing is still the current one.
    AcApDocument* previous = m_current;
    if (m_current != doc)
        makeCurrent(doc, false);
    AcDbDatabase* db = doc->database();
    AcEdEvents::beginClose(db);
    fire([&](AcApDocManagerReactor* r) { r->documentToBeDestroyed(doc); });
    if (gListener)
        gListener->documentClosing(doc);

    m_docs.erase(std::find(m_docs.begin(), m_docs.end(), doc));
    m_functions.erase(doc);
    for (const auto& f : acedDefinedFunctions())
        acedUndef(f.first.c_str(), f.second);
    const std::wstring name = doc->fileName();
    if (m_active == doc)
        m_active = nullptr;
    m_current = nullptr;
    AcApDocument* next = previous != doc && isOpen(previous) ? previous : (m_docs.empty() ? nullptr : m_docs.back());
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    delete doc;
    AcEdEvents::databaseToBeDestroyed(db);
    m_closed.push_back(db);
    if (!acedIsCommandActive())
        flushClosed();
    fire([&](AcApDocManagerReactor* r) { r->documentDestroyed(name.c_str()); });
    makeCurrent(next, true);
    return Acad::eOk;
}

void AcApDocManager::flushClosed()
{
    // A command's undo group still refers to its database until the command returns.
    if (acedIsCommandActive())
        return;
    std::vector<AcDbDatabase*> closed;
    closed.swap(m_closed);
    for (AcDbDatabase* db : closed)
        delete db;
}

void AcApDocManager::closeAll()
{
    while (!m_docs.empty())
        closeDocument(m_docs.back());
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* doc, const ACHAR* pszExecute, bool bActivate,
                                                      bool, bool)
{
    if (!isOpen(doc) || !pszExecute)
        return Acad::eInvalidInput;
    if (doc != m_current || bActivate)
        makeCurrent(doc, bActivate);
    acedPostCommand(pszExecute);
    return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::saveDocument(AcApDocument* doc, const ACHAR* path, std::wstring* error)
{
    m_lastError.clear();
    if (!isOpen(doc))
        return Acad::eInvalidInput;
    AcDbDatabase* db = doc->database();
    const std::wstring target = path && *path ? absolutePath(path) : std::wstring(doc->fileName());
    AcEdEvents::beginSave(db, target.c_str());
    if (gListener)
        gListener->documentSaving(doc);
    const Acad::ErrorStatus es = db->saveAs(target.c_str(), true);
    if (es != Acad::eOk) {
        const std::string why = dxfLastError();
        m_lastError = why.empty() ? L"cannot save " + target + L": " + acadErrorStatusText(es) : apText::wide(why);
        if (error)
            *error = m_lastError;
        AcEdEvents::abortSave(db);
        return es;
    }
    db->setDbmod(0);
    doc->setFileName(target);
    doc->m_new = false;
    AcEdEvents::saveComplete(db, target.c_str());
    return Acad::eOk;
}
