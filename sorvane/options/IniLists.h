// Lists kept in INI sections (Item_0, Item_1, ... and LastItem), their
// "key=value" items, and the maps loaded from them.
#pragma once

#include "host/mfc/CString.h"
#include "host/mfc/afxcoll.h"
#include "host/win/WinTypes.h"

// Lists read no further than this many items.
constexpr int kMaxListItems = 100;
// The mode of LoadMap that fills mapParams from a plain section name.
constexpr int kMapModeParams = -100;

// Splits "key=value[=more]" at "=", each part trimmed; the value is all but
// the key, joined again by "=". TRUE only if there is a non-empty value.
BOOL SplitItem(const CString& strItem, CString& strKey, CString& strValue);

// Reads a list into the array (emptied first): stops at the first missing or
// empty item and after kMaxListItems; repeated items are dropped. No file:
// the current options file. Without an option store a message box, and 0.
int LoadSection(CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile = nullptr);
// Writes the list: its items, an empty item after them to cut off a longer
// list, and LastItem with the last item ("" and an empty Item_1 for an empty
// list). No file: the current options file.
void SaveSection(const CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile = nullptr);
// The same, also written to the file at once.
void SaveSectionNow(const CStringArray& array, const wchar_t* pszSection, const wchar_t* pszFile);

// Empties the mode's map of that name and fills it from the list prefix +
// name, each item split by SplitItem. kMapModeParams adds to mapParams from
// the section of that name without emptying it. Returns the map's size.
int LoadMap(int iMode, const wchar_t* pszName, const wchar_t* pszFile = nullptr);

// The entries of a section whose key starts with the prefix (any case), read
// from the file as it stands now.
int ReadSectionEntries(const wchar_t* pszFile, const wchar_t* pszSection, const wchar_t* pszPrefix,
                       CStringArray& arrayKeys, CStringArray& arrayValues);
