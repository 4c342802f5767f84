// A chain placed through the `sorvane` program takes its measures from the
// options file that Sorvane.ini names, and from the defaults without one.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/ProgramRunner.h"

namespace {

namespace fs = std::filesystem;

TEST(OptionsFileRun, TheChainFollowsTheChosenOptionsFile)
{
    const struct {
        const char* name;
        const char* project;  // the options file's MainOptions, "" for none chosen
        const char* shown;    // the value LIST shows for 1.2346 m
    } cases[] = {
        {"defaults: m/cm, 4 decimals, raised 5 mm", "", "Text1=1.23^5#"},
        {"a project in cm with one decimal", "Measure=cm\nDecimals=1\nScale=1:50\nTextHeight=35\n", "Text1=123.5#"},
        {"a project in mm", "Measure=mm\nDecimals=0\nScale=1:50\nTextHeight=35\n", "Text1=1235#"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const fs::path dir = fs::temp_directory_path() / ("sv_optrun_" + std::to_string(::getpid()));
        fs::remove_all(dir);
        fs::create_directories(dir / "halvorne" / "sorvane");
        if (*c.project) {
            std::ofstream(dir / "project.ini") << "[MainOptions]\n" << c.project;
            std::ofstream(dir / "halvorne" / "sorvane" / "Sorvane.ini")
                << "[General Info]\nCurOptionsFile=" << (dir / "project.ini").string() << "\n";
        }
        const ProgramResult r =
            RunProgram(SV_SORVANE_EXE, {"-c", "KOVA_Hdim\\n0,0\\n1.2346,0\\n0.5,1\\n\\nLIST\\nL\\n\\n"}, dir,
                       {{"XDG_CONFIG_HOME", dir.string()}});
        EXPECT_EQ(r.status, 0) << r.out << r.err;
        EXPECT_NE(r.out.find(c.shown), std::string::npos) << r.out;
        // The project's file keeps its own measures: loading adds only what it lacked.
        if (*c.project) {
            EXPECT_NE(ReadWholeFile(dir / "project.ini").find(std::string(c.project).substr(0, 10)),
                      std::string::npos);
        }
        fs::remove_all(dir);
    }
}

}  // namespace
