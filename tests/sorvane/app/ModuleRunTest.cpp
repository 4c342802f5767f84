// The built module as the host loads it: the `sorvane` program finds
// sorvane.so beside itself, starts it, runs scripts against its commands and
// shuts it down at the end of the session.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/CommandTable.h"
#include "host/mfc/CString.h"
#include "tests/support/ProgramRunner.h"

namespace {

namespace fs = std::filesystem;

size_t Count(const std::string& text, const std::string& what)
{
    size_t n = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++n;
    return n;
}

class ModuleRunTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = fs::temp_directory_path() / ("sv_apprun_" + std::to_string(::getpid()) + "_" +
                                             ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_dir);
        fs::create_directories(m_dir);
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::remove_all(m_dir, ec);
    }
    // Runs the script lines with the user data folder in the test's folder.
    ProgramResult Run(const std::string& lines) const
    {
        const fs::path script = m_dir / "run.scr";
        std::ofstream(script, std::ios::binary) << lines;
        return RunProgram(SV_SORVANE_EXE, {"-s", script.string()}, m_dir, {{"XDG_CONFIG_HOME", m_dir.string()}});
    }
    std::string Ini() const { return ReadWholeFile(m_dir / "halvorne" / "sorvane" / "Sorvane.ini"); }

    fs::path m_dir;
};

TEST_F(ModuleRunTest, EveryCommandIsFoundByItsGlobalAndLocalName)
{
    int count = 0;
    const CCommandEntry* table = GetCommandTable(&count);
    ASSERT_EQ(count, 26);
    std::vector<std::pair<std::string, std::string>> names;
    for (int i = 0; i < count; ++i)
        names.emplace_back(CString(table[i].pszGlobalName).ToUtf8(), CString(table[i].pszLocalName).ToUtf8());
    // The placement commands ask for a first point: Esc ends them.
    const auto isPlacement = [](const std::string& global) {
        return global == "KOVA_Adim" || global == "KOVA_Hdim" || global == "KOVA_vdim";
    };
    std::string script;
    for (const auto& [global, local] : names) {
        const std::string esc = isPlacement(global) ? "@@esc\n" : "";
        script += global + "\n" + esc + local + "\n" + esc;
    }
    const ProgramResult r = Run(script);
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_EQ(r.err, "");
    // The one line with stars says MATCHPROP is not there yet; no error line.
    EXPECT_EQ(Count(r.out, "**"), 1u) << r.out;
    EXPECT_EQ(Count(r.out, "**MatchProperties has not been registered."), 1u) << r.out;
    EXPECT_EQ(r.out.find("ANY "), std::string::npos) << r.out;
    for (const auto& [global, local] : names) {
        const size_t expected = global == "KOVA_Sorvane" || isPlacement(global) ? 0 : 2;
        EXPECT_EQ(Count(r.out, std::string("Befehl ") + global + " ist noch nicht verf\xC3\xBCgbar."), expected)
            << global;
    }
    EXPECT_EQ(Count(r.out, "\nErster Ma\xC3\x9F" "punkt: "), 6u) << r.out;
    // The panel was open at the end of the session: it comes back next time.
    EXPECT_NE(Ini().find("ShowAppWindow=1"), std::string::npos) << Ini();
    EXPECT_NE(Ini().find("Position="), std::string::npos) << Ini();
}

TEST_F(ModuleRunTest, MatchPropAttachesTheExtensionWhenItsProviderLoads)
{
    const ProgramResult r = Run("LINE\n0,0\n1,0\n\nLINE\n0,1\n1,1\n\nMATCHPROP\n@@click 0.5,0\n@@click 0.5,1\n\n");
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_EQ(Count(r.out, "**MatchProperties is now available."), 1u) << r.out;
    EXPECT_EQ(r.out.find("ANY "), std::string::npos) << r.out;
}

} // namespace
