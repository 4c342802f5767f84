// Document locks, kept balanced: code that writes a drawing outside a command calls
// TestLocked, works, and calls UnlockDB only if TestLocked answered 0. Only a lock of mode
// kWrite counts as "locked"; the automatic lock of a running command does not.
#pragma once

#include "host/mfc/afxcoll.h"

class AcDbDatabase;

// The file names of the documents this module has locked and not released, without
// duplicates.
extern CStringList lockedDocuments;

// 1 if the database's document holds a write lock, or if the database is in no document
// (a side database needs no lock); 0 otherwise.
int IsLocked(AcDbDatabase* pDb);
// 1 if the document is locked already; otherwise locks it and answers 0. The tag names
// the caller in the trace.
int TestLocked(AcDbDatabase* pDb, const wchar_t* tag);
// Locks the document for write unless a write or command lock is held, and notes it.
// 1 if the document was found.
int LockDb(AcDbDatabase* pDb);
// Releases every write lock of the document (at most 10) and forgets it. 1 if found.
int UnlockDB(AcDbDatabase* pDb);
// Releases one lock of the document of that file, whatever its mode, and forgets it.
int UnlockDWG(const wchar_t* fileName);
// Releases the write locks of every document and forgets them all. 0 without documents
// to walk.
int UnlockAll();
// Releases the write locks of the noted documents only. 0 if none was noted.
int UnlockLocked();
