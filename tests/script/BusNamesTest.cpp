#include "script/BusNames.h"

#include "base/os/Paths.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(BusNames, EachStateFolderHasANameOfItsOwn) {
    EXPECT_EQ(BusNames::NameFor("/nowhere/one"), BusNames::NameFor("/nowhere/one"));
    EXPECT_NE(BusNames::NameFor("/nowhere/one"), BusNames::NameFor("/nowhere/two"));
    EXPECT_TRUE(BusNames::NameFor("/nowhere/one").starts_with("example.tessaview.TessaView.Home"));
}

TEST(BusNames, ANameIsOneThatTheBusTakes) {
    const std::string name = BusNames::NameFor("/nowhere/a folder, ä");
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789."),
              std::string::npos);
    EXPECT_LT(name.size(), 256U);
}

TEST(BusNames, DetoursLeadToTheSameName) {
    const TemporaryFolder folder;
    EXPECT_EQ(BusNames::NameFor(folder.Path("")), BusNames::NameFor(folder.Path("") + "/./"));
}

TEST(BusNames, TheStateLiesWhereTheEnvironmentSays) {
    using BusNames::StateFolder;
    EXPECT_EQ(StateFolder({"/own", "/config", "/home/me"}), AbsolutePath("/own"));
    EXPECT_EQ(StateFolder({"", "/config", "/home/me"}), "/config/tessaview");
    EXPECT_EQ(StateFolder({"", "", "/home/me"}), "/home/me/.config/tessaview");
    EXPECT_EQ(StateFolder({"", "config", "/home/me"}), "/home/me/.config/tessaview") << "a relative one is ignored";
}

} // namespace

} // namespace tessa
