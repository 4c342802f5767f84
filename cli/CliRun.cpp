// The sequence of one `sorvane` run over the host's documents, linker and editor session.
#include "cli/CliRun.h"

#include <filesystem>
#include <fstream>

#include "host/ap/AcApDocManager.h"
#include "host/ap/AcRxDynamicLinker.h"
#include "host/ap/ApExport.h"
#include "host/ap/ApHost.h"
#include "host/ap/ApText.h"
#include "host/ed/AcEdSession.h"
#include "host/rx/acutPrintf.h"

namespace {

void message(std::ostream& err, const std::wstring& text)
{
    err << "sorvane: " << apText::utf8(text) << '\n';
    err.flush();
}

bool readable(const std::wstring& path)
{
    std::ifstream in(apText::utf8(path), std::ios::binary);
    return in.good() && !std::filesystem::is_directory(apText::utf8(path));
}

// Loads the named module, or the one beside the program when there is one. False after a
// message when a module that should load does not.
bool loadModule(const CliOptions& options, std::ostream& err)
{
    std::wstring path = options.module;
    if (path.empty()) {
        path = apDefaultModulePath();
        if (path.empty())
            return true;  // no module installed: the host runs alone
    }
    if (!readable(path)) {
        message(err, L"cannot read the module " + path);
        return false;
    }
    if (!acrxDynamicLinker->loadModule(path.c_str(), true)) {
        message(err, L"cannot load the module " + path);
        return false;
    }
    return true;
}

int writeOutputs(const CliOptions& options, std::ostream& err)
{
    if (options.output.empty() && options.exports.empty())
        return 0;
    AcApDocument* doc = acDocManager->curDocument();
    if (!doc) {
        message(err, L"no drawing is open at the end of the scripts: nothing to save or export");
        return 1;
    }
    int status = 0;
    if (!options.output.empty()) {
        std::wstring error;
        if (acDocManager->saveDocument(doc, options.output.c_str(), &error) != Acad::eOk) {
            message(err, error);
            status = 1;
        }
    }
    for (const std::wstring& file : options.exports) {
        std::wstring error;
        if (!apExportModelSpace(doc->database(), file, error)) {
            message(err, error);
            status = 1;
        }
    }
    return status;
}

int runAll(const CliOptions& options, std::ostream& out, std::ostream& err)
{
    for (const CliScript& s : options.scripts)
        if (s.isFile && !readable(s.text)) {
            message(err, L"cannot read the script " + s.text);
            return 2;
        }
    if (!options.drawing.empty() && !readable(options.drawing)) {
        message(err, L"cannot read the drawing " + options.drawing);
        return 2;
    }

    const Acad::ErrorStatus es = options.drawing.empty()
                                     ? acDocManager->appContextNewDocument(nullptr)
                                     : acDocManager->appContextOpenDocument(options.drawing.c_str());
    if (es != Acad::eOk) {
        message(err, acDocManager->lastError());
        return 2;
    }
    if (!loadModule(options, err))
        return 2;

    AcEdSession::Options sessionOptions;
    sessionOptions.echoToStdout = !options.quiet;
    sessionOptions.strict = true;
    bool failed = false;
    {
        AcEdSession session(sessionOptions);
        for (const CliScript& s : options.scripts) {
            const bool ok = s.isFile ? session.runScriptFile(s.text)
                                     : session.runScriptText(cliInlineLines(s.text), s.name);
            if (!ok || session.failed()) {
                failed = true;
                break;
            }
        }
        const std::wstring& text = session.transcript().text();
        if (!options.quiet && !text.empty() && text.back() != L'\n')
            out << '\n';
        out.flush();
        for (const std::wstring& e : session.errors())
            message(err, e);
    }
    if (failed)
        return 1;
    return writeOutputs(options, err);
}

} // namespace

int cliRun(const CliOptions& options, std::ostream& out, std::ostream& err)
{
    AcConsoleSink previous;
    if (options.quiet)
        previous = acutSetConsoleSink([](const std::wstring&) {});
    apHostStartup();
    const int status = runAll(options, out, err);
    apHostShutdown();
    if (options.quiet)
        acutSetConsoleSink(previous);
    return status;
}
