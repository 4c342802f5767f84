// The placement commands driven by scripts inside one session: the two
// points, the jig's two phases, the fixed-distance keyword, the layer rule,
// the cut line, and GetPoint's result codes.
#include <cmath>
#include <functional>

#include "AppFixture.h"

#include "app/CommandTable.h"
#include "app/Panel.h"
#include "app/PointJig.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdSession.h"
#include "proxy/SVbasic.h"
#include "services/Layers.h"

namespace {

using apptest::AppTest;

AcDbDatabase* Db()
{
    return acdbHostApplicationServices()->workingDatabase();
}

std::string Utf8(const std::wstring& w)
{
    return CString(w.c_str()).ToUtf8();
}

// What a chain in the drawing looks like from outside.
struct ChainFacts {
    int type = -1;
    int points = 0;
    double lineY = 0, lineX = 0;  // the first dimension point
};

std::vector<ChainFacts> ChainsInModelSpace()
{
    std::vector<ChainFacts> out;
    AcDbBlockTableRecord* ms = nullptr;
    if (acdbOpenObject(ms, Db()->modelSpaceId(), AcDb::kForRead) != Acad::eOk)
        return out;
    const AcDbObjectIdArray ids = ms->entityIds();
    ms->close();
    for (int i = 0; i < ids.length(); ++i) {
        SVdim* chain = nullptr;
        if (acdbOpenObject(chain, ids[i], AcDb::kForRead) != Acad::eOk || !chain)
            continue;
        ChainFacts f;
        f.type = chain->m_dimType;
        f.points = chain->GetExtensions();
        f.lineX = chain->GetPointDim(0).x;
        f.lineY = chain->GetPointDim(0).y;
        chain->close();
        out.push_back(f);
    }
    return out;
}

class PlaceTest : public AppTest {
protected:
    void SetUp() override
    {
        AppTest::SetUp();
        Load();
        ASSERT_NE(pGlobDimOptions, nullptr);
    }
    std::wstring Run(const std::wstring& script, bool* pOk = nullptr)
    {
        AcEdSession session;
        const bool bOk = session.runScriptText(script, L"t");
        if (pOk)
            *pOk = bOk;
        return session.transcript().text();
    }
    // The panel reloads the options when it is made: make it first, so that
    // what a test sets stays for the next command.
    static CParamSet& Linear()
    {
        StartApp(0);
        return pGlobDimOptions->GetSet(kModeLinear);
    }
    static AcDbObjectId Wall(double x)
    {
        AcDbBlockTableRecord* ms = nullptr;
        AcDbObjectId id;
        if (acdbOpenObject(ms, Db()->modelSpaceId(), AcDb::kForWrite) != Acad::eOk)
            return id;
        auto* line = new AcDbLine(AcGePoint3d(x, -1, 0), AcGePoint3d(x, 1, 0));
        ms->appendAcDbEntity(id, line);
        ms->close();
        line->close();
        return id;
    }
};

TEST_F(PlaceTest, PointsAndClicksMakeTheChain)
{
    struct Case {
        const char* name;
        const wchar_t* script;
        size_t chains;
        int points;
        double line;  // y of a horizontal line, x of a vertical one
        std::vector<std::wstring> shown;
        int type = 0;
    } const cases[] = {
        {"equal points are refused", L"KOVA_Hdim\n0,0\n0,0\n1000,0\n@@esc\n", 0, 0, 0,
         {L"\nDer erste und zweite Punkt dürfen nicht identisch sein!\nZweiter Maßpunkt: "}},
        {"Esc while the line is placed drops it", L"KOVA_Hdim\n0,0\n1000,0\n@@esc\n", 0, 0, 0,
         {L"\nMaßkette wählen oder die Position der Maßlinie bestimmen: "}},
        {"Esc at the first point", L"KOVA_Hdim\n@@esc\n", 0, 0, 0, {L"\nErster Maßpunkt: "}},
        {"a click places the line, Enter ends", L"KOVA_Hdim\n0,0\n1000,0\n@@click 500,500\n\n", 1, 2, 500,
         {L"\n3. Maßpunkt: "}},
        {"each further click adds a point", L"KOVA_Hdim\n0,0\n1000,0\n@@click 500,500\n@@click 2000,0\n\n", 1, 3,
         500, {L"\n3. Maßpunkt: ", L"\n4. Maßpunkt: "}},
        {"Esc while adding keeps the chain", L"KOVA_Hdim\n0,0\n1000,0\n@@click 500,-300\n@@esc\n", 1, 2, -300, {}},
        {"vertical", L"KOVA_vdim\n0,0\n0,1000\n@@click 300,500\n\n", 1, 2, 300, {}, 1},
        {"moves only follow", L"KOVA_Hdim\n0,0\n1000,0\n@@move 1,1\n@@move 7,200\n@@click 7,250\n\n", 1, 2, 250,
         {}},
    };
    for (const Case& c : cases) {
        ASSERT_EQ(Run(L"ERASE\nALL\n\n").find(L"** "), std::wstring::npos);
        const std::wstring t = Run(c.script);
        for (const std::wstring& s : c.shown)
            EXPECT_NE(t.find(s), std::wstring::npos) << c.name << "\n" << Utf8(t);
        EXPECT_EQ(t.find(L"ANY "), std::wstring::npos) << c.name;
        const std::vector<ChainFacts> chains = ChainsInModelSpace();
        ASSERT_EQ(chains.size(), c.chains) << c.name << "\n" << Utf8(t);
        if (c.chains) {
            EXPECT_EQ(chains[0].type, c.type) << c.name;
            EXPECT_EQ(chains[0].points, c.points) << c.name;
            EXPECT_NEAR(c.type == 1 ? chains[0].lineX : chains[0].lineY, c.line, 1e-6) << c.name;
        }
        // The running mark ends with the command.
        EXPECT_EQ(pGlobDimOptions->m_iRunningCommand, 0) << c.name;
    }
}

TEST_F(PlaceTest, ANewChainHangsOffAPickedOne)
{
    struct Case {
        const char* name;
        const wchar_t* side;
        double lineY;
    } const cases[] = {
        {"above", L"5,10", 3},
        {"below", L"5,-10", 1},
        {"no answer: away from the measured points", L"@@esc", 3},
    };
    for (const Case& c : cases) {
        Run(L"ERASE\nALL\n\n");
        Run(L"KOVA_Hdim\n0,0\n10,0\n@@click 5,2\n\n");
        const std::wstring t = Run(std::wstring(L"KOVA_Hdim\n2,-4\n8,-4\n@@click 5,2\n") + c.side + L"\n\n");
        EXPECT_NE(t.find(L"\nZu versetzende Seite angeben: "), std::wstring::npos) << c.name << Utf8(t);
        const std::vector<ChainFacts> chains = ChainsInModelSpace();
        ASSERT_EQ(chains.size(), 2u) << c.name << Utf8(t);
        EXPECT_NEAR(chains[1].lineY, c.lineY, 1e-6) << c.name << Utf8(t);
        EXPECT_EQ(chains[1].points, 2) << c.name;
    }
}

TEST_F(PlaceTest, AHundredPointsEndTheInput)
{
    std::wstring script = L"KOVA_Hdim\n0,0\n1,0\n@@click 0.5,5\n";
    for (int i = 2; i < 100; ++i)
        script += L"@@click " + std::to_wstring(i) + L",0\n";
    const std::wstring t = Run(script);
    EXPECT_NE(t.find(L"\n100. Maßpunkt: "), std::wstring::npos);
    EXPECT_EQ(t.find(L"\n101. Maßpunkt: "), std::wstring::npos);
    const std::vector<ChainFacts> chains = ChainsInModelSpace();
    ASSERT_EQ(chains.size(), 1u);
    EXPECT_EQ(chains[0].points, 100);  // the last click counts
}

TEST_F(PlaceTest, ThePositionPointKeepsTheLineAtDimLineDist)
{
    struct Case {
        const char* name;
        double dist;
        const wchar_t* script;
        bool keyword;
        size_t chains;
        double lineY;
    } const cases[] = {
        {"below the position point", 10, L"KOVA_Hdim\n0,0\n1000,0\nL\n0,0\n0,-5\n\n", true, 1, -1},
        {"above it", 10, L"KOVA_Hdim\n0,0\n1000,0\nLagepunkt\n0,3\n0,40\n\n", true, 1, 4},
        {"Esc at the side point drops the chain", 10, L"KOVA_Hdim\n0,0\n1000,0\nL\n0,0\n@@esc\n", true, 0, 0},
        {"without a distance there is no keyword", 0, L"KOVA_Hdim\n0,0\n1000,0\nL\n@@esc\n", false, 0, 0},
    };
    for (const Case& c : cases) {
        Run(L"ERASE\nALL\n\n");
        Linear().arrayDouble[SVdim::kDblAcadUnits] = 0.001;
        Linear().arrayDouble[13] = c.dist;
        Linear().arrayString[0] = L"1:100";
        const std::wstring t = Run(c.script);
        EXPECT_EQ(t.find(L"[Lagepunkt]:  ") != std::wstring::npos, c.keyword) << c.name << "\n" << Utf8(t);
        EXPECT_EQ(t.find(L"\n Maßkette plazieren:") != std::wstring::npos, c.keyword) << c.name;
        const std::vector<ChainFacts> chains = ChainsInModelSpace();
        ASSERT_EQ(chains.size(), c.chains) << c.name << "\n" << Utf8(t);
        if (c.chains) {
            EXPECT_NEAR(chains[0].lineY, c.lineY, 1e-6) << c.name;
        }
    }
}

TEST_F(PlaceTest, LayerZeroCanBeForbidden)
{
    const AcDbObjectId layer0 = Db()->clayer();
    const AcDbObjectId wall = GetLayerId(nullptr, L"Wand", 1, 1);
    struct Case {
        const char* name;
        UINT forbid;
        AcDbObjectId layer;
        bool refused;
    } const cases[] = {
        {"forbidden on 0", 1, layer0, true},
        {"allowed on 0", 0, layer0, false},
        {"forbidden elsewhere", 1, wall, false},
    };
    for (const Case& c : cases) {
        Linear().arrayInt[18] = c.forbid;
        ASSERT_EQ(Db()->setClayer(c.layer), Acad::eOk);
        const std::wstring t = Run(L"KOVA_Hdim\n@@esc\n");
        EXPECT_EQ(t.find(L"Layer \"0\" ist verboten.") != std::wstring::npos, c.refused) << c.name << Utf8(t);
        EXPECT_EQ(t.find(L"Erster Maßpunkt") == std::wstring::npos, c.refused) << c.name;
    }
}

TEST_F(PlaceTest, TheCutLineMeasuresTheWallsItCrosses)
{
    struct Case {
        const char* name;
        std::vector<double> walls;
        const wchar_t* script;
        bool notFound;
        int points;
    } const cases[] = {
        {"no wall", {}, L"KOVA_Hdim\n0,0\n10,0\n\n", true, 0},
        {"one wall", {2}, L"KOVA_Hdim\n0,0\n10,0\n\n", true, 0},
        {"two walls", {2, 5}, L"KOVA_Hdim\n0,0\n10,0\n\n3,4\n", false, 2},
        {"three walls, a bent line", {2, 5, 8}, L"KOVA_Hdim\n0,0\n6,0\n10,0\n\n3,4\n", false, 3},
        {"aligned: two points end the line", {2, 5}, L"KOVA_Adim\n0,0\n10,0\n3,4\n", false, 2},
        {"Esc ends without a chain", {2, 5}, L"KOVA_Hdim\n0,0\n10,0\n@@esc\n", false, 0},
    };
    for (const Case& c : cases) {
        Run(L"ERASE\nALL\n\n");
        Linear();
        pGlobDimOptions->arrayOptInt[0] = 1;
        for (double x : c.walls)
            Wall(x);
        bool bOk = false;
        const std::wstring t = Run(c.script, &bOk);
        EXPECT_TRUE(bOk) << c.name << "\n" << Utf8(t);
        EXPECT_EQ(t.find(L"Schnittpunkte nicht gefunden...") != std::wstring::npos, c.notFound) << c.name << Utf8(t);
        const std::vector<ChainFacts> chains = ChainsInModelSpace();
        ASSERT_EQ(chains.size(), c.points ? 1u : 0u) << c.name << "\n" << Utf8(t);
        if (c.points) {
            EXPECT_EQ(chains[0].points, c.points) << c.name;
            EXPECT_NEAR(chains[0].lineY, 4, 1e-6) << c.name;
        }
    }
}

TEST_F(PlaceTest, TheLispFunctionTakesTheTypeFromTheStore)
{
    Wall(2);
    Wall(5);
    acedRegCmds->addCommand(L"SV_PLACE_TEST", L"CUTLINE", L"CUTLINE", ACRX_CMD_MODAL, [] {
        pGlobDimOptions->m_iRunningCommand = 1;
        DispatchLispFunction(2);
    });
    const std::wstring t = Run(L"CUTLINE\n0,0\n10,0\n\n3,4\n");
    acedRegCmds->removeGroup(L"SV_PLACE_TEST");
    const std::vector<ChainFacts> chains = ChainsInModelSpace();
    ASSERT_EQ(chains.size(), 1u) << Utf8(t);
    EXPECT_EQ(chains[0].type, 1);
}

TEST_F(PlaceTest, GetPointAnswersWithTheAdsCodes)
{
    struct Case {
        const char* name;
        const wchar_t* prompt;
        int cursor;
        const wchar_t* script;
        int rc;
    } const cases[] = {
        {"empty prompt", L"", 1, L"", RTERROR},
        {"cursor 4", L"\nPunkt: ", 4, L"", RTERROR},
        {"Enter", L"\nPunkt: ", 1, L"\n", RTNONE},
        {"Esc", L"\nPunkt: ", 0, L"@@esc\n", RTCAN},
        {"click", L"\nPunkt: ", -1, L"@@click 3,4\n", RTNORM},
        {"typed point", L"\nPunkt: ", 3, L"7,8\n", RTNORM},
    };
    static const Case* s_case = nullptr;
    static int s_rc = 0;
    static AcGePoint3d s_point;
    acedRegCmds->addCommand(L"SV_PLACE_TEST", L"GETPT", L"GETPT", ACRX_CMD_MODAL,
                            [] { s_rc = GetPoint(s_point, s_case->prompt, s_case->cursor); });
    for (const Case& c : cases) {
        s_case = &c;
        s_rc = 0;
        s_point = AcGePoint3d(-1, -1, -1);
        const std::wstring t = Run(std::wstring(L"GETPT\n") + c.script);
        EXPECT_EQ(s_rc, c.rc) << c.name << "\n" << Utf8(t);
        const bool bClick = std::wcschr(c.script, L'@') != nullptr;
        const AcGePoint3d expected = c.rc != RTNORM ? AcGePoint3d(-1, -1, -1)
                                     : bClick       ? AcGePoint3d(3, 4, 0)
                                                    : AcGePoint3d(7, 8, 0);
        EXPECT_TRUE(s_point.isEqualTo(expected)) << c.name;
    }
    acedRegCmds->removeGroup(L"SV_PLACE_TEST");
}

TEST_F(PlaceTest, ListShowsTheValueOfAPlacedChain)
{
    const std::wstring t = Run(L"KOVA_Hdim\n0,0\n1.2346,0\n@@click 0.6,1\n\nLIST\nL\n\n");
    const std::vector<ChainFacts> chains = ChainsInModelSpace();
    ASSERT_EQ(chains.size(), 1u) << Utf8(t);
    EXPECT_NE(t.find(L"Text1=1.23^5"), std::wstring::npos) << Utf8(t);
}

} // namespace
