// Resource modules: parsed scripts behind HINSTANCE handles, the current
// resource handle, and the platform functions that read strings, menus and
// dialog templates from them.
//
// A null HINSTANCE given to these functions means the current resource handle.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/res/ResScript.h"
#include "host/res/ResTokens.h"
#include "host/win/WinMenu.h"
#include "host/win/WinTypes.h"

namespace svres {

// Makes a resource module of a parsed script. Handles are never reused, so a
// freed one answers nothing instead of reading another module.
HINSTANCE CreateResourceModule(ResScript script);
// Parses the text into a module; null on bad input, with LastResourceError() set.
HINSTANCE LoadResourceModule(std::wstring_view text, const std::wstring& name, const IncludeResolver& resolver = {});
// The same from a file (UTF-8, else Windows-1252).
HINSTANCE LoadResourceModuleFile(const std::wstring& path);
// FALSE for a handle that is no resource module.
BOOL FreeResourceModule(HINSTANCE hInstance);

// The script of a module; null when the handle is none.
std::shared_ptr<const ResScript> GetResourceScript(HINSTANCE hInstance);
// "file(line): what was expected" of the last failed load on this thread; "" after a success.
const std::wstring& LastResourceError();

// The dialog template named by MAKEINTRESOURCE(id) or by text; null if absent.
std::shared_ptr<const ResDialog> FindDialogTemplate(HINSTANCE hInstance, LPCWSTR lpTemplateName);

// A menu bar holding the menu's popups, as LoadMenuW gives it.
HMENU BuildMenu(const ResMenu& menu);

// Points CString::LoadString at the current resource handle and LoadMenuW at the
// resource modules. Done by the first module made and by AfxSetResourceHandle;
// call it again after replacing those hooks.
void InstallResourceHooks();

} // namespace svres

HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE hInstResource);

// Copies string uID into the buffer (at most cchBufferMax - 1 characters and a
// terminator) and returns its length; 0 when absent or empty. With cchBufferMax 0
// the buffer receives a pointer to the stored text instead.
int LoadStringW(HINSTANCE hInstance, UINT uID, LPWSTR lpBuffer, int cchBufferMax);
inline int LoadString(HINSTANCE h, UINT id, LPWSTR p, int n) { return LoadStringW(h, id, p, n); }
