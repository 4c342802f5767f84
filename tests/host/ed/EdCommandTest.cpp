// The command loop: lookup by name, posted commands and Esc, nested acedCommand,
// CMDNAMES/CMDACTIVE, reactor order, undo groups, AutoLISP "C:" functions.
#include "EdTestSupport.h"
#include "host/rx/AcRxDictionary.h"

using namespace edtest;

namespace {

class Recorder : public AcEditorReactor {
public:
    std::vector<std::wstring> log;
    void commandWillStart(const ACHAR* n) override { log.push_back(L"start " + std::wstring(n)); }
    void commandEnded(const ACHAR* n) override { log.push_back(L"end " + std::wstring(n)); }
    void commandCancelled(const ACHAR* n) override { log.push_back(L"cancel " + std::wstring(n)); }
    void commandFailed(const ACHAR* n) override { log.push_back(L"fail " + std::wstring(n)); }
    void unknownCommand(const ACHAR* n, void*) override { log.push_back(L"unknown " + std::wstring(n)); }
    void sysVarChanged(const ACHAR* n, Adesk::Boolean ok) override
    {
        log.push_back(L"var " + std::wstring(n) + (ok ? L" ok" : L" refused"));
    }
};

class EdCommandTest : public EdFixture {
protected:
    void SetUp() override
    {
        EdFixture::SetUp();
        acedEditor->addReactor(&rec);
    }
    void TearDown() override
    {
        acedEditor->removeReactor(&rec);
        EdFixture::TearDown();
    }
    Recorder rec;
};

TEST_F(EdCommandTest, StackFindsNamesWithoutCaseAndRefusesDuplicates)
{
    AcEdCommandStack* stack = AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_T("ACAD_REGISTERED_COMMANDS")));
    ASSERT_EQ(stack, acedRegCmds);
    EXPECT_NE(stack->lookupGlobalCmd(L"edt"), nullptr);
    EXPECT_NE(stack->lookupLocalCmd(L"EDTLOCAL"), nullptr);
    EXPECT_EQ(stack->lookupGlobalCmd(L"EdtLocal"), nullptr);
    EXPECT_EQ(stack->addCommand(L"edtest", L"edt", L"x", 0, [] {}), Acad::eDuplicateKey);
    EXPECT_EQ(stack->removeCmd(L"EDTEST", L"nothing"), Acad::eKeyNotFound);
    EXPECT_EQ(AcEditor::cast(acrxSysRegistry()->at(ACRX_T("AcEditor"))), acedEditor);
}

TEST_F(EdCommandTest, CommandNamesForms)
{
    int ran = 0;
    Body() = [&] { ++ran; };
    EXPECT_TRUE(Run(L"edt\n_EDT\n._edt\nedtlocal\n"));
    EXPECT_EQ(ran, 4);
    EXPECT_FALSE(Run(L"NOSUCH\n"));
    EXPECT_EQ(session->errors().back(), L"t.scr:1: unknown command \"NOSUCH\"");
    EXPECT_EQ(rec.log.back(), L"unknown NOSUCH");
}

TEST_F(EdCommandTest, ReactorsInOrderForEndCancelAndFailure)
{
    int mode = 0;
    Body() = [&] {
        ads_point p;
        if (mode == 1)
            acedGetPoint(nullptr, L"\nP: ", p);
        if (mode == 2)
            throw std::runtime_error("boom");
    };
    Run(L"EDT\n");
    mode = 1;
    Run(L"EDT\n@@esc\n");
    mode = 2;
    Run(L"EDT\n");
    EXPECT_EQ(rec.log, (std::vector<std::wstring>{L"start EDT", L"end EDT", L"start EDT", L"cancel EDT", L"start EDT",
                                                  L"fail EDT"}));
    EXPECT_TRUE(session->transcript().contains(L"command EDT failed: boom"));
}

TEST_F(EdCommandTest, CmdNamesAndCmdActiveFollowNesting)
{
    std::wstring outer, inner, after;
    int activeOuter = -1, activeInner = -1, activeAfter = -1;
    ads_point got = {};
    Body() = [&] {
        AcEdSysVars::getString(L"CMDNAMES", outer);
        AcEdSysVars::getInt(L"CMDACTIVE", activeOuter);
        EXPECT_EQ(acedCommandS(RTSTR, L"_edt2", RTSTR, L"5,6", RTNONE), RTNORM);
    };
    Body2() = [&] {
        AcEdSysVars::getString(L"CMDNAMES", inner);
        AcEdSysVars::getInt(L"CMDACTIVE", activeInner);
        acedGetPoint(nullptr, L"\nP: ", got);
    };
    EXPECT_TRUE(Run(L"EDT\n"));
    AcEdSysVars::getString(L"CMDNAMES", after);
    AcEdSysVars::getInt(L"CMDACTIVE", activeAfter);
    EXPECT_EQ(outer, L"EDT");
    EXPECT_EQ(inner, L"EDT'EDT2");
    EXPECT_EQ(after, L"");
    EXPECT_EQ(activeOuter, 1);
    EXPECT_EQ(activeInner, 1);
    EXPECT_EQ(activeAfter, 0);
    EXPECT_DOUBLE_EQ(got[0], 5);
    EXPECT_DOUBLE_EQ(got[1], 6);
    EXPECT_EQ(rec.log, (std::vector<std::wstring>{L"start EDT", L"start EDT2", L"end EDT2", L"end EDT"}));
}

TEST_F(EdCommandTest, AcedCommandPauseTakesTheScriptsAnswer)
{
    std::vector<double> xs;
    Body() = [&] { acedCommandS(RTSTR, L"EDT2", RTSTR, PAUSE, RTREAL, 3.0, RTNONE); };
    Body2() = [&] {
        ads_point p;
        double r = 0;
        acedGetPoint(nullptr, L"\nP: ", p);
        xs.push_back(p[0]);
        acedGetReal(L"\nR: ", &r);
        xs.push_back(r);
    };
    EXPECT_TRUE(Run(L"EDT\n9,9\n"));
    EXPECT_EQ(xs, (std::vector<double>{9, 3}));
}

TEST_F(EdCommandTest, PostedCommandRunsAfterTheHandlerReturns)
{
    std::vector<std::wstring> order;
    Body() = [&] {
        acedPostCommand(L"EDT2 ");
        order.push_back(L"EDT returns");
    };
    Body2() = [&] { order.push_back(L"EDT2 runs"); };
    EXPECT_TRUE(Run(L"EDT\n"));
    EXPECT_EQ(order, (std::vector<std::wstring>{L"EDT returns", L"EDT2 runs"}));
}

TEST_F(EdCommandTest, PostedEscEscCancelsTheWaitingCommand)
{
    std::vector<int> rcs;
    Body() = [&] {
        ads_point p;
        acedPostCommand(L"\x1B\x1B" L"EDT2 ");
        rcs.push_back(acedGetPoint(nullptr, L"\nP: ", p));
        rcs.push_back(acedGetPoint(nullptr, L"\nQ: ", p));
        rcs.push_back(acedGetPoint(nullptr, L"\nR: ", p));
    };
    int ran2 = 0;
    Body2() = [&] { ++ran2; };
    EXPECT_TRUE(Run(L"EDT\n1,1\n"));
    EXPECT_EQ(rcs, (std::vector<int>{RTCAN, RTCAN, RTNORM}));
    EXPECT_EQ(ran2, 1);
    EXPECT_EQ(rec.log[1], L"end EDT");  // its last answer was a point
}

TEST_F(EdCommandTest, EscPostedWithoutACommandDoesNothing)
{
    acedPostCommand(L"\x1B\x1B");
    int rc = 0;
    Body() = [&] {
        ads_point p;
        rc = acedGetPoint(nullptr, L"\nP: ", p);
    };
    EXPECT_TRUE(Run(L"EDT\n2,2\n"));
    EXPECT_EQ(rc, RTNORM);
}

TEST_F(EdCommandTest, EachCommandIsOneUndoGroup)
{
    const int before = db->undoGroupCount();
    Body() = [&] { AddLine(AcGePoint3d(1, 1, 0)); };
    Run(L"EDT\nEDT\n");
    EXPECT_EQ(db->undoGroupCount(), before + 2);
}

TEST_F(EdCommandTest, DefunCFunctionRunsAsCommandThroughTheInvoker)
{
    std::vector<std::pair<std::wstring, short>> calls;
    std::vector<std::wstring> cmdNames;
    AcEdHooks::SubrInvoker before = AcEdHooks::setSubrInvoker([&](const std::wstring& name, short code) {
        calls.emplace_back(name, code);
        EXPECT_EQ(acedGetFunCode(), code);
        std::wstring names;
        AcEdSysVars::getString(L"CMDNAMES", names);
        cmdNames.push_back(names);
        return RTNORM;
    });
    acedDefun(L"C:KOVA_Pop", 0);
    acedDefun(L"KOVA_Plain", 2);
    EXPECT_TRUE(Run(L"kova_pop\n"));
    EXPECT_FALSE(Run(L"KOVA_Plain\n"));  // not a "C:" function: no command
    EXPECT_EQ(acedInvokeFunction(L"kova_plain"), RTNORM);
    EXPECT_EQ(calls, (std::vector<std::pair<std::wstring, short>>{{L"C:KOVA_Pop", 0}, {L"KOVA_Plain", 2}}));
    EXPECT_EQ(cmdNames, (std::vector<std::wstring>{L"KOVA_POP", L""}));
    EXPECT_EQ(acedGetFunCode(), RTERROR);
    EXPECT_EQ(acedUndef(L"C:KOVA_Pop", 1), RTERROR);
    EXPECT_EQ(acedUndef(L"C:KOVA_Pop", 0), RTNORM);
    acedUndef(L"KOVA_Plain", 2);
    AcEdHooks::setSubrInvoker(before);
}

TEST_F(EdCommandTest, SysVarsGetSetAndNotify)
{
    EXPECT_TRUE(AcEdSysVars::setInt(L"filedia", 0));
    int v = -1;
    EXPECT_TRUE(AcEdSysVars::getInt(L"FILEDIA", v));
    EXPECT_EQ(v, 0);
    EXPECT_FALSE(AcEdSysVars::setInt(L"FILEDIA", 5));         // out of range
    EXPECT_FALSE(AcEdSysVars::setString(L"CMDNAMES", L"X"));  // read-only
    EXPECT_TRUE(AcEdSysVars::setReal(L"TEXTSIZE", 3.5));      // the drawing's
    EXPECT_DOUBLE_EQ(db->textsize(), 3.5);
    std::wstring layer;
    EXPECT_TRUE(AcEdSysVars::getString(L"CLAYER", layer));
    EXPECT_EQ(layer, L"0");
    EXPECT_EQ(AcEdSysVars::setFromText(L"LTSCALE", L"abc"), L"expects a number");
    EXPECT_EQ(AcEdSysVars::setFromText(L"NOSUCHVAR", L"1"), L"unknown variable");
    resbuf rb{};
    EXPECT_EQ(acedGetVar(L"VIEWDIR", &rb), RTNORM);
    EXPECT_EQ(rb.restype, RT3DPOINT);
    EXPECT_DOUBLE_EQ(rb.resval.rpoint[2], 1.0);
    EXPECT_EQ(rec.log, (std::vector<std::wstring>{L"var FILEDIA ok", L"var FILEDIA refused", L"var TEXTSIZE ok"}));
}

} // namespace
