// Reads a whole ASCII DXF file (release 12 to 2018) into a database.
#pragma once

#include "host/db/AcDbDatabase.h"
#include "host/dxf/DxfError.h"

#include <string>

struct DxfFileReadOptions {
    DxfWarningHook warning;  // code pages, custom records kept as proxies, ...
};

// Reads the file's bytes into db, which must be empty (made with buildDefaultDrawing false).
// Throws DxfError naming the file, the line and what was expected; db is then incomplete and
// is to be thrown away (readDwgFile loads into a scratch database first for that reason).
//
// - Handles of the file are kept. An entity whose handle is a single hex digit gets a new one
//   from the seed (a one-digit handle reads as "no handle" to applications); references that
//   come after it follow it. Records without handles (R12) get new ones.
// - Objects of kinds without a class here are kept as DxfRawEntity/DxfRawObject with their
//   groups, and written back as they came. So is a custom object whose class is missing or
//   whose record its class refuses (eMakeMeProxy or an error): it becomes a proxy that keeps
//   its record, with a warning.
// - What the file lacks of a drawing (tables, standard records, dictionaries) is added.
// - Text of files before R2007 is converted from $DWGCODEPAGE (Windows-1252) to UTF-8.
void dxfReadDatabase(AcDbDatabase& db, std::string data, const std::string& fileName,
                     const DxfFileReadOptions& options = {});
