// The console line: acutPrintf formats (Windows convention, see
// host/win/wsprintf.h) and hands the text to a replaceable sink.
#pragma once

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "host/rx/AcChar.h"
#include "host/win/wsprintf.h"

using AcConsoleSink = std::function<void(const std::wstring&)>;

// Returns the number of characters written.
int acutPrintf(const ACHAR* format, ...);
// String objects (CString, std::wstring) may be passed for "%s" as they are:
// this overload hands on their text (see FormatArg).
template <class... Args>
    requires(std::is_class_v<Args> || ...)
int acutPrintf(const ACHAR* format, const Args&... args)
{
    return acutPrintf(format, FormatArg(args)...);
}

// Installs a sink and returns the previous one. An empty sink restores the
// default, which writes the text to stdout as UTF-8 and flushes it.
AcConsoleSink acutSetConsoleSink(AcConsoleSink sink);

// Records everything printed while it lives, then puts the previous sink back.
class AcConsoleRecorder {
public:
    AcConsoleRecorder();
    ~AcConsoleRecorder();
    AcConsoleRecorder(const AcConsoleRecorder&) = delete;
    AcConsoleRecorder& operator=(const AcConsoleRecorder&) = delete;

    // Everything printed so far, concatenated.
    const std::wstring& Text() const { return m_text; }
    // Each acutPrintf call's text, in order.
    const std::vector<std::wstring>& Calls() const { return m_calls; }
    void Clear();

private:
    std::wstring m_text;
    std::vector<std::wstring> m_calls;
    AcConsoleSink m_previous;
};
