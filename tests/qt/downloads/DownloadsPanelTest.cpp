// Tests: DownloadLines
#include "qt/downloads/DownloadsPanel.h"

#include "qt/downloads/DownloadLines.h"
#include "tests/fakes/FakeDownloads.h"
#include "tests/fakes/FakeProgram.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A window with the panel of downloads, and a user with a keyboard.
class DownloadsPanelTest : public testing::Test {
protected:
    DownloadsPanelTest() {
        downloads.Changed.ConnectForLife([this] { form.Touch(); });
        window.setCentralWidget(new QPushButton);
        window.resize(900, 600);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    std::int32_t Begin(TextView name, std::int64_t total = 100) {
        transfer = std::make_shared<FakeTransfer>();
        return downloads.Begin({.Address = u"http://a.example/" + Text(name), .Total = total}, transfer).Id;
    }
    void Report(std::int32_t id, DownloadState state, std::int64_t received) {
        downloads.OnReport(id, {state, DownloadProblem::None, received, 100});
    }
    [[nodiscard]] DownloadLines* Lines() const { return window.findChild<DownloadLines*>(); }
    /// What a screen reader says of the lines, separated by "|".
    [[nodiscard]] QString Spoken() const {
        QStringList all;
        for (int i = 0; Lines() && i < Lines()->count(); ++i)
            all << Lines()->item(i)->data(Qt::AccessibleTextRole).toString();
        return all.join(u'|');
    }
    /// Every line shows all its words, though a folder may be cut.
    void CheckWords() const {
        const QFontMetrics metrics(Lines()->font());
        for (int row = 0; row < Lines()->count(); ++row) {
            const QListWidgetItem* item = Lines()->item(row);
            const auto place = [&] { return Lines()->visualItemRect(item).adjusted(6, 6, -6, -6); };
            const auto words = [&] {
                return DownloadDelegate::WordsOf(Lines()->indexFromItem(item), metrics, place().width());
            };
            EXPECT_TRUE(QTest::qWaitFor([&] {
                return Lines()->viewport()->rect().width() >= Lines()->visualItemRect(item).width() &&
                       place().height() >= (words().size() + 1) * metrics.height();
            })) << row;
            for (const QString& line : words())
                EXPECT_TRUE(line.startsWith(u"in /") || metrics.horizontalAdvance(line) <= place().width())
                    << line.toStdString() << place().width();
            EXPECT_TRUE(Spoken().remove(u',').contains(words().join(u' ').remove(u','))) << "nothing is left out";
        }
    }
    void Press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }

    FakeDownloads desktop;
    Downloads downloads{desktop, {}};
    FakeClock clock;
    frmDownloads form{downloads, clock};
    QMainWindow window;
    DownloadsPanel panel{form, window};
    std::shared_ptr<FakeTransfer> transfer;
};

TEST_F(DownloadsPanelTest, IsNotThereUntilItIsShown) {
    EXPECT_EQ(Lines(), nullptr);
    form.Form.Visible = true;
    ASSERT_NE(Lines(), nullptr);
    EXPECT_TRUE(Lines()->hasFocus());
    form.Form.Visible = false;
    EXPECT_TRUE(QTest::qWaitFor([this] { return Lines() == nullptr; }));
}

TEST_F(DownloadsPanelTest, SpeaksAndFollowsTheDownloads) {
    const auto id = Begin(u"a.zip");
    form.Form.Visible = true;
    EXPECT_EQ(Spoken(), u"a.zip, 0 bytes of 100 bytes");
    Report(id, DownloadState::Running, 40);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Spoken() == u"a.zip, 40 bytes of 100 bytes"; }));
    Begin(u"b.zip");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Lines()->count() == 2; }));
    EXPECT_EQ(Lines()->currentRow(), 0) << "the new one is selected";
    Press(Qt::Key_Down);
    Report(id, DownloadState::Running, 50);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Spoken().endsWith(u"a.zip, 50 bytes of 100 bytes"); }));
    EXPECT_EQ(Lines()->currentRow(), 1) << "the selection stays with its download";
}

TEST_F(DownloadsPanelTest, IsWorkedByKeyboard) {
    const auto id = Begin(u"a.zip");
    form.Form.Visible = true;
    Press(Qt::Key_Space);
    Report(id, DownloadState::Paused, 40);
    form.Show();
    Press(Qt::Key_Space);
    Press(Qt::Key_Delete);
    EXPECT_EQ(transfer->asked, "pause resume cancel");
    Report(id, DownloadState::Cancelled, 0);
    form.Show();
    Press(Qt::Key_Return);
    EXPECT_EQ(desktop.Take(), "fetch 1 http://a.example/a.zip");
    Press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Lines()->count() == 0; }));
}

TEST_F(DownloadsPanelTest, MovesBetweenDownloadsWithTheArrows) {
    Begin(u"a.zip");
    const auto first = transfer;
    Begin(u"b.zip");
    form.Form.Visible = true;
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_EQ(first->asked, "pause");
    EXPECT_EQ(transfer->asked, "");
}

TEST_F(DownloadsPanelTest, ReachesItsButtonsWithTheTabKey) {
    const auto id = Begin(u"a.zip");
    Report(id, DownloadState::Done, 100);
    form.Form.Visible = true;
    Press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"cmdOpen");
    Press(Qt::Key_Space);
    EXPECT_EQ(desktop.Take(), "open /nowhere/downloads/a.zip");
}

TEST_F(DownloadsPanelTest, ClosesWithEscapeAndByItsButtonAndHandsTheKeyboardBack) {
    bool handedBack = false;
    panel.FocusPage().ConnectForLife([&] { handedBack = true; });
    Begin(u"a.zip");
    form.Form.Visible = true;
    Press(Qt::Key_Tab);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form.Form.Visible());
    EXPECT_TRUE(handedBack);
    form.Form.Visible = true;
    window.findChild<QDockWidget*>(QStringLiteral("downloads"))->close();
    EXPECT_FALSE(form.Form.Visible());
}

TEST_F(DownloadsPanelTest, TakesAQuarterOfTheWindowUntilItIsMadeWider) {
    Begin(u"a.zip");
    form.Form.Visible = true;
    const auto pane = [this] { return window.findChild<QDockWidget*>(QStringLiteral("downloads")); };
    const auto takes = [&](int width) { return QTest::qWaitFor([=] { return pane()->width() == width; }); };
    for (const int width : {900, 700, 1200}) {
        window.resize(width, 600);
        EXPECT_TRUE(takes(width / 4)) << pane()->width() << " of " << width;
    }
    window.resize(2400, 600);
    EXPECT_TRUE(takes(380)) << "wider is of no use";
    window.resize(900, 600);
    ASSERT_TRUE(takes(225));
    const QPoint border((window.centralWidget()->geometry().right() + pane()->geometry().left()) / 2, 300);
    QTest::mousePress(&window, Qt::LeftButton, {}, border);
    QTest::mouseMove(&window, border - QPoint(100, 0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane()->width() > 300; })) << "dragged wider";
    QTest::mouseRelease(&window, Qt::LeftButton, {}, border - QPoint(100, 0));
    const int wider = pane()->width();
    form.Form.Visible = false;
    form.Form.Visible = true;
    EXPECT_TRUE(takes(wider)) << "the user's own width stays";
}

TEST_F(DownloadsPanelTest, CutsNoCaptionOfItsButtonsHoweverNarrowItIs) {
    Begin(u"a.zip");
    form.Form.Visible = true;
    for (const int width : {700, 1500}) {
        window.resize(width, 600);
        auto* pane = window.findChild<QDockWidget*>(QStringLiteral("downloads"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return pane->width() == std::min(width / 4, 380); }));
        for (const auto* button : pane->widget()->findChildren<QPushButton*>())
            EXPECT_TRUE(QTest::qWaitFor([&] { return button->width() >= button->sizeHint().width(); }))
                << button->objectName().toStdString() << width;
    }
}

TEST_F(DownloadsPanelTest, CutsNoWordsButAFolderHoweverNarrowItIs) {
    desktop.folder = u"/nowhere/a-folder-with-a-rather-long-name/and-another-one-inside-of-it/downloads";
    clock.words = u"Wednesday, 23 September 2026, 12:58";
    Report(Begin(u"done.zip"), DownloadState::Done, 100);
    const auto id = Begin(u"a.zip", 900'000'000);
    for (int second = 1; second <= 5; ++second) {
        desktop.now = second * 1000;
        downloads.OnReport(id, {DownloadState::Running, DownloadProblem::None, second * 1'234'000, 900'000'000});
    }
    form.Form.Visible = true;
    ASSERT_TRUE(Spoken().startsWith(u"a.zip, About 12 minutes left,")) << Spoken().toStdString();
    for (const int width : {1500, 900, 700}) {
        window.resize(width, 600);
        const auto* pane = window.findChild<QDockWidget*>(QStringLiteral("downloads"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return pane->width() == std::min(width / 4, 380); }));
        CheckWords();
    }
    Lines()->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    CheckWords();
}

TEST_F(DownloadsPanelTest, SaysOfOneThatIsDoneWhereItLies) {
    const auto id = Begin(u"a.zip");
    form.Form.Visible = true;
    Report(id, DownloadState::Done, 100);
    form.Show();
    EXPECT_EQ(Spoken(), u"a.zip, Done, 100 bytes, at 1700000000, in /nowhere/downloads");
}

TEST_F(DownloadsPanelTest, PaintsNamesThatAreTextAndNothingElse) {
    Begin(u"<b>bold</b>");
    form.Form.Visible = true;
    Report(1, DownloadState::Running, 30);
    form.Show();
    EXPECT_FALSE(window.grab().isNull());
    EXPECT_EQ(Spoken(), u"b_, 30 bytes of 100 bytes");
}

} // namespace

} // namespace tessa::qt
