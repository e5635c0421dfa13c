#include "app/CommandLine.h"
#include "base/os/Paths.h"
#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tessa {

namespace {

using CommandLine::Arguments;
using CommandLine::Surroundings;

bool Says(const std::optional<std::string>& text, std::string_view part) {
    return text && text->find(part) != std::string::npos;
}

TEST(CommandLine, TellsTheVersion) { EXPECT_EQ(CommandLine::Information({"--version"}), "TessaView 3.02 Build 159\n"); }

TEST(CommandLine, TellsHowItIsUsed) {
    const auto help = CommandLine::Information({"--help"});
    for (const char* part :
         {"Usage: tessaview [ADDRESS | GROUP.tvg]\n", "--version", "TESSAVIEW_HOME", "QTWEBENGINE_DISABLE_SANDBOX=1"})
        EXPECT_TRUE(Says(help, part)) << part;
    EXPECT_EQ(CommandLine::Information({"-h"}), help);
}

TEST(CommandLine, OnlyAnOnlyArgumentAsksAboutTheProgram) {
    for (const Arguments& arguments : {Arguments{}, Arguments{"http://one/"}, Arguments{"--version", "http://one/"},
                                       Arguments{"what", "does", "--help", "mean"}, Arguments{"--VERSION"}})
        EXPECT_EQ(CommandLine::Information(arguments), std::nullopt);
}

TEST(CommandLine, RootIsRefusedUnlessTheSandboxIsOff) {
    Surroundings found{.root = true, .display = ":0"};
    const auto refusal = CommandLine::Refusal({}, found);
    EXPECT_EQ(refusal,
              "TessaView does not show pages as root, because the page engine's sandbox does not work for root.\n"
              "Start it as an ordinary user, or set QTWEBENGINE_DISABLE_SANDBOX=1 if you know what you do.\n");
    found.disableSandbox = "0";
    EXPECT_EQ(CommandLine::Refusal({}, found), refusal);
    found.disableSandbox = "1";
    EXPECT_EQ(CommandLine::Refusal({}, found), std::nullopt);
}

TEST(CommandLine, NoDisplayIsRefused) {
    const auto refusal = CommandLine::Refusal({"http://one/"}, {});
    EXPECT_EQ(refusal, "TessaView needs a display, and there is none: neither DISPLAY nor WAYLAND_DISPLAY is set.\n"
                       "Start it from a desktop session, or on a virtual display: xvfb-run tessaview\n");
    EXPECT_EQ(CommandLine::Refusal({}, {.windowingSystem = "xcb"}), refusal);
    EXPECT_EQ(CommandLine::Refusal({}, {.windowingSystem = "wayland;xcb"}), refusal);
    EXPECT_EQ(CommandLine::Refusal({"-platform"}, {}), refusal) << "an option without its value";
    EXPECT_EQ(CommandLine::Refusal({"-display"}, {}), refusal);
}

TEST(CommandLine, AnyDisplayWillDoAndSomeWindowsNeedNone) {
    EXPECT_EQ(CommandLine::Refusal({}, {.display = ":0"}), std::nullopt);
    EXPECT_EQ(CommandLine::Refusal({}, {.waylandDisplay = "wayland-0"}), std::nullopt);
    EXPECT_EQ(CommandLine::Refusal({}, {.windowingSystem = "offscreen"}), std::nullopt);
    EXPECT_EQ(CommandLine::Refusal({"-platform", "vnc"}, {.windowingSystem = "xcb"}), std::nullopt);
    EXPECT_EQ(CommandLine::Refusal({"--platform", "vnc"}, {}), std::nullopt);
    EXPECT_EQ(CommandLine::Refusal({"-display", ":0"}, {}), std::nullopt);
    EXPECT_EQ(CommandLine::Refusal({"http://one/", "--display", ":0"}, {}), std::nullopt);
}

TEST(CommandLine, ArgumentsAreOneTextAsTheyStand) {
    EXPECT_EQ(CommandLine::AsText({}), u"");
    EXPECT_EQ(CommandLine::AsText({"http://one/%20?a=b"}), u"http://one/%20?a=b");
    EXPECT_EQ(CommandLine::AsText({"/my", "groups/news.tvg"}), u"/my groups/news.tvg");
    EXPECT_EQ(CommandLine::AsText({"/p%20q.tvg"}), u"/p%20q.tvg");
    EXPECT_EQ(CommandLine::AsText({"/caf\xC3\xA9"}), u"/caf\u00E9");
    EXPECT_EQ(CommandLine::AsText({"/caf\xE9"}), u"/caf\u00E9") << "no UTF-8";
    EXPECT_EQ(PathToBytes(CommandLine::AsText({"/caf\xE9.tvg"})), "/caf\xE9.tvg") << "a file is found by its bytes";
}

TEST(CommandLine, AGroupNamedByAFileAddressComesByItsPath) {
    EXPECT_EQ(CommandLine::AsText({"file:///my%20groups/caf%C3%A9%25.tvg"}), u"/my groups/caf\u00E9%.tvg");
    EXPECT_EQ(PathToBytes(CommandLine::AsText({"file:///caf%E9.tvg"})), "/caf\xE9.tvg");
    EXPECT_EQ(CommandLine::AsText({"file:///a%2.tvg"}), u"/a%2.tvg") << "a broken escape stays";
    EXPECT_EQ(CommandLine::AsText({"file:///a%+1%zz.tvg"}), u"/a%+1%zz.tvg");
    EXPECT_EQ(CommandLine::AsText({"file:///pages/a%20b.html"}), u"file:///pages/a%20b.html");
    EXPECT_EQ(CommandLine::AsText({"file://host/news.tvg"}), u"file://host/news.tvg");
    EXPECT_EQ(CommandLine::AsText({"file:///"}), u"file:///");
}

TEST(CommandLine, AFileHereIsNamedFromTheRoot) {
    const TemporaryFolder folder;
    folder.Write("page.html", "");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(""));
    const Text here = CommandLine::AsText({"page.html"}), above = CommandLine::AsText({"./page.html"}),
               missing = CommandLine::AsText({"other.html"}), web = CommandLine::AsText({"http://page.html"});
    std::filesystem::current_path(before);
    EXPECT_EQ(ToUtf8(here).substr(ToUtf8(here).size() - 10), "/page.html");
    EXPECT_TRUE(IsAbsolute(ToUtf8(here)));
    EXPECT_TRUE(IsAbsolute(ToUtf8(above)));
    EXPECT_EQ(missing, u"other.html");
    EXPECT_EQ(web, u"http://page.html");
    EXPECT_EQ(CommandLine::AsText({"page.html"}), u"page.html") << "from another folder";
}

} // namespace

} // namespace tessa
