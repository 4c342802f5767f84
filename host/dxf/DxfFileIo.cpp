// Whole-file reading and saving of drawings, and their registration with the database.
#include "host/dxf/DxfFileIo.h"

#include "host/dxf/DxfError.h"
#include "host/dxf/DxfFileReader.h"
#include "host/dxf/DxfFileWriter.h"
#include "host/dxf/DxfWideText.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

thread_local std::string t_lastError;

Acad::ErrorStatus remember(Acad::ErrorStatus es, const std::string& error)
{
    t_lastError = es == Acad::eOk ? std::string() : error;
    return es;
}

Acad::ErrorStatus readBytes(const std::string& path, std::string& data, std::string& error)
{
    std::error_code ec;
    if (!fs::exists(fs::path(path), ec)) {
        error = path + ": no such file";
        return Acad::eFileNotFound;
    }
    if (fs::is_directory(fs::path(path), ec)) {
        error = path + ": is a folder, not a drawing";
        return Acad::eFileAccessErr;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = path + ": cannot open: " + std::strerror(errno);
        return Acad::eFileAccessErr;
    }
    data.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (in.bad()) {
        error = path + ": read error";
        return Acad::eFileAccessErr;
    }
    return Acad::eOk;
}

}  // namespace

Acad::ErrorStatus dxfReadFile(AcDbDatabase& db, const std::string& path, std::string& error)
{
    std::string data;
    Acad::ErrorStatus es = readBytes(path, data, error);
    if (es != Acad::eOk)
        return es;
    const std::string name = fs::path(path).filename().string();
    try {
        // A failed load must leave db as it was: the file goes into a scratch database,
        // and only a drawing that loaded there moves into db.
        AcDbDatabase scratch(false, true);
        dxfReadDatabase(scratch, std::move(data), name);
        db.swapContents(scratch);
    } catch (const DxfError& e) {
        error = e.what();
        return Acad::eDxfReadAborted;
    } catch (const std::bad_alloc&) {
        error = name + ": out of memory";
        return Acad::eOutOfMemory;
    }
    db.setFilename(dxfWide(path));
    return Acad::eOk;
}

Acad::ErrorStatus dxfSaveFile(AcDbDatabase& db, const std::string& path, bool keepBackup,
                              std::string& error)
{
    const fs::path target(path);
    if (path.empty() || !target.has_filename()) {
        error = "\"" + path + "\": expected a file name";
        return Acad::eInvalidInput;
    }
    fs::path temp = target;
    temp += ".sv-save";
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out) {
            error = temp.string() + ": cannot create: " + std::strerror(errno);
            return Acad::eFileAccessErr;
        }
        Acad::ErrorStatus es = Acad::eOk;
        try {
            dxfWriteDatabase(db, out, DxfFileWriteOptions{DxfLineEnd::CrLf, target.filename().string()});
            out.close();
            if (!out) {
                error = temp.string() + ": write error";
                es = Acad::eFileAccessErr;
            }
        } catch (const DxfError& e) {
            // An object that can't be written, or the stream failing under the writer.
            error = e.what();
            es = out.bad() ? Acad::eFileAccessErr : Acad::eFilerError;
        }
        if (es != Acad::eOk) {
            out.close();
            std::error_code ignored;
            fs::remove(temp, ignored);
            return es;
        }
    }
    std::error_code ec;
    if (keepBackup && fs::exists(target, ec)) {
        fs::path backup = target;
        backup.replace_extension(".bak");
        fs::remove(backup, ec);
        // A hard link keeps the old file under both names until the rename replaces one.
        fs::create_hard_link(target, backup, ec);
        if (ec)
            fs::copy_file(target, backup, fs::copy_options::overwrite_existing, ec);
        if (ec) {
            error = backup.string() + ": cannot keep the backup: " + ec.message();
            fs::remove(temp, ec);
            return Acad::eFileAccessErr;
        }
    }
    fs::rename(temp, target, ec);
    if (ec) {
        error = path + ": cannot replace: " + ec.message();
        std::error_code ignored;
        fs::remove(temp, ignored);
        return Acad::eFileAccessErr;
    }
    db.setFilename(dxfWide(path));
    return Acad::eOk;
}

Acad::ErrorStatus DxfFileIo::readFile(AcDbDatabase* db, const ACHAR* path)
{
    std::string error;
    if (!db || !path)
        return remember(Acad::eInvalidInput, "no database or no path");
    return remember(dxfReadFile(*db, dxfUtf8(path), error), error);
}

Acad::ErrorStatus DxfFileIo::writeFile(AcDbDatabase* db, const ACHAR* path, bool keepBackup,
                                       AcDb::AcDbDwgVersion)
{
    std::string error;
    if (!db || !path)
        return remember(Acad::eInvalidInput, "no database or no path");
    return remember(dxfSaveFile(*db, dxfUtf8(path), keepBackup, error), error);
}

void dxfInstallFileIo()
{
    static DxfFileIo io;
    if (AcDbDatabase::fileIo() != &io)
        AcDbDatabase::setFileIo(&io);
}

const std::string& dxfLastError()
{
    return t_lastError;
}

namespace {

// Registered when the library loads, so that every program linking it reads and saves DXF.
const bool g_installed = (dxfInstallFileIo(), true);

}  // namespace
