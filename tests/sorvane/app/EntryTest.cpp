// The entry point and the lifecycle: what the host finds registered after a
// start, which messages change nothing, the AutoLISP dispatch, and a clean
// shut-down.
#include "AppFixture.h"

#include "app/CommandTable.h"
#include "app/DlgMain.h"
#include "app/MessageFilter.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxDictionary.h"
#include "host/rx/AcRxService.h"

namespace {

using apptest::AppTest;

struct Registered {
    std::wstring global, local;
    long flags;
    bool operator==(const Registered&) const = default;
};

std::vector<Registered> GroupCommands()
{
    std::vector<Registered> out;
    AcEdCommandIterator* it = acedRegCmds->iterator();
    for (; !it->done(); it->next())
        if (std::wstring(it->commandGroup()) == SORVANE_GROUP)
            out.push_back({it->command()->globalName(), it->command()->localName(), it->command()->commandFlags()});
    delete it;
    return out;
}

TEST_F(AppTest, RegistersTheCommandsInTableOrderWithNamesAndFlags)
{
    Load();
    const std::vector<Registered> commands = GroupCommands();
    ASSERT_EQ(commands.size(), 26u);
    // Spot rows with names that differ, and the flags of every row.
    EXPECT_EQ(commands[2], (Registered{L"KOVA_vdim", L"KOVA_Vdim", 0}));
    EXPECT_EQ(commands[5], (Registered{L"KOVA_SelectSorvaneObjects", L"KOVA_DimSelectObjects", 6}));
    EXPECT_EQ(commands[0].global, L"KOVA_Adim");
    EXPECT_EQ(commands[3].global, L"KOVA_Sorvane");
    EXPECT_EQ(commands[25].global, L"KOVA_ProxyAcad2Sorvane");
    for (size_t i = 0; i < commands.size(); ++i) {
        const int row = static_cast<int>(i) + 1;
        const bool pickSet = row == 6 || row == 10 || row >= 21;
        EXPECT_EQ(commands[i].flags, pickSet ? 6 : 0) << "row " << row;
        EXPECT_EQ(acedRegCmds->lookupCmd(commands[i].global.c_str()), acedRegCmds->lookupCmd(commands[i].local.c_str()));
    }
    EXPECT_TRUE(acrxServiceIsRegistered(SORVANE_GROUP));

    const auto functions = acedDefinedFunctions();
    const std::vector<std::pair<std::wstring, short>> expected = {
        {L"C:KOVA_SorvanePopUp", 0}, {L"C:KOVA_SorvanePopUpH", 1}, {L"KOVA_SorvaneMakeDimByLine", 2}};
    EXPECT_EQ(functions, expected);
    acrxEntryPoint(AcRx::kUnloadDwgMsg, acDocManager->curDocument());
    EXPECT_TRUE(acedDefinedFunctions().empty());
}

TEST_F(AppTest, MessagesThatChangeNothing)
{
    Load();
    CGlobDimOptions* store = pGlobDimOptions;
    const size_t nCommands = GroupCommands().size();
    AcConsoleRecorder console;
    // A second start-up, and messages the module does not serve.
    for (int msg : {1, 0, 6, 12, 13, 16})
        EXPECT_EQ(acrxEntryPoint(static_cast<AcRx::AppMsgCode>(msg), nullptr), AcRx::kRetOK) << msg;
    EXPECT_EQ(pGlobDimOptions, store);
    EXPECT_EQ(GroupCommands().size(), nCommands);
    EXPECT_FALSE(acedRegisterFilterWinMsg(filterProc));  // registered once already
    EXPECT_EQ(console.Text(), L"");
}

TEST_F(AppTest, ShutDownRunsOnceAndReleasesWhatTheModuleRegistered)
{
    Load();
    ASSERT_NE(pGlobDimOptions, nullptr);
    acrxEntryPoint(AcRx::kQuitMsg, nullptr);
    EXPECT_EQ(bUnloaded, 1);
    EXPECT_TRUE(GroupCommands().empty());
    EXPECT_FALSE(acrxServiceIsRegistered(SORVANE_GROUP));
    EXPECT_EQ(pGlobDimOptions, nullptr);
    EXPECT_EQ(ReadIni(L"General Info", L"ShowAppWindow"), L"0");

    // An unload after the quit finds nothing to do: it writes nothing.
    std::filesystem::remove(std::filesystem::path(IniPath()));
    AcConsoleRecorder console;
    EXPECT_EQ(acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr), AcRx::kRetOK);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(IniPath())));
    EXPECT_EQ(console.Text(), L"");

    // A new start after the unload is a full one.
    Load();
    EXPECT_EQ(bUnloaded, 0);
    EXPECT_EQ(GroupCommands().size(), 26u);
}

TEST_F(AppTest, LispDispatchResults)
{
    Load();
    struct Case {
        int code;
        int expected;
    } const cases[] = {
        {-1, RTERROR}, {4, RTERROR}, {RTERROR, RTERROR},  // outside the table
        {2, RSRSLT},                                       // MakeDimByLine with an option store
        {3, RSERR},                                        // in range, but no function
    };
    for (const Case& c : cases)
        EXPECT_EQ(DispatchLispFunction(c.code), c.expected) << c.code;

    // Without an option store the function fails.
    CGlobDimOptions* store = pGlobDimOptions;
    pGlobDimOptions = nullptr;
    EXPECT_EQ(DispatchLispFunction(2), RSERR);
    pGlobDimOptions = store;

    // Outside a function call the host reports no code: RTERROR.
    EXPECT_EQ(static_cast<int>(acrxEntryPoint(AcRx::kInvkSubrMsg, nullptr)), RTERROR);
    // Called by the host, the function runs through its registered handler.
    AcConsoleRecorder console;
    EXPECT_EQ(acedInvokeFunction(L"KOVA_SorvaneMakeDimByLine"), RTNORM);
    // It runs the cut line, which asks for its first point.
    EXPECT_EQ(console.Text().rfind(L"\nSchnittlinie:", 0), 0u) << CString(console.Text().c_str()).ToUtf8();
}

TEST_F(AppTest, AnExceptionStopsAtTheEntryPoint)
{
    // A non-service under the MATCHPROP service's name breaks the start-up.
    AcRxObject blocker;
    AcRxObject* previous = acrxServiceDictionary->atPut(L"MatchProperties", &blocker);
    AcRxThrowOnAbort throwing;
    AcConsoleRecorder console;
    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, nullptr), AcRx::kRetOK);
    if (previous)
        acrxServiceDictionary->atPut(L"MatchProperties", previous);
    else
        acrxServiceDictionary->remove(L"MatchProperties");
    EXPECT_NE(console.Text().find(L"\nANY PROBLEM on 1 message... "), std::wstring::npos);
}

} // namespace
