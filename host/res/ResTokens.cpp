// Lexing and preprocessing of resource scripts. Comments go first (outside
// strings), then the text is taken line by line: '#' lines are directives, the
// others are lexed while every enclosing #if holds.
#include "host/res/ResTokens.h"

#include "host/res/ResScript.h"
#include "host/win/WinText.h"

#include <cwctype>
#include <set>

namespace svres {
namespace {

constexpr int kMaxIncludeDepth = 16;
constexpr int kMaxExpansionDepth = 64;

bool IsNameStart(wchar_t ch) { return (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z') || ch == L'_'; }
bool IsNameChar(wchar_t ch) { return IsNameStart(ch) || (ch >= L'0' && ch <= L'9'); }
bool IsDigit(wchar_t ch) { return ch >= L'0' && ch <= L'9'; }

int HexValue(wchar_t ch)
{
    return ch < 0x80 ? svwin::HexDigitValue(static_cast<char>(ch)) : -1;
}

// Headers of the platform that scripts include for their predefined symbols;
// the symbols the parser needs are predefined, so these are not looked for.
bool IsPlatformHeader(const std::wstring& name)
{
    static const wchar_t* const kNames[] = {L"afxres.h", L"winres.h", L"windows.h", L"winresrc.h",
                                            L"winuser.h", L"commctrl.h", L"richedit.h", L"dlgs.h"};
    for (const wchar_t* n : kNames)
        if (svwin::EqualNoCase(name, n))
            return true;
    return false;
}

// Symbols of the platform's headers that resource scripts use as numbers.
const std::pair<const wchar_t*, long long> kPredefined[] = {
    {L"IDOK", 1}, {L"IDCANCEL", 2}, {L"IDABORT", 3}, {L"IDRETRY", 4}, {L"IDIGNORE", 5},
    {L"IDYES", 6}, {L"IDNO", 7}, {L"IDCLOSE", 8}, {L"IDHELP", 9}, {L"IDC_STATIC", -1},
    {L"MFT_STRING", 0}, {L"MFT_BITMAP", 0x4}, {L"MFT_MENUBARBREAK", 0x20}, {L"MFT_MENUBREAK", 0x40},
    {L"MFT_OWNERDRAW", 0x100}, {L"MFT_RADIOCHECK", 0x200}, {L"MFT_SEPARATOR", 0x800},
    {L"MFT_RIGHTORDER", 0x2000}, {L"MFT_RIGHTJUSTIFY", 0x4000},
    {L"MFS_ENABLED", 0}, {L"MFS_UNCHECKED", 0}, {L"MFS_UNHILITE", 0}, {L"MFS_GRAYED", 0x3},
    {L"MFS_DISABLED", 0x3}, {L"MFS_CHECKED", 0x8}, {L"MFS_HILITE", 0x80}, {L"MFS_DEFAULT", 0x1000},
};

struct Macro {
    std::vector<Token> body;
};

struct Conditional {
    bool bActive;      // this branch is taken
    bool bTaken;       // some branch of the chain was taken
    bool bParentActive;
    bool bSeenElse;
    int line;
};

class Preprocessor {
public:
    explicit Preprocessor(const IncludeResolver& resolver) : m_resolver(resolver)
    {
        for (const auto& [name, value] : kPredefined) {
            Token t;
            t.kind = TokKind::Number;
            t.value = value;
            t.text = std::to_wstring(value);
            Macro m;
            if (value < 0) {
                Token minus;
                minus.kind = TokKind::Punct;
                minus.text = L"-";
                m.body.push_back(minus);
                t.value = -value;
                t.text = std::to_wstring(-value);
            }
            m.body.push_back(t);
            m_macros[name] = m;
        }
    }

    void File(std::wstring_view text, const std::wstring& fileName, int depth)
    {
        const int fileIndex = static_cast<int>(m_out.files.size());
        m_out.files.push_back(fileName);
        const std::wstring clean = StripComments(text, fileName);
        const size_t conditionalsAtStart = m_conds.size();

        size_t pos = 0;
        int lineNo = 0;
        while (pos <= clean.size()) {
            size_t eol = clean.find(L'\n', pos);
            if (eol == std::wstring::npos)
                eol = clean.size();
            std::wstring line = clean.substr(pos, eol - pos);
            pos = eol + 1;
            ++lineNo;
            if (!line.empty() && line.back() == L'\r')
                line.pop_back();

            const std::wstring_view trimmed = svwin::TrimBlanks(line);
            if (!trimmed.empty() && trimmed.front() == L'#') {
                const int directiveLine = lineNo;
                std::wstring directive(trimmed.substr(1));
                // A backslash at the end joins the next line.
                while (!directive.empty() && directive.back() == L'\\' && pos <= clean.size()) {
                    directive.pop_back();
                    size_t next = clean.find(L'\n', pos);
                    if (next == std::wstring::npos)
                        next = clean.size();
                    std::wstring more = clean.substr(pos, next - pos);
                    if (!more.empty() && more.back() == L'\r')
                        more.pop_back();
                    directive += L' ';
                    directive += more;
                    pos = next + 1;
                    ++lineNo;
                }
                Directive(directive, fileName, fileIndex, directiveLine, depth);
                continue;
            }
            if (!Active())
                continue;
            // Symbols are replaced as the line is read, so a later #undef or
            // #define does not reach back.
            std::vector<Token> raw;
            LexLine(line, fileName, fileIndex, lineNo, raw, true);
            std::set<std::wstring> active;
            Expand(raw, m_out.tokens, active, 0, fileName);
        }
        if (m_conds.size() > conditionalsAtStart)
            throw ResError(fileName, m_conds.back().line, L"#if without #endif");
    }

    TokenList Finish(int lastLine)
    {
        Token end;
        end.kind = TokKind::End;
        end.line = lastLine;
        end.bLineStart = true;
        m_out.tokens.push_back(end);
        return std::move(m_out);
    }

private:
    bool Active() const { return m_conds.empty() || m_conds.back().bActive; }

    // Replaces comments by blanks, keeping line breaks so that line numbers hold.
    static std::wstring StripComments(std::wstring_view text, const std::wstring& fileName)
    {
        std::wstring out;
        out.reserve(text.size());
        bool bInString = false;
        int line = 1;
        for (size_t i = 0; i < text.size(); ++i) {
            const wchar_t ch = text[i];
            if (ch == L'\n') {
                bInString = false;  // strings end at the line; the lexer reports it
                ++line;
                out += ch;
                continue;
            }
            if (bInString) {
                out += ch;
                if (ch == L'\\' && i + 1 < text.size() && text[i + 1] != L'\n')
                    out += text[++i];
                else if (ch == L'"')
                    bInString = false;
                continue;
            }
            if (ch == L'"') {
                bInString = true;
                out += ch;
            } else if (ch == L'/' && i + 1 < text.size() && text[i + 1] == L'/') {
                while (i + 1 < text.size() && text[i + 1] != L'\n')
                    ++i;
            } else if (ch == L'/' && i + 1 < text.size() && text[i + 1] == L'*') {
                const int startLine = line;
                const size_t close = text.find(L"*/", i + 2);
                if (close == std::wstring_view::npos)
                    throw ResError(fileName, startLine, L"comment not closed: expected \"*/\"");
                for (size_t k = i; k < close; ++k)
                    if (text[k] == L'\n') {
                        out += L'\n';
                        ++line;
                    }
                out += L' ';
                i = close + 1;
            } else {
                out += ch;
            }
        }
        return out;
    }

    static void LexLine(std::wstring_view s, const std::wstring& fileName, int fileIndex, int lineNo,
                        std::vector<Token>& out, bool bMarkLineStart)
    {
        bool bFirst = bMarkLineStart;
        size_t i = 0;
        while (i < s.size()) {
            const wchar_t ch = s[i];
            if (svwin::IsBlank(ch) || ch == 0xFEFF) {
                ++i;
                continue;
            }
            Token t;
            t.line = lineNo;
            t.file = fileIndex;
            t.bLineStart = bFirst;
            bFirst = false;
            if (ch == L'"' || ((ch == L'L' || ch == L'l') && i + 1 < s.size() && s[i + 1] == L'"')) {
                i = LexString(s, ch == L'"' ? i : i + 1, fileName, lineNo, t);
            } else if (IsDigit(ch)) {
                i = LexNumber(s, i, fileName, lineNo, t);
            } else if (IsNameStart(ch)) {
                const size_t start = i;
                while (i < s.size() && IsNameChar(s[i]))
                    ++i;
                t.kind = TokKind::Name;
                t.text = std::wstring(s.substr(start, i - start));
            } else {
                static const wchar_t* const kTwo[] = {L"&&", L"||", L"==", L"!=", L"<=", L">=", L"<<", L">>"};
                t.kind = TokKind::Punct;
                for (const wchar_t* two : kTwo)
                    if (s.substr(i, 2) == two) {
                        t.text = two;
                        break;
                    }
                if (t.text.empty()) {
                    if (std::wstring_view(L",|&+-*/%^(){}~!<>=").find(ch) == std::wstring_view::npos) {
                        std::wstring shown(1, ch);
                        throw ResError(fileName, lineNo, L"unexpected character '" + shown + L"'");
                    }
                    t.text = std::wstring(1, ch);
                }
                i += t.text.size();
            }
            out.push_back(std::move(t));
        }
    }

    // s[i] is the opening quote. C escapes, and "" for a quote inside the text.
    static size_t LexString(std::wstring_view s, size_t i, const std::wstring& fileName, int lineNo, Token& t)
    {
        t.kind = TokKind::String;
        ++i;
        for (;;) {
            if (i >= s.size())
                throw ResError(fileName, lineNo, L"string not closed: expected '\"' before the end of the line");
            const wchar_t ch = s[i++];
            if (ch == L'"') {
                if (i < s.size() && s[i] == L'"') {
                    t.text += L'"';
                    ++i;
                    continue;
                }
                return i;
            }
            if (ch != L'\\') {
                t.text += ch;
                continue;
            }
            if (i >= s.size())
                throw ResError(fileName, lineNo, L"string not closed: expected '\"' before the end of the line");
            const wchar_t e = s[i++];
            switch (e) {
            case L'n': t.text += L'\n'; break;
            case L't': t.text += L'\t'; break;
            case L'r': t.text += L'\r'; break;
            case L'a': t.text += L'\a'; break;
            case L'b': t.text += L'\b'; break;
            case L'f': t.text += L'\f'; break;
            case L'v': t.text += L'\v'; break;
            case L'\\': t.text += L'\\'; break;
            case L'"': t.text += L'"'; break;
            case L'\'': t.text += L'\''; break;
            case L'?': t.text += L'?'; break;
            case L'x':
            case L'X': {
                unsigned value = 0;
                int digits = 0;
                while (digits < 4 && i < s.size() && HexValue(s[i]) >= 0) {
                    value = value * 16 + static_cast<unsigned>(HexValue(s[i++]));
                    ++digits;
                }
                if (digits == 0)
                    throw ResError(fileName, lineNo, L"expected hexadecimal digits after \\x");
                t.text += static_cast<wchar_t>(value);
                break;
            }
            default:
                if (e >= L'0' && e <= L'7') {
                    unsigned value = static_cast<unsigned>(e - L'0');
                    for (int digits = 1; digits < 3 && i < s.size() && s[i] >= L'0' && s[i] <= L'7'; ++digits)
                        value = value * 8 + static_cast<unsigned>(s[i++] - L'0');
                    t.text += static_cast<wchar_t>(value);
                    break;
                }
                throw ResError(fileName, lineNo, std::wstring(L"unknown escape \\") + e + L" in a string");
            }
        }
    }

    static size_t LexNumber(std::wstring_view s, size_t i, const std::wstring& fileName, int lineNo, Token& t)
    {
        t.kind = TokKind::Number;
        const size_t start = i;
        unsigned long long value = 0;
        bool bOverflow = false;
        auto add = [&](unsigned digit, unsigned base) {
            if (value > (0x7FFFFFFFFFFFFFFFull - digit) / base)
                bOverflow = true;
            value = value * base + digit;
        };
        if (s[i] == L'0' && i + 1 < s.size() && (s[i + 1] == L'x' || s[i + 1] == L'X')) {
            i += 2;
            const size_t digitsStart = i;
            while (i < s.size() && HexValue(s[i]) >= 0)
                add(static_cast<unsigned>(HexValue(s[i++])), 16);
            if (i == digitsStart)
                throw ResError(fileName, lineNo, L"expected hexadecimal digits after 0x");
        } else {
            while (i < s.size() && IsDigit(s[i]))
                add(static_cast<unsigned>(s[i++] - L'0'), 10);
        }
        while (i < s.size() && (s[i] == L'L' || s[i] == L'l' || s[i] == L'U' || s[i] == L'u'))
            ++i;
        if (i < s.size() && IsNameChar(s[i])) {
            size_t end = i;
            while (end < s.size() && IsNameChar(s[end]))
                ++end;
            throw ResError(fileName, lineNo, L"bad number \"" + std::wstring(s.substr(start, end - start)) + L"\"");
        }
        if (bOverflow)
            throw ResError(fileName, lineNo, L"number too large: " + std::wstring(s.substr(start, i - start)));
        t.value = static_cast<long long>(value);
        t.text = std::wstring(s.substr(start, i - start));
        return i;
    }

    void Directive(const std::wstring& text, const std::wstring& fileName, int fileIndex, int lineNo, int depth)
    {
        size_t i = 0;
        while (i < text.size() && svwin::IsBlank(text[i]))
            ++i;
        size_t nameEnd = i;
        while (nameEnd < text.size() && IsNameChar(text[nameEnd]))
            ++nameEnd;
        const std::wstring name = text.substr(i, nameEnd - i);
        const std::wstring rest(svwin::TrimBlanks(std::wstring_view(text).substr(nameEnd)));

        // Conditionals are followed even in skipped regions, to keep the nesting.
        if (name == L"if" || name == L"ifdef" || name == L"ifndef") {
            bool bCond = false;
            if (Active()) {
                if (name == L"if")
                    bCond = Condition(rest, fileName, fileIndex, lineNo);
                else
                    bCond = (m_macros.count(SingleName(rest, name, fileName, lineNo)) != 0) == (name == L"ifdef");
            }
            m_conds.push_back({Active() && bCond, Active() && bCond, Active(), false, lineNo});
            return;
        }
        if (name == L"elif" || name == L"else" || name == L"endif") {
            if (m_conds.empty())
                throw ResError(fileName, lineNo, L"#" + name + L" without #if");
            Conditional& c = m_conds.back();
            if (name == L"endif") {
                m_conds.pop_back();
                return;
            }
            if (c.bSeenElse)
                throw ResError(fileName, lineNo, L"#" + name + L" after #else");
            if (name == L"else") {
                c.bSeenElse = true;
                c.bActive = c.bParentActive && !c.bTaken;
            } else {
                c.bActive = c.bParentActive && !c.bTaken && Condition(rest, fileName, fileIndex, lineNo);
            }
            c.bTaken = c.bTaken || c.bActive;
            return;
        }
        if (!Active())
            return;

        if (name == L"define") {
            Define(rest, fileName, fileIndex, lineNo);
        } else if (name == L"undef") {
            m_macros.erase(SingleName(rest, name, fileName, lineNo));
        } else if (name == L"include") {
            Include(rest, fileName, lineNo, depth);
        } else if (name == L"pragma" || name == L"line" || name.empty()) {
            // code_page and the rest change nothing: text is decoded before it gets here.
        } else if (name == L"error") {
            throw ResError(fileName, lineNo, L"#error " + rest);
        } else {
            throw ResError(fileName, lineNo, L"unknown directive #" + name);
        }
    }

    static std::wstring SingleName(const std::wstring& rest, const std::wstring& directive,
                                   const std::wstring& fileName, int lineNo)
    {
        size_t end = 0;
        while (end < rest.size() && IsNameChar(rest[end]))
            ++end;
        if (end == 0 || !IsNameStart(rest[0]) || !svwin::TrimBlanks(std::wstring_view(rest).substr(end)).empty())
            throw ResError(fileName, lineNo, L"expected one name after #" + directive);
        return rest.substr(0, end);
    }

    void Define(const std::wstring& rest, const std::wstring& fileName, int fileIndex, int lineNo)
    {
        size_t end = 0;
        while (end < rest.size() && IsNameChar(rest[end]))
            ++end;
        if (end == 0 || !IsNameStart(rest[0]))
            throw ResError(fileName, lineNo, L"expected a name after #define");
        if (end < rest.size() && rest[end] == L'(')
            throw ResError(fileName, lineNo, L"macros with parameters are not supported");
        const std::wstring name = rest.substr(0, end);
        Macro m;
        LexLine(std::wstring_view(rest).substr(end), fileName, fileIndex, lineNo, m.body, false);
        m_macros[name] = m;
        // Remember plain numbers, such as the ids of a resource header.
        std::vector<Token> expanded;
        std::set<std::wstring> active;
        Expand(m.body, expanded, active, 0, fileName);
        long long value = 0;
        if (TryEvaluate(expanded, fileName, value))
            m_out.numericDefines[name] = value;
        else
            m_out.numericDefines.erase(name);
    }

    static bool TryEvaluate(const std::vector<Token>& tokens, const std::wstring& fileName, long long& value)
    {
        if (tokens.empty())
            return false;
        for (const Token& t : tokens)
            if (t.kind == TokKind::Name || t.kind == TokKind::String)
                return false;
        std::vector<Token> list = tokens;
        list.push_back(Token{});
        size_t pos = 0;
        try {
            value = EvalExpression(list, pos, fileName, false);
        } catch (const ResError&) {
            return false;
        }
        return pos == tokens.size();
    }

    void Include(const std::wstring& rest, const std::wstring& fileName, int lineNo, int depth)
    {
        if (rest.size() >= 2 && rest.front() == L'<' && rest.back() == L'>')
            return;  // a header of the platform
        if (rest.size() < 2 || rest.front() != L'"' || rest.back() != L'"')
            throw ResError(fileName, lineNo, L"expected #include \"file\" or #include <file>");
        const std::wstring name = rest.substr(1, rest.size() - 2);
        if (IsPlatformHeader(name))
            return;
        if (depth >= kMaxIncludeDepth)
            throw ResError(fileName, lineNo, L"#include nested too deeply (a cycle?): " + name);
        std::wstring text, resolved;
        if (!m_resolver || !m_resolver(name, fileName, text, resolved))
            throw ResError(fileName, lineNo, L"cannot open include file \"" + name + L"\"");
        File(text, resolved.empty() ? name : resolved, depth + 1);
    }

    bool Condition(const std::wstring& rest, const std::wstring& fileName, int fileIndex, int lineNo)
    {
        std::vector<Token> raw;
        LexLine(rest, fileName, fileIndex, lineNo, raw, false);
        if (raw.empty())
            throw ResError(fileName, lineNo, L"expected an expression after #if");
        // "defined NAME" and "defined(NAME)" first, then the macros.
        std::vector<Token> replaced;
        for (size_t i = 0; i < raw.size(); ++i) {
            if (raw[i].kind == TokKind::Name && raw[i].text == L"defined") {
                size_t k = i + 1;
                const bool bParen = k < raw.size() && raw[k].text == L"(";
                if (bParen)
                    ++k;
                if (k >= raw.size() || raw[k].kind != TokKind::Name)
                    throw ResError(fileName, lineNo, L"expected a name after \"defined\"");
                Token t = raw[k];
                t.kind = TokKind::Number;
                t.value = m_macros.count(raw[k].text) ? 1 : 0;
                t.text = std::to_wstring(t.value);
                if (bParen) {
                    if (k + 1 >= raw.size() || raw[k + 1].text != L")")
                        throw ResError(fileName, lineNo, L"expected \")\" after \"defined(" + raw[k].text + L"\"");
                    ++k;
                }
                replaced.push_back(t);
                i = k;
                continue;
            }
            replaced.push_back(raw[i]);
        }
        std::vector<Token> expanded;
        std::set<std::wstring> active;
        Expand(replaced, expanded, active, 0, fileName);
        Token end;
        end.kind = TokKind::End;
        end.line = lineNo;
        expanded.push_back(end);
        size_t pos = 0;
        const long long v = EvalExpression(expanded, pos, fileName, true);
        if (expanded[pos].kind != TokKind::End)
            throw ResError(fileName, lineNo, L"unexpected " + Describe(expanded[pos]) + L" in #if");
        return v != 0;
    }

    void Expand(const std::vector<Token>& in, std::vector<Token>& out, std::set<std::wstring>& active, int depth,
                const std::wstring& fileName) const
    {
        if (depth > kMaxExpansionDepth)
            throw ResError(fileName, in.empty() ? 0 : in.front().line, L"symbols defined in terms of each other too deeply");
        for (const Token& t : in) {
            auto it = t.kind == TokKind::Name ? m_macros.find(t.text) : m_macros.end();
            if (it == m_macros.end() || active.count(t.text)) {
                out.push_back(t);
                continue;
            }
            active.insert(t.text);
            const size_t first = out.size();
            Expand(it->second.body, out, active, depth + 1, fileName);
            active.erase(t.text);
            // The replacement stands where the symbol was written.
            for (size_t k = first; k < out.size(); ++k) {
                out[k].line = t.line;
                out[k].file = t.file;
                out[k].bLineStart = (k == first) && t.bLineStart;
            }
        }
    }

private:
    const IncludeResolver& m_resolver;
    std::map<std::wstring, Macro> m_macros;
    std::vector<Conditional> m_conds;
    TokenList m_out;
};

} // namespace

TokenList Tokenize(std::wstring_view text, const std::wstring& fileName, const IncludeResolver& resolver)
{
    Preprocessor pp(resolver);
    pp.File(text, fileName, 0);
    int lines = 1;
    for (wchar_t ch : text)
        lines += ch == L'\n';
    return pp.Finish(lines);
}

std::wstring Describe(const Token& tok)
{
    switch (tok.kind) {
    case TokKind::End: return L"the end of the file";
    case TokKind::String: return L"the string \"" + tok.text + L"\"";
    default: return L"\"" + tok.text + L"\"";
    }
}

} // namespace svres
