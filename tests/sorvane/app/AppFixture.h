// Shared fixture for the frame's tests: the host started with one drawing,
// the user data folder in a fresh temporary folder, and the module started
// through its entry point (and shut down again after each test).
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "app/App.h"
#include "host/ap/AcApDocManager.h"
#include "host/ap/ApHost.h"
#include "host/ed/AcEd.h"
#include "host/rx/acutPrintf.h"
#include "host/win/WinIni.h"
#include "host/win/WinTimer.h"
#include "host/win/WinWindow.h"
#include "options/GlobDimOptions.h"

namespace apptest {

class AppTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = std::filesystem::temp_directory_path() /
                ("sv_app_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(m_dir);
        std::filesystem::create_directories(m_dir);
        ::setenv("XDG_CONFIG_HOME", m_dir.c_str(), 1);
        apHostStartup();
        CloseAll();
        svwin::ResetSimClock();
        ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    }
    void TearDown() override
    {
        Unload();
        CloseAll();
        std::error_code ec;
        std::filesystem::remove_all(m_dir, ec);
    }

    // kInitAppMsg and kLoadDwgMsg, as the linker sends them.
    void Load()
    {
        acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
        acrxEntryPoint(AcRx::kLoadDwgMsg, acDocManager->curDocument());
    }
    void Unload()
    {
        acrxEntryPoint(AcRx::kUnloadDwgMsg, acDocManager->curDocument());
        acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
    }
    static void CloseAll()
    {
        acDocManager->closeAll();
        acDocManager->flushClosed();
        acedSetPickfirstIds({});
    }

    // The main INI file in the user data folder.
    std::wstring IniPath() const
    {
        const std::string p = (m_dir / "halvorne" / "sorvane" / "Sorvane.ini").string();
        return std::wstring(p.begin(), p.end());
    }
    std::wstring ReadIni(const wchar_t* section, const wchar_t* key) const
    {
        wchar_t buffer[512] = {};
        GetPrivateProfileStringW(section, key, L"<none>", buffer, 512, IniPath().c_str());
        return buffer;
    }
    void WriteIni(const wchar_t* section, const wchar_t* key, const wchar_t* value) const
    {
        WritePrivateProfileStringW(section, key, value, IniPath().c_str());
    }

    std::filesystem::path m_dir;
};

} // namespace apptest
