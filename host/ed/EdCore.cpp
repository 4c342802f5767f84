// The editor's state, the transcript helpers and the input reader behind every prompt.
#include "host/ed/EdCore.h"

#include <cmath>
#include <cstdlib>
#include <cwchar>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHandle.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/ed/AcEdSession.h"
#include "host/ed/AcEdUcs.h"
#include "host/ed/AcEditorReactor.h"
#include "host/ed/acutPrintf.h"
#include "host/win/CaseFold.h"
#include "host/win/WinTimer.h"
#include "host/win/WinWindow.h"

namespace eded {

State& state()
{
    static State s;
    return s;
}

void resetState()
{
    AcEdInputSource* source = state().source;
    state() = State();
    state().source = source;
}

void write(const std::wstring& text)
{
    if (!text.empty())
        acutPrintf(L"%s", text.c_str());
}

void echo(const std::wstring& answer)
{
    if (AcEdSession* s = AcEdSession::current())
        s->transcript().echo(answer);
    else
        acutPrintf(L"%s\n", answer.c_str());
}

void error(const std::wstring& message, const std::wstring& where)
{
    const std::wstring at = where.empty() ? state().lastWhere : where;
    if (AcEdSession* s = AcEdSession::current())
        s->error(at, message);
    else
        acutPrintf(L"\n** %s: %s\n", at.empty() ? L"(editor)" : at.c_str(), message.c_str());
}

const AcEdInputItem* peekSource()
{
    State& st = state();
    if (!st.source)
        return nullptr;
    const AcEdInputItem* next = st.source->peek();
    // The clock moves on before each item is taken, unless the item sets the time itself.
    if (st.advanceDue && next && next->kind != AcEdInputKind::kWait) {
        st.advanceDue = false;
        svwin::AdvanceSimClock(kInputStepMs);
        svwin::DispatchPostedMessages();
        next = st.source->peek();  // a timer may have taken it
    }
    return next;
}

void popSource()
{
    State& st = state();
    if (!st.source)
        return;
    if (const AcEdInputItem* item = st.source->peek()) {
        st.lastWhere = item->where();
        st.source->pop();
        st.advanceDue = true;
    }
}

ActiveCommand* innermost()
{
    State& st = state();
    return st.commands.empty() ? nullptr : &st.commands.back();
}

void markAnswer(bool cancelled)
{
    if (ActiveCommand* cmd = innermost())
        cmd->lastAnswerCancelled = cancelled;
}

PostedToken* readyPosted()
{
    State& st = state();
    if (st.posted.empty())
        return nullptr;
    PostedToken& front = st.posted.front();
    if (front.serial != 0)
        for (const ActiveCommand& c : st.commands)
            if (c.serial == front.serial)
                return nullptr;
    return &front;
}

bool waitForMenu(const AcEdInputItem* item)
{
    for (int waited = 0; waited < 5000; waited += 10) {
        if (peekSource() != item)
            return true;  // a menu took it
        svwin::AdvanceSimClock(10);
        svwin::DispatchPostedMessages();
    }
    if (peekSource() != item)
        return true;
    error(L"no popup menu opened for this answer", item->where());
    popSource();
    return false;
}

namespace {

// A transparent command typed at a prompt ("'NAME"): runs it; true when the text was one.
bool runTransparent(const AcEdInputItem& item)
{
    if (item.kind != AcEdInputKind::kText || item.text.size() < 2 || item.text[0] != L'\'')
        return false;
    std::wstring name = item.text.substr(1);
    while (!name.empty() && (name[0] == L'_' || name[0] == L'.'))
        name.erase(0, 1);
    AcEdCommand* cmd = acedRegCmds->lookupCmd(name.c_str());
    if (!cmd)
        return false;
    if (!(cmd->commandFlags() & ACRX_CMD_TRANSPARENT)) {
        write(L"\n** That command may not be invoked transparently **");
        return true;
    }
    acedRunCommand(item.text.c_str());
    return true;
}

} // namespace

ReadResult readAnswer(AcEdInputItem& out, const std::wstring& prompt, bool& first)
{
    State& st = state();
    first = false;
    for (;;) {
        ActiveCommand* cmd = innermost();
        if (cmd && cmd->cancelPending > 0) {
            --cmd->cancelPending;
            return ReadResult::kCancel;
        }
        if (PostedToken* posted = readyPosted()) {
            out = posted->item;
            st.posted.pop_front();
        } else if (cmd && !cmd->overlay.empty() && !cmd->overlay.front().pause) {
            out = cmd->overlay.front().item;
            cmd->overlay.pop_front();
        } else {
            const AcEdInputItem* next = peekSource();
            if (!next) {
                const int n = ++st.exhaustedPrompts;
                if (n > kExhaustedPromptLimit)
                    throw InputExhausted{};
                first = (n == 1);
                if (first) {
                    std::wstring shown = trim(prompt);
                    error(L"input ran out at the prompt \"" + shown + L"\"");
                }
                return ReadResult::kExhausted;
            }
            if (next->kind == AcEdInputKind::kMenu && st.menuDepth == 0) {
                waitForMenu(next);
                continue;
            }
            if (cmd && !cmd->overlay.empty())
                cmd->overlay.pop_front();  // the pause this answer fills
            out = *next;
            popSource();
        }
        switch (out.kind) {
        case AcEdInputKind::kEscape:
            return ReadResult::kCancel;
        case AcEdInputKind::kClick:
        case AcEdInputKind::kPick: {
            AcGePoint3d p;
            bool ok = true;
            if (out.kind == AcEdInputKind::kClick) {
                ok = !out.args.empty() && parsePoint(out.args[0], nullptr, p);
            } else {
                AcEdPickHit hit;
                const AcDbObjectId id = out.args.empty() ? AcDbObjectId() : resolveHandle(out.args[0]);
                ok = !id.isNull() && acedPicker()->pickEntity(id, 0, hit);
                if (ok)
                    p = wcsToUcs(hit.point);
            }
            if (ok && dispatchClick(p, false))
                continue;  // a filter swallowed the click
            return ReadResult::kItem;
        }
        case AcEdInputKind::kText:
            if (runTransparent(out))
                continue;
            return ReadResult::kItem;
        default:
            if (runBackgroundDirective(out))
                continue;
            return ReadResult::kItem;
        }
    }
}

int noItemResult(ReadResult r, bool first)
{
    if (r == ReadResult::kCancel || first) {
        markAnswer(true);
        return RTCAN;
    }
    markAnswer(false);
    return RTNONE;
}

namespace {

bool parseUcsDirective(const AcEdInputItem& item)
{
    if (item.args.size() == 1 && equalsNoCase(item.args[0], L"world")) {
        acedSetWorldUcs();
        return true;
    }
    if (item.args.size() != 3) {
        error(L"@@ucs expects \"world\" or ORIGIN XAXIS YAXIS (three x,y,z triples)");
        return false;
    }
    AcGePoint3d v[3];
    for (int i = 0; i < 3; ++i) {
        const std::wstring& a = item.args[static_cast<size_t>(i)];
        if (a.empty() || a[0] == L'@' || !parsePoint(a, nullptr, v[i])) {
            error(L"@@ucs: \"" + a + L"\" is no x,y[,z] triple");
            return false;
        }
    }
    if (!acedSetCurrentUcs(v[0], v[1].asVector(), v[2].asVector())) {
        error(L"@@ucs: the axes are zero or parallel");
        return false;
    }
    return true;
}

bool parseViewDirective(const AcEdInputItem& item)
{
    AcEdViewState view = acedGetViewState();
    AcGePoint3d c;
    double upp = 0;
    bool ok = (item.args.size() == 2 || item.args.size() == 4) && parsePoint(item.args[0], nullptr, c) &&
              parseReal(item.args[1], upp);
    double w = view.width, h = view.height;
    if (ok && item.args.size() == 4)
        ok = parseReal(item.args[2], w) && parseReal(item.args[3], h);
    if (ok) {
        view.center = AcGePoint3d(c.x, c.y, 0.0);
        view.unitsPerPixel = upp;
        view.width = static_cast<int>(w);
        view.height = static_cast<int>(h);
        ok = acedSetViewState(view);
    }
    if (!ok)
        error(L"@@view expects CENTER UNITS_PER_PIXEL [WIDTH HEIGHT], e.g. \"@@view 500,400 1\"");
    return ok;
}

} // namespace

bool runBackgroundDirective(const AcEdInputItem& item)
{
    switch (item.kind) {
    case AcEdInputKind::kWait: {
        double ms = 0;
        if (item.args.size() != 1 || !parseReal(item.args[0], ms) || ms < 0 || ms > 3.6e6) {
            error(L"@@wait expects milliseconds (0 to 3600000)");
            return true;
        }
        svwin::AdvanceSimClock(static_cast<DWORD>(ms));
        svwin::DispatchPostedMessages();
        return true;
    }
    case AcEdInputKind::kKey: {
        int vk = 0;
        if (item.args.size() != 2 || !svwin::VirtualKeyFromName(item.args[0], vk) ||
            !(equalsNoCase(item.args[1], L"down") || equalsNoCase(item.args[1], L"up"))) {
            error(L"@@key expects a key (ctrl, shift, alt, a letter or a number) and down or up");
            return true;
        }
        svwin::SetKeyDown(vk, equalsNoCase(item.args[1], L"down"));
        return true;
    }
    case AcEdInputKind::kUcs:
        parseUcsDirective(item);
        return true;
    case AcEdInputKind::kView:
        parseViewDirective(item);
        return true;
    case AcEdInputKind::kDialog:
    case AcEdInputKind::kFileDialog: {
        AcEdHooks::DialogDirective hook = AcEdHooks::setDialogDirective({});
        AcEdHooks::setDialogDirective(hook);
        if (!hook || !hook(item))
            error(L"no dialog is open to take \"" + item.text + L"\"");
        return true;
    }
    case AcEdInputKind::kRightClick: {
        AcGePoint3d p;
        if (item.args.size() != 1 || !parsePoint(item.args[0], nullptr, p)) {
            error(L"@@rclick expects a point");
            return true;
        }
        dispatchClick(p, true);
        return true;
    }
    case AcEdInputKind::kMenu:
        error(L"no popup menu is open for this answer");
        return true;
    case AcEdInputKind::kMessageBox:
        error(L"no message box is open for this answer");
        return true;
    default:
        return false;
    }
}

// Points and numbers ---------------------------------------------------------------------

bool parseReal(const std::wstring& textIn, double& value)
{
    const std::wstring text = trim(textIn);
    if (text.empty())
        return false;
    wchar_t* end = nullptr;
    const double v = std::wcstod(text.c_str(), &end);
    if (end == text.c_str() || *end != L'\0' || !std::isfinite(v))
        return false;
    for (wchar_t c : text)  // wcstod takes "inf", "nan" and hex; answers do not
        if (!(std::iswdigit(c) || c == L'.' || c == L'-' || c == L'+' || c == L'e' || c == L'E'))
            return false;
    value = v;
    return true;
}

std::wstring formatReal(double v)
{
    if (v == 0.0)
        v = 0.0;  // no "-0"
    wchar_t buf[64];
    std::swprintf(buf, 64, L"%.10g", v);
    return buf;
}

std::wstring formatPoint(const AcGePoint3d& p)
{
    std::wstring s = formatReal(p.x) + L"," + formatReal(p.y);
    if (p.z != 0.0)
        s += L"," + formatReal(p.z);
    return s;
}

bool parsePoint(const std::wstring& textIn, const AcGePoint3d* baseUcs, AcGePoint3d& outUcs)
{
    std::wstring text = trim(textIn);
    if (text.empty())
        return false;
    bool relative = false;
    if (text[0] == L'@') {
        relative = true;
        text.erase(0, 1);
        if (text.empty()) {  // "@": the base itself
            outUcs = baseUcs ? *baseUcs : state().lastPointUcs;
            return true;
        }
    }
    const size_t lt = text.find(L'<');
    AcGePoint3d p;
    if (lt != std::wstring::npos) {
        double d = 0, a = 0;
        if (!parseReal(text.substr(0, lt), d) || !parseReal(text.substr(lt + 1), a))
            return false;
        const double rad = a * 3.14159265358979323846 / 180.0;
        p = AcGePoint3d(d * std::cos(rad), d * std::sin(rad), 0.0);
    } else {
        std::vector<double> v;
        size_t start = 0;
        for (;;) {
            const size_t comma = text.find(L',', start);
            double x = 0;
            if (!parseReal(text.substr(start, comma == std::wstring::npos ? std::wstring::npos : comma - start), x))
                return false;
            v.push_back(x);
            if (comma == std::wstring::npos)
                break;
            start = comma + 1;
        }
        if (v.size() < 2 || v.size() > 3)
            return false;
        p = AcGePoint3d(v[0], v[1], v.size() == 3 ? v[2] : 0.0);
    }
    if (relative) {
        const AcGePoint3d base = baseUcs ? *baseUcs : state().lastPointUcs;
        p = AcGePoint3d(base.x + p.x, base.y + p.y, base.z + p.z);
    }
    outUcs = p;
    return true;
}

// Coordinates -----------------------------------------------------------------------------

AcGeVector3d ucsToWcs(const AcGeVector3d& v)
{
    const State& st = state();
    const AcGeVector3d z = st.ucsX.crossProduct(st.ucsY);
    return st.ucsX * v.x + st.ucsY * v.y + z * v.z;
}

AcGeVector3d wcsToUcs(const AcGeVector3d& v)
{
    const State& st = state();
    const AcGeVector3d z = st.ucsX.crossProduct(st.ucsY);
    return AcGeVector3d(v.dotProduct(st.ucsX), v.dotProduct(st.ucsY), v.dotProduct(z));
}

AcGePoint3d ucsToWcs(const AcGePoint3d& p)
{
    return state().ucsOrigin + ucsToWcs(p.asVector());
}

AcGePoint3d wcsToUcs(const AcGePoint3d& p)
{
    const AcGeVector3d v = wcsToUcs(p - state().ucsOrigin);
    return AcGePoint3d(v.x, v.y, v.z);
}

AcDbObjectId resolveHandle(const std::wstring& handle)
{
    AcEdHooks::HandleResolver hook = AcEdHooks::setHandleResolver({});
    AcEdHooks::setHandleResolver(hook);
    if (hook)
        return hook(handle);
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!db)
        return AcDbObjectId();
    AcDbObjectId id;
    if (db->getAcDbObjectId(id, false, AcDbHandle(handle.c_str())) != Acad::eOk || !id.isValid() || id.isErased())
        return AcDbObjectId();
    return id;
}

bool dispatchClick(const AcGePoint3d& ucsPoint, bool right)
{
    const POINT px = acedWorldToPixel(ucsToWcs(ucsPoint));
    const bool swallowed = acedDispatchWinMsg(right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, px, right ? MK_RBUTTON : MK_LBUTTON);
    acedDispatchWinMsg(right ? WM_RBUTTONUP : WM_LBUTTONUP, px, 0);
    return swallowed;
}

void setPickfirst(std::vector<AcDbObjectId> ids)
{
    State& st = state();
    if (ids == st.pickfirst)
        return;
    st.pickfirst = std::move(ids);
    AcEdEvents::pickfirstModified();
}

// Text ---------------------------------------------------------------------------------------

std::wstring upper(const std::wstring& s)
{
    std::wstring out = s;
    for (wchar_t& c : out)
        c = svwin::ToUpperChar(c);
    return out;
}

bool equalsNoCase(const std::wstring& a, const std::wstring& b)
{
    return svwin::FoldCase(a) == svwin::FoldCase(b);
}

std::wstring trim(const std::wstring& s)
{
    const size_t b = s.find_first_not_of(L" \t\r\n");
    if (b == std::wstring::npos)
        return std::wstring();
    const size_t e = s.find_last_not_of(L" \t\r\n");
    return s.substr(b, e - b + 1);
}

} // namespace eded

std::wstring AcEdInputItem::where() const
{
    if (source.empty())
        return std::wstring();
    return line > 0 ? source + L":" + std::to_wstring(line) : source;
}
