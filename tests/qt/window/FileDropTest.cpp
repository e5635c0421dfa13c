#include "qt/window/FileDrop.h"

#include <QDialog>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// Takes what is dropped on it; stands for a page.
struct Page : QWidget {
    explicit Page(QWidget* parent) : QWidget(parent) { setAcceptDrops(true); }
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }
    void dropEvent(QDropEvent* event) override {
        event->acceptProposedAction();
        ++drops;
    }
    void dragLeaveEvent(QDragLeaveEvent*) override { ++left; }
    int drops = 0, left = 0;
};

struct FileDropTest : testing::Test {
    FileDropTest() {
        window.resize(300, 200);
        page.resize(300, 200);
        drop.Dropped.ConnectForLife([this](const std::vector<Text>& paths) {
            for (const Text& path : paths) dropped += ToUtf8(path) + " ";
        });
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    /// Drags the data over the middle of the window and drops it; whether the window would take it.
    bool Drop(const QMimeData& data) {
        const bool accepted = Enter(data);
        QDropEvent event(kMiddle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &event);
        QCoreApplication::processEvents();
        return accepted;
    }
    bool Enter(const QMimeData& data) {
        QDragEnterEvent enter(kMiddle, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &enter);
        return enter.isAccepted();
    }
    static constexpr QPoint kMiddle{150, 100};
    bool DropUrls(const QStringList& urls) {
        QMimeData data;
        QList<QUrl> all;
        for (const QString& each : urls) all << QUrl(each);
        data.setUrls(all);
        return Drop(data);
    }
    QWidget window;
    Page page{&window};
    FileDrop drop{window, [](TextView path) { return path.ends_with(u".tvg"); }};
    std::string dropped;
};

TEST_F(FileDropTest, FilesToTakeNeverReachThePage) {
    EXPECT_TRUE(DropUrls({QStringLiteral("file:///a/News%20of%20today.tvg"), QStringLiteral("file:///b/x.tvg")}));
    EXPECT_EQ(dropped, "/a/News of today.tvg /b/x.tvg ");
    EXPECT_EQ(page.drops, 0);
}

TEST_F(FileDropTest, AFileWhoseNameIsNoTextComesByItsBytes) {
    Text path;
    drop.Dropped.ConnectForLife([&](const std::vector<Text>& paths) { path = paths.front(); });
    EXPECT_TRUE(DropUrls({QStringLiteral("file:///a%23/b%FC%C3%BC%25.tvg")}));
    EXPECT_EQ(PathToBytes(path), "/a#/b\xFC\xC3\xBC%.tvg");
}

TEST_F(FileDropTest, EverythingElseGoesWhereItWent) {
    EXPECT_TRUE(DropUrls({QStringLiteral("file:///a/page.html")}));
    EXPECT_EQ(page.drops, 1);
    EXPECT_TRUE(DropUrls({QStringLiteral("file:///a/x.tvg"), QStringLiteral("file:///a/page.html")}));
    EXPECT_EQ(page.drops, 2);
    EXPECT_TRUE(DropUrls({QStringLiteral("http://host/x.tvg")}));
    EXPECT_EQ(page.drops, 3);
    QMimeData text;
    text.setText(QStringLiteral("/a/x.tvg"));
    EXPECT_TRUE(Drop(text));
    EXPECT_EQ(page.drops, 4);
    EXPECT_EQ(dropped, "");
}

TEST_F(FileDropTest, AddressesThatDoNotComeReachNobody) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), {});
    EXPECT_FALSE(Drop(data));
    EXPECT_EQ(page.drops, 0);
    EXPECT_EQ(dropped, "");
}

TEST_F(FileDropTest, FilesThatWereOverTheWindowAreTakenThoughTheyAreGoneWhenDropped) {
    QMimeData files, gone;
    files.setUrls({QUrl(QStringLiteral("file:///a/x.tvg"))});
    gone.setData(QStringLiteral("text/uri-list"), {});
    Enter(files);
    QDropEvent event(kMiddle, Qt::CopyAction, &gone, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
    QCoreApplication::processEvents();
    EXPECT_EQ(dropped, "/a/x.tvg ");
    EXPECT_FALSE(Drop(gone)) << "the next drag begins anew";
    EXPECT_EQ(dropped, "/a/x.tvg ");
}

TEST_F(FileDropTest, APageThatWasPromisedAddressesLearnsThatTheDragIsOver) {
    QMimeData link, gone;
    link.setUrls({QUrl(QStringLiteral("http://a/"))});
    gone.setData(QStringLiteral("text/uri-list"), {});
    EXPECT_TRUE(Enter(link));
    QDropEvent event(kMiddle, Qt::CopyAction, &gone, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
    EXPECT_EQ(page.drops, 0);
    EXPECT_EQ(page.left, 1);
}

TEST_F(FileDropTest, NothingIsTakenBehindADialog) {
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    DropUrls({QStringLiteral("file:///a/x.tvg")});
    EXPECT_EQ(dropped, "");
}

} // namespace

} // namespace tessa::qt
