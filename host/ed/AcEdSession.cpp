// The headless session: script parsing, the top-level loop, and the sinks through which
// console text, message boxes and popup menus reach the transcript and the script.
#include "host/ed/AcEdSession.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "host/ed/AcEdCommandLoop.h"
#include "host/ed/AcEdHostHooks.h"
#include "host/ed/AcEdSelection.h"
#include "host/ed/EdCore.h"
#include "host/ed/acutPrintf.h"
#include "host/win/Utf8.h"
#include "host/win/WinMenu.h"
#include "host/win/WinMessageBox.h"
#include "host/win/WinWindow.h"
#include "host/win/wsprintf.h"

using namespace eded;

namespace {

AcEdSession*& Current()
{
    static AcEdSession* current = nullptr;
    return current;
}

struct DirectiveName {
    const wchar_t* word;
    AcEdInputKind kind;
};

constexpr DirectiveName kDirectives[] = {
    {L"esc", AcEdInputKind::kEscape},        {L"click", AcEdInputKind::kClick},
    {L"pick", AcEdInputKind::kPick},         {L"rclick", AcEdInputKind::kRightClick},
    {L"move", AcEdInputKind::kMove},         {L"menu", AcEdInputKind::kMenu},
    {L"msgbox", AcEdInputKind::kMessageBox}, {L"dialog", AcEdInputKind::kDialog},
    {L"file", AcEdInputKind::kFileDialog},   {L"grip", AcEdInputKind::kGrip},
    {L"wait", AcEdInputKind::kWait},         {L"key", AcEdInputKind::kKey},
    {L"select", AcEdInputKind::kSelect},     {L"window", AcEdInputKind::kWindow},
    {L"crossing", AcEdInputKind::kCrossing}, {L"fence", AcEdInputKind::kFence},
    {L"ucs", AcEdInputKind::kUcs},           {L"view", AcEdInputKind::kView},
};

std::vector<std::wstring> SplitBlanks(const std::wstring& s)
{
    std::vector<std::wstring> out;
    std::wistringstream in(s);
    std::wstring w;
    while (in >> w)
        out.push_back(w);
    return out;
}

// Message box answers by word.
bool AnswerFromWord(const std::wstring& word, int& answer)
{
    static const std::pair<const wchar_t*, int> words[] = {
        {L"ok", IDOK},     {L"cancel", IDCANCEL}, {L"yes", IDYES},       {L"no", IDNO},
        {L"retry", IDRETRY}, {L"ignore", IDIGNORE}, {L"abort", IDABORT},
    };
    for (const auto& [w, a] : words)
        if (equalsNoCase(word, w)) {
            answer = a;
            return true;
        }
    return false;
}

bool AnswerFits(UINT type, int answer)
{
    switch (type & MB_TYPEMASK) {
    case MB_OK:
        return answer == IDOK;
    case MB_OKCANCEL:
        return answer == IDOK || answer == IDCANCEL;
    case MB_ABORTRETRYIGNORE:
        return answer == IDABORT || answer == IDRETRY || answer == IDIGNORE;
    case MB_YESNOCANCEL:
        return answer == IDYES || answer == IDNO || answer == IDCANCEL;
    case MB_YESNO:
        return answer == IDYES || answer == IDNO;
    case MB_RETRYCANCEL:
        return answer == IDRETRY || answer == IDCANCEL;
    default:
        return false;
    }
}

// The answer that changes nothing, for a box the script does not answer.
int DefaultAnswer(UINT type)
{
    switch (type & MB_TYPEMASK) {
    case MB_OK:
        return IDOK;
    case MB_YESNO:
        return IDNO;
    case MB_ABORTRETRYIGNORE:
        return IDABORT;
    default:
        return IDCANCEL;
    }
}

const wchar_t* AnswerWord(int answer)
{
    switch (answer) {
    case IDOK: return L"OK";
    case IDCANCEL: return L"Cancel";
    case IDYES: return L"Yes";
    case IDNO: return L"No";
    case IDRETRY: return L"Retry";
    case IDIGNORE: return L"Ignore";
    case IDABORT: return L"Abort";
    default: return L"?";
    }
}

} // namespace

struct AcEdSession::Impl : AcEdInputSource, IMessageBoxSink, svwin::IPopupMenuSink {
    AcEdSession& session;
    std::vector<AcEdInputItem> items;
    size_t next = 0;
    AcConsoleSink previousConsole;
    IMessageBoxSink* previousBox = nullptr;
    svwin::IPopupMenuSink* previousMenu = nullptr;
    AcEdInputSource* previousSource = nullptr;

    explicit Impl(AcEdSession& s) : session(s) {}

    const AcEdInputItem* peek() override { return next < items.size() ? &items[next] : nullptr; }
    void pop() override
    {
        if (next < items.size())
            ++next;
    }

    int Show(HWND, const std::wstring& text, const std::wstring& caption, UINT type) override
    {
        State& st = state();
        ++st.boxDepth;
        session.m_transcript.writeLine(L"[MessageBox " + caption + L"] " + text);
        int answer = DefaultAnswer(type);
        const AcEdInputItem* p = peekSource();
        // A box with only OK takes an answer only when it says "ok"; otherwise the answer
        // is left for the question that follows.
        const bool okOnly = (type & MB_TYPEMASK) == MB_OK;
        if (p && p->kind == AcEdInputKind::kMessageBox &&
            (!okOnly || (p->args.size() == 1 && equalsNoCase(p->args[0], L"ok")))) {
            const AcEdInputItem item = *p;
            popSource();
            int a = 0;
            if (item.args.size() == 1 && AnswerFromWord(item.args[0], a) && AnswerFits(type, a))
                answer = a;
            else
                eded::error(L"\"" + item.text + L"\" is no answer to this message box", item.where());
        }
        session.m_transcript.writeLine(std::wstring(L"  -> ") + AnswerWord(answer));
        --st.boxDepth;
        return answer;
    }

    UINT Track(HMENU hMenu, UINT, int x, int y, HWND) override
    {
        State& st = state();
        ++st.menuDepth;
        session.m_transcript.writeLine(L"[Menu at " + std::to_wstring(x) + L"," + std::to_wstring(y) + L"]");
        for (const std::wstring& line : svwin::DescribeMenu(hMenu))
            session.m_transcript.writeLine(L"  " + line);
        UINT chosen = 0;
        const AcEdInputItem* p = peekSource();
        if (p && p->kind == AcEdInputKind::kMenu) {
            const AcEdInputItem item = *p;
            popSource();
            double id = 0;
            if (item.args.size() == 1 && (equalsNoCase(item.args[0], L"dismiss") || item.args[0] == L"0")) {
                chosen = 0;
            } else if (item.args.size() == 1 && parseReal(item.args[0], id) && id > 0 &&
                       svwin::MenuHasCommand(hMenu, static_cast<UINT>(id))) {
                chosen = static_cast<UINT>(id);
            } else {
                eded::error(L"the menu has no selectable item \"" + item.text + L"\"", item.where());
            }
        } else {
            eded::error(L"a popup menu opened, but the next line is no @@menu answer");
        }
        session.m_transcript.writeLine(chosen ? L"  -> " + std::to_wstring(chosen) : std::wstring(L"  -> dismissed"));
        --st.menuDepth;
        return chosen;
    }

    void executeTop(const AcEdInputItem& item);
};

void AcEdSession::Impl::executeTop(const AcEdInputItem& item)
{
    switch (item.kind) {
    case AcEdInputKind::kText:
        session.m_transcript.write(L"\nCommand: ");
        session.m_transcript.echo(item.text);
        acedRunCommand(item.text.c_str());
        return;
    case AcEdInputKind::kEnter:
        return;
    case AcEdInputKind::kEscape:
        setPickfirst({});
        return;
    case AcEdInputKind::kClick:
    case AcEdInputKind::kRightClick:
    case AcEdInputKind::kMove: {
        AcGePoint3d p;
        if (item.args.size() != 1 || !parsePoint(item.args[0], nullptr, p)) {
            eded::error(L"expected one point, e.g. \"10,20\"");
            return;
        }
        if (item.kind == AcEdInputKind::kMove) {
            acedDispatchWinMsg(WM_MOUSEMOVE, acedWorldToPixel(ucsToWcs(p)));
            return;
        }
        const bool right = item.kind == AcEdInputKind::kRightClick;
        if (!dispatchClick(p, right) && !right)
            selectAtPixel(acedWorldToPixel(ucsToWcs(p)));
        return;
    }
    case AcEdInputKind::kPick:
    case AcEdInputKind::kSelect: {
        if (item.args.empty()) {
            eded::error(L"expected one or more handles");
            return;
        }
        std::vector<AcDbObjectId> ids = item.kind == AcEdInputKind::kPick ? state().pickfirst : std::vector<AcDbObjectId>();
        for (size_t i = 0; i < item.args.size(); ++i) {
            if (item.kind == AcEdInputKind::kPick && i > 0)
                break;  // a marker, which a pick at the command prompt does not need
            const AcDbObjectId id = resolveHandle(item.args[i]);
            if (id.isNull())
                eded::error(L"no entity with the handle \"" + item.args[i] + L"\"");
            else if (std::find(ids.begin(), ids.end(), id) == ids.end())
                ids.push_back(id);
        }
        setPickfirst(std::move(ids));
        return;
    }
    case AcEdInputKind::kWindow:
    case AcEdInputKind::kCrossing:
    case AcEdInputKind::kFence: {
        std::vector<AcGePoint3d> pts;
        for (const std::wstring& a : item.args) {
            AcGePoint3d p;
            if (!parsePoint(a, nullptr, p)) {
                eded::error(L"\"" + a + L"\" is no point");
                return;
            }
            pts.push_back(ucsToWcs(p));
        }
        const bool fence = item.kind == AcEdInputKind::kFence;
        if ((!fence && pts.size() != 2) || (fence && pts.size() < 2)) {
            eded::error(fence ? L"a fence needs two or more points" : L"a window needs two corners");
            return;
        }
        const std::vector<AcEdPickHit> hits = fence ? acedPicker()->fence(pts)
                                                    : acedPicker()->window(pts[0], pts[1], item.kind == AcEdInputKind::kCrossing);
        std::vector<AcDbObjectId> ids;
        for (const AcEdPickHit& h : hits)
            if (std::find(ids.begin(), ids.end(), h.id) == ids.end())
                ids.push_back(h.id);
        setPickfirst(std::move(ids));
        return;
    }
    case AcEdInputKind::kGrip: {
        AcGePoint3d to;
        double index = -1;
        if (item.args.size() != 3 || !parseReal(item.args[1], index) || index < 0 || !parsePoint(item.args[2], nullptr, to)) {
            eded::error(L"@@grip expects HANDLE INDEX POINT, e.g. \"@@grip 2A 0 10,20\"");
            return;
        }
        const AcDbObjectId id = resolveHandle(item.args[0]);
        AcEdHooks::GripDrag hook = AcEdHooks::setGripDrag({});
        AcEdHooks::setGripDrag(hook);
        if (id.isNull())
            eded::error(L"no entity with the handle \"" + item.args[0] + L"\"");
        else if (!hook)
            eded::error(L"grip editing is not available");
        else if (!hook(id, static_cast<int>(index), ucsToWcs(to)))
            eded::error(L"the grip drag was refused");
        return;
    }
    default:
        runBackgroundDirective(item);
        return;
    }
}

AcEdSession::AcEdSession() : AcEdSession(Options()) {}

AcEdSession::AcEdSession(Options options) : m_options(options), m_impl(std::make_unique<Impl>(*this))
{
    if (Current())
        throw std::logic_error("only one editor session may live at a time");
    Current() = this;
    if (m_options.echoToStdout)
        m_transcript.setObserver([](const std::wstring& piece) {
            const std::string utf8 = svwin::WideToUtf8(piece);
            std::fwrite(utf8.data(), 1, utf8.size(), stdout);
            std::fflush(stdout);
        });
    m_impl->previousConsole = acutSetConsoleSink([this](const std::wstring& text) { m_transcript.write(text); });
    m_impl->previousBox = SetMessageBoxSink(m_impl.get());
    m_impl->previousMenu = svwin::SetPopupMenuSink(m_impl.get());
    m_impl->previousSource = state().source;
    state().source = m_impl.get();
}

AcEdSession::~AcEdSession()
{
    state().source = m_impl->previousSource;
    svwin::SetPopupMenuSink(m_impl->previousMenu);
    SetMessageBoxSink(m_impl->previousBox);
    acutSetConsoleSink(std::move(m_impl->previousConsole));
    Current() = nullptr;
}

AcEdSession* AcEdSession::current()
{
    return Current();
}

void AcEdSession::error(const std::wstring& where, const std::wstring& message)
{
    const std::wstring line = (where.empty() ? std::wstring(L"(editor)") : where) + L": " + message;
    m_errors.push_back(line);
    m_transcript.writeLine(L"** " + line);
    if (m_options.strict)
        m_failed = true;
}

void AcEdSession::clearFailure()
{
    m_failed = false;
    m_errors.clear();
}

std::vector<AcEdInputItem> AcEdSession::parse(const std::wstring& text, const std::wstring& source)
{
    std::vector<AcEdInputItem> out;
    size_t start = 0;
    int lineNo = 0;
    while (start <= text.size()) {
        size_t nl = text.find(L'\n', start);
        const bool last = nl == std::wstring::npos;
        std::wstring line = text.substr(start, last ? std::wstring::npos : nl - start);
        start = last ? text.size() + 1 : nl + 1;
        ++lineNo;
        if (last && line.empty())
            break;  // the text ended with its last line's newline
        if (!line.empty() && line.back() == L'\r')
            line.pop_back();
        const std::wstring t = trim(line);
        if (!t.empty() && t[0] == L';')
            continue;
        AcEdInputItem item;
        item.source = source;
        item.line = lineNo;
        if (t.empty()) {
            item.kind = AcEdInputKind::kEnter;
        } else if (t.compare(0, 2, L"@@") == 0) {
            const size_t blank = t.find_first_of(L" \t");
            const std::wstring word = t.substr(2, blank == std::wstring::npos ? std::wstring::npos : blank - 2);
            item.text = blank == std::wstring::npos ? std::wstring() : trim(t.substr(blank));
            item.args = SplitBlanks(item.text);
            item.kind = AcEdInputKind::kText;
            bool known = false;
            for (const DirectiveName& d : kDirectives)
                if (equalsNoCase(word, d.word)) {
                    item.kind = d.kind;
                    known = true;
                }
            if (!known) {
                item.text = t;  // reported when the run reaches it
                item.args = {L"\x01unknown"};
            }
        } else {
            item.text = t;
        }
        out.push_back(std::move(item));
    }
    return out;
}

bool AcEdSession::run(std::vector<AcEdInputItem> items)
{
    const size_t errorsBefore = m_errors.size();
    // Unknown directives are reported and dropped before anything runs.
    std::vector<AcEdInputItem> good;
    for (AcEdInputItem& it : items) {
        if (it.kind == AcEdInputKind::kText && it.args.size() == 1 && it.args[0] == L"\x01unknown") {
            error(it.where(), L"unknown directive \"" + it.text + L"\"");
            continue;
        }
        good.push_back(std::move(it));
    }
    Impl& impl = *m_impl;
    // Items not yet taken stay ahead of the new ones.
    impl.items.erase(impl.items.begin(), impl.items.begin() + static_cast<std::ptrdiff_t>(impl.next));
    impl.next = 0;
    for (AcEdInputItem& it : good)
        impl.items.push_back(std::move(it));
    State& st = state();
    st.exhaustedPrompts = 0;
    try {
        for (;;) {
            acedRunPostedCommands();
            const AcEdInputItem* p = peekSource();
            if (!p)
                break;
            if (p->kind == AcEdInputKind::kMenu) {
                waitForMenu(p);
                continue;
            }
            const AcEdInputItem item = *p;
            popSource();
            impl.executeTop(item);
        }
        acedRunPostedCommands();
    } catch (const InputExhausted&) {
        error(st.lastWhere, L"input ran out repeatedly outside a command; the run stops");
    }
    impl.items.clear();
    impl.next = 0;
    return m_errors.size() == errorsBefore || !m_options.strict;
}

bool AcEdSession::runScriptFile(const std::wstring& path)
{
    std::ifstream in(svwin::WideToUtf8(path), std::ios::binary);
    if (!in) {
        error(path, L"cannot read the script file");
        return false;
    }
    std::ostringstream buf;
    buf << in.rdbuf();
    std::string bytes = buf.str();
    if (bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0)
        bytes.erase(0, 3);
    if (!svwin::IsValidUtf8(bytes)) {
        error(path, L"the script is not UTF-8 text");
        return false;
    }
    return run(parse(svwin::Utf8ToWide(bytes), path));
}

bool AcEdSession::runScriptText(const std::wstring& text, const std::wstring& source)
{
    return run(parse(text, source));
}

bool AcEdSession::runLine(const std::wstring& line, const std::wstring& source)
{
    return run(parse(line + L"\n", source));
}

bool acedTakeDialogItem(AcEdInputItem& item, bool fileDialog)
{
    const AcEdInputItem* p = peekSource();
    if (!p || !(p->kind == AcEdInputKind::kDialog || (fileDialog && p->kind == AcEdInputKind::kFileDialog)))
        return false;
    item = *p;
    popSource();
    return true;
}
