// The contents of a resource script: string table, menus and dialog templates,
// as the parser leaves them and the resource functions read them.
#pragma once

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/win/WinTypes.h"

namespace svres {

// A resource is named by a number or, when its name is no defined symbol, by text.
// Text names compare without regard to case, as the platform upper-cases them.
struct ResName {
    UINT id = 0;
    std::wstring name;  // empty for a numbered resource

    static ResName Number(UINT id) { return {id, {}}; }
    static ResName Text(std::wstring name);
    bool IsNumber() const { return name.empty(); }
    std::wstring ToString() const;  // "130" or "IDR_MAIN"
    auto operator<=>(const ResName&) const = default;
};

// One menu entry. Flags use the MF_ bits of the menu functions (MF_CHECKED,
// MF_GRAYED, MF_DISABLED, MF_SEPARATOR, MF_MENUBREAK, ...); MF_POPUP marks a sub-menu.
struct ResMenuItem {
    std::wstring text;
    UINT id = 0;  // 0 for separators; a MENUEX popup may carry one
    UINT flags = 0;
    std::vector<ResMenuItem> items;  // of a popup
    int line = 0;                    // where it was written, for messages

    bool IsPopup() const;
    bool IsSeparator() const;
};

struct ResMenu {
    ResName name;
    bool bEx = false;  // written as MENUEX
    std::vector<ResMenuItem> items;
};

// A dialog control as written: styles stay text ("WS_TABSTOP | NOT WS_VISIBLE"),
// since the dialog layer interprets them.
struct ResControl {
    std::wstring kind;       // LTEXT, PUSHBUTTON, CONTROL, ... (upper case)
    std::wstring text;       // a string, or a resource name/number written bare
    int id = 0;
    std::wstring className;  // CONTROL only
    int x = 0, y = 0, cx = 0, cy = 0;
    std::wstring style;
    std::wstring exStyle;
    int line = 0;
};

struct ResDialog {
    ResName name;
    bool bEx = false;  // written as DIALOGEX
    int x = 0, y = 0, cx = 0, cy = 0;
    std::wstring style;
    std::wstring exStyle;
    std::wstring caption;
    int fontSize = 0;
    std::wstring fontFace;
    std::wstring menu;       // the menu's name as written
    std::wstring className;
    std::vector<ResControl> controls;
};

// A whole script. String, menu and dialog ids are separate namespaces.
struct ResScript {
    std::wstring fileName;
    std::map<UINT, std::wstring> strings;
    std::map<ResName, ResMenu> menus;
    std::map<ResName, std::shared_ptr<const ResDialog>> dialogs;
    std::map<std::wstring, long long> defines;  // numeric #defines, for tests and tools

    const std::wstring* FindString(UINT id) const;
    const ResMenu* FindMenu(const ResName& name) const;
    std::shared_ptr<const ResDialog> FindDialog(const ResName& name) const;
};

// Bad input: names the file and the line, and says what was expected.
class ResError : public std::runtime_error {
public:
    ResError(std::wstring file, int line, std::wstring message);
    const std::wstring& File() const { return m_file; }
    int Line() const { return m_line; }
    const std::wstring& Message() const { return m_message; }
    // "file(line): message"
    std::wstring Text() const;

private:
    std::wstring m_file;
    int m_line;
    std::wstring m_message;
};

} // namespace svres
