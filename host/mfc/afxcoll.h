// MFC's named collection classes, each a thin class over CArray, CList or
// CMap so that it can be forward-declared and derived from like the original.
#pragma once

#include "host/mfc/CArray.h"
#include "host/mfc/CList.h"
#include "host/mfc/CMap.h"
#include "host/mfc/CString.h"

// Arrays. CPtrArray and CObArray hold pointers they never delete.
class CStringArray : public CArray<CString, const CString&> {};
class CUIntArray : public CArray<UINT, UINT> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CWordArray : public CArray<WORD, WORD> {};
class CByteArray : public CArray<BYTE, BYTE> {};
class CPtrArray : public CArray<void*, void*> {};
class CObArray : public CArray<CObject*, CObject*> {};

// Lists.
class CStringList : public CList<CString, const CString&> {};
class CPtrList : public CList<void*, void*> {};
class CObList : public CList<CObject*, CObject*> {};

// Maps with case-sensitive string keys.
class CMapStringToString : public CMap<CString, LPCTSTR, CString, LPCTSTR> {};
class CMapStringToPtr : public CMap<CString, LPCTSTR, void*, void*> {};
class CMapStringToOb : public CMap<CString, LPCTSTR, CObject*, CObject*> {};
