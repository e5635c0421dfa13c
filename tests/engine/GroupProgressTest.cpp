#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa::qt {

namespace {

/// Pages that are opened together, beside tab 1; the first of them is shown by view 2.
class GroupProgress : public testing::Test {
protected:
    void Open(int count, std::vector<Text> further = {}) {
        std::vector<Text> addresses;
        for (int i = 0; i < count; ++i) {
            const QString path = QStringLiteral("/%1").arg(i);
            server.Page(path, "<title>page</title>words");
            addresses.push_back(FromQt(server.Address(path)));
        }
        for (Text& each : further) addresses.push_back(std::move(each));
        std::string lines = "[TessaGroup]\n";
        for (std::size_t i = 0; i < addresses.size(); ++i)
            lines += "url" + std::to_string(i + 1) + "=" + ToUtf8(addresses[i]) + "\n";
        folder.Write("pages.tvg", lines);
        desk.messages.answer = Answer::Yes; // to what is no page of the web
        desk.main->OpenTessaGroup(folder.PathText("pages.tvg"));
    }
    [[nodiscard]] std::string Status() const { return ToUtf8(desk.main->sbStatus.SimpleText()); }
    [[nodiscard]] bool StopOffered() const { return desk.main->sbStatus.StopAll.Visible(); }
    TemporaryFolder folder;
    LocalServer server;
    EngineDesk desk;
};

TEST_F(GroupProgress, APageThatIsStoppedBeforeItBeganIsNotWaitedFor) {
    Open(6);
    EXPECT_EQ(Status(), "0 of 6 pages loaded");
    EXPECT_EQ(desk.View(3).Stop(), Outcome::Done);
    EXPECT_EQ(Status(), "1 of 6 pages loaded");
    ASSERT_TRUE(WaitUntil([this] { return Status() == "6 of 6 pages loaded"; })) << Status();
    EXPECT_FALSE(StopOffered());
    EXPECT_EQ(desk.View(3).Page(), nullptr) << "it never began";
}

TEST_F(GroupProgress, TheFirstTabIsNotWaitedForOnceItIsClosed) {
    desk.main->Groups().TGCloseOthersFirst = true;
    for (const char* path : {"/a", "/b", "/c", "/d"}) server.Page(QString::fromLatin1(path), "<title>page</title>");
    server.Stall(QStringLiteral("/never"));
    std::string lines = "[TessaGroup]\nurl0=" + server.Address(QStringLiteral("/never")).toStdString() + "\n";
    for (const char* path : {"/a", "/b", "/c", "/d"})
        lines += std::string("url") + path + "=" + server.Address(QString::fromLatin1(path)).toStdString() + "\n";
    const TemporaryFolder folder;
    folder.Write("g.tvg", lines);
    desk.main->OpenTessaGroup(folder.PathText("g.tvg"));
    EXPECT_EQ(Status(), "0 of 5 pages loaded");
    desk.main->CloseBrowserTab(1);
    ASSERT_TRUE(WaitUntil([this] { return Status() == "5 of 5 pages loaded"; })) << Status();
    EXPECT_FALSE(StopOffered());
}

TEST_F(GroupProgress, AnAddressForAnotherProgramIsNoPageToWaitFor) {
    Open(4, {u"nobodys:thing"});
    ASSERT_TRUE(WaitUntil([this] { return Status() == "5 of 5 pages loaded"; })) << Status();
    EXPECT_FALSE(StopOffered());
}

} // namespace

} // namespace tessa::qt
