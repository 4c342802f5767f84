// The working database and the open documents: lookup by database and by file name, and
// switching the current document.
#include "services/Documents.h"

#include "host/ap/AcApDocManager.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/rx/acutPrintf.h"
#include "host/win/CaseFold.h"
#include "services/DocumentWalk.h"
#include "services/Guard.h"
#include "services/Locks.h"
#include "services/Messages.h"
#include "services/PanelLink.h"
#include "services/Trace.h"

namespace {

AcDbDatabase* WorkingDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

std::wstring FileKey(const wchar_t* name)
{
    std::wstring key = svwin::FoldCase(name ? name : L"");
    for (wchar_t& ch : key)
        if (ch == L'\\')
            ch = L'/';
    return key;
}

// A name as a list shows it: "plan.dxf *" for a modified drawing.
CString WithoutModifiedMark(const wchar_t* fileName)
{
    CString strName(fileName ? fileName : L"");
    const int iStar = strName.Find(L'*');
    if (iStar > 0)
        strName = strName.Left(iStar - 1);
    return strName;
}

bool EndsWithDrawingExtension(const wchar_t* fileName)
{
    const std::wstring key = FileKey(fileName);
    const std::wstring ext = FileKey(kDrawingExtension);
    return key.size() >= ext.size() && key.compare(key.size() - ext.size(), ext.size(), ext) == 0;
}

void LockAndNote(AcApDocument* pDoc)
{
    acDocManager->lockDocument(pDoc, AcAp::kWrite, nullptr, nullptr, true);
    LockDb(pDoc->database());  // notes the name; the write lock is held already
}

} // namespace

AcDbDatabase* acdbCurDwg()
{
    AcDbDatabase* pResult = nullptr;
    const bool bOk = RunGuarded([&] {
        if ((pResult = WorkingDatabase()))
            return;
        Trace(L"\n **** acdbCurDwg() workingDatabase = NULL !!!");
        if (PanelExists())
            acutPrintf(L"\nworkingDatabase=NULL!");
        SetCurrentDocument();
        if ((pResult = WorkingDatabase()))
            return;
        if (acDocManager && acDocManager->curDocument()) {
            pResult = acDocManager->curDocument()->database();
            return;
        }
        Trace(L"\n **** !acDocManager || !acDocManager->curDocument()\n");
    });
    if (!bOk) {
        Trace(L"\n **** acdbCurDwg() ANY ERROR");
        pResult = nullptr;
    }
    return pResult;
}

void SetCurrentDocument()
{
    WalkDocuments(L"SetCurrentDocument", [](AcApDocument* pDoc) {
        if (!WorkingDatabase() && pDoc)
            acdbHostApplicationServices()->setWorkingDatabase(pDoc->database());
        return true;
    });
    if (!acDocManager || !acDocManager->curDocument())
        PanelEndApp();
}

bool IsSameFileName(const wchar_t* a, const wchar_t* b)
{
    return FileKey(a) == FileKey(b);
}

AcApDocument* DocumentOf(const AcDbDatabase* pDb)
{
    AcApDocument* pFound = nullptr;
    if (pDb)
        WalkDocuments(L"DocumentOf", [&](AcApDocument* pDoc) {
            if (pDoc->database() == pDb)
                pFound = pDoc;
            return pFound != nullptr;
        });
    return pFound;
}

AcApDocument* DocumentOfFile(const wchar_t* fileName)
{
    AcApDocument* pFound = nullptr;
    if (fileName && *fileName)
        WalkDocuments(L"DocumentOfFile", [&](AcApDocument* pDoc) {
            if (IsSameFileName(pDoc->fileName(), fileName))
                pFound = pDoc;
            return pFound != nullptr;
        });
    return pFound;
}

AcDbDatabase* GetFromEditor(const wchar_t* fileName)
{
    AcApDocument* pDoc = DocumentOfFile(WithoutModifiedMark(fileName));
    return pDoc ? pDoc->database() : nullptr;
}

int IsDocumentOpen(const wchar_t* fileName)
{
    return DocumentOfFile(WithoutModifiedMark(fileName)) ? 1 : 0;
}

CString GetCurrentDWGName()
{
    AcApDocument* pDoc = acDocManager ? acDocManager->curDocument() : nullptr;
    if (!pDoc) {
        Trace(L"****GetCurrentDWGName !pDoc !!!!");
        return CString();
    }
    return CString(pDoc->fileName());
}

int GetDatabases(CPtrArray& databases)
{
    int iCount = 0;
    WalkDocuments(L"GetDatabases", [&](AcApDocument* pDoc) {
        databases.Add(pDoc->database());
        ++iCount;
        return false;
    });
    return iCount;
}

void GetOpenDrawings(CStringArray& names, int includeCurrent)
{
    const AcApDocument* pCurrent = acDocManager ? acDocManager->curDocument() : nullptr;
    WalkDocuments(L"GetOpenDrawings", [&](AcApDocument* pDoc) {
        if ((includeCurrent || pDoc != pCurrent) && EndsWithDrawingExtension(pDoc->fileName()))
            names.Add(CString(pDoc->fileName()));
        return false;
    });
}

CString DwgName(AcDbDatabase* pDb)
{
    const wchar_t* pszName = nullptr;
    if (!pDb || pDb->getFilename(pszName) != Acad::eOk || !pszName)
        return CString();
    return CString(pszName);
}

int IsCurrentDB(AcDbDatabase* pDb)
{
    // A document switch fails while a lock is held.
    UnlockAll();
    if (!pDb)
        return 0;
    AcApDocument* pDoc = DocumentOf(pDb);
    if (!pDoc)
        return 0;
    acDocManager->unlockDocument(pDoc);
    acDocManager->setCurDocument(pDoc, AcAp::kWrite, true);
    acDocManager->activateDocument(pDoc, false);
    acdbHostApplicationServices()->setWorkingDatabase(pDoc->database());
    return 1;
}

int IsCurrentDWG(const wchar_t* fileName, int lock)
{
    if (!acDocManager->curDocument())
        SetCurrentDocument();
    AcApDocument* pCurrent = acDocManager->curDocument();
    if (!pCurrent) {
        Trace(L"\n !acDocManager || !acDocManager->curDocument()\n");
        return 0;
    }
    if (!fileName || !*fileName || IsSameFileName(fileName, pCurrent->fileName())) {
        if (lock)
            LockAndNote(pCurrent);
        return 1;
    }
    AcApDocument* pDoc = DocumentOfFile(fileName);
    if (!pDoc)
        return 0;
    acDocManager->setCurDocument(pDoc, AcAp::kNone, true);
    if (lock)
        LockAndNote(pDoc);
    return 1;
}

void activateDocHelper(void* pData)
{
    if (!acDocManager->isApplicationContext()) {
        if (acDocManager->curDocument())
            acutPrintf(L"\nERROR: in Document context (on activateDocument)");
        else
            MessageBoxText(L"DEBUG: activateDocHelper - !pDoc ");
        return;
    }
    if (!pData) {
        MessageBoxText(L"activateDocHelper !pData ");
        return;
    }
    acDocManager->setCurDocument(static_cast<AcApDocument*>(pData), AcAp::kNone, true);
}
