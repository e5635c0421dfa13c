// What is installed beside tessaviewctl knows all its commands.
#include "script/CtlArguments.h"
#include "tests/base/HouseFiles.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(CtlArguments, ManualPageCompletionsAndHelpKnowAllCommands) {
    for (const auto& command : CtlArguments::Commands()) {
        const std::string name(command.name);
        EXPECT_NE(CtlArguments::Help().find("\n  " + name + " "), std::string::npos) << name;
        std::string dashes;
        for (const char each : name) dashes += each == '-' ? std::string("\\-") : std::string(1, each);
        EXPECT_NE(house::Read("packaging/tessaviewctl.1").find("\n.B " + dashes), std::string::npos) << name;
        for (const std::string file : {"tessaviewctl.bash", "tessaviewctl.zsh", "tessaviewctl.fish"})
            EXPECT_NE(house::Read("packaging/completions/" + file).find(name), std::string::npos) << file << name;
    }
}

} // namespace

} // namespace tessa
