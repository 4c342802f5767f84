// The command loop: running commands (nested too), posted keystrokes, acedCommand lists,
// CMDNAMES/CMDACTIVE, undo groups, command events, and the AutoLISP function table.
#include "host/ed/AcEdCommandLoop.h"

#include <cstdarg>
#include <cstring>
#include <functional>
#include <exception>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbOpen.h"
#include "host/db/acutads.h"
#include "host/ed/AcEdCommandStack.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/ed/AcEdSysVar.h"
#include "host/ed/AcEditorReactor.h"
#include "host/ed/EdCore.h"

using namespace eded;

namespace {

struct LispFunction {
    std::wstring name;
    short code;
    int (*handler)() = nullptr;
};

struct LispState {
    std::vector<LispFunction> functions;
    std::vector<std::pair<short, int (*)()>> handlers;
    int currentCode = RTERROR;  // outside a call
    resbuf* args = nullptr;
    int lastResult = 0;
};

LispState& L()
{
    static LispState s;
    return s;
}

LispFunction* FindFunction(const std::wstring& name)
{
    for (LispFunction& f : L().functions)
        if (equalsNoCase(f.name, name))
            return &f;
    return nullptr;
}

// Text of a resbuf value as it would be typed at a prompt.
bool ItemFromResbuf(const resbuf* rb, OverlayItem& out)
{
    out = OverlayItem();
    out.item.source = L"(acedCommand)";
    switch (rb->restype) {
    case RTSTR:
        if (!rb->resval.rstring || !*rb->resval.rstring)
            out.item.kind = AcEdInputKind::kEnter;
        else if (std::wstring(rb->resval.rstring) == PAUSE)
            out.pause = true;
        else
            out.item.text = rb->resval.rstring;
        return true;
    case RTSHORT:
        out.item.text = std::to_wstring(rb->resval.rint);
        return true;
    case RTLONG:
        out.item.text = std::to_wstring(rb->resval.rlong);
        return true;
    case RTREAL:
    case RTANG:
        out.item.text = formatReal(rb->resval.rreal);
        return true;
    case RTPOINT:
        out.item.text = formatPoint(AcGePoint3d(rb->resval.rpoint[0], rb->resval.rpoint[1], 0.0));
        return true;
    case RT3DPOINT:
        out.item.text = formatPoint(AcGePoint3d(rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2]));
        return true;
    case RTENAME: {
        AcDbObjectId id;
        if (acdbGetObjectId(id, rb->resval.rlname) != Acad::eOk)
            return false;
        out.item.kind = AcEdInputKind::kPick;
        ACHAR hex[17] = {};
        id.handle().getIntoAsciiBuffer(hex, 17);
        out.item.args = {hex};
        return true;
    }
    case RTNONE:
    case RTVOID:
        out.item.kind = AcEdInputKind::kEnter;
        return true;
    default:
        return false;
    }
}

std::wstring StripCommandPrefix(std::wstring name, bool& transparent)
{
    transparent = false;
    name = trim(name);
    while (!name.empty() && (name[0] == L'_' || name[0] == L'.' || name[0] == L'\'')) {
        if (name[0] == L'\'')
            transparent = true;
        name.erase(0, 1);
    }
    return name;
}

std::wstring JoinedNames()
{
    std::wstring s;
    for (const ActiveCommand& c : state().commands) {
        if (!s.empty())
            s += L"'";
        s += c.name;
    }
    return s;
}

// Runs one command with its frame; overlay holds acedCommand answers (may be empty).
int RunFrame(const std::wstring& globalName, long flags, const std::function<void()>& body,
             std::deque<OverlayItem> overlay, const AcEdCommand* command, std::deque<OverlayItem>* leftover)
{
    State& st = state();
    ActiveCommand frame;
    frame.name = upper(globalName);
    frame.serial = st.nextSerial++;
    frame.flags = flags;
    frame.overlay = std::move(overlay);
    const bool outermost = st.commands.empty();
    if (outermost && !(flags & ACRX_CMD_USEPICKSET) && !(flags & ACRX_CMD_DEFUN) && !(flags & ACRX_CMD_TRANSPARENT))
        setPickfirst({});
    int pickfirstOn = 1;
    AcEdSysVars::getInt(L"PICKFIRST", pickfirstOn);
    frame.pickfirstPending = outermost && pickfirstOn != 0 && !st.pickfirst.empty() &&
                             (flags & (ACRX_CMD_USEPICKSET | ACRX_CMD_DEFUN));
    frame.undoDb = acdbHostApplicationServices()->workingDatabase();
    if (frame.undoDb)
        frame.undoDb->startUndoGroup();
    st.initFlags = 0;
    st.initKeywords.clear();
    st.commands.push_back(std::move(frame));
    const int serial = st.commands.back().serial;

    AcEdEvents::commandWillStart(globalName.c_str());
    AcEdHooks::CommandScope scope = AcEdHooks::setCommandScope({});
    AcEdHooks::setCommandScope(scope);
    if (scope)
        scope(command, true);
    bool failed = false;
    bool exhausted = false;
    std::wstring failure;
    try {
        body();
    } catch (const InputExhausted&) {
        exhausted = true;
    } catch (const std::exception& e) {
        failed = true;
        failure = e.what()[0] ? std::wstring(e.what(), e.what() + std::strlen(e.what())) : L"exception";
    } catch (...) {
        failed = true;
        failure = L"an exception";
    }
    if (scope)
        scope(command, false);

    // Nested frames left by an exception are gone with it; find ours.
    while (!st.commands.empty() && st.commands.back().serial != serial)
        st.commands.pop_back();
    const ActiveCommand done = st.commands.empty() ? ActiveCommand() : st.commands.back();
    if (!st.commands.empty())
        st.commands.pop_back();
    if (leftover)
        *leftover = done.overlay;
    if (done.undoDb)
        done.undoDb->endUndoGroup();
    st.initFlags = 0;
    st.initKeywords.clear();

    if (failed) {
        error(L"command " + done.name + L" failed: " + failure);
        AcEdEvents::commandFailed(globalName.c_str());
        return RTERROR;
    }
    if (exhausted || done.lastAnswerCancelled) {
        AcEdEvents::commandCancelled(globalName.c_str());
        return RTCAN;
    }
    AcEdEvents::commandEnded(globalName.c_str());
    return RTNORM;
}

int RunNamed(const std::wstring& typed, std::deque<OverlayItem> overlay, std::deque<OverlayItem>* leftover)
{
    bool transparent = false;
    const std::wstring name = StripCommandPrefix(typed, transparent);
    if (name.empty()) {
        error(L"no command name in \"" + typed + L"\"");
        return RTERROR;
    }
    if (AcEdCommand* cmd = acedRegCmds->lookupCmd(name.c_str())) {
        AcRxFunctionPtr fn = cmd->functionAddr();
        return RunFrame(cmd->globalName(), cmd->commandFlags() | (transparent ? ACRX_CMD_TRANSPARENT : 0),
                        [fn] { fn(); }, std::move(overlay), cmd, leftover);
    }
    if (LispFunction* f = FindFunction(L"C:" + name)) {
        const std::wstring fname = f->name;
        const std::wstring global = upper(name);
        return RunFrame(global, ACRX_CMD_DEFUN, [fname] { acedInvokeFunction(fname.c_str()); }, std::move(overlay),
                        nullptr, leftover);
    }
    AcEdEvents::unknownCommand(name.c_str());
    error(L"unknown command \"" + name + L"\"");
    return RTERROR;
}

int RunList(const resbuf* rb)
{
    std::deque<OverlayItem> items;
    for (; rb; rb = rb->rbnext) {
        OverlayItem it;
        if (!ItemFromResbuf(rb, it)) {
            error(L"acedCommand: a value of type " + std::to_wstring(rb->restype) + L" cannot be typed");
            return RTERROR;
        }
        items.push_back(std::move(it));
    }
    int result = RTNORM;
    while (!items.empty()) {
        OverlayItem head = std::move(items.front());
        items.pop_front();
        if (head.item.kind == AcEdInputKind::kEnter)
            continue;  // Enter at the command prompt
        if (head.pause || head.item.kind != AcEdInputKind::kText) {
            error(L"acedCommand: a command name must come first");
            return RTERROR;
        }
        // The command takes what it asks for; the rest starts the next command.
        std::deque<OverlayItem> leftover;
        result = RunNamed(head.item.text, std::move(items), &leftover);
        if (result != RTNORM)
            return result;
        items = std::move(leftover);
    }
    return result;
}

int RunVarList(int rtype, va_list ap)
{
    // acutBuildList takes the same pairs; rebuild the va_list walk through it by hand.
    resbuf* head = nullptr;
    resbuf** tail = &head;
    for (int type = rtype; type != 0 && type != RTNONE; type = va_arg(ap, int)) {
        resbuf* rb = acutNewRb(type);
        if (!rb) {
            acutRelRb(head);
            error(L"acedCommand: unknown value type " + std::to_wstring(type));
            return RTERROR;
        }
        switch (type) {
        case RTSTR:
            rb->resval.rstring = acutNewString(va_arg(ap, const ACHAR*));
            break;
        case RTSHORT:
            rb->resval.rint = static_cast<short>(va_arg(ap, int));
            break;
        case RTLONG:
            rb->resval.rlong = va_arg(ap, int);
            break;
        case RTREAL:
        case RTANG:
            rb->resval.rreal = va_arg(ap, double);
            break;
        case RTPOINT:
        case RT3DPOINT: {
            const ads_real* p = va_arg(ap, const ads_real*);
            for (int i = 0; i < 3; ++i)
                rb->resval.rpoint[i] = p ? p[i] : 0.0;
            if (type == RTPOINT)
                rb->resval.rpoint[2] = 0.0;
            break;
        }
        case RTENAME: {
            const Adesk::LongPtr* n = va_arg(ap, const Adesk::LongPtr*);
            rb->resval.rlname[0] = n ? n[0] : 0;
            rb->resval.rlname[1] = n ? n[1] : 0;
            break;
        }
        default:
            break;
        }
        *tail = rb;
        tail = &rb->rbnext;
    }
    const int r = RunList(head);
    acutRelRb(head);
    return r;
}

} // namespace

int acedCommandS(int rtype, ...)
{
    va_list ap;
    va_start(ap, rtype);
    const int r = RunVarList(rtype, ap);
    va_end(ap);
    return r;
}

int acedCommand(int rtype, ...)
{
    va_list ap;
    va_start(ap, rtype);
    const int r = RunVarList(rtype, ap);
    va_end(ap);
    return r;
}

int acedCmdS(const resbuf* rb)
{
    return RunList(rb);
}

int acedCmd(const resbuf* rb)
{
    return RunList(rb);
}

int acedPostCommand(const ACHAR* str)
{
    if (!str)
        return RTERROR;
    State& st = state();
    const int serial = st.commands.empty() ? 0 : st.commands.back().serial;
    auto flush = [&](bool entered) {
        if (!entered)
            return;
        PostedToken t;
        t.serial = serial;
        t.item.source = L"(posted)";
        if (st.postedPartial.empty())
            t.item.kind = AcEdInputKind::kEnter;
        else
            t.item.text = st.postedPartial;
        st.postedPartial.clear();
        st.posted.push_back(std::move(t));
    };
    for (const ACHAR* p = str; *p; ++p) {
        if (*p == 27) {
            st.postedPartial.clear();
            if (!st.commands.empty())
                ++st.commands.back().cancelPending;
        } else if (*p == L' ' || *p == L'\n' || *p == L'\r') {
            flush(true);
        } else {
            st.postedPartial += *p;
        }
    }
    return RTNORM;
}

void acedPostCommandPrompt()
{
    if (state().commands.empty())
        write(L"\nCommand:");
}

std::vector<std::wstring> acedActiveCommands()
{
    std::vector<std::wstring> out;
    for (const ActiveCommand& c : state().commands)
        out.push_back(c.name);
    return out;
}

bool acedIsCommandActive()
{
    return !state().commands.empty();
}

int acedRunCommand(const ACHAR* name)
{
    return RunNamed(name ? name : L"", {}, nullptr);
}

int acedRunPostedCommands()
{
    int ran = 0;
    State& st = state();
    while (st.commands.empty()) {
        PostedToken* t = readyPosted();
        if (!t)
            break;
        const AcEdInputItem item = t->item;
        st.posted.pop_front();
        if (item.kind == AcEdInputKind::kEnter)
            continue;
        write(L"\nCommand: ");
        echo(item.text);
        RunNamed(item.text, {}, nullptr);
        ++ran;
    }
    return ran;
}

// AutoLISP -----------------------------------------------------------------------------

int acedDefun(const ACHAR* sname, short funcnumber)
{
    if (!sname || !*sname)
        return RTERROR;
    if (LispFunction* f = FindFunction(sname)) {
        f->code = funcnumber;
        return RTNORM;
    }
    L().functions.push_back({sname, funcnumber});
    return RTNORM;
}

int acedUndef(const ACHAR* sname, short funcnumber)
{
    auto& fs = L().functions;
    for (auto it = fs.begin(); it != fs.end(); ++it)
        if (sname && equalsNoCase(it->name, sname) && it->code == funcnumber) {
            fs.erase(it);
            return RTNORM;
        }
    return RTERROR;
}

int acedRegFunc(int (*fhdl)(), short fcode)
{
    for (auto& h : L().handlers)
        if (h.first == fcode) {
            h.second = fhdl;
            return RTNORM;
        }
    L().handlers.push_back({fcode, fhdl});
    return RTNORM;
}

int acedGetFunCode()
{
    return L().currentCode;
}

resbuf* acedGetArgs()
{
    return L().args;
}

namespace {
int Ret(int type)
{
    L().lastResult = type;
    return RTNORM;
}
} // namespace

int acedRetVoid() { return Ret(RTVOID); }
int acedRetInt(int) { return Ret(RTSHORT); }
int acedRetReal(ads_real) { return Ret(RTREAL); }
int acedRetStr(const ACHAR*) { return Ret(RTSTR); }
int acedRetNil() { return Ret(RTNIL); }
int acedRetT() { return Ret(RTT); }
int acedRetPoint(const ads_point) { return Ret(RT3DPOINT); }
int acedRetName(const ads_name, int type) { return Ret(type); }
int acedRetVal(const resbuf* rb) { return Ret(rb ? rb->restype : RTNIL); }
int acedRetList(const resbuf*) { return Ret(RTLB); }

int acedInvokeFunction(const ACHAR* name, const resbuf* args)
{
    LispFunction* f = name ? FindFunction(name) : nullptr;
    if (!f)
        return RTERROR;
    LispState& ls = L();
    const int savedCode = ls.currentCode;
    resbuf* savedArgs = ls.args;
    ls.currentCode = f->code;
    ls.args = acutCopyRb(args);
    int result = RTERROR;
    int (*handler)() = nullptr;
    for (auto& h : ls.handlers)
        if (h.first == f->code)
            handler = h.second;
    const std::wstring fname = f->name;
    const short code = f->code;
    try {
        if (handler) {
            result = handler();
        } else {
            AcEdHooks::SubrInvoker inv = AcEdHooks::setSubrInvoker({});
            AcEdHooks::setSubrInvoker(inv);
            if (inv)
                result = inv(fname, code);
        }
    } catch (...) {
        acutRelRb(ls.args);
        ls.args = savedArgs;
        ls.currentCode = savedCode;
        throw;
    }
    acutRelRb(ls.args);
    ls.args = savedArgs;
    ls.currentCode = savedCode;
    return result;
}

int acedLastFunctionResult()
{
    return L().lastResult;
}

std::vector<std::pair<std::wstring, short>> acedDefinedFunctions()
{
    std::vector<std::pair<std::wstring, short>> out;
    for (const LispFunction& f : L().functions)
        out.emplace_back(f.name, f.code);
    return out;
}

// CMDNAMES and CMDACTIVE, and undo groups of databases about to go.

namespace eded {
std::wstring commandNamesValue()
{
    return JoinedNames();
}

int commandActiveValue()
{
    const auto& cs = state().commands;
    if (cs.empty())
        return 0;
    int v = 1;
    for (size_t i = 1; i < cs.size(); ++i)
        if (cs[i].flags & ACRX_CMD_TRANSPARENT)
            v |= 2;
    return v;
}
} // namespace eded

void AcEdEvents::databaseToBeDestroyed(AcDbDatabase* db)
{
    for (ActiveCommand& c : state().commands)
        if (c.undoDb == db)
            c.undoDb = nullptr;
    for (AcEditorReactor* r : std::vector<AcEditorReactor*>(acedEditor->reactors()))
        r->databaseToBeDestroyed(db);
}
