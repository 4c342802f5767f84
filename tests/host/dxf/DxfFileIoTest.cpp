// readDwgFile and saveAs through the DXF hook: statuses, error text, backups, atomic saves.
#include "DxfFileTestSupport.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbOpen.h"
#include "host/dxf/DxfFileIo.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string readAll(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

void writeAll(const fs::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

// The records and entities of the dimensions' geometry blocks ("*D<n>").
int geometryBlockObjects(AcDbDatabase& db)
{
    int count = 0;
    AcDbBlockTable* blocks = nullptr;
    EXPECT_EQ(db.getBlockTable(blocks, AcDb::kForRead), Acad::eOk);
    for (const AcDbObjectId& id : blocks->recordIds()) {
        AcDbBlockTableRecord* block = nullptr;
        if (acdbOpenObject(block, id, AcDb::kForRead) != Acad::eOk)
            continue;
        if (block->name().rfind(L"*D", 0) == 0)
            count += 1 + block->entityIds().length();
        block->close();
    }
    blocks->close();
    return count;
}

}  // namespace

TEST(DxfFileIo, ReadingStatusesAndErrorText)
{
    dxfInstallFileIo();
    const fs::path dir = dxfTestFolder("read");
    writeAll(dir / "bad.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\nnot a number\n0\nENDSEC\n0\nEOF\n");
    const struct {
        std::string file;
        Acad::ErrorStatus status;
        const char* fragment;
    } cases[] = {
        {"missing.dxf", Acad::eFileNotFound, "no such file"},
        {"bad.dxf", Acad::eDxfReadAborted, "bad.dxf:8:"},
        {"", Acad::eFileAccessErr, "folder"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        AcDbDatabase db(false, true);
        EXPECT_EQ(db.readDwgFile((dir / c.file).wstring().c_str()), c.status);
        EXPECT_NE(dxfLastError().find(c.fragment), std::string::npos) << dxfLastError();
        // A failed load leaves the database as it was: empty.
        EXPECT_EQ(db.objectIds().length(), 0);
    }
}

TEST(DxfFileIo, SaveKeepsABackupAndReadsBack)
{
    dxfInstallFileIo();
    const fs::path dir = dxfTestFolder("save");
    const fs::path file = dir / "plan.dxf";
    writeAll(file, "old contents");
    auto db = dxfTestDrawing();
    ASSERT_EQ(db->saveAs(file.wstring().c_str()), Acad::eOk) << dxfLastError();
    EXPECT_EQ(readAll(dir / "plan.bak"), "old contents");
    EXPECT_EQ(dxfLastError(), "");
    // Nothing but the drawing and its backup is left behind.
    int files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(dir))
        ++files;
    EXPECT_EQ(files, 2);

    AcDbDatabase loaded(false, true);
    ASSERT_EQ(loaded.readDwgFile(file.wstring().c_str()), Acad::eOk) << dxfLastError();
    // Everything came back, plus the geometry blocks the file gave the dimensions.
    EXPECT_EQ(loaded.objectIds().length(), db->objectIds().length() + geometryBlockObjects(loaded));
    EXPECT_EQ(fs::path(loaded.filename()), file);

    // Without a backup wish the old file is simply replaced.
    ASSERT_EQ(loaded.saveAs(file.wstring().c_str(), false), Acad::eOk);
    EXPECT_EQ(readAll(dir / "plan.bak"), "old contents");
    EXPECT_EQ(readAll(file).rfind("  0\r\nSECTION\r\n  2\r\nHEADER\r\n", 0), 0u);
}

TEST(DxfFileIo, SavingIntoAMissingFolderFailsCleanly)
{
    dxfInstallFileIo();
    auto db = dxfTestDrawing();
    const fs::path file = fs::path(dxfTestFolder("nofolder")) / "no" / "such" / "plan.dxf";
    EXPECT_EQ(db->saveAs(file.wstring().c_str()), Acad::eFileAccessErr);
    EXPECT_NE(dxfLastError().find("plan.dxf"), std::string::npos) << dxfLastError();
    EXPECT_FALSE(fs::exists(file.parent_path()));
}
