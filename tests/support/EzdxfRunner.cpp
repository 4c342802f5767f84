// Runs the ezdxf check script through a pipe.
#include "tests/support/EzdxfRunner.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

std::string ScriptPath()
{
    const char* source = std::getenv("SV_SOURCE_DIR");
    return source ? std::string(source) + "/tests/host/dxf/ezdxf/ezdxf_check.py" : std::string();
}

}  // namespace

bool EzdxfAvailable()
{
    static const bool bHave = [] {
        if (ScriptPath().empty() || !std::filesystem::exists("/usr/bin/python3"))
            return false;
        return std::system("/usr/bin/python3 -c 'import ezdxf' >/dev/null 2>&1") == 0;
    }();
    return bHave;
}

std::string RunEzdxf(const std::string& arguments)
{
    const std::string command = "/usr/bin/python3 '" + ScriptPath() + "' " + arguments + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) {
        ADD_FAILURE() << "cannot run " << command;
        return {};
    }
    std::string output;
    std::array<char, 4096> buffer;
    std::size_t n;
    while ((n = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
        output.append(buffer.data(), n);
    EXPECT_EQ(pclose(pipe), 0) << command << "\n" << output;
    return output;
}
