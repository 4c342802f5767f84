// `sorvane`: the headless host. Runs scripts on a drawing, with the module loaded.
#include <clocale>
#include <iostream>
#include <vector>

#include "cli/CliOptions.h"
#include "cli/CliRun.h"
#include "host/ap/ApText.h"

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "C");
    std::vector<std::wstring> args;
    for (int i = 1; i < argc; ++i)
        args.push_back(apText::wide(argv[i]));
    CliOptions options;
    std::wstring error;
    if (!cliParse(args, options, error)) {
        std::cerr << "sorvane: " << apText::utf8(error) << '\n' << apText::utf8(cliUsage());
        return 2;
    }
    if (options.help) {
        std::cout << apText::utf8(cliUsage());
        return 0;
    }
    if (options.version) {
        std::cout << "sorvane " << SORVANE_VERSION << '\n';
        return 0;
    }
    return cliRun(options, std::cout, std::cerr);
}
