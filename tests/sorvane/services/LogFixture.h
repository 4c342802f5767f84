// Test scaffolding for code that writes the trace: a private $TMPDIR, the
// option object with the trace switched on, and the log's text.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/win/WinMessageBox.h"
#include "host/win/wsprintf.h"
#include "options/GlobDimOptions.h"
#include "services/Trace.h"

class LogFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sv_trace_XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        setenv("TMPDIR", (m_dir = pattern).c_str(), 1);
        MessageBoxClearHistory();
        m_options.m_bDebugMsg = TRUE;
        pGlobDimOptions = &m_options;
    }
    void TearDown() override
    {
        ClearLog();
        pGlobDimOptions = nullptr;
        unsetenv("TMPDIR");
        std::filesystem::remove_all(m_dir);
    }
    std::filesystem::path LogFile() const { return m_dir / "Sorvane.log"; }
    std::wstring LogText() const
    {
        std::stringstream buffer;
        buffer << std::ifstream(LogFile(), std::ios::binary).rdbuf();
        return svwin::Utf8ToWide(buffer.str());
    }
    bool LogHas(const wchar_t* text) const { return LogText().find(text) != std::wstring::npos; }

    CGlobDimOptions m_options;
    std::filesystem::path m_dir;
};
