// Writes a whole database as an ASCII DXF file of release 2018 (AC1032).
#pragma once

#include "host/db/AcDbDatabase.h"
#include "host/dxf/DxfTagWriter.h"

#include <iosfwd>
#include <string>

struct DxfFileWriteOptions {
    DxfLineEnd lineEnd = DxfLineEnd::CrLf;
    std::string name = "<output>";  // for messages
};

// HEADER (the database's variables, $ACADVER AC1032 and $DWGCODEPAGE ANSI_1252 first, the
// handle seed brought up to date), CLASSES (the classes of the objects written that need an
// entry, custom ones with their registration), TABLES, BLOCKS (every block record with its
// BLOCK and ENDBLK; model space's entities go to ENTITIES), ENTITIES, OBJECTS (the named
// object dictionary first, then every other object in handle order).
//
// Native objects write their dxfOutFields; objects of custom classes follow it with their
// binary record (DxfCustomRecord.h); records kept from a file (DxfRawObject.h) are written as
// they came. Blocks without BLOCK/ENDBLK handles get them from the handle seed first, so the
// database changes only in that. Throws DxfError naming the object that could not be written,
// or the stream error.
void dxfWriteDatabase(AcDbDatabase& db, std::ostream& out, const DxfFileWriteOptions& options = {});
void dxfWriteDatabase(AcDbDatabase& db, std::string& out, const DxfFileWriteOptions& options = {});
