// The trace (silent while DebugMsg is off, stamped lines while on, the path
// announced once per session), its users CheckError and CTimer, and folders.
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <memory>
#include <string>

#include "host/rx/acutPrintf.h"
#include "services/Folders.h"
#include "services/Timer.h"
#include "tests/sorvane/services/LogFixture.h"

namespace {

using Diagnostics = LogFixture;

// Every digit as '9', so stamps and timings compare as fixed text.
std::wstring Masked(std::wstring text)
{
    std::replace_if(text.begin(), text.end(), [](wchar_t ch) { return std::iswdigit(ch); }, L'9');
    return text;
}

TEST_F(Diagnostics, SilentWhenSwitchedOffOrWithoutOptions)
{
    m_options.m_bDebugMsg = FALSE;
    TraceF(L"\nhidden %d", 1);
    pGlobDimOptions = nullptr;
    Trace(L"\nhidden");
    EXPECT_FALSE(std::filesystem::exists(LogFile()));
    EXPECT_TRUE(MessageBoxHistory().empty());
}

TEST_F(Diagnostics, StampedLinesAndOneAnnouncementPerSession)
{
    Trace(L"\nfirst");
    TraceF(L"\nsecond %s %d %.2f", L"Ma\u00dfkette", 7, 1.5);
    EXPECT_EQ(Masked(LogText()), L"<99:99:99> \nfirst<99:99:99> \nsecond Ma\u00dfkette 9 9.99");
    ASSERT_EQ(MessageBoxHistory().size(), 1u);
    EXPECT_EQ(std::filesystem::path(MessageBoxHistory()[0].text), LogFile());

    ClearLog(); // the module unloads; the next session announces again
    EXPECT_FALSE(std::filesystem::exists(LogFile()));
    TraceF(L"%s", std::wstring(2000, L'x').c_str());
    EXPECT_EQ(MessageBoxHistory().size(), 2u);
    EXPECT_EQ(LogText().substr(11), std::wstring(1023, L'x')); // TraceF stops at 1,023
}

TEST_F(Diagnostics, UnwritableLogLosesTheLineQuietly)
{
    setenv("TMPDIR", (m_dir / "no" / "such").c_str(), 1);
    EXPECT_NO_THROW(Trace(L"lost"));
    EXPECT_FALSE(std::filesystem::exists(m_dir / "no"));
}

TEST_F(Diagnostics, CheckErrorGoesToTraceAndConsole)
{
    AcConsoleRecorder console;
    CheckError(L"proxy\\Util", 42, Acad::eOk);
    EXPECT_TRUE(console.Text().empty());
    EXPECT_EQ(CheckError(L"proxy\\Util", 42, Acad::eInvalidInput), Acad::eInvalidInput);
    EXPECT_EQ(console.Text(), L"\n!!! proxy\\Util@42: eInvalidInput ");
    EXPECT_TRUE(LogHas(L"\n!!! proxy\\Util@42: eInvalidInput "));
}

TEST_F(Diagnostics, TimerReportsEachMeasureOnce)
{
    std::make_unique<CTimer>(L"ReloadData")->Start(L"ReloadDwgData"); // ends the first measure, then dies
    CTimer idle, unnamed(L"");
    idle.Stop();
    unnamed.Stop();
    EXPECT_EQ(Masked(LogText()), L"<99:99:99> \n  >> ReloadData: 9.999 sec. <99:99:99> \n  >> ReloadDwgData: 9.999 sec. "
                                 L"<99:99:99>   >> ??? 9.99 sec");
}

TEST_F(Diagnostics, ProductFolderIsMadeUnderAppData)
{
    setenv("XDG_CONFIG_HOME", (m_dir / "cfg").c_str(), 1);
    EXPECT_EQ(std::wstring(GetProductFolder()), (m_dir / "cfg").wstring() + L"\\halvorne\\sorvane\\");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_TRUE(std::filesystem::is_directory(m_dir / "cfg" / "halvorne" / "sorvane"));
    EXPECT_FALSE(MakeDir((m_dir / "missing" / "deeper").wstring().c_str())); // one level only
}

} // namespace
