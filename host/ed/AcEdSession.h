// A headless editor session: it runs scripts and inline lines through the editor, owns
// the transcript and knows whether the run failed. While it lives it is the editor's
// input source and receives the console, message boxes and popup menus.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/ed/AcEdInputSource.h"
#include "host/ed/AcEdTranscript.h"

class AcEdSession {
public:
    struct Options {
        // Also copy each transcript addition to stdout as it happens (UTF-8).
        bool echoToStdout = false;
        // Strict: input that runs out at a prompt, an unknown command or a bad line fails
        // the run. Not strict: they are written to the transcript only.
        bool strict = true;
    };

    AcEdSession();
    explicit AcEdSession(Options options);
    ~AcEdSession();
    AcEdSession(const AcEdSession&) = delete;
    AcEdSession& operator=(const AcEdSession&) = delete;

    // Parses the file and runs it to the end (commands, answers and directives in order).
    // False when the file cannot be read (an error line is written) or the run failed.
    bool runScriptFile(const std::wstring& path);
    // Runs lines given as text: lines are separated by "\n"; source names them in
    // messages ("-c" for the command line). False when the run failed.
    bool runScriptText(const std::wstring& text, const std::wstring& source = L"-c");
    // Runs one line (as if it were a one-line script).
    bool runLine(const std::wstring& line, const std::wstring& source = L"-c");

    // The run failed at least once since the session began (or since clearFailure).
    bool failed() const { return m_failed; }
    // The error lines written, in order ("file:line: message").
    const std::vector<std::wstring>& errors() const { return m_errors; }
    void clearFailure();

    AcEdTranscript& transcript() { return m_transcript; }
    const AcEdTranscript& transcript() const { return m_transcript; }

    // Records an error: writes "** where: message" to the transcript and fails the run (in
    // strict mode). Used by the editor and by host commands that refuse a line.
    void error(const std::wstring& where, const std::wstring& message);

    // The live session, or null.
    static AcEdSession* current();

    // Parses script text into items (no execution). Errors in directives are reported
    // when the item is executed, not here.
    static std::vector<AcEdInputItem> parse(const std::wstring& text, const std::wstring& source);

private:
    struct Impl;
    bool run(std::vector<AcEdInputItem> items);

    Options m_options;
    AcEdTranscript m_transcript;
    std::vector<std::wstring> m_errors;
    bool m_failed = false;
    bool m_expectFail = false;
    std::unique_ptr<Impl> m_impl;
};

// For the dialog layer: takes the next input item when it is a @@dialog (or, with
// fileDialog, a @@file) line, so a modal dialog can read its script. False when the next
// item is something else or nothing is left (the dialog then answers Cancel).
bool acedTakeDialogItem(AcEdInputItem& item, bool fileDialog = false);
