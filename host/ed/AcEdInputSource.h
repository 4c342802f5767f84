// Where the editor's input comes from: an ordered stream of typed items. The script runner
// fills it from .scr lines; a window can feed the same stream later.
#pragma once

#include <string>
#include <vector>

// What one item is. Text items are interpreted by the prompt that takes them (a point, a
// number, a keyword, a command name); directives say what a command line cannot.
enum class AcEdInputKind {
    kText,        // a typed answer or command name, as written
    kEnter,       // an empty line
    kEscape,      // @@esc
    kClick,       // @@click P: a left click at a UCS point (also: a pick)
    kPick,        // @@pick HANDLE [MARKER]: a left click on an entity
    kRightClick,  // @@rclick P
    kMove,        // @@move P: the cursor moves without a click
    kMenu,        // @@menu ID | @@menu dismiss
    kMessageBox,  // @@msgbox ok|cancel|yes|no|retry|ignore|abort
    kDialog,      // @@dialog ...: handed to the dialog layer
    kFileDialog,  // @@file PATH | @@file cancel: handed to the dialog layer
    kGrip,        // @@grip HANDLE INDEX P
    kWait,        // @@wait MS: advances the clock
    kKey,         // @@key VK down|up
    kSelect,      // @@select HANDLE... (pickfirst, or an answer to a selection prompt)
    kWindow,      // @@window P1 P2
    kCrossing,    // @@crossing P1 P2
    kFence,       // @@fence P1 P2 ...
    kUcs,         // @@ucs world | @@ucs ORIGIN XAXIS YAXIS
    kView,        // @@view CENTER UNITS_PER_PIXEL [WIDTH HEIGHT]
};

struct AcEdInputItem {
    AcEdInputKind kind = AcEdInputKind::kText;
    std::wstring text;               // the line as written, without the directive word
    std::vector<std::wstring> args;  // the directive's arguments, split at blanks
    std::wstring source;             // script file name, or "-c" for inline lines
    int line = 0;                    // 1-based line in the source

    // "file:line" for messages.
    std::wstring where() const;
};

// The editor reads through this. peek() may return null when nothing is left; a
// window-backed source blocks in peek() until the user acts.
class AcEdInputSource {
public:
    virtual ~AcEdInputSource() = default;
    virtual const AcEdInputItem* peek() = 0;
    virtual void pop() = 0;
};
