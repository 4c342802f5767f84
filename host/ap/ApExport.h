// Pictures of a drawing's model space (SVG, PDF, PNG by the file's extension), fitted to its
// extents, with the layers that are off or frozen left out. PLOT and `sorvane --export` use it.
#pragma once

#include <string>

#include "host/gi/GiRenderer.h"

class AcDbDatabase;

// The format of a file name's extension (case ignored); false for any other extension.
bool apExportFormat(const std::wstring& path, GiOutputFormat& format);

// Writes the picture; false with the reason in error.
bool apExportModelSpace(AcDbDatabase* db, const std::wstring& path, std::wstring& error);
