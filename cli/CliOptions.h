// The command line of `sorvane`: what it asks for, parsed and checked, with the usage text.
#pragma once

#include <string>
#include <vector>

struct CliScript {
    bool isFile = true;  // -s FILE; false: -c TEXT
    std::wstring text;   // the file's path, or the inline lines
    std::wstring name;   // how messages name it ("plan.scr", "-c", "-c2")
};

struct CliOptions {
    std::wstring drawing;               // empty: a new drawing from the built-in template
    std::vector<CliScript> scripts;     // in the order given
    std::wstring output;                // -o OUT.dxf
    std::vector<std::wstring> exports;  // --export FILE.svg|.pdf|.png
    std::wstring module;                // --load MODULE
    bool quiet = false;
    bool help = false;
    bool version = false;
};

// False with a message (without the program name) for bad usage.
bool cliParse(const std::vector<std::wstring>& args, CliOptions& options, std::wstring& error);

// Inline script text: "\n" (backslash, n) and real line breaks separate lines; "\\" stands
// for one backslash.
std::wstring cliInlineLines(const std::wstring& text);

const wchar_t* cliUsage();
