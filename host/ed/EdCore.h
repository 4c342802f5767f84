// The editor's internal state and the input reader every prompt goes through. Internal to
// host/ed: other layers use the public headers.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "host/db/AcDbObjectId.h"
#include "host/ed/AcEdInputSource.h"
#include "host/ed/AcEdSelection.h"
#include "host/ed/AcEdWindow.h"
#include "host/ge/AcGePoint3d.h"
#include "host/ge/AcGeVector3d.h"

class AcDbDatabase;
class AcEdCommand;

namespace eded {

// Thrown at prompts once input has run out far too often (a loop that ignores Enter and
// Esc); the command loop catches it and cancels the command.
struct InputExhausted {};

// One item of an acedCommand list, or a pause for the user.
struct OverlayItem {
    AcEdInputItem item;
    bool pause = false;
};

struct ActiveCommand {
    std::wstring name;             // global name, upper case
    int serial = 0;
    long flags = 0;
    bool pickfirstPending = false;  // the first acedSSGet returns the pickfirst set
    int cancelPending = 0;          // posted Esc characters not yet seen by a prompt
    bool lastAnswerCancelled = false;
    AcDbDatabase* undoDb = nullptr;
    std::deque<OverlayItem> overlay;  // acedCommand answers
};

struct PostedToken {
    AcEdInputItem item;
    int serial = 0;  // the command active when posted (0: none)
};

struct SelectionEntry {
    AcDbObjectId id;
    int method = 0;  // 0 none, 1 pick, 2 window, 3 crossing, 4 fence
    Adesk::GsMarker marker = 0;
    AcGePoint3d point;
};

struct State {
    AcEdInputSource* source = nullptr;
    bool advanceDue = false;
    int exhaustedPrompts = 0;
    const AcEdInputItem* lastItem = nullptr;
    std::wstring lastWhere;  // "file:line" of the last item taken

    std::vector<ActiveCommand> commands;
    int nextSerial = 1;
    std::deque<PostedToken> posted;
    std::wstring postedPartial;  // posted text not yet ended by a blank

    // acedInitGet for the next input call.
    int initFlags = 0;
    std::wstring initKeywords;
    std::wstring lastInput;  // acedGetInput

    AcGePoint3d lastPointUcs;
    AcGePoint3d ucsOrigin;
    AcGeVector3d ucsX = AcGeVector3d::kXAxis;
    AcGeVector3d ucsY = AcGeVector3d::kYAxis;
    AcEdViewState view;

    std::vector<AcedFilterWinMsgFn> filters;
    std::vector<AcedWatchWinMsgFn> watchers;

    std::vector<AcDbObjectId> pickfirst;
    std::map<Adesk::LongPtr, std::vector<SelectionEntry>> sets;
    Adesk::LongPtr nextSet = 1;
    std::vector<AcDbObjectId> previous;

    int errnoValue = 0;
    int jigDepth = 0;
    int menuDepth = 0;  // TrackPopupMenu calls in progress
    int boxDepth = 0;   // message boxes in progress
};

State& state();
// Back to a fresh editor (no commands, posts, sets, pickfirst, filters; world UCS; the
// default view). For tests; must not be called while a command runs.
void resetState();

// Writes prompt or console text to the transcript (through the console sink).
void write(const std::wstring& text);
// Echoes an answer after its prompt and ends the line.
void echo(const std::wstring& answer);
// Reports an error at the last item's place (or the given one) and fails the run.
void error(const std::wstring& message, const std::wstring& where = std::wstring());

// The next item of the source, after moving the clock on; null when none is left. Does
// not take it.
const AcEdInputItem* peekSource();
void popSource();

enum class ReadResult { kItem, kCancel, kExhausted };
// The posted token that may run now (its command has returned), or null.
PostedToken* readyPosted();
// Milliseconds the clock moves on before each input item is taken.
constexpr unsigned kInputStepMs = 20;
// How many prompts may find the input exhausted before the editor throws InputExhausted.
constexpr int kExhaustedPromptLimit = 100;
// Before a @@menu item is taken: moves the clock on (up to 5 s, in 10 ms steps) until a
// timer opens a menu that takes it. False when none did (an error is reported and the
// item skipped).
bool waitForMenu(const AcEdInputItem* item);

// Reads the next answer for a prompt: posted Esc and text first, then the innermost
// acedCommand list, then the source. Background directives (clock, keys, UCS, view,
// dialogs, right clicks, menus or boxes out of place) are carried out and skipped; clicks
// pass the message filters (a swallowed click is skipped). On kExhausted first is set
// for the first prompt that found nothing, which reports it.
ReadResult readAnswer(AcEdInputItem& out, const std::wstring& prompt, bool& first);
// Maps a read that gave no item to a result code: Esc RTCAN; input out: RTCAN the first
// time, RTNONE after. Marks the innermost command's last answer.
int noItemResult(ReadResult r, bool first);
// Carries out a directive that needs no prompt; false when the item is not one.
bool runBackgroundDirective(const AcEdInputItem& item);

// The innermost active command, or null.
ActiveCommand* innermost();
void markAnswer(bool cancelled);

// Parses a point answer ("x,y", "x,y,z", "@dx,dy[,dz]", "@d<a") in UCS; relative to base
// (UCS) or LASTPOINT. False when the text is no point.
bool parsePoint(const std::wstring& text, const AcGePoint3d* baseUcs, AcGePoint3d& outUcs);
// A real number in the C locale ("1.5", "-2", "1e3"); false otherwise.
bool parseReal(const std::wstring& text, double& value);
std::wstring formatReal(double v);
std::wstring formatPoint(const AcGePoint3d& p);

AcGePoint3d ucsToWcs(const AcGePoint3d& p);
AcGePoint3d wcsToUcs(const AcGePoint3d& p);
AcGeVector3d ucsToWcs(const AcGeVector3d& v);
AcGeVector3d wcsToUcs(const AcGeVector3d& v);

// Resolves a handle through the hook or the working database; null id when unknown.
AcDbObjectId resolveHandle(const std::wstring& handle);

// Sends WM_xBUTTONDOWN/UP for a click at a UCS point through the filters; true when the
// button-down was swallowed.
bool dispatchClick(const AcGePoint3d& ucsPoint, bool right);

// Adds the topmost entity under the view pixel to the pickfirst set; false on a miss.
bool selectAtPixel(const POINT& px);

// The pickfirst set changed (fires pickfirstModified).
void setPickfirst(std::vector<AcDbObjectId> ids);

// CMDNAMES (names joined by "'") and CMDACTIVE (1 while a command runs, 2 added for a
// transparent one inside it).
std::wstring commandNamesValue();
int commandActiveValue();
// World units of the pick box's half size (PICKBOX pixels at the view's scale).
double aperture();

// Case-insensitive comparisons and upper-casing for names.
std::wstring upper(const std::wstring& s);
bool equalsNoCase(const std::wstring& a, const std::wstring& b);
std::wstring trim(const std::wstring& s);

} // namespace eded
