// Message boxes. Every box goes to one replaceable sink: the studio installs
// one that shows real boxes; without it the headless recorder answers at once
// and keeps a list of what was asked, so runs never block and tests can read it.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "host/win/WinTypes.h"

#define MB_OK 0x00000000L
#define MB_OKCANCEL 0x00000001L
#define MB_ABORTRETRYIGNORE 0x00000002L
#define MB_YESNOCANCEL 0x00000003L
#define MB_YESNO 0x00000004L
#define MB_RETRYCANCEL 0x00000005L
#define MB_TYPEMASK 0x0000000FL
#define MB_ICONSTOP 0x00000010L
#define MB_ICONERROR 0x00000010L
#define MB_ICONHAND 0x00000010L
#define MB_ICONQUESTION 0x00000020L
#define MB_ICONWARNING 0x00000030L
#define MB_ICONEXCLAMATION 0x00000030L
#define MB_ICONINFORMATION 0x00000040L
#define MB_ICONASTERISK 0x00000040L
#define MB_ICONMASK 0x000000F0L
#define MB_DEFBUTTON1 0x00000000L
#define MB_DEFBUTTON2 0x00000100L
#define MB_DEFBUTTON3 0x00000200L
#define MB_APPLMODAL 0x00000000L
#define MB_SYSTEMMODAL 0x00001000L
#define MB_TASKMODAL 0x00002000L
#define MB_SETFOREGROUND 0x00010000L
#define MB_TOPMOST 0x00040000L

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7

// Receives every box; returns the button pressed (IDOK ...).
class IMessageBoxSink {
public:
    virtual ~IMessageBoxSink() = default;
    virtual int Show(HWND hWndOwner, const std::wstring& strText, const std::wstring& strCaption, UINT uType) = 0;
};

// One box as the recorder saw it.
struct MessageBoxRecord {
    std::wstring text;
    std::wstring caption;
    UINT type = 0;
    int answer = 0;
};

// Installs a sink (not owned) and returns the previous one; null restores the
// headless recorder.
IMessageBoxSink* SetMessageBoxSink(IMessageBoxSink* pSink);
IMessageBoxSink* GetMessageBoxSink();

// A null caption reads "Error", as on the original platform.
int MessageBoxW(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType);
inline int MessageBox(HWND hWnd, LPCWSTR lpText, LPCWSTR lpCaption, UINT uType)
{
    return MessageBoxW(hWnd, lpText, lpCaption, uType);
}

// --- The headless recorder -------------------------------------------------
// A box with only an OK button is answered IDOK. A box that asks a question
// takes the oldest scripted answer; when none is queued it gets the answer
// that changes nothing: IDCANCEL for OK/Cancel, Retry/Cancel and
// Yes/No/Cancel, IDNO for Yes/No, IDABORT for Abort/Retry/Ignore. The record
// keeps the last 1000 boxes.

void MessageBoxPushAnswer(int iAnswer);
void MessageBoxClearAnswers();
std::vector<MessageBoxRecord> MessageBoxHistory();
void MessageBoxClearHistory();
// Also prints each box to the stream ("[caption] text -> answer"), or not with null.
void MessageBoxSetEcho(std::FILE* pStream);
