// The transcript's text: console pieces, echoed answers and the editor's own lines.
#include "host/ed/AcEdTranscript.h"

void AcEdTranscript::append(const std::wstring& piece)
{
    if (piece.empty())
        return;
    m_text += piece;
    if (m_observer)
        m_observer(piece);
}

void AcEdTranscript::write(const std::wstring& text)
{
    if (text.empty())
        return;
    if (m_softBreak) {
        m_softBreak = false;
        if (text.front() != L'\n')
            append(L"\n");
    }
    append(text);
}

void AcEdTranscript::writeLine(const std::wstring& line)
{
    m_softBreak = false;
    if (!m_text.empty() && m_text.back() != L'\n')
        append(L"\n");
    append(line + L"\n");
}

void AcEdTranscript::echo(const std::wstring& answer)
{
    m_softBreak = false;
    append(answer);
    m_softBreak = true;
}

std::vector<std::wstring> AcEdTranscript::lines() const
{
    std::vector<std::wstring> out;
    size_t start = 0;
    while (start <= m_text.size()) {
        const size_t nl = m_text.find(L'\n', start);
        if (nl == std::wstring::npos) {
            if (start < m_text.size())
                out.push_back(m_text.substr(start));
            break;
        }
        out.push_back(m_text.substr(start, nl - start));
        start = nl + 1;
    }
    return out;
}
