// acutPrintf and its console sink.
#include "host/rx/acutPrintf.h"

#include <cstdarg>
#include <cstdio>
#include <utility>

#include "host/win/wsprintf.h"

namespace {

void WriteToStdout(const std::wstring& text)
{
    const std::string utf8 = svwin::WideToUtf8(text);
    std::fwrite(utf8.data(), 1, utf8.size(), stdout);
    std::fflush(stdout);
}

AcConsoleSink& Sink()
{
    static AcConsoleSink sink = WriteToStdout;
    return sink;
}

} // namespace

int acutPrintf(const ACHAR* format, ...)
{
    va_list args;
    va_start(args, format);
    const std::wstring text = FormatWideV(format, args);
    va_end(args);
    if (const AcConsoleSink& sink = Sink())
        sink(text);
    return static_cast<int>(text.size());
}

AcConsoleSink acutSetConsoleSink(AcConsoleSink sink)
{
    if (!sink)
        sink = WriteToStdout;
    std::swap(Sink(), sink);
    return sink;
}

AcConsoleRecorder::AcConsoleRecorder()
{
    m_previous = acutSetConsoleSink([this](const std::wstring& text) {
        m_text += text;
        m_calls.push_back(text);
    });
}

AcConsoleRecorder::~AcConsoleRecorder()
{
    acutSetConsoleSink(std::move(m_previous));
}

void AcConsoleRecorder::Clear()
{
    m_text.clear();
    m_calls.clear();
}
