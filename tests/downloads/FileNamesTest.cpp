#include "downloads/FileNames.h"

#include <gtest/gtest.h>
#include <set>

namespace tessa {

namespace {

TEST(FileNames, KeepsOrdinaryNamesAsTheyAre) {
    for (const TextView name : {u"report.pdf", u"Gr\u00FC\u00DFe aus \u6771\u4EAC.tar.gz", u"a (1).txt", u"README",
                                u"\U0001F600.png", u"console.log", u"com10.txt"})
        EXPECT_EQ(CleanFileName(name), name);
}

TEST(FileNames, IsNeverAPath) {
    EXPECT_EQ(CleanFileName(u"../../.bashrc"), u"_.._.bashrc");
    EXPECT_EQ(CleanFileName(u"..\\..\\evil.exe"), u"_.._evil.exe");
    EXPECT_EQ(CleanFileName(u"/etc/passwd"), u"_etc_passwd");
    EXPECT_EQ(CleanFileName(u"C:\\x.txt"), u"C__x.txt");
}

TEST(FileNames, IsNeverHiddenAndHasNoDotsOrBlanksAtItsEnd) {
    EXPECT_EQ(CleanFileName(u".profile"), u"profile");
    EXPECT_EQ(CleanFileName(u" ...x.txt. . "), u"x.txt");
}

TEST(FileNames, TakesOutControlsAndMarksOfDirection) {
    EXPECT_EQ(CleanFileName(u"evil\u202Egpj.exe"), u"evilgpj.exe");
    EXPECT_EQ(CleanFileName(TextView(u"a\0b\n\tc\u200Bd.txt", 12)), u"abcd.txt");
}

TEST(FileNames, IsNoDeviceElsewhere) {
    EXPECT_EQ(CleanFileName(u"con"), u"_con");
    EXPECT_EQ(CleanFileName(u"NUL.tar.gz"), u"_NUL.tar.gz");
    EXPECT_EQ(CleanFileName(u"Com7.txt"), u"_Com7.txt");
}

TEST(FileNames, IsNoFileThatStartsAProgramWhenItIsOpened) {
    EXPECT_EQ(CleanFileName(u"game.Desktop"), u"game.Desktop.download");
    EXPECT_EQ(CleanFileName(u"here.url"), u"here.url.download");
}

TEST(FileNames, CutsWhatIsTooLongAndKeepsTheEnding) {
    const Text cut = CleanFileName(Text(5000, u'x') + u".tar.gz");
    EXPECT_EQ(cut.size(), 180U);
    EXPECT_TRUE(cut.ends_with(u"xxx.tar.gz"));
    Text smileys;
    for (int i = 0; i < 100; ++i) smileys += u"\U0001F600";
    const Text shorter = CleanFileName(smileys + u".jpg");
    EXPECT_EQ(ToUtf8(shorter).size(), 180U);
    EXPECT_EQ(ToUtf8(shorter).find("\xEF\xBF\xBD"), std::string::npos) << "half a character";
    EXPECT_LE(CleanFileName(Text(400, u'.') + Text(400, u'y')).size(), 180U);
}

TEST(FileNames, IsNeverEmpty) {
    for (const TextView name : {u"", u"...", u" ", u"\u202E", u". ."}) EXPECT_EQ(CleanFileName(name), u"download");
}

TEST(FileNames, IsTheLastPartOfAnAddress) {
    EXPECT_EQ(FileNameOfAddress(u"https://a.example/x/My%20file.zip?a=/b#/c"), u"My file.zip");
    EXPECT_EQ(FileNameOfAddress(u"https://a.example/x/%2e%2e%2fevil"), u"_evil");
    EXPECT_EQ(FileNameOfAddress(u"https://a.example/100%"), u"100%");
    EXPECT_EQ(FileNameOfAddress(u"https://a.example/100%4"), u"100%4");
    for (const TextView none :
         {u"https://a.example", u"https://a.example/", u"data:text/plain,a/b", u"blob:https://a.example/1-2-3", u""})
        EXPECT_EQ(FileNameOfAddress(none), u"download");
}

TEST(FileNames, CountsUntilANameIsFree) {
    const std::set<Text> there{u"a.txt", u"a (1).txt", u"b.tar.gz", u"README"};
    const auto taken = [&](TextView name) { return there.contains(Text(name)); };
    EXPECT_EQ(FreeFileName(u"c.txt", taken), u"c.txt");
    EXPECT_EQ(FreeFileName(u"a.txt", taken), u"a (2).txt");
    EXPECT_EQ(FreeFileName(u"b.tar.gz", taken), u"b (1).tar.gz");
    EXPECT_EQ(FreeFileName(u"README", taken), u"README (1)");
}

} // namespace

} // namespace tessa
