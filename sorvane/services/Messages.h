// Message boxes of the module, owned by the application's main window.
#pragma once

// Shows the text with an OK button; returns the button pressed.
int MessageBoxText(const wchar_t* text);
// The printf form (Windows conventions, %s is wide), without a length limit.
int MessageBoxF(const wchar_t* format, ...);
