#include "downloads/DownloadList.h"

#include <gtest/gtest.h>
#include <random>

namespace tessa {

namespace {

Download Done(TextView path, TextView address) {
    Download download;
    download.Path = Text(path);
    download.Address = Text(address);
    download.Report = {DownloadState::Done, DownloadProblem::None, 5, 9};
    download.Ended = 77;
    return download;
}

std::string Summary(const std::vector<Download>& all) {
    std::string text;
    for (const Download& each : all)
        text += ToUtf8(each.Path) + ' ' + ToUtf8(each.Address) + ' ' +
                std::to_string(static_cast<int>(each.Report.State)) + ' ' + std::to_string(each.Report.Received) + '/' +
                std::to_string(each.Report.Total) + ' ' + std::to_string(each.Ended) + '\n';
    return text;
}

TEST(DownloadList, IsARecordADownload) {
    const std::string bytes = DownloadList::Bytes({Done(u"/d/a", u"http://a/")});
    EXPECT_EQ(bytes, "[Download]\nAddress=http://a/\nEnded=77\nPath=/d/a\nProblem=0\nReceived=5\nState=3\nTotal=9\n");
    EXPECT_EQ(Summary(DownloadList::Read(bytes)), "/d/a http://a/ 3 5/9 77\n");
}

TEST(DownloadList, KeepsPathsAndAddressesOfAnyUnits) {
    for (const Text& odd : {Text(u"/d/a\tb\r\n[Download]"), Text{u'/', char16_t{0xDCFF}, u' '}}) {
        const auto back = DownloadList::Read(DownloadList::Bytes({Done(odd, odd)}));
        ASSERT_EQ(back.size(), 1U);
        EXPECT_EQ(back[0].Path, odd);
        EXPECT_EQ(back[0].Address, odd);
    }
}

TEST(DownloadList, ThatTheFirstVersionsWroteIsRead) {
    EXPECT_EQ(Summary(DownloadList::Read("3\t0\t5\t9\t/d/a\thttp://a/\n0\t0\t1\t-1\t/d/b\thttp://b/\t77\n")),
              "/d/a http://a/ 3 5/9 0\n/d/b http://b/ 2 1/-1 77\n");
}

TEST(DownloadList, LeavesOutWhatIsDamaged) {
    const std::string rest = "Received=5\nTotal=9\nPath=/d/a\nAddress=http://a/\n";
    const std::string good = "[Download]\nState=3\nProblem=0\n" + rest;
    for (const std::string& bad :
         {"[Download]\nState=9\nProblem=0\n" + rest, "[Download]\nState=3\nProblem=-1\n" + rest,
          "[Download]\nState=3\n" + rest, "[Other]\nState=3\nProblem=0\n" + rest, good + "Ended=-7\n",
          good + "Ended=x\n", good + "Path=relative\n", good + "Address=\n", good + "Received=-5\n", good + "Total=\n",
          good + "nonsense\n", good + "Address=\xFF\n"})
        EXPECT_EQ(Summary(DownloadList::Read(good + bad + good)), "/d/a http://a/ 3 5/9 0\n/d/a http://a/ 3 5/9 0\n")
            << bad;
    EXPECT_EQ(DownloadList::Read(good + "[Download]\nState=3\nProblem=0\nRecei").size(), 1U) << "cut off";
}

// Any bytes may lie where the list should: what is read of them is sound, and comes back from its own bytes.
TEST(DownloadList, AnyBytesGiveASoundOne) {
    std::minstd_rand random(4711);
    const std::string_view pieces[] = {"0",
                                       "1",
                                       "3",
                                       "4",
                                       "5",
                                       "7",
                                       "-1",
                                       "9223372036854775808",
                                       "\t",
                                       "\t",
                                       "\n",
                                       "/a/file",
                                       "..",
                                       "data:",
                                       "\r",
                                       "\xC3",
                                       "http://a.example/",
                                       " ",
                                       std::string_view("\0", 1),
                                       "0\t0\t5\t9\t/a/b\thttp://a/\n",
                                       "[Download]\nProblem=0\nState=3\nTotal=5\n",
                                       "Received=5\nPath=/a/c\nAddress=http://b/\n",
                                       "Ended="};
    std::size_t read = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string bytes;
        for (std::size_t count = random() % 24; count > 0; --count) {
            if (random() % 8 == 0)
                bytes += static_cast<char>(random() % 256);
            else
                bytes += pieces[random() % std::size(pieces)];
        }
        const std::vector<Download> all = DownloadList::Read(bytes);
        ASSERT_LE(all.size(), bytes.size());
        for (const Download& each : all) {
            EXPECT_TRUE(each.Path.starts_with(u'/') && !each.Address.empty());
            EXPECT_TRUE(!each.Active() && each.Report.Received >= 0);
        }
        const std::deque<Download> again(all.begin(), all.end());
        const std::string written = DownloadList::Bytes(again);
        const std::vector<Download> back = DownloadList::Read(written);
        EXPECT_EQ(DownloadList::Bytes({back.begin(), back.end()}), written);
        read += all.size();
    }
    EXPECT_GT(read, 1000U) << "the bytes are to hit something";
}

} // namespace

} // namespace tessa
