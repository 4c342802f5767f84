// DXF as the file format of AcDbDatabase::readDwgFile and saveAs: loading that leaves the
// database untouched on failure, saving with a backup and an atomic replace.
#pragma once

#include "host/db/AcDbDatabase.h"

#include <string>

// The hook the database calls. Statuses: eFileNotFound for a missing file, eFileAccessErr when
// it can't be read or written, eDxfReadAborted for a file that is not a drawing we can read
// (the text says where and why), eInvalidInput for an unusable path, eFilerError when an
// object can't be written. Versions other than R2018 are written as R2018.
class DxfFileIo : public AcDbFileIo {
public:
    Acad::ErrorStatus readFile(AcDbDatabase* db, const ACHAR* path) override;
    Acad::ErrorStatus writeFile(AcDbDatabase* db, const ACHAR* path, bool keepBackup,
                                AcDb::AcDbDwgVersion version) override;
};

// Makes DXF the format of every database's readDwgFile and saveAs. Loading the library does
// this already; calling it again does nothing.
void dxfInstallFileIo();

// The message of the last failed read or write of this thread, e.g.
// "plan.dxf:120: expected a number, found "abc"", or "" after a success. It is the one piece
// of state the file layer keeps: the database's interface has only the status to give.
const std::string& dxfLastError();

// The same operations with the error text returned, for callers that don't go through the
// database (tools, tests). db must be empty for reading; on failure it stays as it was.
Acad::ErrorStatus dxfReadFile(AcDbDatabase& db, const std::string& path, std::string& error);
// Writes to a temporary file beside path and renames it over path; with keepBackup an existing
// file is kept as <name>.bak first (its extension replaced, as the platform names backups).
Acad::ErrorStatus dxfSaveFile(AcDbDatabase& db, const std::string& path, bool keepBackup,
                              std::string& error);
