// The transcript: what a user would have read on the command line and in boxes, in order.
// Console output (acutPrintf), prompts with the answers echoed after them, message boxes,
// popup menus with their check marks, and the editor's own error lines.
#pragma once

#include <functional>
#include <string>
#include <vector>

class AcEdTranscript {
public:
    // Appends console text as printed ("\n" starts a new line).
    void write(const std::wstring& text);
    // Appends a whole line of the editor's own (starts on a fresh line).
    void writeLine(const std::wstring& line);
    // The echo of an answer after its prompt.
    void echo(const std::wstring& answer);

    // Everything, with "\n" between lines.
    const std::wstring& text() const { return m_text; }
    // The text split into lines (the last one may be unfinished).
    std::vector<std::wstring> lines() const;
    bool contains(const std::wstring& fragment) const { return m_text.find(fragment) != std::wstring::npos; }
    void clear()
    {
        m_text.clear();
        m_softBreak = false;
    }
    // Receives every piece of text as it is appended (e.g. to copy it to stdout).
    void setObserver(std::function<void(const std::wstring&)> observer) { m_observer = std::move(observer); }

private:
    void append(const std::wstring& piece);
    std::wstring m_text;
    bool m_softBreak = false;  // an answer ended the line; a leading "\n" next absorbs it
    std::function<void(const std::wstring&)> m_observer;
};
