#include "groups/TessaGroups.h"

#include "tests/fakes/TemporaryFolder.h"

#include <atomic>
#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace tessa {

namespace {

std::string Loaded(const TemporaryFolder& folder, const std::string& bytes) {
    folder.Write("a.tvg", bytes);
    std::string all;
    for (const auto& address : TessaGroups::Load(folder.PathText("a.tvg"))) all += "<" + ToUtf8(address.Key) + ">";
    return all;
}

TEST(TessaGroups, TakesTheAddressesInTheOrderOfTheKeysWhateverTheirNumbers) {
    const TemporaryFolder folder;
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl2=http://b/\r\nurl1=http://a/\r\n"), "<http://b/><http://a/>");
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl0=http://a/\r\nother=http://b/\r\n"), "<http://a/><http://b/>");
}

TEST(TessaGroups, OtherSectionsAreIgnored) {
    const TemporaryFolder folder;
    EXPECT_EQ(Loaded(folder, "[x]\r\nurl1=no\r\n[tessagroup]\r\nurl1=yes\r\n[y]\r\nurl2=no\r\n"), "<yes>");
}

TEST(TessaGroups, EmptyValuesAreEmptyAddresses) {
    const TemporaryFolder folder;
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl1=\r\nurl2=b\r\n"), "<><b>");
}

TEST(TessaGroups, EqualKeysAreListedTwiceAndReadTheFirstValue) {
    const TemporaryFolder folder;
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl1=a\r\nurl1=b\r\n"), "<a><a>");
}

TEST(TessaGroups, AFileWithoutTheSectionOrKeysIsAnEmptyGroup) {
    const TemporaryFolder folder;
    EXPECT_EQ(Loaded(folder, ""), "");
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\n"), "");
    EXPECT_EQ(Loaded(folder, "[Other]\r\nurl1=a\r\n"), "");
}

TEST(TessaGroups, AMissingFileOrAFolderIsAnEmptyGroup) {
    const TemporaryFolder folder;
    EXPECT_EQ(TessaGroups::Load(folder.PathText("missing.tvg")).Count(), 0u);
    EXPECT_EQ(TessaGroups::Load(folder.PathText("")).Count(), 0u);
    EXPECT_EQ(TessaGroups::Load(u"").Count(), 0u);
}

TEST(TessaGroups, AValueOf600CharactersComesBackAsItsFirst511) {
    const TemporaryFolder folder;
    const std::string all = Loaded(folder, "[TessaGroup]\r\nurl1=" + std::string(600, 'x') + "\r\n");
    EXPECT_EQ(all, "<" + std::string(511, 'x') + ">");
}

TEST(TessaGroups, AKeyListBeyondItsBufferIsCutAndTheCutNameDropped) {
    const TemporaryFolder folder;
    std::string bytes = "[TessaGroup]\r\n";
    // 8 bytes a name with its NUL: 2047 names are 16376 bytes, the next one would end at 16384.
    for (int i = 0; i < 3000; ++i) bytes += "u" + std::to_string(100000 + i) + "=" + std::to_string(i) + "\r\n";
    folder.Write("a.tvg", bytes);
    EXPECT_EQ(TessaGroups::Load(folder.PathText("a.tvg")).Count(), 2047u);
}

TEST(TessaGroups, GarbageAndAMillionKeysAreRead) {
    const TemporaryFolder folder;
    std::string garbage;
    std::minstd_rand random(17);
    for (int i = 0; i < 1'000'000; ++i) garbage.push_back(static_cast<char>(random()));
    EXPECT_EQ(Loaded(folder, garbage), "");
    std::string keys = "[TessaGroup]\n";
    for (int i = 0; i < 1'000'000; ++i) keys += "k=" + std::to_string(i) + "\n";
    folder.Write("a.tvg", keys);
    EXPECT_EQ(TessaGroups::Load(folder.PathText("a.tvg")).Count(), 8191u);
}

TEST(TessaGroups, AFileThatIsWrittenWhileItIsReadGivesWhatItHasOrHad) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.tvg", "");
    std::atomic<bool> done = false;
    // Another program that writes its files in place, in pieces.
    std::thread writer([&] {
        for (int round = 0; !done; ++round) {
            std::ofstream file(path, std::ios::binary | std::ios::trunc);
            file << "[TessaGroup]\r\n";
            for (int i = 0; i < 100 + round % 900; ++i) file << "url" << i << "=http://page/\r\n" << std::flush;
        }
    });
    for (int round = 0; round < 300; ++round) {
        for (const auto& each : TessaGroups::Load(FromBytes(path)))
            EXPECT_TRUE(TextView(u"http://page/").starts_with(each.Key)) << ToUtf8(each.Key);
    }
    done = true;
    writer.join();
}

TEST(TessaGroups, TextIsUtf8WhenItIsValidElseWindows1252) {
    const TemporaryFolder folder;
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl1=http://b\xC3\xBC/\r\nurl2=http://b\xFC/\r\n"),
              "<http://bü/><http://bü/>");
    EXPECT_EQ(Loaded(folder, "\xEF\xBB\xBF[TessaGroup]\r\nurl1=a\r\n"), "<a>");
}

TEST(TessaGroups, TheCutLosesOneCharacterNotTheMeaningOfTheOthers) {
    const TemporaryFolder folder;
    // 509 bytes stand before the euro sign, whose third byte is the 512th.
    const std::string before = "b\xC3\xBC/" + std::string(505, 'x');
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl1=" + before + "\xE2\x82\xACyz\r\n"), "<" + before + ">");
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl1=" + before + "\xC3\xA4\r\n"), "<" + before + "\xC3\xA4>")
        << "a character that ends at the last byte is kept";
    const std::string latin = "caf\xE9" + std::string(506, 'x') + "\xE9";
    EXPECT_EQ(Loaded(folder, "[TessaGroup]\r\nurl1=" + latin + "yz\r\n"),
              "<caf\xC3\xA9" + std::string(506, 'x') + "\xC3\xA9>")
        << "what is no UTF-8 is cut between two characters always";
}

TEST(TessaGroups, ReadsOneValueOfAnyIniFile) {
    const TemporaryFolder folder;
    folder.Write("x.url", "[InternetShortcut]\r\nURL=http://a/\r\n");
    EXPECT_EQ(TessaGroups::ReadIniValue(folder.PathText("x.url"), u"InternetShortcut", u"url", u""), u"http://a/");
    EXPECT_EQ(TessaGroups::ReadIniValue(folder.PathText("x.url"), u"InternetShortcut", u"no", u"d "), u"d");
    const Text path = PathFromBytes(folder.Write("b\xFC.url", "[InternetShortcut]\r\nURL=http://b/\r\n"));
    EXPECT_EQ(TessaGroups::ReadIniValue(path, u"InternetShortcut", u"URL", u""), u"http://b/");
    EXPECT_EQ(TessaGroups::ReadIniValue(u"/nowhere.url", u"InternetShortcut", u"URL", Text(600, u'\u00E4')),
              Text(255, u'\u00E4'))
        << "what stands in for a missing value is cut like one";
}

// Anybody may send a group. Whatever is in it, what is read of it is bounded, and reading changes nothing.
TEST(TessaGroupsFuzz, AnyBytesGiveAddressesThatAreBounded) {
    const TemporaryFolder folder;
    std::minstd_rand random(815);
    const std::string_view pieces[] = {"[TessaGroup]",
                                       "[",
                                       "]",
                                       "=",
                                       "\r\n",
                                       "\n",
                                       "url1",
                                       "url2=http://a/",
                                       ";",
                                       " ",
                                       "\"",
                                       "\xEF\xBB\xBF",
                                       "\xFF\xFE",
                                       "\x1A",
                                       std::string_view("\0", 1),
                                       "\xE9"};
    std::size_t addresses = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string bytes = random() % 2 ? "[TessaGroup]\r\n" : "";
        for (std::size_t count = random() % 40; count > 0; --count) {
            if (random() % 8 == 0)
                bytes += static_cast<char>(random() % 256);
            else if (random() % 32 == 0)
                bytes += std::string(random() % 20000, 'x');
            else
                bytes += pieces[random() % std::size(pieces)];
        }
        folder.Write("any.tvg", bytes);
        const CStrings group = TessaGroups::Load(folder.PathText("any.tvg"));
        ASSERT_LE(group.Count(), 8191U);
        for (const CString& each : group) EXPECT_LE(each.Key.size(), 511U);
        EXPECT_TRUE(folder.Read("any.tvg") == bytes);
        addresses += group.Count();
    }
    EXPECT_GT(addresses, 1000U) << "the bytes are to hit something";
}

} // namespace

} // namespace tessa
