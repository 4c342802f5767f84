// A test module: one command of each input kind, a jig with a keyword, a filtered selection,
// a "C:" function, a right-click filter that opens a popup menu from a timer, and a line on
// the command line for every application message, so tests can read the order.
#include <stdexcept>

#include "host/ap/AcApDocManager.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/ed/AcEd.h"
#include "host/win/WinMenu.h"
#include "host/win/WinTimer.h"

namespace {

constexpr const ACHAR* kGroup = L"SV_TESTMODULE";
constexpr UINT_PTR kTimerId = 4711;

bool gRightDown = false;
POINT gRightAt{};

void say(const std::wstring& text)
{
    acutPrintf(L"\n[tm] %s", text.c_str());
}

std::wstring handleOf(const ads_name ent)
{
    AcDbObjectId id;
    if (acdbGetObjectId(id, ent) != Acad::eOk)
        return L"?";
    ACHAR buffer[32] = {};
    id.handle().getIntoAsciiBuffer(buffer);
    return buffer;
}

// The jig: a line from the base to the cursor; "Offset" is its keyword.
class LineJig : public AcEdJig {
public:
    explicit LineJig(const AcGePoint3d& base) : m_line(new AcDbLine(base, base)), m_base(base) {}
    ~LineJig() override { delete m_line; }

    DragStatus sampler() override
    {
        setKeywordList(L"Offset");
        AcGePoint3d p;
        const DragStatus s = acquirePoint(p, m_base);
        if (s == kNormal) {
            ++m_samples;
            if (p.isEqualTo(m_end))
                return kNoChange;
            m_end = p;
        }
        return s;
    }
    Adesk::Boolean update() override
    {
        m_line->setEndPoint(m_end);
        return true;
    }
    AcDbEntity* entity() const override { return m_line; }

    AcDbLine* release()
    {
        AcDbLine* l = m_line;
        m_line = nullptr;
        return l;
    }
    int samples() const { return m_samples; }

private:
    AcDbLine* m_line;
    AcGePoint3d m_base;
    AcGePoint3d m_end;
    int m_samples = 0;
};

void cmdJig()
{
    ads_point base;
    if (acedGetPoint(nullptr, L"\nJig base: ", base) != RTNORM)
        return;
    LineJig jig(AcGePoint3d(base[0], base[1], base[2]));
    jig.setDispPrompt(L"\nJig end or [Offset]: ");
    jig.setKeywordList(L"Offset");
    const AcEdJig::DragStatus s = jig.drag();
    say(L"jig status " + std::to_wstring(static_cast<int>(s)) + L" samples " + std::to_wstring(jig.samples()));
    if (s == AcEdJig::kNormal) {
        jig.append();
        jig.release();  // appended: the database owns it
    }
}

// A selection of lines and arcs only; the pickfirst set when one is pending.
void cmdSelect()
{
    resbuf* filter = acutBuildList(-4, L"<or", RTDXF0, L"LINE", RTDXF0, L"ARC", -4, L"or>", RTNONE);
    ads_name ss;
    const int rc = acedSSGet(nullptr, nullptr, nullptr, filter, ss);
    acutRelRb(filter);
    if (rc != RTNORM) {
        int err = 0;
        AcEdSysVars::getInt(L"ERRNO", err);
        say(L"select rc " + std::to_wstring(rc) + L" errno " + std::to_wstring(err));
        return;
    }
    Adesk::Int32 n = 0;
    acedSSLength(ss, &n);
    std::wstring line = L"select " + std::to_wstring(n) + L":";
    for (Adesk::Int32 i = 0; i < n; ++i) {
        ads_name ent;
        acedSSName(ss, i, ent);
        line += L" " + handleOf(ent);
    }
    say(line);
    acedSSFree(ss);
}

void cmdInput()
{
    ads_point p;
    const int rp = acedGetPoint(nullptr, L"\nPoint: ", p);
    say(L"point " + std::to_wstring(rp) + (rp == RTNORM ? L" " + std::to_wstring(p[0]) + L"," + std::to_wstring(p[1]) : L""));
    double d = 0.0;
    int rc = acedGetDist(nullptr, L"\nDistance: ", &d);
    say(L"dist " + std::to_wstring(rc) + L" " + std::to_wstring(d));
    double a = 0.0;
    rc = acedGetAngle(nullptr, L"\nAngle: ", &a);
    say(L"angle " + std::to_wstring(rc) + L" " + std::to_wstring(a));
    int n = 0;
    rc = acedGetInt(L"\nInteger: ", &n);
    say(L"int " + std::to_wstring(rc) + L" " + std::to_wstring(n));
    double r = 0.0;
    rc = acedGetReal(L"\nReal: ", &r);
    say(L"real " + std::to_wstring(rc) + L" " + std::to_wstring(r));
    ACHAR text[133] = {};
    rc = acedGetString(1, L"\nText: ", text, 133);
    say(L"string " + std::to_wstring(rc) + L" " + text);
    acedInitGet(0, L"Links Rechts");
    ACHAR kw[133] = {};
    rc = acedGetKword(L"\nSide [Links/Rechts]: ", kw, 133);
    say(L"kword " + std::to_wstring(rc) + L" " + kw);
    ads_name ent;
    const int re = acedEntSel(L"\nPick: ", ent, p);
    say(L"entsel " + std::to_wstring(re) + (re == RTNORM ? L" " + handleOf(ent) : L""));
}

void cmdPopup()
{
    say(L"popup command");
}

void cmdThrow()
{
    throw std::runtime_error("the test command failed on purpose");
}

void timerProc(HWND, UINT, UINT_PTR id, DWORD)
{
    KillTimer(acedGetAcadDwgView(), id);
    HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 101, L"Eins");
    AppendMenuW(menu, MF_STRING | MF_CHECKED, 102, L"Zwei");
    const UINT chosen = TrackPopupMenu(menu, TPM_RETURNCMD, gRightAt.x, gRightAt.y, 0, acedGetAcadDwgView(), nullptr);
    DestroyMenu(menu);
    say(L"menu " + std::to_wstring(chosen));
    if (chosen)
        acedPostCommand(L"TM_POPUP ");
}

bool filterProc(MSG* msg)
{
    if (!msg)
        return false;
    if (msg->message == WM_RBUTTONDOWN) {
        gRightDown = !acedIsCommandActive();
        gRightAt = msg->pt;
        say(L"right button down");
        return gRightDown;
    }
    if (msg->message == WM_RBUTTONUP && gRightDown) {
        gRightDown = false;
        SetTimer(acedGetAcadDwgView(), kTimerId, 100, timerProc);
        return true;
    }
    return false;
}

void initApp(void* pkt)
{
    say(std::wstring(L"init unlock ") + (acrxDynamicLinker->unlockApplication(pkt) ? L"1" : L"0") + L" mdi " +
        (acrxDynamicLinker->registerAppMDIAware(pkt) ? L"1" : L"0"));
    acedRegCmds->addCommand(kGroup, L"TM_JIG", L"TM_JIG", ACRX_CMD_MODAL, cmdJig);
    acedRegCmds->addCommand(kGroup, L"TM_SELECT", L"TM_SEL", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW, cmdSelect);
    acedRegCmds->addCommand(kGroup, L"TM_INPUT", L"TM_INPUT", ACRX_CMD_MODAL, cmdInput);
    acedRegCmds->addCommand(kGroup, L"TM_POPUP", L"TM_POPUP", ACRX_CMD_MODAL, cmdPopup);
    acedRegCmds->addCommand(kGroup, L"TM_THROW", L"TM_THROW", ACRX_CMD_MODAL, cmdThrow);
    acedRegisterFilterWinMsg(filterProc);
}

void unloadApp(const wchar_t* why)
{
    acedRegCmds->removeGroup(kGroup);
    acedRemoveFilterWinMsg(filterProc);
    say(why);
}

std::wstring docName(void* pkt)
{
    auto* doc = static_cast<AcApDocument*>(pkt);
    return doc ? doc->docTitle() : L"?";
}

} // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt)
{
    switch (msg) {
    case AcRx::kInitAppMsg:
        initApp(pkt);
        break;
    case AcRx::kLoadDwgMsg:
        acedDefun(L"C:TM_LISP", 0);
        say(L"load dwg " + docName(pkt));
        break;
    case AcRx::kUnloadDwgMsg:
        acedUndef(L"C:TM_LISP", 0);
        say(L"unload dwg " + docName(pkt));
        break;
    case AcRx::kInvkSubrMsg:
        acedRetVoid();
        say(L"lisp function " + std::to_wstring(acedGetFunCode()));
        return static_cast<AcRx::AppRetCode>(RSRSLT);
    case AcRx::kSaveMsg:
        say(L"save");
        throw std::runtime_error("saving is refused by the test module");
    case AcRx::kUnloadAppMsg:
        unloadApp(L"unload app");
        break;
    case AcRx::kQuitMsg:
        unloadApp(L"quit");
        break;
    default:
        break;
    }
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion()
{
    return 1;
}
