// Shared fixture for the host/ap tests: the host started, one new drawing open, a script
// runner with its transcript, and a dump of model space for comparisons.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/ap/AcApDocManager.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/ap/ApEntityDraw.h"
#include "host/ap/ApHost.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEd.h"

namespace aptest {

class HostTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        apHostStartup();
        resetHost();
        ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
        m_dir = std::filesystem::temp_directory_path() /
                ("sv_ap_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(m_dir);
    }
    void TearDown() override
    {
        resetHost();
        std::error_code ec;
        std::filesystem::remove_all(m_dir, ec);
    }

    // Every drawing closed, every unlockable module unloaded, the pickfirst set empty.
    static void resetHost()
    {
        for (const std::wstring& m : acrxDynamicLinker->loadedModules())
            acrxDynamicLinker->unloadModule(m.c_str(), false);
        acDocManager->closeAll();
        acDocManager->flushClosed();
        acedSetPickfirstIds({});
        acedSetWorldUcs();
    }

    // Runs the lines in a fresh session; the transcript text. ok tells whether the run passed.
    std::wstring run(const std::wstring& lines, bool* ok = nullptr)
    {
        AcEdSession session;
        const bool passed = session.runScriptText(lines, L"t");
        if (ok)
            *ok = passed && !session.failed();
        m_errors = session.errors();
        return session.transcript().text();
    }

    AcDbDatabase* db() const { return acdbHostApplicationServices()->workingDatabase(); }

    // The model space entities in draw order.
    std::vector<AcDbObjectId> entities() const { return apDrawOrder(db(), AcDbObjectId::kNull); }

    // What LIST prints for every entity of model space, in draw order.
    std::wstring dump() const
    {
        AcConsoleRecorder rec;
        for (AcDbObjectId id : entities()) {
            AcDbEntity* e = nullptr;
            if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) == Acad::eOk) {
                e->list();
                e->close();
            }
        }
        return rec.Text();
    }

    std::wstring path(const char* name) const
    {
        const std::string p = (m_dir / name).string();
        return std::wstring(p.begin(), p.end());
    }

    static std::wstring handleOf(AcDbObjectId id)
    {
        ACHAR buffer[32] = {};
        id.handle().getIntoAsciiBuffer(buffer);
        return buffer;
    }

    std::filesystem::path m_dir;
    std::vector<std::wstring> m_errors;
};

} // namespace aptest
