// The platform's character type: all text crossing the SDK is wide.
#pragma once

using ACHAR = wchar_t;

#define ACRX_T(x) L##x
