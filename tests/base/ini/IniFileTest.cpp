#include "base/ini/IniFile.h"

#include "base/os/AtomicFile.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(IniFile, AnswersAnyBytes) {
    std::minstd_rand random(4711);
    const std::string_view pieces[] = {"[",
                                       "]",
                                       "=",
                                       ";",
                                       "\r",
                                       "\n",
                                       "\r\n",
                                       "s",
                                       "key",
                                       " ",
                                       "\t",
                                       "\"",
                                       "'",
                                       std::string_view("\0", 1),
                                       "\xEF\xBB\xBF",
                                       "\xFF\xFE",
                                       "\xE4"};
    for (int round = 0; round < 3000; ++round) {
        std::string bytes;
        for (auto i = random() % 60; i > 0; --i) bytes += pieces[random() % std::size(pieces)];
        IniFile file(bytes);
        const std::string list = file.KeyList("s", "d", 1 + random() % 40);
        EXPECT_LE(list.size(), bytes.size() + 1);
        EXPECT_TRUE(file.Bytes() == bytes || bytes.starts_with("\xFF\xFE")) << "only half a UTF-16 unit may go";
        file.SetValue("s", "key", "v");
        EXPECT_EQ(file.Value("s", "key", "", 10), "v");
        EXPECT_EQ(IniFile(file.Bytes()).Value("s", "key", "", 10), "v");
        file.RemoveKey("s", "key");
        file.RemoveSection("s");
    }
}

TEST(IniFile, ReadsAHundredMegabytesAndLinesOfTen) {
    std::string bytes = "[s]\r\nk=" + std::string(10'000'000, 'x') + "\r\n";
    bytes += std::string(90'000'000, '\n') + "j=1\r\n";
    const IniFile file(bytes);
    EXPECT_EQ(file.Value("s", "k", "", 512).size(), 511u);
    EXPECT_EQ(file.Value("s", "j", "", 512), "1");
}

TEST(IniFile, KeepsWhatUtf16TextHasBeyondTheCodePage) {
    const std::string bytes("\xFF\xFE[\0s\0]\0\r\0\n\0k\0=\0\x11\x4E\r\0\n\0", 22);
    IniFile file(bytes);
    EXPECT_EQ(file.Value("s", "k", "", 10), "?");
    file.SetValue("s", "n", "1");
    EXPECT_EQ(file.Bytes().substr(0, bytes.size()), bytes);
    EXPECT_EQ(IniFile(file.Bytes()).Value("s", "n", "", 10), "1");
}

TEST(IniFileNames, AListComesApartAtItsEndsAndLosesWhatWasCutOff) {
    using namespace std::string_literals;
    EXPECT_EQ(NamesIn("a\0\0b c\0cu"s), (std::vector<std::string>{"a", "", "b c"}));
    EXPECT_EQ(NamesIn(""), std::vector<std::string>());
    EXPECT_EQ(NamesIn(IniFile("[x]\nb=1\na=2\n[]\n").KeyList("x", "", 100)), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(NamesIn(IniFile("[x]\nb=1\n[]\n").SectionList(100)), (std::vector<std::string>{"x", ""}));
}

} // namespace

} // namespace tessa
