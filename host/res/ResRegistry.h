// The list of live resource modules, shared by the resource functions and the
// library loader. Internal to host/res.
#pragma once

#include <memory>
#include <string>

#include "host/res/ResScript.h"
#include "host/win/WinTypes.h"

namespace svres::detail {

// key names the file a module came from ("" for none), so that loading it again
// finds the same module.
HINSTANCE AddModule(std::shared_ptr<const ResScript> script, const std::wstring& key);
// The module loaded from key, with one more reference; null if none.
HINSTANCE AddReference(const std::wstring& key);
// Drops a reference; false when the handle is no resource module.
bool Release(HINSTANCE hInstance);
void SetLastError(std::wstring message);

} // namespace svres::detail
