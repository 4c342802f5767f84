// `sorvane` as a user runs it: exit statuses, the messages on standard error (naming the
// script line), the transcript, and the files it writes.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/ProgramRunner.h"

namespace {

namespace fs = std::filesystem;

using Result = ProgramResult;

class CliTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = fs::temp_directory_path() /
                ("sv_cli_" + std::to_string(::getpid()) + "_" +
                 ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(m_dir);
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::remove_all(m_dir, ec);
    }

    Result sorvane(const std::vector<std::string>& args) const { return RunProgram(SV_SORVANE_EXE, args, m_dir); }

    std::string file(const char* name, const std::string& content = std::string()) const
    {
        const fs::path p = m_dir / name;
        if (!content.empty())
            std::ofstream(p, std::ios::binary) << content;
        return p.string();
    }

    fs::path m_dir;
};

struct Case {
    const char* name;
    std::vector<std::string> args;
    int status;
    const char* errContains;  // "" for an empty standard error
};

TEST_F(CliTest, ExitStatusAndMessages)
{
    const std::string script = file("bad.scr", "CIRCLE\n0,0\n1\n@@nonsense 1\n");
    const std::string good = file("good.scr", "CIRCLE\n0,0\n1\n");
    const Case cases[] = {
        {"help", {"--help"}, 0, ""},
        {"version", {"--version"}, 0, ""},
        {"nothing to do", {}, 0, ""},
        {"unknown option", {"--bogus"}, 2, "sorvane: unknown option --bogus"},
        {"option without value", {"-s"}, 2, "-s needs a value"},
        {"two drawings", {"a.dxf", "b.dxf"}, 2, "only one drawing"},
        {"output not dxf", {"-o", "x.dwg"}, 2, "-o expects a file ending in .dxf"},
        {"export of unknown kind", {"--export", "x.jpg"}, 2, "--export expects"},
        {"missing drawing", {file("none.dxf")}, 2, "cannot read the drawing"},
        {"missing script", {"-s", file("none.scr")}, 2, "cannot read the script"},
        {"missing module", {"--load", file("none.so")}, 2, "cannot read the module"},
        {"unknown command", {"-c", "CIRCLE\\n0,0\\n1\\nNOSUCHCMD"}, 1, "-c:4: unknown command \"NOSUCHCMD\""},
        {"bad script line", {"-s", good, "-s", script}, 1, "bad.scr:4:"},
        {"input ran out", {"-c", "LINE\\n0,0"}, 1, "-c:2: input ran out"},
        {"second inline named", {"-c", "CIRCLE\\n0,0\\n1", "-c", "LINE"}, 1, "-c2:1: input ran out"},
        {"failing command", {"-c", "OPEN\\n" + file("none.dxf")}, 1, "-c:2: command OPEN failed"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Result r = sorvane(c.args);
        EXPECT_EQ(r.status, c.status) << r.err;
        if (*c.errContains)
            EXPECT_NE(r.err.find(c.errContains), std::string::npos) << r.err;
        else
            EXPECT_EQ(r.err, "");
    }
}

TEST_F(CliTest, SavesExportsAndReopens)
{
    const std::string dxf = (m_dir / "out.dxf").string();
    const std::string svg = (m_dir / "out.svg").string(), pdf = (m_dir / "out.pdf").string();
    Result r = sorvane({"-c", "LINE\\n0,0\\n4,0\\n4,3\\n\\nCIRCLE\\n2,1\\n0.5", "-o", dxf, "--export", svg, "--export",
                        pdf});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("Command: CIRCLE"), std::string::npos);
    EXPECT_NE(ReadWholeFile(svg).find("<svg"), std::string::npos);
    EXPECT_EQ(ReadWholeFile(pdf).rfind("%PDF", 0), 0u);

    r = sorvane({dxf, "--quiet", "-c", "ERASE\\nALL\\n\\n", "-o", dxf});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "");
    r = sorvane({dxf, "-c", "LIST\\nALL\\n\\n"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("ALL\n0 found"), std::string::npos) << "nothing is left to list: " << r.out;
}

TEST_F(CliTest, FailedRunsWriteNoOutputs)
{
    const std::string dxf = (m_dir / "never.dxf").string();
    const Result r = sorvane({"-c", "NOSUCHCMD", "-o", dxf});
    EXPECT_EQ(r.status, 1);
    EXPECT_FALSE(fs::exists(dxf));
}

TEST_F(CliTest, LoadsTheNamedModuleAndSendsItsMessages)
{
    const Result r = sorvane({"--load", SV_TEST_MODULE, "-c", "TM_LISP"});
    ASSERT_EQ(r.status, 0) << r.err;
    const size_t init = r.out.find("[tm] init"), load = r.out.find("[tm] load dwg"),
                 lisp = r.out.find("[tm] lisp function 0"), unload = r.out.find("[tm] unload dwg"),
                 quit = r.out.find("[tm] quit");
    EXPECT_LT(init, load);
    EXPECT_LT(load, lisp);
    EXPECT_LT(lisp, unload);
    EXPECT_LT(unload, quit);
    EXPECT_NE(quit, std::string::npos) << r.out;
}

} // namespace
