// printf-style formatting of wide text with the platform's conventions for wide format strings.
#pragma once

#include <cstdarg>
#include <string>

#include "host/rx/AcChar.h"

// In a wide format string "%s" and "%c" take wide text and a wide character, "%hs"/"%S"
// narrow text, as on the platform; the C library reads them the other way round, so the
// format is translated first. Never fails: a format the C library rejects is returned
// as it was given, so that a message is still shown.
std::wstring acrxFormatV(const ACHAR* format, va_list args);
std::wstring acrxFormat(const ACHAR* format, ...);
