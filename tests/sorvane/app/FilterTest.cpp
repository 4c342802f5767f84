// The right-click road: classification of what lies under the cursor, the
// menu each kind gets with its check marks, and the filter and timer driven
// by clicks, as the host delivers them.
#include "AppFixture.h"

#include "app/DlgMain.h"
#include "app/MatchProp.h"
#include "app/MessageFilter.h"
#include "app/Panel.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRegAppTable.h"
#include "host/db/AcDbText.h"
#include "proxy/SVbasic.h"

namespace {

using apptest::AppTest;

AcDbDatabase* Db()
{
    return acdbHostApplicationServices()->workingDatabase();
}

AcDbObjectId Append(AcDbEntity* entity)
{
    AcDbBlockTableRecord* ms = nullptr;
    AcDbObjectId id;
    if (acdbOpenObject(ms, Db()->modelSpaceId(), AcDb::kForWrite) != Acad::eOk)
        return id;
    ms->appendAcDbEntity(id, entity);
    ms->close();
    entity->close();
    return id;
}

// Tags the object as the module's, with the object kind.
void Tag(AcDbObjectId id, int kind)
{
    AcDbRegAppTable* apps = nullptr;
    ASSERT_EQ(Db()->getRegAppTable(apps, AcDb::kForWrite), Acad::eOk);
    if (!apps->has(L"SORVANE_OBJECT")) {
        auto* rec = new AcDbRegAppTableRecord;
        rec->setName(L"SORVANE_OBJECT");
        apps->add(rec);
        rec->close();
    }
    apps->close();
    AcDbObject* obj = nullptr;
    ASSERT_EQ(acdbOpenObject(obj, id, AcDb::kForWrite), Acad::eOk);
    resbuf* data = acutBuildList(1001, L"SORVANE_OBJECT", 1000, L"_SORVANE_", 1070, kind, RTNONE);
    EXPECT_EQ(obj->setXData(data), Acad::eOk);
    acutRelRb(data);
    obj->close();
}

AcDbObjectId Chain(int type, int lastType, UINT sum = 0, UINT wipeOut = 0, UINT altUnits = 0)
{
    const AcGeVector3d along(1, 0, 0);
    auto* chain = new SVdim(AcGePoint3d(0, 0, 0), AcGePoint3d(5, 0, 0), AcGePoint3d(0, 1, 0), SVdim::kAligned, &along);
    chain->m_dimType = type;
    chain->arrayInt.SetAtGrow(SVdim::kIntLastType, lastType);
    chain->arrayInt.SetAtGrow(SVdim::kIntSumStatus, sum);
    chain->arrayInt.SetAtGrow(SVdim::kIntWipeOutStatus, wipeOut);
    chain->arrayInt.SetAtGrow(SVdim::kIntAltUnitsStatus, altUnits);
    return Append(chain);
}

// Dismisses every popup menu and keeps what it was shown.
class MenuRecorder : public svwin::IPopupMenuSink {
public:
    MenuRecorder() : m_previous(svwin::SetPopupMenuSink(this)) {}
    ~MenuRecorder() override { svwin::SetPopupMenuSink(m_previous); }
    UINT Track(HMENU menu, UINT, int, int, HWND) override
    {
        m_lines = svwin::DescribeMenu(menu);
        ++m_count;
        return 0;
    }
    bool Has(const std::wstring& start) const
    {
        for (const std::wstring& l : m_lines)
            if (l.rfind(start, 0) == 0)
                return true;
        return false;
    }
    int m_count = 0;
    std::vector<std::wstring> m_lines;

private:
    svwin::IPopupMenuSink* m_previous;
};

TEST(PopupMenuChoice, EachKindGetsItsMenuAndMode)
{
    struct Case {
        int dimType, mdType, mode;
        UINT menu;
    } const cases[] = {
        {105, 2, 2, 130},  // linear chain
        {100, 0, 2, 130},
        {103, 3, 2, 134},  // arc chain
        {302, 1, 4, 132},  // plan mark
        {251, 2, 3, 133},  // base plane, fixed
        {250, 2, 3, 133},
        {200, 0, 3, 131},  // section mark
        {249, 1, 3, 131},
        {0, 60, 2, 139},   // tagged radial or diametric dimension
        {0, 50, 2, 138},   // other tagged dimension
        {0, 10, 5, 137},   // tagged text
    };
    for (const Case& c : cases) {
        const CPopupMenuChoice choice = ChoosePopupMenu(c.dimType, c.mdType);
        EXPECT_EQ(choice.iMode, c.mode) << c.dimType << "/" << c.mdType;
        EXPECT_EQ(choice.nMenuId, c.menu) << c.dimType << "/" << c.mdType;
    }
}

TEST_F(AppTest, GetDimTypeClassifiesWhatWasClicked)
{
    Load();
    const AcDbObjectId text = Append(new AcDbText(AcGePoint3d(1, 1, 0), L"Hallo"));
    const AcDbObjectId plainText = Append(new AcDbText(AcGePoint3d(3, 1, 0), L"fremd"));
    const AcDbObjectId radial = Append(new AcDbRadialDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0), 0.5));
    const AcDbObjectId diametric =
        Append(new AcDbDiametricDimension(AcGePoint3d(-1, 0, 0), AcGePoint3d(1, 0, 0), 0.5));
    const AcDbObjectId aligned =
        Append(new AcDbAlignedDimension(AcGePoint3d(0, 0, 0), AcGePoint3d(2, 0, 0), AcGePoint3d(0, 1, 0)));
    for (AcDbObjectId id : {text, radial, diametric, aligned})
        Tag(id, 10);
    Tag(text, 1);
    // Height marks (plan 300+, base plane 250/251, section 200+) are classified
    // once they are part of the module.
    struct Case {
        const char* name;
        AcDbObjectId id;
        int dimType, mdType;
    } const cases[] = {
        {"chain of type 2 with LastType 5", Chain(2, 5), 105, 2},
        {"arc chain", Chain(3, 0), 100, 3},
        {"tagged radial dimension", radial, 0, 60},
        {"tagged diametric dimension", diametric, 0, 60},
        {"tagged aligned dimension", aligned, 0, 50},
        {"tagged text", text, 0, 10},
        {"foreign text", plainText, 0, 0},
        {"nothing", AcDbObjectId::kNull, 0, 0},
    };
    for (const Case& c : cases) {
        int mdType = -1;
        EXPECT_EQ(GetDimType(c.id, mdType), c.dimType) << c.name;
        EXPECT_EQ(mdType, c.mdType) << c.name;
    }
}

TEST_F(AppTest, ChainMenuChecksFollowTheChainsSwitches)
{
    Load();
    ASSERT_EQ(StartApp(0), 1);
    pGlobDimOptions->arrayOptInt[14] = 1;  // alternative units on globally
    struct Case {
        const char* name;
        int type;
        UINT sum, wipeOut, altUnits;
        UINT menu;
        std::vector<std::wstring> lines;
    } const cases[] = {
        {"linear", 0, 1, 2, 0, 130, {L"[x] 32880", L"[ ] 32886", L"[x] 32893"}},
        {"linear, all off", 2, 2, 0, 2, 130, {L"[ ] 32880", L"[ ] 32886", L"[ ] 32893"}},
        {"arc", 3, 1, 1, 1, 134, {L"[x] 32886"}},
    };
    for (const Case& c : cases) {
        MenuRecorder menus;
        popupObjectId = Chain(c.type, 1, c.sum, c.wipeOut, c.altUnits);
        SetTimer(acedGetAcadDwgView(), kPopupTimerId, kPopupTimerDelay, timerProc);
        svwin::AdvanceSimClock(kPopupTimerDelay);
        ASSERT_EQ(menus.m_count, 1) << c.name;
        for (const std::wstring& line : c.lines)
            EXPECT_TRUE(menus.Has(line)) << c.name << ": " << std::string(line.begin(), line.end());
        EXPECT_EQ(menus.Has(L"[ ] 32880") || menus.Has(L"[x] 32880"), c.menu == 130) << c.name;
        EXPECT_EQ(dlgMyApp->m_iCurrentMode, 2) << c.name;
        EXPECT_EQ(svwin::ActiveTimerCount(), 0) << c.name;  // one-shot
    }
}

TEST_F(AppTest, MatchPropCopiesParametersAndTheFlaggedProperties)
{
    Load();
    const AcDbObjectId source = Chain(2, 4), target = Chain(0, 1);
    SVdim* from = nullptr;
    SVdim* to = nullptr;
    ASSERT_EQ(acdbOpenObject(from, source, AcDb::kForWrite), Acad::eOk);
    ASSERT_EQ(acdbOpenObject(to, target, AcDb::kForWrite), Acad::eOk);
    from->setColorIndex(3);
    from->setLinetypeScale(2.5);
    from->arrayDouble[SVdim::kDblTextHeight] = 77.0;
    SVdimMatchProp().copyProperties(from, to, AcDbMatchProperties::kColorFlag);
    EXPECT_EQ(to->colorIndex(), 3);
    EXPECT_EQ(to->linetypeScale(), 1.0);  // not flagged
    EXPECT_EQ(to->arrayDouble[SVdim::kDblTextHeight], 77.0);
    EXPECT_EQ(to->arrayInt[SVdim::kIntLastType], 4u);
    EXPECT_EQ(to->m_dimType, 0);  // the geometry stays the target's
    to->close();
    from->close();
}

class RightClickTest : public AppTest {
protected:
    void SetUp() override
    {
        AppTest::SetUp();
        Load();
        m_text = Append(new AcDbText(AcGePoint3d(1, 1, 0), L"Hallo", AcDbObjectId::kNull, 0.25));
        Tag(m_text, 1);
        m_line = Append(new AcDbText(AcGePoint3d(3, 1, 0), L"fremd", AcDbObjectId::kNull, 0.25));
    }
    static POINT Pixel(double x, double y) { return acedWorldToPixel(AcGePoint3d(x, y, 0)); }
    AcDbObjectId m_text, m_line;
};

TEST_F(RightClickTest, ATaggedObjectGetsItsMenuAndTheChoiceRunsAsACommand)
{
    ASSERT_EQ(StartApp(0), 1);
    AcEdSession session;
    session.runScriptText(L"@@rclick 1.1,1.1\n@@menu 32800\n", L"t");
    EXPECT_FALSE(session.failed()) << std::string(session.errors().empty() ? "" : "error");
    const std::wstring t = session.transcript().text();
    const POINT px = Pixel(1.1, 1.1);
    EXPECT_NE(t.find(L"[Menu at " + std::to_wstring(px.x + 5) + L"," + std::to_wstring(px.y + 5) + L"]"),
              std::wstring::npos)
        << std::string(t.begin(), t.end());
    EXPECT_NE(t.find(L"32800 Akt.Format -> Vorgabe"), std::wstring::npos);
    EXPECT_NE(t.find(L"Befehl KOVA_SorvanePopUp ist noch nicht verfügbar."), std::wstring::npos);
    EXPECT_EQ(nPendingMenuId, 32800u);
    EXPECT_EQ(pendingPopupObjectId, m_text);
    EXPECT_EQ(dlgMyApp->m_iCurrentMode, 5);
    EXPECT_EQ(acedPickfirstIds(), std::vector<AcDbObjectId>{m_text});  // selected as by a left click
}

TEST_F(RightClickTest, WhatTheFilterSwallows)
{
    struct Case {
        const char* name;
        bool panel;
        POINT at;
        bool downSwallowed, upSwallowed;
        int timers;
    } const cases[] = {
        {"tagged text", true, Pixel(1.1, 1.1), true, true, 1},
        {"foreign text", true, Pixel(3.1, 1.1), true, false, 0},
        {"empty spot", true, Pixel(8, 8), false, false, 0},
        {"no panel", false, Pixel(1.1, 1.1), false, false, 0},
    };
    for (const Case& c : cases) {
        svwin::ResetSimClock();
        if (c.panel)
            ASSERT_EQ(StartApp(0), 1);
        else
            EndApp(1, 0);
        EXPECT_EQ(acedDispatchWinMsg(WM_RBUTTONDOWN, c.at, MK_RBUTTON), c.downSwallowed) << c.name;
        EXPECT_EQ(acedDispatchWinMsg(WM_RBUTTONUP, c.at), c.upSwallowed) << c.name;
        EXPECT_EQ(svwin::ActiveTimerCount(), c.timers) << c.name;
        EXPECT_EQ(popupObjectId.isNull(), !c.upSwallowed) << c.name;
    }
}

TEST_F(RightClickTest, NoMenuWhileACommandRuns)
{
    ASSERT_EQ(StartApp(0), 1);
    AcEdSession session;
    session.runScriptText(L"LINE\n@@rclick 1.1,1.1\n@@wait 300\n@@esc\n", L"t");
    const std::wstring t = session.transcript().text();
    EXPECT_EQ(t.find(L"[Menu"), std::wstring::npos) << std::string(t.begin(), t.end());
    EXPECT_TRUE(popupObjectId.isNull());
    EXPECT_EQ(svwin::ActiveTimerCount(), 0);
}

} // namespace
