// The open drawings: the working database with its fallbacks, the document of a database
// or of a file name, and making another drawing the current one.
#pragma once

#include "host/mfc/CString.h"
#include "host/mfc/afxcoll.h"

class AcApDocument;
class AcDbDatabase;

// The extension of the host's drawing files, with its dot.
inline constexpr wchar_t kDrawingExtension[] = L".dxf";

// The working database; when it is null, repairs it from the open documents, and else
// answers the current document's database. Null when no drawing is open.
AcDbDatabase* acdbCurDwg();
// Sets a null working database to the first open document's; with no current document
// left, closes the main panel.
void SetCurrentDocument();

// The same file: names compared without regard to case, "\" and "/" alike.
bool IsSameFileName(const wchar_t* a, const wchar_t* b);
// The open document of a database or of a file name (compared as IsSameFileName), or null.
AcApDocument* DocumentOf(const AcDbDatabase* pDb);
AcApDocument* DocumentOfFile(const wchar_t* fileName);

// The database of the open document of that file, or null. A name shown with a trailing
// " *" (a modified drawing) is cut before the blank.
AcDbDatabase* GetFromEditor(const wchar_t* fileName);
int IsDocumentOpen(const wchar_t* fileName);
// The current document's file name; empty when there is none.
CString GetCurrentDWGName();
// Every open document's database (as AcDbDatabase*); the count.
int GetDatabases(CPtrArray& databases);
// The file names of open drawings, the current one only with includeCurrent.
void GetOpenDrawings(CStringArray& names, int includeCurrent);
// The database's file name, or empty.
CString DwgName(AcDbDatabase* pDb);

// Makes the database's document current, active and locked for write (the caller
// releases that lock). Every lock of this module is released first. 0 if not open.
int IsCurrentDB(AcDbDatabase* pDb);
// The same by file name; an empty name means the current document. With lock the
// document is locked for write and noted in lockedDocuments.
int IsCurrentDWG(const wchar_t* fileName, int lock);
// For executeInApplicationContext: pData is the AcApDocument to make current.
void activateDocHelper(void* pData);
