#include "bar/ToolName.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <type_traits>

namespace tessa {

namespace {

/// A text as the argument of a template, so that a test can ask what the compiler says to it.
template<std::size_t size>
struct Spelling {
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is to be enough.
    consteval Spelling(const char16_t (&text)[size]) { std::copy_n(text, size, units); }
    [[nodiscard]] constexpr TextView View() const { return {units, size - 1}; }
    char16_t units[size]{};
};

/// Whether a literal of that text compiles.
template<typename Name, Spelling text>
concept Compiles = requires {
    typename std::bool_constant<(CheckedName<Name>(text.View()), true)>;
};

static_assert(Compiles<ToolName, u"mnuStop">);
static_assert(Compiles<ToolName, u"xtrReplaceWord">);
static_assert(!Compiles<ToolName, u"mnuStpo">);
static_assert(!Compiles<ToolName, u"mnustop">);
static_assert(!Compiles<ToolName, u"mnuSto">);
static_assert(!Compiles<ToolName, u"mnuStop ">);
static_assert(!Compiles<ToolName, u"">);
static_assert(!Compiles<ToolName, u"bndGo">);
static_assert(Compiles<BandName, u"bndGo">);
static_assert(!Compiles<BandName, u"bndgo">);
static_assert(!Compiles<BandName, u"mnuStop">);
// Otherwise a misspelled text would come in by another door.
static_assert(!std::is_constructible_v<ToolName, TextView>);
static_assert(!std::is_constructible_v<ToolName, const char16_t*>);
static_assert(!std::is_constructible_v<ToolName, BandName>);
static_assert(!std::is_default_constructible_v<ToolName>);

TEST(ToolNameTest, OnlyWhatStandsInItsTableIsAName) {
    EXPECT_EQ(ToolName::Find(u"cboAddress"), u"cboAddress"_tool);
    for (const TextView text : {u"", u"cboaddress", u"cboAddres", u"cboAddress ", u"bndAddress", u"http://a/"})
        EXPECT_FALSE(ToolName::Find(text).has_value()) << ToUtf8(text);
    EXPECT_EQ(BandName::Find(u"bndAddress"), u"bndAddress"_band);
    for (const TextView text : {u"", u"bndaddress", u"bnd", u"cboAddress", u"zzz/favorites", u"gui1"})
        EXPECT_FALSE(BandName::Find(text).has_value()) << ToUtf8(text);
}

TEST(ToolNameTest, ANameIsTheTextThatItWasWrittenAs) {
    const Text text = u"mnuGoBack";
    EXPECT_TRUE(text == u"mnuGoBack"_tool);
    EXPECT_TRUE(u"mnuGoBack"_tool == TextView(text));
    EXPECT_FALSE(u"mnuGoForward"_tool == text);
    EXPECT_FALSE(u"mnuGoForward"_tool == u"mnuGoBack"_tool);
    EXPECT_EQ(Text(u"mnuGoBack"_tool), text);
}

TEST(ToolNameTest, NoNameIsGivenTwice) {
    EXPECT_EQ(std::set<TextView>(DesignedNames::kTools.begin(), DesignedNames::kTools.end()).size(),
              DesignedNames::kTools.size());
    EXPECT_EQ(std::set<TextView>(DesignedNames::kBands.begin(), DesignedNames::kBands.end()).size(),
              DesignedNames::kBands.size());
}

} // namespace

} // namespace tessa
