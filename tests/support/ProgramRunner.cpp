// Runs a program through the shell with its output redirected into files.
#include "tests/support/ProgramRunner.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

std::string ReadWholeFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

std::string ShellQuote(const std::string& s)
{
    std::string q = "'";
    for (char c : s)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

ProgramResult RunProgram(const std::string& exe, const std::vector<std::string>& args,
                         const std::filesystem::path& scratch,
                         const std::vector<std::pair<std::string, std::string>>& env)
{
    std::string cmd;
    for (const auto& [name, value] : env)
        cmd += name + "=" + ShellQuote(value) + " ";
    cmd += ShellQuote(exe);
    for (const std::string& a : args)
        cmd += " " + ShellQuote(a);
    const std::filesystem::path out = scratch / "stdout.txt", err = scratch / "stderr.txt";
    cmd += " >" + ShellQuote(out.string()) + " 2>" + ShellQuote(err.string()) + " </dev/null";
    ProgramResult r;
    const int raw = std::system(cmd.c_str());
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    r.out = ReadWholeFile(out);
    r.err = ReadWholeFile(err);
    return r;
}
