// File commands: NEW, OPEN, SAVE, QSAVE, SAVEAS, CLOSE and PLOT (a PDF of model space).
// Names are asked on the command line (scripts have no file dialogs here).
#include "host/ap/AcApDocManager.h"
#include "host/ap/ApCmdSupport.h"
#include "host/ap/ApExport.h"
#include "host/db/AcDbDatabase.h"
#include "host/ed/acedads.h"

namespace {

// A whole line of text; "" after Enter. False on Esc or when input ran out.
bool askLine(const std::wstring& prompt, std::wstring& text)
{
    ACHAR buffer[1024] = {};
    const int rc = acedGetString(1, prompt.c_str(), buffer, 1024);
    if (rc == RTNONE) {
        text.clear();
        return true;
    }
    if (rc != RTNORM)
        return false;
    text = buffer;
    return true;
}

AcApDocument* currentDocument()
{
    AcApDocument* doc = acDocManager->curDocument();
    if (!doc)
        apcmd::say(L"No drawing is open.");
    return doc;
}

void saveAs(AcApDocument* doc, const std::wstring& path)
{
    std::wstring error;
    if (acDocManager->saveDocument(doc, path.c_str(), &error) != Acad::eOk)
        apcmd::fail(error);
    apcmd::say(L"Saved " + std::wstring(doc->fileName()) + L".");
}

// Asks for a name; Enter takes the document's own unless it was never saved.
void saveAsking(AcApDocument* doc, const wchar_t* prompt)
{
    std::wstring path;
    std::wstring shown = prompt;
    if (!doc->isNew())
        shown += L"<" + std::wstring(doc->fileName()) + L">";
    shown += L": ";
    for (;;) {
        if (!askLine(shown, path))
            return;
        if (!path.empty() || !doc->isNew())
            break;
        apcmd::say(L"A file name is needed.");
    }
    saveAs(doc, path);
}

void cmdNew()
{
    std::wstring name;
    if (!askLine(L"\nEnter template file name or <none>: ", name))
        return;
    if (acDocManager->appContextNewDocument(name.c_str()) != Acad::eOk)
        apcmd::fail(acDocManager->lastError());
}

void cmdOpen()
{
    std::wstring name;
    if (!askLine(L"\nEnter name of drawing to open: ", name) || name.empty())
        return;
    if (acDocManager->openDocument(name.c_str()) != Acad::eOk)
        apcmd::fail(acDocManager->lastError());
}

void cmdSave()
{
    if (AcApDocument* doc = currentDocument())
        saveAsking(doc, L"\nSave drawing as ");
}

void cmdQSave()
{
    AcApDocument* doc = currentDocument();
    if (!doc)
        return;
    if (doc->isNew())
        saveAsking(doc, L"\nSave drawing as ");
    else
        saveAs(doc, doc->fileName());
}

void cmdSaveAs()
{
    if (AcApDocument* doc = currentDocument())
        saveAsking(doc, L"\nSave drawing as ");
}

void cmdClose()
{
    AcApDocument* doc = currentDocument();
    if (!doc)
        return;
    if (doc->database()->dbmod() != 0) {
        std::wstring answer;
        const std::wstring prompt = L"\nSave changes to " + std::wstring(doc->docTitle()) + L"? [Yes/No] <Yes>: ";
        if (apcmd::getKeyword(prompt.c_str(), L"Yes No", answer, L"Yes") != RTNORM)
            return;
        if (answer == L"Yes") {
            if (doc->isNew())
                saveAsking(doc, L"\nSave drawing as ");
            else
                saveAs(doc, doc->fileName());
            if (doc->database()->dbmod() != 0)
                return;  // not saved: the drawing stays open
        }
    }
    acDocManager->closeDocument(doc);
}

void cmdPlot()
{
    AcApDocument* doc = currentDocument();
    if (!doc)
        return;
    std::wstring fallback = doc->fileName();
    const size_t dot = fallback.find_last_of(L'.');
    const size_t slash = fallback.find_last_of(L"/\\");
    if (dot != std::wstring::npos && (slash == std::wstring::npos || dot > slash))
        fallback.erase(dot);
    fallback += L".pdf";
    std::wstring path;
    if (!askLine(L"\nEnter file name for the plot <" + fallback + L">: ", path))
        return;
    if (path.empty())
        path = fallback;
    std::wstring error;
    if (!apExportModelSpace(doc->database(), path, error))
        apcmd::fail(error);
    apcmd::say(L"Plot written to " + path + L".");
}

} // namespace

void apRegisterFileCommands()
{
    apcmd::add(L"NEW", cmdNew);
    apcmd::add(L"OPEN", cmdOpen);
    apcmd::add(L"SAVE", cmdSave);
    apcmd::add(L"QSAVE", cmdQSave);
    apcmd::add(L"SAVEAS", cmdSaveAs);
    apcmd::add(L"CLOSE", cmdClose);
    apcmd::add(L"PLOT", cmdPlot);
}
