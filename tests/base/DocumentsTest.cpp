// What the pages in docs/ say of the house, held against the house. The table of rooms is LayersTest's.
#include "tests/base/HouseFiles.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace tessa {

namespace {

/// The name of a file without its folder and its ending.
std::string StemOf(const std::string& path) { return std::filesystem::path(path).stem().string(); }

bool Names(const std::string& page, const std::string& word) {
    return page.find('`' + word + '`') != std::string::npos;
}

TEST(Documents, ThePageOnScriptsNamesEachOfThem) {
    const std::string page = house::Read("docs/threads.md");
    std::size_t scripts = 0;
    for (const house::File& each : house::FilesWith({".js"})) {
        if (!each.path.starts_with("qt/pages/")) continue;
        ++scripts;
        EXPECT_TRUE(Names(page, each.path)) << each.path;
    }
    EXPECT_GE(scripts, 6U);
}

TEST(Documents, ThePageOnThreadsNamesWhoHasThem) {
    static const std::regex kThread(R"(\b(QThread|QThreadPool|std::j?thread) m_|QThread::create|std::async)");
    const std::string page = house::Read("docs/threads.md");
    std::size_t threads = 0;
    for (const house::File& each : house::FilesWith({".h", ".cpp"})) {
        if (each.path.starts_with("tests/") || !std::regex_search(each.text, kThread)) continue;
        ++threads;
        EXPECT_TRUE(Names(page, StemOf(each.path))) << each.path;
    }
    EXPECT_GE(threads, 4U);
}

TEST(Documents, TheGlossaryHasEachWordOnceInTheOrderOfTheAlphabet) {
    static const std::regex kRow(R"(^\| ([^|]+) \| )", std::regex::ECMAScript | std::regex::multiline);
    const std::string page = house::Read("docs/glossary.md");
    std::vector<std::string> words;
    for (std::sregex_iterator each(page.begin(), page.end(), kRow), end; each != end; ++each) {
        words.push_back((*each)[1]);
        std::ranges::transform(words.back(), words.back().begin(), [](unsigned char c) { return std::tolower(c); });
    }
    ASSERT_GT(words.size(), 50U);
    EXPECT_EQ(words.front(), "word") << "the head of the table";
    EXPECT_EQ(std::adjacent_find(words.begin() + 1, words.end(), std::greater_equal<>()), words.end());
}

} // namespace

} // namespace tessa
