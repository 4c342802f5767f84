// Parsing and checking the command line of `sorvane`.
#include "cli/CliOptions.h"

#include "host/ap/ApExport.h"
#include "host/win/WinText.h"

namespace {

bool endsWithNoCase(const std::wstring& s, const std::wstring& tail)
{
    return s.size() >= tail.size() && svwin::EqualNoCase(s.substr(s.size() - tail.size()), tail);
}

} // namespace

const wchar_t* cliUsage()
{
    return L"usage: sorvane [DRAWING.dxf] [-s SCRIPT]... [-c TEXT]... [-o OUT.dxf]\n"
           L"               [--export FILE.svg|.pdf|.png]... [--load MODULE] [--quiet]\n"
           L"       sorvane --help | --version\n"
           L"\n"
           L"Opens DRAWING (or starts a new metric drawing), loads the module, runs the\n"
           L"scripts and inline lines in the order given, then saves and exports.\n"
           L"  -s SCRIPT        run a script file (.scr)\n"
           L"  -c TEXT          run script lines given inline; separate lines with \\n\n"
           L"  -o OUT.dxf       save the drawing as DXF at the end\n"
           L"  --export FILE    write a picture of model space (.svg, .pdf or .png)\n"
           L"  --load MODULE    load this module instead of sorvane.so beside the program\n"
           L"  --quiet          do not copy the transcript to standard output\n"
           L"Exit status: 0 all ran, 1 the script failed, 2 bad usage or unreadable file.\n";
}

bool cliParse(const std::vector<std::wstring>& args, CliOptions& options, std::wstring& error)
{
    int inlineCount = 0;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::wstring& a = args[i];
        auto value = [&](std::wstring& out) {
            if (i + 1 >= args.size()) {
                error = a + L" needs a value";
                return false;
            }
            out = args[++i];
            return true;
        };
        if (a == L"--help" || a == L"-h") {
            options.help = true;
        } else if (a == L"--version") {
            options.version = true;
        } else if (a == L"--quiet" || a == L"-q") {
            options.quiet = true;
        } else if (a == L"-s" || a == L"-c") {
            CliScript script;
            script.isFile = a == L"-s";
            if (!value(script.text))
                return false;
            if (script.isFile) {
                script.name = script.text;
            } else {
                ++inlineCount;
                script.name = inlineCount == 1 ? L"-c" : L"-c" + std::to_wstring(inlineCount);
            }
            options.scripts.push_back(script);
        } else if (a == L"-o") {
            if (!value(options.output))
                return false;
            if (!endsWithNoCase(options.output, L".dxf")) {
                error = L"-o expects a file ending in .dxf, not \"" + options.output + L"\"";
                return false;
            }
        } else if (a == L"--export") {
            std::wstring file;
            if (!value(file))
                return false;
            GiOutputFormat format;
            if (!apExportFormat(file, format)) {
                error = L"--export expects a file ending in .svg, .pdf or .png, not \"" + file + L"\"";
                return false;
            }
            options.exports.push_back(file);
        } else if (a == L"--load") {
            if (!value(options.module))
                return false;
        } else if (a.size() > 1 && a[0] == L'-') {
            error = L"unknown option " + a;
            return false;
        } else if (options.drawing.empty()) {
            options.drawing = a;
        } else {
            error = L"only one drawing can be given (\"" + options.drawing + L"\" and \"" + a + L"\")";
            return false;
        }
    }
    return true;
}

std::wstring cliInlineLines(const std::wstring& text)
{
    std::wstring out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\\' && i + 1 < text.size() && (text[i + 1] == L'n' || text[i + 1] == L'\\')) {
            out += text[i + 1] == L'n' ? L'\n' : L'\\';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}
