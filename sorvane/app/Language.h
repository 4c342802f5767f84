// The module's resources: the language library chosen in the main INI file,
// the scope guard that points resource look-ups at it, and message texts by
// number.
#pragma once

#include "host/mfc/CString.h"
#include "host/win/WinTypes.h"

// Switches the resource handle to the language library (or, without one, to
// the module's own resources) for its lifetime. With neither it changes
// nothing. Every dialog, menu and string is read inside one.
class CTemporaryResourceOverride {
public:
    CTemporaryResourceOverride();
    ~CTemporaryResourceOverride();
    CTemporaryResourceOverride(const CTemporaryResourceOverride&) = delete;
    CTemporaryResourceOverride& operator=(const CTemporaryResourceOverride&) = delete;

private:
    HINSTANCE m_hInstanceOld = nullptr;
    bool m_bChanged = false;
};

// Chooses the language file "<module folder>sorvane<code>.lng" by the entry
// Language of "LastStatus" in the main INI file, else the same name in the
// user data folder, and loads it when it differs from the one loaded. A file
// that does not parse is reported on the command line with its line.
void LoadLanguage();

// The path LoadLanguage would choose now.
CString GetLanguageFilePath();

// The text of a string-table entry, read inside a CTemporaryResourceOverride.
// The text lives in one buffer: it stays valid only until the next call.
// "" when the entry is missing.
const wchar_t* GetResString(UINT nId);
