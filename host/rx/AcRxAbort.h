// The host's last resort for a broken class system: acrx_abort, and the hook tests replace it with.
#pragma once

#include <exception>
#include <string>

#include "host/rx/AcChar.h"

// What a throwing abort handler raises: the formatted abort message.
class AcRxAbort : public std::exception {
public:
    explicit AcRxAbort(std::wstring message);
    const std::wstring& message() const noexcept { return m_message; }
    const char* what() const noexcept override { return m_narrow.c_str(); }

private:
    std::wstring m_message;
    std::string m_narrow;
};

// Receives the formatted message. A handler either ends the process or throws; if it
// returns, acrx_abort ends the process anyway.
using AcRxAbortHandler = void (*)(const ACHAR* message);

// The default: write "acrx_abort: <message>" to stderr and end the process with abort().
void acrxDefaultAbortHandler(const ACHAR* message);
// For tests: throw AcRxAbort carrying the message.
void acrxThrowingAbortHandler(const ACHAR* message);

// Installs a process-wide handler (null restores the default) and returns the previous one.
AcRxAbortHandler acrxSetAbortHandler(AcRxAbortHandler handler);

// Formats the message like printf (wide conventions, see host/win/wsprintf.h) and hands it to the
// current handler. Does not return normally.
[[noreturn]] void acrx_abort(const ACHAR* format, ...);

// Scope guard for tests: acrx_abort throws AcRxAbort while it lives.
class AcRxThrowOnAbort {
public:
    AcRxThrowOnAbort() : m_previous(acrxSetAbortHandler(&acrxThrowingAbortHandler)) {}
    ~AcRxThrowOnAbort() { acrxSetAbortHandler(m_previous); }
    AcRxThrowOnAbort(const AcRxThrowOnAbort&) = delete;
    AcRxThrowOnAbort& operator=(const AcRxThrowOnAbort&) = delete;

private:
    AcRxAbortHandler m_previous;
};
