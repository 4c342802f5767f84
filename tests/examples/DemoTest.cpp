// The demo as `make demo` runs it: the plan drawn by its script, then
// dimensioned with chains, saved, exported, and read by another program.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/support/EzdxfRunner.h"
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

class DemoTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const char* source = std::getenv("SV_SOURCE_DIR");
        ASSERT_NE(source, nullptr);
        m_examples = fs::path(source) / "examples";
        m_dir = fs::temp_directory_path() / ("sv_demo_" + std::to_string(::getpid()));
        fs::remove_all(m_dir);
        fs::create_directories(m_dir / "home" / "halvorne" / "sorvane");
        // The settings the demo is shown with, as the Makefile installs them.
        fs::copy_file(m_examples / "demo-settings.ini", m_dir / "home" / "halvorne" / "sorvane" / "Sorvane.ini");
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::remove_all(m_dir, ec);
    }
    ProgramResult Sorvane(const std::vector<std::string>& args) const
    {
        return RunProgram(SV_SORVANE_EXE, args, m_dir, {{"XDG_CONFIG_HOME", (m_dir / "home").string()}});
    }

    fs::path m_examples, m_dir;
};

TEST_F(DemoTest, ThePlanIsDimensionedSavedAndExported)
{
    const std::string plan = (m_dir / "plan.dxf").string(), demo = (m_dir / "demo.dxf").string();
    ProgramResult r = Sorvane({"-s", (m_examples / "plan.scr").string(), "-o", plan, "--quiet"});
    ASSERT_EQ(r.status, 0) << r.err;

    r = Sorvane({plan, "-s", (m_examples / "demo.scr").string(), "-o", demo, "--export",
                 (m_dir / "demo.svg").string(), "--export", (m_dir / "demo.pdf").string()});
    ASSERT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_EQ(r.err, "");
    // Every chain command ran to its end: the transcript has no error line and
    // no "not available" answer.
    EXPECT_EQ(r.out.find("** "), std::string::npos) << r.out;
    EXPECT_EQ(r.out.find("ANY PROBLEM"), std::string::npos) << r.out;
    EXPECT_EQ(Count(r.out, "Command: KOVA_"), 6u) << r.out;

    std::string saved = ReadWholeFile(demo);
    std::erase(saved, '\r');
    EXPECT_EQ(Count(saved, "\n  0\nKOVA_SORVANE\n"), 6u);
    for (const char* picture : {"demo.svg", "demo.pdf"})
        EXPECT_GT(fs::file_size(m_dir / picture), 1000u) << picture;

    if (!EzdxfAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    const std::string audit = RunEzdxf("audit " + ShellQuote(demo));
    EXPECT_NE(audit.find("errors 0\n"), std::string::npos) << audit;
    EXPECT_NE(audit.find("fixes 0\n"), std::string::npos) << audit;
    const std::string decoded = RunEzdxf("proxy " + ShellQuote(demo));
    EXPECT_EQ(Count(decoded, "PROXY "), 6u) << decoded;
    // The short wall thicknesses are among the drawn values.
    for (const char* value : {"text=30", "text=15", "text=5.70", "text=10.00"})
        EXPECT_NE(decoded.find(value), std::string::npos) << value;
}

}  // namespace
