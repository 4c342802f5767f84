// acrx_abort and its replaceable handler.
#include "host/rx/AcRxAbort.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "host/win/wsprintf.h"

namespace {

std::atomic<AcRxAbortHandler>& currentHandler()
{
    static std::atomic<AcRxAbortHandler> handler{&acrxDefaultAbortHandler};
    return handler;
}

// Characters outside ASCII become '?': what() is for diagnostics, message() holds the text.
std::string toNarrow(const std::wstring& text)
{
    std::string out;
    out.reserve(text.size());
    for (wchar_t c : text)
        out += (c >= 0 && c < 0x80) ? static_cast<char>(c) : '?';
    return out;
}

}  // namespace

AcRxAbort::AcRxAbort(std::wstring message) : m_message(std::move(message)), m_narrow(toNarrow(m_message)) {}

void acrxDefaultAbortHandler(const ACHAR* message)
{
    std::fprintf(stderr, "acrx_abort: %ls\n", message ? message : L"");
    std::fflush(stderr);
    std::abort();
}

void acrxThrowingAbortHandler(const ACHAR* message)
{
    throw AcRxAbort(message ? message : L"");
}

AcRxAbortHandler acrxSetAbortHandler(AcRxAbortHandler handler)
{
    return currentHandler().exchange(handler ? handler : &acrxDefaultAbortHandler);
}

void acrx_abort(const ACHAR* format, ...)
{
    va_list args;
    va_start(args, format);
    const std::wstring message = FormatWideV(format, args);
    va_end(args);
    currentHandler().load()(message.c_str());
    std::abort();
}
