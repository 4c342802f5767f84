// Message boxes of the module. The host's message-box sink decides whether a
// real box appears or a headless run records the text and goes on.
#include "services/Messages.h"

#include <cstdarg>

#include "host/win/WinMessageBox.h"
#include "host/win/wsprintf.h"

namespace {
// The caption every box of the module carries.
constexpr const wchar_t* kCaption = L"Sorvane";
}

int MessageBoxText(const wchar_t* text)
{
    // The application window is not reachable from here yet; a null owner
    // makes the box belong to the active window, which is the main window.
    return MessageBoxW(nullptr, text ? text : L"", kCaption, MB_OK);
}

int MessageBoxF(const wchar_t* format, ...)
{
    if (!format)
        return MessageBoxText(L"");
    va_list args;
    va_start(args, format);
    std::wstring text = FormatWideV(format, args);
    va_end(args);
    return MessageBoxText(text.c_str());
}
