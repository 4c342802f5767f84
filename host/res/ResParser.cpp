// The statement level of resource scripts, by recursive descent over the
// preprocessed tokens.
#include "host/res/ResParser.h"

#include "host/win/WinFileIo.h"
#include "host/win/WinMenu.h"
#include "host/win/WinPath.h"
#include "host/win/WinText.h"

#include <cwctype>
#include <limits>

#ifndef MF_MENUBARBREAK
#define MF_MENUBARBREAK 0x00000020L
#endif
#ifndef MF_MENUBREAK
#define MF_MENUBREAK 0x00000040L
#endif
#ifndef MF_HELP
#define MF_HELP 0x00004000L
#endif

namespace svres {
namespace {

constexpr UINT kMftSeparator = 0x800;

bool KeywordIs(const Token& t, const wchar_t* kw)
{
    if (t.kind != TokKind::Name)
        return false;
    size_t i = 0;
    for (; kw[i]; ++i)
        if (i >= t.text.size() || std::towupper(t.text[i]) != static_cast<wint_t>(kw[i]))
            return false;
    return i == t.text.size();
}

bool PunctIs(const Token& t, const wchar_t* p)
{
    return t.kind == TokKind::Punct && t.text == p;
}

bool KeywordIn(const Token& t, std::initializer_list<const wchar_t*> kws)
{
    for (const wchar_t* kw : kws)
        if (KeywordIs(t, kw))
            return true;
    return false;
}

std::wstring Upper(std::wstring s)
{
    for (wchar_t& ch : s)
        ch = static_cast<wchar_t>(std::towupper(ch));
    return s;
}

const std::initializer_list<const wchar_t*> kMemoryFlags = {
    L"DISCARDABLE", L"MOVEABLE", L"FIXED", L"PURE", L"IMPURE", L"PRELOAD", L"LOADONCALL", L"SHARED", L"NONSHARED"};

// Resource types that are read past: the module does not look them up here.
const std::initializer_list<const wchar_t*> kOtherTypes = {
    L"ACCELERATORS", L"AFX_DIALOG_LAYOUT", L"BITMAP", L"CURSOR", L"DESIGNINFO", L"DLGINIT", L"FONT", L"HTML",
    L"ICON", L"MANIFEST", L"MESSAGETABLE", L"PNG", L"RCDATA", L"REGISTRY", L"TEXTINCLUDE", L"TOOLBAR",
    L"TYPELIB", L"VERSIONINFO"};

// Controls that begin with their text, and those without one.
const std::initializer_list<const wchar_t*> kTextControls = {
    L"LTEXT", L"RTEXT", L"CTEXT", L"PUSHBUTTON", L"DEFPUSHBUTTON", L"PUSHBOX", L"CHECKBOX", L"AUTOCHECKBOX",
    L"RADIOBUTTON", L"AUTORADIOBUTTON", L"STATE3", L"AUTO3STATE", L"GROUPBOX"};
const std::initializer_list<const wchar_t*> kPlainControls = {L"EDITTEXT", L"COMBOBOX", L"LISTBOX", L"SCROLLBAR"};

class Parser {
public:
    explicit Parser(const TokenList& list) : m_list(list), m_tok(list.tokens) {}

    ResScript Run(const std::wstring& fileName)
    {
        m_out.fileName = fileName;
        while (Peek().kind != TokKind::End) {
            const Token& t = Peek();
            if (KeywordIs(t, L"STRINGTABLE"))
                StringTable();
            else if (!CommonOption())
                Resource();
        }
        m_out.defines = m_list.numericDefines;
        return std::move(m_out);
    }

private:
    const Token& Peek(size_t ahead = 0) const
    {
        const size_t i = m_pos + ahead;
        return m_tok[i < m_tok.size() ? i : m_tok.size() - 1];
    }
    const Token& Next()
    {
        const Token& t = Peek();
        if (m_pos < m_tok.size() - 1)
            ++m_pos;
        return t;
    }
    const std::wstring& FileOf(const Token& t) const { return m_list.files[static_cast<size_t>(t.file)]; }

    [[noreturn]] void Fail(const Token& at, const std::wstring& message) const
    {
        throw ResError(FileOf(at), at.line, message);
    }
    [[noreturn]] void Expected(const std::wstring& what) const
    {
        Fail(Peek(), L"expected " + what + L", found " + Describe(Peek()));
    }

    void ExpectComma(const std::wstring& before)
    {
        if (!PunctIs(Peek(), L","))
            Expected(L"\",\" before " + before);
        Next();
    }
    bool SkipComma()
    {
        if (!PunctIs(Peek(), L","))
            return false;
        Next();
        return true;
    }

    bool StartsExpression(const Token& t) const
    {
        return t.kind == TokKind::Number || t.kind == TokKind::Name || PunctIs(t, L"(") || PunctIs(t, L"-") ||
               PunctIs(t, L"+") || PunctIs(t, L"~") || PunctIs(t, L"!");
    }

    long long Number(const std::wstring& what, long long lo, long long hi)
    {
        const Token& start = Peek();
        if (!StartsExpression(start) || KeywordIn(start, {L"BEGIN", L"END"}))
            Expected(what);
        const long long v = EvalExpression(m_tok, m_pos, FileOf(start), false);
        if (v < lo || v > hi)
            Fail(start, what + L" " + std::to_wstring(v) + L" is out of range (" + std::to_wstring(lo) + L" to " +
                            std::to_wstring(hi) + L")");
        return v;
    }
    int Coordinate(const wchar_t* what) { return static_cast<int>(Number(what, -32768, 32767)); }

    std::wstring String(const std::wstring& what)
    {
        if (Peek().kind != TokKind::String)
            Expected(what);
        std::wstring text = Next().text;
        while (Peek().kind == TokKind::String)  // adjacent literals join, as in C
            text += Next().text;
        return text;
    }

    bool IsOpen(const Token& t) const { return KeywordIs(t, L"BEGIN") || PunctIs(t, L"{"); }
    bool IsClose(const Token& t) const { return KeywordIs(t, L"END") || PunctIs(t, L"}"); }
    void Open(const std::wstring& of)
    {
        if (!IsOpen(Peek()))
            Expected(L"BEGIN or \"{\" to open " + of);
        Next();
    }
    // True at the block's END (consumed); an end of file inside the block is an error.
    bool AtClose(const std::wstring& of, int openLine)
    {
        if (IsClose(Peek())) {
            Next();
            return true;
        }
        if (Peek().kind == TokKind::End)
            Fail(Peek(), L"expected END of " + of + L" that begins at line " + std::to_wstring(openLine));
        return false;
    }

    // LANGUAGE, CHARACTERISTICS and VERSION, at the top or among a resource's options.
    bool CommonOption()
    {
        if (KeywordIs(Peek(), L"LANGUAGE")) {
            Next();
            LanguageCode(L"a language after LANGUAGE");
            ExpectComma(L"the sub-language");
            LanguageCode(L"a sub-language");
            return true;
        }
        if (KeywordIs(Peek(), L"CHARACTERISTICS") || KeywordIs(Peek(), L"VERSION")) {
            const std::wstring kw = Upper(Next().text);
            Number(L"a number after " + kw, 0, 0xFFFFFFFFll);
            return true;
        }
        return false;
    }
    // LANG_ and SUBLANG_ names come from the platform's headers; the language
    // of a script does not matter here, so they are read past.
    void LanguageCode(const std::wstring& what)
    {
        if (!StartsExpression(Peek()) || KeywordIn(Peek(), {L"BEGIN", L"END"}))
            Expected(what);
        EvalExpression(m_tok, m_pos, FileOf(Peek()), true);
    }
    void MemoryFlags()
    {
        while (KeywordIn(Peek(), kMemoryFlags))
            Next();
    }

    ResName Name()
    {
        const Token& t = Peek();
        if (t.kind == TokKind::String)
            return ResName::Text(Next().text);
        if (t.kind == TokKind::Name && !KeywordIn(t, {L"BEGIN", L"END"})) {
            // An undefined symbol names the resource by its text.
            if (!PunctIs(Peek(1), L"|") && !PunctIs(Peek(1), L"+"))
                return ResName::Text(Next().text);
        }
        if (!StartsExpression(t) || t.kind == TokKind::Name)
            Expected(L"a resource name or number, STRINGTABLE or LANGUAGE");
        return ResName::Number(static_cast<UINT>(Number(L"resource id", 0, 65535)));
    }

    void StringTable()
    {
        const int openLine = Next().line;
        for (;;) {
            MemoryFlags();
            if (!CommonOption())
                break;
        }
        Open(L"the STRINGTABLE");
        while (!AtClose(L"the STRINGTABLE", openLine)) {
            const Token& idTok = Peek();
            const UINT id = static_cast<UINT>(Number(L"a string id or END", 0, 65535));
            SkipComma();
            std::wstring text = String(L"the text of string " + std::to_wstring(id));
            auto [it, bNew] = m_stringLines.emplace(id, idTok.line);
            if (!bNew)
                Fail(idTok, L"string " + std::to_wstring(id) + L" is defined twice (first at line " +
                                std::to_wstring(it->second) + L")");
            m_out.strings[id] = std::move(text);
        }
    }

    void Resource()
    {
        const Token& nameTok = Peek();
        const ResName name = Name();
        const Token& type = Peek();
        if (KeywordIs(type, L"MENU") || KeywordIs(type, L"MENUEX"))
            Menu(name, nameTok, KeywordIs(type, L"MENUEX"));
        else if (KeywordIs(type, L"DIALOG") || KeywordIs(type, L"DIALOGEX"))
            Dialog(name, nameTok, KeywordIs(type, L"DIALOGEX"));
        else if (KeywordIn(type, kOtherTypes) || type.kind == TokKind::Number || type.kind == TokKind::String)
            SkipResource();
        else
            Fail(type, L"expected a resource type (MENU, MENUEX, DIALOG, DIALOGEX, ICON, ...) after " +
                           name.ToString() + L", found " + Describe(type));
    }

    // Another resource type: it ends with a block, or with the file name that ends its line.
    void SkipResource()
    {
        const int openLine = Next().line;
        for (;;) {
            const Token& t = Peek();
            if (t.kind == TokKind::End)
                return;
            if (IsOpen(t)) {
                Next();
                int depth = 1;
                while (depth > 0) {
                    if (Peek().kind == TokKind::End)
                        Fail(Peek(), L"expected END of the resource that begins at line " + std::to_wstring(openLine));
                    const Token& u = Next();
                    depth += IsOpen(u) ? 1 : IsClose(u) ? -1 : 0;
                }
                return;
            }
            Next();
            if (t.kind == TokKind::String && (Peek().bLineStart || Peek().kind == TokKind::End))
                return;
        }
    }

    void Menu(const ResName& name, const Token& nameTok, bool bEx)
    {
        Next();
        for (;;) {
            MemoryFlags();
            if (!CommonOption())
                break;
        }
        auto [it, bNew] = m_menuLines.emplace(name, nameTok.line);
        if (!bNew)
            Fail(nameTok, L"menu " + name.ToString() + L" is defined twice (first at line " +
                              std::to_wstring(it->second) + L")");
        ResMenu menu;
        menu.name = name;
        menu.bEx = bEx;
        const int openLine = Peek().line;
        Open(L"the menu " + name.ToString());
        menu.items = MenuItems(bEx, L"the menu " + name.ToString(), openLine);
        m_out.menus[name] = std::move(menu);
    }

    std::vector<ResMenuItem> MenuItems(bool bEx, const std::wstring& of, int openLine)
    {
        std::vector<ResMenuItem> items;
        while (!AtClose(of, openLine)) {
            const Token& t = Peek();
            if (!KeywordIs(t, L"MENUITEM") && !KeywordIs(t, L"POPUP"))
                Expected(L"MENUITEM, POPUP or END in " + of);
            const bool bPopup = KeywordIs(t, L"POPUP");
            ResMenuItem item;
            item.line = Next().line;
            if (!bPopup && KeywordIs(Peek(), L"SEPARATOR")) {
                Next();
                item.flags = MF_SEPARATOR;
                items.push_back(std::move(item));
                continue;
            }
            item.text = String(bPopup ? L"the text of the popup" : L"the text of the menu item");
            if (bEx)
                ExItemFields(item, bPopup);
            else
                ItemFields(item, bPopup);
            if (bPopup) {
                if (++m_menuDepth > kMaxMenuDepth)
                    Fail(t, L"popups nested too deeply");
                item.flags |= MF_POPUP;
                const int subLine = Peek().line;
                Open(L"the popup \"" + item.text + L"\"");
                item.items = MenuItems(bEx, L"the popup \"" + item.text + L"\"", subLine);
                --m_menuDepth;
            }
            items.push_back(std::move(item));
        }
        return items;
    }

    // MENU: an id for an item, then options, with or without commas.
    void ItemFields(ResMenuItem& item, bool bPopup)
    {
        if (!bPopup) {
            SkipComma();
            if (!StartsExpression(Peek()) || KeywordIn(Peek(), {L"BEGIN", L"END", L"MENUITEM", L"POPUP"}))
                Expected(L"the id of the menu item \"" + item.text + L"\"");
            item.id = static_cast<UINT>(Number(L"menu item id", 0, 65535));
        }
        for (;;) {
            const bool bComma = PunctIs(Peek(), L",");
            const Token& opt = Peek(bComma ? 1 : 0);
            UINT flag = 0;
            if (KeywordIs(opt, L"CHECKED")) flag = MF_CHECKED;
            else if (KeywordIs(opt, L"GRAYED")) flag = MF_GRAYED;
            else if (KeywordIs(opt, L"INACTIVE")) flag = MF_DISABLED;
            else if (KeywordIs(opt, L"MENUBARBREAK")) flag = MF_MENUBARBREAK;
            else if (KeywordIs(opt, L"MENUBREAK")) flag = MF_MENUBREAK;
            else if (KeywordIs(opt, L"HELP")) flag = MF_HELP;
            else if (bComma) {
                Next();
                Expected(L"a menu option (CHECKED, GRAYED, INACTIVE, MENUBARBREAK, MENUBREAK, HELP)");
            } else {
                return;
            }
            if (bComma)
                Next();
            Next();
            item.flags |= flag;
        }
    }

    // MENUEX: [, id [, type [, state [, help id]]]]; the type and state bits are
    // those of the MF_ flags.
    void ExItemFields(ResMenuItem& item, bool bPopup)
    {
        if (!SkipComma())
            return;
        item.id = static_cast<UINT>(Number(L"menu item id", std::numeric_limits<int>::min(), 0xFFFFFFFFll));
        if (SkipComma()) {
            const UINT type = static_cast<UINT>(Number(L"a menu item type", 0, 0xFFFFFFFFll));
            item.flags |= type & (kMftSeparator | MF_MENUBARBREAK | MF_MENUBREAK | MF_HELP);
            if (SkipComma()) {
                const UINT state = static_cast<UINT>(Number(L"a menu item state", 0, 0xFFFFFFFFll));
                item.flags |= state & (MF_CHECKED | MF_GRAYED | MF_DISABLED | MF_DEFAULT);
                if (bPopup && SkipComma())
                    Number(L"a help id", 0, 0xFFFFFFFFll);
            }
        }
        if (item.flags & kMftSeparator) {
            item.flags = MF_SEPARATOR;
            item.text.clear();
            item.id = 0;
        }
    }

    // A style expression, kept as written: operands joined by | & + -, each
    // with NOT ~ - in front or in parentheses.
    std::wstring StyleText(const std::wstring& what)
    {
        std::wstring out;
        auto append = [&out](const std::wstring& s, bool bSpace) {
            if (bSpace && !out.empty() && out.back() != L'(' && out.back() != L'~')
                out += L' ';
            out += s;
        };
        for (;;) {
            while (KeywordIs(Peek(), L"NOT") || PunctIs(Peek(), L"~") || PunctIs(Peek(), L"-") || PunctIs(Peek(), L"("))
                append(KeywordIs(Peek(), L"NOT") ? std::wstring(L"NOT") : Peek().text, true), Next();
            const Token& t = Peek();
            if (t.kind != TokKind::Name && t.kind != TokKind::Number)
                Expected(what);
            if (KeywordIn(t, {L"BEGIN", L"END"}))
                Expected(what);
            append(Next().text, !out.empty() && out.back() != L'-');
            while (PunctIs(Peek(), L")"))
                out += Next().text;
            const Token& op = Peek();
            if (!(PunctIs(op, L"|") || PunctIs(op, L"&") || PunctIs(op, L"+") || PunctIs(op, L"-")))
                return out;
            append(Next().text, true);
        }
    }

    // The text of a control or of an icon: a string, or a resource written bare.
    std::wstring ControlText()
    {
        if (Peek().kind == TokKind::String)
            return String(L"the control's text");
        if (Peek().kind == TokKind::Name && !KeywordIn(Peek(), {L"BEGIN", L"END"}))
            return Next().text;
        return std::to_wstring(Number(L"the control's text", std::numeric_limits<int>::min(), 0xFFFFFFFFll));
    }

    void Dialog(const ResName& name, const Token& nameTok, bool bEx)
    {
        Next();
        auto [it, bNew] = m_dialogLines.emplace(name, nameTok.line);
        if (!bNew)
            Fail(nameTok, L"dialog " + name.ToString() + L" is defined twice (first at line " +
                              std::to_wstring(it->second) + L")");
        auto dlg = std::make_shared<ResDialog>();
        dlg->name = name;
        dlg->bEx = bEx;
        MemoryFlags();
        dlg->x = Coordinate(L"the dialog's x");
        ExpectComma(L"y");
        dlg->y = Coordinate(L"the dialog's y");
        ExpectComma(L"the width");
        dlg->cx = Coordinate(L"the dialog's width");
        ExpectComma(L"the height");
        dlg->cy = Coordinate(L"the dialog's height");
        if (bEx && SkipComma())
            Number(L"a help id", 0, 0xFFFFFFFFll);
        for (;;) {
            const Token& t = Peek();
            if (KeywordIs(t, L"STYLE")) {
                Next();
                dlg->style = StyleText(L"a style after STYLE");
            } else if (KeywordIs(t, L"EXSTYLE")) {
                Next();
                dlg->exStyle = StyleText(L"a style after EXSTYLE");
            } else if (KeywordIs(t, L"CAPTION")) {
                Next();
                dlg->caption = String(L"the caption's text");
            } else if (KeywordIs(t, L"FONT")) {
                Next();
                dlg->fontSize = static_cast<int>(Number(L"the font size", 0, 32767));
                ExpectComma(L"the font name");
                dlg->fontFace = String(L"the font name");
                for (int i = 0; i < 3 && SkipComma(); ++i)
                    Number(L"a font weight, italic flag or character set", 0, 0xFFFFll);
            } else if (KeywordIs(t, L"MENU")) {
                Next();
                dlg->menu = ControlText();
            } else if (KeywordIs(t, L"CLASS")) {
                Next();
                dlg->className = ControlText();
            } else if (!CommonOption()) {
                break;
            }
        }
        const int openLine = Peek().line;
        Open(L"the dialog " + name.ToString());
        while (!AtClose(L"the dialog " + name.ToString(), openLine))
            dlg->controls.push_back(Control());
        m_out.dialogs[name] = std::move(dlg);
    }

    ResControl Control()
    {
        ResControl c;
        const Token& kw = Peek();
        const bool bText = KeywordIn(kw, kTextControls);
        const bool bPlain = KeywordIn(kw, kPlainControls);
        const bool bIcon = KeywordIs(kw, L"ICON");
        const bool bGeneric = KeywordIs(kw, L"CONTROL");
        if (!bText && !bPlain && !bIcon && !bGeneric)
            Expected(L"a control (LTEXT, EDITTEXT, PUSHBUTTON, CONTROL, ...) or END in the dialog");
        c.kind = Upper(kw.text);
        c.line = Next().line;
        if (!bPlain) {
            c.text = ControlText();
            ExpectComma(L"the control's id");
        }
        c.id = static_cast<int>(Number(L"the control's id", std::numeric_limits<int>::min(), 0xFFFFFFFFll));
        if (bGeneric) {
            ExpectComma(L"the control's class");
            c.className = Peek().kind == TokKind::String ? String(L"the control's class") : ControlText();
            ExpectComma(L"the control's style");
            c.style = StyleText(L"the control's style");
        }
        ExpectComma(L"x");
        c.x = Coordinate(L"the control's x");
        ExpectComma(L"y");
        c.y = Coordinate(L"the control's y");
        if (bIcon && !PunctIs(Peek(), L","))
            return c;
        ExpectComma(L"the width");
        c.cx = Coordinate(L"the control's width");
        ExpectComma(L"the height");
        c.cy = Coordinate(L"the control's height");
        if (!bGeneric && SkipComma())
            c.style = StyleText(L"the control's style");
        if (SkipComma()) {
            c.exStyle = StyleText(L"the control's extended style");
            if (SkipComma())
                Number(L"a help id", 0, 0xFFFFFFFFll);
        }
        return c;
    }

    const TokenList& m_list;
    const std::vector<Token>& m_tok;
    size_t m_pos = 0;
    ResScript m_out;
    int m_menuDepth = 0;
    static constexpr int kMaxMenuDepth = 64;
    std::map<UINT, int> m_stringLines;
    std::map<ResName, int> m_menuLines;
    std::map<ResName, int> m_dialogLines;
};

std::wstring FolderOf(const std::wstring& path)
{
    const size_t slash = path.find_last_of(L"/\\");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash + 1);
}

} // namespace

ResScript ParseResourceScript(std::wstring_view text, const std::wstring& fileName, const IncludeResolver& resolver)
{
    const TokenList tokens = Tokenize(text, fileName, resolver);
    return Parser(tokens).Run(fileName);
}

IncludeResolver FolderIncludeResolver()
{
    return [](const std::wstring& name, const std::wstring& fromFile, std::wstring& text, std::wstring& resolved) {
        resolved = FolderOf(fromFile) + name;
        return svwin::ReadTextFile(svwin::NativePath(resolved), text);
    };
}

ResScript ParseResourceFile(const std::wstring& path)
{
    std::wstring text;
    if (!svwin::ReadTextFile(svwin::NativePath(path), text))
        throw ResError(path, 0, L"cannot read the file");
    return ParseResourceScript(text, path, FolderIncludeResolver());
}

} // namespace svres
