// The placement commands as a user runs them: scripts through the `sorvane`
// program, checked on the transcript and on the chains LIST reports.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

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

// The measures of the linear set as a complete options file holds them.
const char* const kMeasures = "Measure=m/cm\nDecimals=4\nScale=1:100\nTextHeight=50\nTickSize=4\nAcadUnits=0.001\n";

struct SCase {
    const char* name;
    const char* settings;  // extra lines: "[General Info]\n..." or MainOptions keys
    const char* script;
    const char* expect[4];  // texts the transcript holds, in this order
    int nChains;           // chains LIST finds at the end
    int nPoints;           // extension lines of the last one (when nChains > 0)
};

const SCase kCases[] = {
    {"equal points are refused and asked again", "",
     "KOVA_Hdim\n0,0\n0,0\n0,0\n1000,0\n@@click 500,500\n\n",
     {"Zweiter Maßpunkt: 0,0\nDer erste und zweite Punkt dürfen nicht identisch sein!\nZweiter Maßpunkt: 0,0",
      "Maßkette wählen oder die Position der Maßlinie bestimmen: ", "3. Maßpunkt: "},
     1, 2},
    {"Esc at the dimension line leaves the drawing as it was", "", "KOVA_Hdim\n0,0\n1000,0\n@@esc\n",
     {"Maßkette wählen oder die Position der Maßlinie bestimmen: *Cancel*"}, 0, 0},
    {"a click and Enter give two points", "", "KOVA_Hdim\n0,0\n1000,0\n@@click 500,500\n\n", {"3. Maßpunkt: "}, 1, 2},
    {"a further click gives three", "", "KOVA_Vdim\n0,0\n0,1000\n@@click -500,500\n@@click 0,2000\n\n",
     {"3. Maßpunkt: ", "4. Maßpunkt: "}, 1, 3},
    {"Lagepunkt puts the line at DimLineDist", "DimLineDist=10\n",
     "KOVA_Hdim\n0,0\n10,0\nL\n0,0\n0,-5\n\n",
     {"bestimmen oder [Lagepunkt]:  L", "\n Lagepunkt:", "\n Maßkette plazieren:", "D0=0.000000, -1.000000"}, 1, 2},
    {"layer 0 forbidden", "ForbidLayer0=1\n", "KOVA_Hdim\n",
     {"Layer \"0\" ist verboten."}, 0, 0},
    {"a cut line crossing one wall finds nothing", "[General Info]\nDimByLine=1\n",
     "LINE\n0,-1\n0,1\n\nKOVA_Hdim\n-1,0\n1,0\n\n",
     {"Schnittlinie:", "Schnittpunkte nicht gefunden..."}, 0, 0},
    {"a cut line crossing two walls makes a chain", "[General Info]\nDimByLine=1\n",
     "LINE\n0,-1\n0,1\n\nLINE\n5,-1\n5,1\n\nKOVA_Hdim\n-1,0\n6,0\n\n2,3\n",
     {"Schnittlinie:", "Maßkette wählen oder die Position der Maßlinie bestimmen: 2,3"}, 1, 2},
};

TEST(PlaceRun, ChainCommandsThroughTheProgram)
{
    for (const SCase& c : kCases) {
        SCOPED_TRACE(c.name);
        const fs::path dir = fs::temp_directory_path() / ("sv_placerun_" + std::to_string(::getpid()));
        fs::remove_all(dir);
        fs::create_directories(dir / "halvorne" / "sorvane");
        std::string settings = c.settings;
        std::string general, main = kMeasures;
        if (settings.rfind("[General Info]\n", 0) == 0)
            general = settings.substr(15);
        else
            main += settings;
        std::ofstream(dir / "halvorne" / "sorvane" / "Sorvane.ini")
            << "[General Info]\n" << general << "[MainOptions]\n" << main;
        std::ofstream(dir / "run.scr") << c.script << "LIST\nALL\n\n";
        const ProgramResult r = RunProgram(SV_SORVANE_EXE, {"-s", (dir / "run.scr").string()}, dir,
                                           {{"XDG_CONFIG_HOME", dir.string()}});
        EXPECT_EQ(r.status, 0) << r.out << r.err;
        size_t at = 0;
        for (const char* text : c.expect) {
            if (!text)
                break;
            const size_t found = r.out.find(text, at);
            EXPECT_NE(found, std::string::npos) << "missing, or out of order: " << text << "\n" << r.out;
            if (found != std::string::npos)
                at = found;
        }
        EXPECT_EQ(Count(r.out, "Anzahl von Hilfslinien:"), static_cast<size_t>(c.nChains)) << r.out;
        if (c.nChains > 0) {
            EXPECT_NE(r.out.rfind("Anzahl von Hilfslinien: " + std::to_string(c.nPoints)), std::string::npos)
                << r.out;
        }
        fs::remove_all(dir);
    }
}

}  // namespace
