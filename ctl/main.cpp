#include "ctl/CtlRun.h"

#include <cstdio>

int main(int argc, char** argv) {
    using namespace tessa;
    const auto read = CtlArguments::Read({argv + (argc > 0 ? 1 : 0), argv + argc});
    if (const auto* information = std::get_if<CtlArguments::Information>(&read))
        return std::fputs(information->text.c_str(), stdout) < 0 || std::fflush(stdout) != 0;
    if (const auto* wrong = std::get_if<CtlArguments::Wrong>(&read)) {
        std::fprintf(stderr, "tessaviewctl: %s\n", wrong->text.c_str());
        return static_cast<int>(CtlArguments::Exit::Usage);
    }
    return static_cast<int>(CtlRun(std::get<CtlArguments::Call>(read)).Run());
}
