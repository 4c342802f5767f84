// Reading MText format codes into runs; one pass over the text with a stack of property groups.
#include "host/db/AcDbMTextFormat.h"

#include <cwchar>
#include <cwctype>

namespace {

class MTextParser {
public:
    explicit MTextParser(const std::wstring& s) : m_s(s) {}

    std::vector<AcDbMTextItem> run()
    {
        while (m_pos < m_s.size()) {
            wchar_t c = m_s[m_pos];
            if (c == L'\\')
                backslash();
            else if (c == L'{') {
                flush();
                m_stack.push_back(m_fmt);
                ++m_pos;
            } else if (c == L'}') {
                flush();
                if (!m_stack.empty()) {
                    m_fmt = m_stack.back();
                    m_stack.pop_back();
                }
                ++m_pos;
            } else if (c == L'%' && percentCode()) {
                // handled
            } else if (c == L'^' && caretCode()) {
                // handled
            } else {
                m_text += c;
                ++m_pos;
            }
        }
        flush();
        return std::move(m_items);
    }

private:
    void flush()
    {
        if (m_text.empty())
            return;
        AcDbMTextItem item;
        item.text = std::move(m_text);
        item.format = m_fmt;
        m_items.push_back(std::move(item));
        m_text.clear();
    }

    void structural(AcDbMTextItemKind kind)
    {
        flush();
        AcDbMTextItem item;
        item.kind = kind;
        item.format = m_fmt;
        m_items.push_back(std::move(item));
    }

    // The value of a code up to its ';' (or the end of the text); the ';' is consumed.
    std::wstring argument()
    {
        size_t end = m_s.find(L';', m_pos);
        if (end == std::wstring::npos)
            end = m_s.size();
        std::wstring arg = m_s.substr(m_pos, end - m_pos);
        m_pos = end < m_s.size() ? end + 1 : end;
        return arg;
    }

    static bool toDouble(const std::wstring& text, double& value)
    {
        if (text.empty())
            return false;
        wchar_t* end = nullptr;
        value = std::wcstod(text.c_str(), &end);
        return end != text.c_str() && *end == L'\0';
    }

    void backslash()
    {
        if (m_pos + 1 >= m_s.size()) {  // a lone trailing backslash stays
            m_text += L'\\';
            ++m_pos;
            return;
        }
        wchar_t code = m_s[m_pos + 1];
        m_pos += 2;
        switch (code) {
        case L'\\': case L'{': case L'}':
            m_text += code;
            return;
        case L'~':
            m_text += L'\u00A0';
            return;
        case L'P': case L'X':
            structural(AcDbMTextItemKind::kParagraph);
            return;
        case L'N':
            structural(AcDbMTextItemKind::kColumnBreak);
            return;
        case L'L': case L'l':
            flush(); m_fmt.underline = code == L'L';
            return;
        case L'O': case L'o':
            flush(); m_fmt.overline = code == L'O';
            return;
        case L'K': case L'k':
            flush(); m_fmt.strike = code == L'K';
            return;
        case L'f': case L'F':
            flush(); font(argument(), code == L'F');
            return;
        case L'H':
            flush(); heightCode(argument());
            return;
        case L'W': case L'T': case L'Q': case L'A': case L'C': case L'c':
            flush(); valueCode(code, argument());
            return;
        case L'p':
            argument();  // paragraph indents and tabs: layout only
            return;
        case L'S':
            stack();
            return;
        case L'U':
            if (unicode())
                return;
            break;
        default:
            break;
        }
        // An unknown code is kept as it was written.
        m_text += L'\\';
        m_text += code;
    }

    bool unicode()
    {
        // \U+XXXX
        if (m_pos + 5 > m_s.size() || m_s[m_pos] != L'+')
            return false;
        unsigned value = 0;
        for (size_t i = 1; i <= 4; ++i) {
            wchar_t h = m_s[m_pos + i];
            if (!std::iswxdigit(h))
                return false;
            value = value * 16 + static_cast<unsigned>(std::iswdigit(h) ? h - L'0' : std::towlower(h) - L'a' + 10);
        }
        m_text += static_cast<wchar_t>(value);
        m_pos += 5;
        return true;
    }

    void font(const std::wstring& arg, bool isFile)
    {
        size_t bar = arg.find(L'|');
        m_fmt.fontName = arg.substr(0, bar);
        m_fmt.fontIsFile = isFile;
        m_fmt.bold = false;
        m_fmt.italic = false;
        while (bar != std::wstring::npos) {
            size_t next = arg.find(L'|', bar + 1);
            std::wstring part = arg.substr(bar + 1, next == std::wstring::npos ? std::wstring::npos : next - bar - 1);
            if (part.size() >= 2 && (part[0] == L'b' || part[0] == L'i')) {
                bool on = part[1] != L'0';
                (part[0] == L'b' ? m_fmt.bold : m_fmt.italic) = on;
            }
            bar = next;
        }
    }

    void heightCode(std::wstring arg)
    {
        bool relative = !arg.empty() && (arg.back() == L'x' || arg.back() == L'X');
        if (relative)
            arg.pop_back();
        double v = 0.0;
        if (!toDouble(arg, v) || v <= 0.0)
            return;
        if (relative) {
            m_fmt.heightFactor *= v;
            if (m_fmt.height > 0.0)
                m_fmt.height *= v;
        } else {
            m_fmt.height = v;
            m_fmt.heightFactor = 1.0;
        }
    }

    void valueCode(wchar_t code, std::wstring arg)
    {
        bool relative = !arg.empty() && (arg.back() == L'x' || arg.back() == L'X');
        if (relative && (code == L'W' || code == L'T'))
            arg.pop_back();
        double v = 0.0;
        if (!toDouble(arg, v))
            return;
        switch (code) {
        case L'W': m_fmt.widthFactor = relative ? m_fmt.widthFactor * v : v; break;
        case L'T': m_fmt.tracking = relative ? m_fmt.tracking * v : v; break;
        case L'Q': m_fmt.oblique = v; break;
        case L'A':
            if (v >= 0.0 && v <= 2.0)
                m_fmt.alignment = static_cast<int>(v);
            break;
        case L'C':
            if (v >= 0.0 && v <= 256.0)
                m_fmt.colorIndex = static_cast<int>(v);
            break;
        default:  // 'c'
            if (v >= 0.0 && v <= 16777215.0) {
                m_fmt.hasTrueColor = true;
                m_fmt.trueColor = static_cast<std::uint32_t>(v);
            }
            break;
        }
    }

    void stack()
    {
        flush();
        AcDbMTextItem item;
        item.kind = AcDbMTextItemKind::kStack;
        item.format = m_fmt;
        std::wstring* part = &item.text;
        while (m_pos < m_s.size() && m_s[m_pos] != L';') {
            wchar_t c = m_s[m_pos++];
            if (c == L'\\' && m_pos < m_s.size()) {
                *part += m_s[m_pos++];
            } else if ((c == L'^' || c == L'/' || c == L'#') && item.stackType == 0) {
                item.stackType = c;
                part = &item.lower;
            } else {
                *part += c;
            }
        }
        if (m_pos < m_s.size())
            ++m_pos;  // the ';'
        m_items.push_back(std::move(item));
    }

    bool percentCode()
    {
        if (m_pos + 2 >= m_s.size() || m_s[m_pos + 1] != L'%')
            return false;
        wchar_t c = static_cast<wchar_t>(std::towlower(m_s[m_pos + 2]));
        wchar_t out = 0;
        switch (c) {
        case L'd': out = L'\u00B0'; break;
        case L'p': out = L'\u00B1'; break;
        case L'c': out = L'\u2300'; break;
        case L'%': out = L'%'; break;
        default: return false;
        }
        m_text += out;
        m_pos += 3;
        return true;
    }

    bool caretCode()
    {
        if (m_pos + 1 >= m_s.size())
            return false;
        wchar_t c = m_s[m_pos + 1];
        if (c == L'I')
            m_text += L'\t';
        else if (c == L'J')
            structural(AcDbMTextItemKind::kParagraph);
        else if (c == L' ')
            m_text += L'^';
        else if (c != L'M')
            return false;
        m_pos += 2;
        return true;
    }

    const std::wstring& m_s;
    size_t m_pos = 0;
    std::wstring m_text;
    AcDbMTextCharFormat m_fmt;
    std::vector<AcDbMTextCharFormat> m_stack;
    std::vector<AcDbMTextItem> m_items;
};

}  // namespace

std::vector<AcDbMTextItem> AcDbMTextFormat::parse(const std::wstring& contents)
{
    return MTextParser(contents).run();
}

std::wstring AcDbMTextFormat::plainText(const std::wstring& contents)
{
    std::wstring out;
    for (const AcDbMTextItem& item : parse(contents)) {
        switch (item.kind) {
        case AcDbMTextItemKind::kText:
            out += item.text;
            break;
        case AcDbMTextItemKind::kParagraph:
        case AcDbMTextItemKind::kColumnBreak:
            out += L'\n';
            break;
        case AcDbMTextItemKind::kStack:
            out += item.text;
            if (item.stackType == L'^') {
                if (!item.lower.empty())
                    out += L' ' + item.lower;
            } else if (item.stackType != 0) {
                out += L'/' + item.lower;
            }
            break;
        }
    }
    return out;
}
