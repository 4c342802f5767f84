// Runs a program of ours as a user would, from a shell, and keeps what it
// printed: the tests of the command line and of the examples share it.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

struct ProgramResult {
    int status = -1;  // the exit status; -1 when the program did not exit normally
    std::string out;
    std::string err;
};

// Runs exe with args and no standard input; its output goes through files in
// scratch. Each entry of env is set for the program alone.
ProgramResult RunProgram(const std::string& exe, const std::vector<std::string>& args,
                         const std::filesystem::path& scratch,
                         const std::vector<std::pair<std::string, std::string>>& env = {});

// The whole file, "" when it can't be read.
std::string ReadWholeFile(const std::filesystem::path& path);
// s in single quotes for the shell.
std::string ShellQuote(const std::string& s);
