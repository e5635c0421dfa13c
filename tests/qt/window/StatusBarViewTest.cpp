#include "qt/window/StatusBarView.h"

#include "qt/base/Strings.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class StatusBarViewTest : public testing::Test {
protected:
    bool Shows(const char* text) {
        return QTest::qWaitFor([&] { return m_widget.currentMessage() == QLatin1String(text); }, 60000);
    }

    StatusBar m_bar;
    StatusBarView m_widget{m_bar};
};

TEST_F(StatusBarViewTest, ShowsTheLastOfManyTextsOnce) {
    const QSignalSpy changes(&m_widget, &QStatusBar::messageChanged);
    for (const Text& text : {Text(u"One"), Text(u"Two"), Text(u"Three")}) m_bar.SimpleText = text;
    EXPECT_TRUE(Shows("Three"));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(StatusBarViewTest, SaysItsTextToWhoCannotSeeIt) {
    m_bar.SimpleText = u"Connecting...";
    EXPECT_TRUE(Shows("Connecting..."));
    EXPECT_EQ(m_widget.accessibleDescription(), u"Connecting...");
}

TEST_F(StatusBarViewTest, ANoticeStaysUntilItsTimeIsOver) {
    QStringList shown;
    QObject::connect(&m_widget, &QStatusBar::messageChanged, [&](const QString& text) { shown << text; });
    m_widget.Notice(QStringLiteral("Beware"), std::chrono::milliseconds(400));
    m_bar.SimpleText = u"Connecting...";
    EXPECT_TRUE(Shows("Beware"));
    m_bar.SimpleText = u"Done";
    EXPECT_TRUE(Shows("Done"));
    EXPECT_EQ(shown, (QStringList{QStringLiteral("Beware"), QStringLiteral("Done")}));
}

TEST_F(StatusBarViewTest, OfATextThatNobodyCouldReadTheBeginningIsShown) {
    m_bar.SimpleText = u"http://127.0.0.1/" + Text(2'000'000, u'x');
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_widget.currentMessage().isEmpty(); }, 60000));
    EXPECT_EQ(m_widget.currentMessage(), ToQt(u"http://127.0.0.1/" + Text(983, u'x')));
}

TEST_F(StatusBarViewTest, ALaterNoticeReplacesAnEarlierOne) {
    m_widget.Notice(QStringLiteral("Beware"));
    m_widget.Notice(QStringLiteral("Beware again"));
    EXPECT_TRUE(Shows("Beware again"));
    EXPECT_EQ(m_widget.accessibleDescription(), u"Beware again");
}

TEST_F(StatusBarViewTest, NothingReplacesAComplaint) {
    m_widget.Notice(QStringLiteral("Good news"));
    m_widget.Complain(QStringLiteral("One went wrong."));
    m_widget.Complain(QStringLiteral("Two went wrong."));
    m_widget.Complain(QStringLiteral("One went wrong."));
    EXPECT_TRUE(Shows("One went wrong. Two went wrong."));
    m_widget.Notice(QStringLiteral("More news"), std::chrono::milliseconds(1));
    m_bar.SimpleText = u"Connecting...";
    EXPECT_TRUE(Shows("One went wrong. Two went wrong. More news"));
    m_widget.Notice(QStringLiteral("Still more"), std::chrono::milliseconds(1));
    EXPECT_TRUE(Shows("One went wrong. Two went wrong. Still more"));
}

TEST_F(StatusBarViewTest, WhatIsSaidCanBeTakenBackBesideItsWords) {
    m_widget.resize(600, 26);
    m_widget.show();
    auto* undo = m_widget.findChild<QPushButton*>(QStringLiteral("cmdUndo"));
    EXPECT_TRUE(undo->isHidden());
    int undone = 0;
    m_bar.Say(u"3 addresses were cleared.", [&] {
        ++undone;
        m_bar.Say(u"They are back.");
    });
    EXPECT_EQ(m_widget.currentMessage(), u"3 addresses were cleared.");
    ASSERT_TRUE(undo->isVisible());
    EXPECT_EQ(undo->accessibleName(), u"Undo");
    EXPECT_GT(undo->x(), m_widget.fontMetrics().horizontalAdvance(m_widget.currentMessage()));
    QTest::mouseClick(undo, Qt::LeftButton);
    EXPECT_EQ(undone, 1);
    EXPECT_TRUE(undo->isHidden());
    EXPECT_EQ(m_widget.currentMessage(), u"They are back.");
}

TEST_F(StatusBarViewTest, AnotherNoticeEndsTheOfferAndAComplaintDoesNot) {
    const auto offer = [this] { m_bar.Say(u"It was cleared.", [] {}); };
    offer();
    m_widget.Complain(QStringLiteral("One went wrong."));
    EXPECT_TRUE(Shows("One went wrong. It was cleared."));
    EXPECT_TRUE(m_bar.Undo.Visible());
    m_widget.Notice(QStringLiteral("News"));
    EXPECT_TRUE(Shows("One went wrong. News"));
    EXPECT_FALSE(m_bar.Undo.Visible());
}

TEST_F(StatusBarViewTest, WhatIsWithdrawnLeavesThePagesText) {
    m_bar.SimpleText = u"Done";
    m_bar.Say(u"It was cleared.", [] {});
    m_bar.Withdraw();
    EXPECT_TRUE(Shows("Done"));
    EXPECT_FALSE(m_bar.Undo.Visible());
}

TEST_F(StatusBarViewTest, SaysHowFarDownloadsAreBesideTheOtherButtons) {
    m_widget.resize(700, 26);
    m_widget.show();
    auto* saving = m_widget.findChild<QPushButton*>(QStringLiteral("cmdSaving"));
    EXPECT_TRUE(saving->isHidden());
    m_bar.Saving.Caption = u"Saving 7 %";
    m_bar.Saving.Visible = true;
    EXPECT_EQ(saving->text(), u"Saving 7 %");
    m_bar.StopAll.Visible = true;
    EXPECT_FALSE(
        saving->geometry().intersects(m_widget.findChild<QPushButton*>(QStringLiteral("cmdStopAll"))->geometry()));
    m_bar.Saving.Caption = u"Saving 2 files, 100 %";
    EXPECT_TRUE(QTest::qWaitFor([&] { return saving->text() == u"Saving 2 files, 100 %"; }, 60000));
    EXPECT_GE(saving->width(), saving->sizeHint().width()) << "it is as wide as its words";
}

TEST_F(StatusBarViewTest, SaysHowLargeTheTextIsAtItsEnd) {
    m_widget.resize(600, 26);
    m_widget.show();
    auto* zoom = m_widget.findChild<QLabel*>(QStringLiteral("lblZoom"));
    EXPECT_TRUE(zoom->isHidden());
    m_bar.Zoom = u"125 %";
    EXPECT_TRUE(zoom->isVisible());
    EXPECT_EQ(zoom->accessibleName(), u"Text size 125 %");
    m_bar.StopAll.Visible = true;
    auto* stopAll = m_widget.findChild<QPushButton*>();
    m_widget.resize(700, 26);
    EXPECT_FALSE(zoom->geometry().intersects(stopAll->geometry()));
    m_bar.Zoom = u"";
    EXPECT_TRUE(zoom->isHidden());
}

TEST_F(StatusBarViewTest, SaysWhichProfileTheWindowHasAtItsEnd) {
    m_widget.resize(600, 26);
    m_widget.show();
    auto* profile = m_widget.findChild<QLabel*>(QStringLiteral("lblProfile"));
    EXPECT_TRUE(profile->isHidden());
    m_bar.ProfileTip = u"What that means";
    m_bar.Profile = u"Profile 2";
    EXPECT_TRUE(profile->isVisible());
    EXPECT_EQ(profile->text(), u"Profile 2");
    EXPECT_EQ(profile->toolTip(), u"What that means");
    EXPECT_EQ(profile->accessibleDescription(), u"What that means");
    m_bar.Zoom = u"125 %";
    EXPECT_FALSE(profile->geometry().intersects(m_widget.findChild<QLabel*>(QStringLiteral("lblZoom"))->geometry()));
}

} // namespace

} // namespace tessa::qt
