// Tests: Leaving
#include "qt/page/PageDialog.h"
#include "qt/page/WebPage.h"
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>
#include <chrono>

namespace tessa::qt {

namespace {

/// A user who closes pages that hold what he has entered.
class LeavingPages : public CommandsOnPages {
protected:
    LeavingPages() {
        server.Page(QStringLiteral("/other"), "<title>Other</title>");
        server.Page(QStringLiteral("/holds"),
                    "<title>Holds</title><p>words<script>onbeforeunload = e => { e.preventDefault(); return 'no'; };"
                    "onpagehide = () => { document.title = 'Left'; };</script>");
    }

    /// A second tab in front with that page, in which a person has clicked.
    void ShowAndClick(const QString& path, TextView title) {
        desk.main->GetNewBrowser(InFront::Yes);
        Show(path, title);
        WaitForPicture();
        // The page lets go as long as the engine does not know of a click. A page that has just come may miss one.
        const QString active = QStringLiteral("String(navigator.userActivation.hasBeenActive)");
        ASSERT_TRUE(WaitUntil([&] {
            QTest::mouseClick(Front().Widget()->focusProxy(), Qt::LeftButton, {}, QPoint(60, 20));
            return Script(active) == u"true";
        }));
        ASSERT_TRUE(Front().MayHold());
    }
    [[nodiscard]] PageDialog* Question() {
        for (auto* each : desk.window.findChildren<PageDialog*>()) {
            if (each->isVisible() && TakesAnswers(*each)) return each;
        }
        return nullptr;
    }
    void Answer(const QString& button) {
        ASSERT_TRUE(WaitUntil([&] { return Question() != nullptr; }));
        for (auto* each : Question()->findChildren<QPushButton*>()) {
            if (each->text().remove(u'&') == button) return each->click();
        }
        FAIL() << button.toStdString();
    }
    [[nodiscard]] std::size_t Tabs() { return desk.main->pcPage.Count(); }
    void CloseTogether(const std::vector<std::int32_t>& indexes) {
        desk.main->Choice().Replace(indexes);
        Click(u"xtrChosenClose");
    }
    /// What the entry says that brings back what was closed last.
    [[nodiscard]] std::string Reopens() { return ToUtf8(desk.main->actBar.Find(u"xtrReopenTab")->Caption()); }
    [[nodiscard]] std::string Paths() {
        std::string all;
        for (std::size_t position = 1; position <= Tabs(); ++position)
            all += QUrl(ToQt(desk.View(desk.main->pcPage.FindAt(position)->Tag).LocationURL())).path().toStdString();
        return all;
    }
    /// The views whose pages hold their user, as the end of the program finds out.
    [[nodiscard]] std::vector<std::int32_t> Holders() {
        std::vector<std::int32_t> holders;
        std::size_t waiting = 0;
        for (std::size_t position = 1; position <= Tabs(); ++position) {
            const std::int32_t index = desk.main->pcPage.FindAt(position)->Tag;
            if (!desk.View(index).MayHold()) continue;
            ++waiting;
            desk.View(index).AskToLeave(LeaveReason::ToKnow, [&holders, &waiting, index](bool holds) {
                if (holds) holders.push_back(index);
                --waiting;
            });
        }
        EXPECT_TRUE(WaitUntil([&] { return waiting == 0; }));
        return holders;
    }
};

TEST_F(LeavingPages, APageThatHoldsItsUserIsClosedWhenHeLeaves) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    desk.main->pcPage.UserClick(desk.main->pcPage.FindAt(1));
    desk.main->CloseBrowserTab(2);
    Answer(QStringLiteral("Stay"));
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 2) << "it was brought to the front";
    EXPECT_TRUE(WaitUntil([&] { return !desk.main->Tabs().Leaving.Asks(2); }));
    EXPECT_EQ(Tabs(), 2U);
    EXPECT_EQ(Script(QStringLiteral("document.title")), u"Holds") << "it has not taken its leave";
    desk.main->CloseBrowserTab(2);
    Answer(QStringLiteral("Leave"));
    EXPECT_TRUE(WaitUntil([&] { return Tabs() == 1; }));
}

TEST_F(LeavingPages, APageWithoutAReasonIsNotAskedAbout) {
    server.Page(QStringLiteral("/plain"), "<title>Plain</title>words");
    ShowAndClick(QStringLiteral("/plain"), u"Plain");
    desk.main->CloseBrowserTab(2);
    EXPECT_TRUE(WaitUntil([&] { return Tabs() == 1; }));
}

TEST_F(LeavingPages, APageInWhichNobodyDidAnythingHoldsNobody) {
    desk.main->GetNewBrowser(InFront::Yes);
    Show(QStringLiteral("/holds"), u"Holds");
    EXPECT_FALSE(Front().MayHold());
    desk.main->CloseBrowserTab(2);
    EXPECT_EQ(Tabs(), 1U);
}

TEST_F(LeavingPages, AnotherDocumentBeginsAnew) {
    ShowAndClick(QStringLiteral("/other"), u"Other");
    Show(QStringLiteral("/holds"), u"Holds");
    EXPECT_TRUE(WaitUntil([&] { return !Front().MayHold(); }));
}

TEST_F(LeavingPages, APageThatHangsHoldsNobodyForLong) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    Front().Page()->runJavaScript(QStringLiteral("for (;;) ;"));
    desk.main->CloseBrowserTab(2);
    EXPECT_TRUE(WaitUntil([&] { return Tabs() == 1; }));
}

TEST_F(LeavingPages, IsFoundOutWithoutAnythingHappeningToThePage) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    EXPECT_EQ(Holders(), std::vector<std::int32_t>{2});
    EXPECT_EQ(Script(QStringLiteral("document.title")), u"Holds");
    EXPECT_EQ(Question(), nullptr);
    ShowAndClick(QStringLiteral("/other"), u"Other");
    EXPECT_EQ(Holders(), std::vector<std::int32_t>{2});
}

TEST_F(LeavingPages, APageThatClosesItselfWhileItIsFoundOutCloses) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    desk.log.Take();
    EXPECT_FALSE(desk.main->Form_QueryUnload());
    std::optional<bool> leaves;
    Front().Page()->HoldWanted(leaves);
    EXPECT_EQ(leaves, std::nullopt) << "what the page does itself is no answer";
    Q_EMIT Front().Page()->windowCloseRequested();
    EXPECT_TRUE(WaitUntil([&] { return Tabs() == 1; }));
    EXPECT_TRUE(WaitUntil([&] { return desk.log.Take() == "close"; })) << "nobody is held, so the window closes";
    EXPECT_TRUE(desk.messages.own.empty());
}

TEST_F(LeavingPages, AFrameOfThePageHoldsToo) {
    server.Page(QStringLiteral("/frames"), "<title>Frames</title>words<iframe src='/holds'></iframe>");
    ShowAndClick(QStringLiteral("/frames"), u"Frames");
    EXPECT_EQ(Holders(), std::vector<std::int32_t>{2});
}

TEST_F(LeavingPages, WhoHasLeftIsNotAskedAgainOnTheWay) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    desk.main->CloseBrowserTab(1);
    ASSERT_EQ(Tabs(), 1U);
    desk.main->actBar.UserClick(*desk.main->actBar.Find(u"mnuCloseAll"));
    Answer(QStringLiteral("Leave"));
    EXPECT_TRUE(WaitUntil([&] { return Front().LocationURL() == u"about:blank"; })) << ToUtf8(Front().LocationURL());
    EXPECT_EQ(Question(), nullptr);
}

TEST_F(LeavingPages, TabsThatCloseTogetherComeBackTogetherWhereverHeWas) {
    server.Page(QStringLiteral("/plain"), "<title>Plain</title>words");
    Show(QStringLiteral("/plain"), u"Plain");
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    desk.main->GetNewBrowser(InFront::Yes);
    Show(QStringLiteral("/plain"), u"Plain");
    ShowAndClick(QStringLiteral("/other"), u"Other");
    CloseTogether({2, 3, 4});
    Answer(QStringLiteral("Leave"));
    ASSERT_TRUE(WaitUntil([&] { return Tabs() == 1; }));
    EXPECT_EQ(Reopens(), "&Reopen 3 Tabs");
    Click(u"xtrReopenTab");
    EXPECT_EQ(Paths(), "/plain/holds/plain/other");
    EXPECT_TRUE(WaitTitle(u"Other")) << "it was in front";
    EXPECT_FALSE(Enabled(u"xtrReopenTab"));
}

TEST_F(LeavingPages, OneThatHisUserStaysInIsNotAmongThem) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    ShowAndClick(QStringLiteral("/other"), u"Other");
    CloseTogether({2, 3});
    Answer(QStringLiteral("Stay"));
    ASSERT_TRUE(WaitUntil([&] { return Tabs() == 2 && !desk.main->Tabs().Leaving.Asks(2); }));
    EXPECT_EQ(Reopens(), "&Reopen Closed Tab");
    Click(u"xtrReopenTab");
    EXPECT_EQ(Tabs(), 3U);
    EXPECT_FALSE(Enabled(u"xtrReopenTab"));
}

TEST_F(LeavingPages, WhoTakesTheClosingBackIsAskedNoMore) {
    desk.main->GetNewBrowser(InFront::Yes);
    Show(QStringLiteral("/other"), u"Other");
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    CloseTogether({2, 3});
    ASSERT_TRUE(WaitUntil([&] { return Question() != nullptr; }));
    Click(u"xtrReopenTab");
    EXPECT_TRUE(WaitUntil([&] { return Question() == nullptr; }));
    EXPECT_EQ(Paths(), "blank/other/holds");
    EXPECT_EQ(desk.main->Tabs().CurrentIndex(), 3) << "it was in front";
    EXPECT_EQ(Script(QStringLiteral("document.title")), u"Holds") << "it has not taken its leave";
    desk.main->CloseBrowserTab(3);
    Answer(QStringLiteral("Leave"));
    EXPECT_TRUE(WaitUntil([&] { return Paths() == "blank/other"; })) << "it is asked as ever";
}

TEST_F(LeavingPages, ABusyPageIsAskedAsSoonAsItListens) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    Front().Page()->runJavaScript(QStringLiteral("for (const end = Date.now() + 1000; Date.now() < end;) ;"));
    desk.main->CloseBrowserTab(2);
    Answer(QStringLiteral("Stay"));
    EXPECT_TRUE(WaitUntil([&] { return !desk.main->Tabs().Leaving.Asks(2); }));
    EXPECT_EQ(Tabs(), 2U);
    EXPECT_EQ(Script(QStringLiteral("document.title")), u"Holds") << "it has not taken its leave";
}

TEST_F(LeavingPages, WhoTakesTheClosingBackKeepsABusyPageAsItIs) {
    desk.main->GetNewBrowser(InFront::Yes);
    Show(QStringLiteral("/other"), u"Other");
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    Front().Page()->runJavaScript(QStringLiteral("for (const end = Date.now() + 1000; Date.now() < end;) ;"));
    CloseTogether({2, 3});
    Click(u"xtrReopenTab");
    Settle(desk.engine, Front().Page());
    EXPECT_EQ(Script(QStringLiteral("document.title")), u"Holds") << "it was not asked";
    EXPECT_EQ(Paths(), "blank/other/holds");
    EXPECT_TRUE(Front().MayHold());
    EXPECT_EQ(Question(), nullptr);
}

TEST_F(LeavingPages, APageThatAsksItsUserIsNotAskedItself) {
    ShowAndClick(QStringLiteral("/holds"), u"Holds");
    Front().Page()->runJavaScript(QStringLiteral("confirm('Really?')"));
    ASSERT_TRUE(WaitUntil([&] { return Question() != nullptr; }));
    desk.main->CloseBrowserTab(2);
    EXPECT_EQ(Tabs(), 1U);
}

/// The same user, whose pages take their leave so slowly that the engine closes them before, and once more then.
class SlowLeaving : public LeavingPages {
protected:
    SlowLeaving() {
        const QByteArray slow = "navigator.sendBeacon('/leaving');"
                                "for (const end = Date.now() + 1500; Date.now() < end;) ;";
        server.Page(QStringLiteral("/slow"),
                    "<title>Slow</title><p>words<script>onbeforeunload = e => {" + slow + "};</script>");
        server.Page(QStringLiteral("/slow-holds"), "<title>Slow</title><p>words<script>onbeforeunload = e => {" + slow +
                                                       "e.preventDefault(); return 'no'; };</script>");
        server.Page(QStringLiteral("/leaving"), "");
    }

    void ShowSlow(const QString& path) {
        ShowAndClick(path, u"Slow");
        QObject::connect(Front().Page(), &WebPage::DocumentBegan, &m_follower, [this] { ++m_documents; });
    }
    bool WaitUntilLeaving() {
        return WaitUntil([&] { return server.requests.contains(QStringLiteral("/leaving")); });
    }
    /// The tab of the page is to show another document, or that one anew. Of that nobody may be asked.
    void GoOn(const std::string& paths, TextView title) {
        const std::size_t tabs = Tabs();
        // Nothing else comes to its turn while the engine asks.
        QTimer asked;
        asked.callOnTimeout([this] {
            if (!Question()) return;
            ADD_FAILURE() << "somebody was asked";
            Answer(QStringLiteral("Leave"));
        });
        asked.start(std::chrono::milliseconds(1));
        ASSERT_TRUE(WaitUntil([&] { return m_documents > 0 || Tabs() != tabs || !desk.messages.asked.empty(); }));
        ASSERT_EQ(Tabs(), tabs);
        ASSERT_TRUE(WaitTitle(title)) << ToUtf8(Front().LocationName());
        Settle(desk.engine, Front().Page());
        QCoreApplication::processEvents();
        EXPECT_EQ(Paths(), paths);
        EXPECT_TRUE(desk.messages.asked.empty());
    }

private:
    int m_documents = 0; ///< new ones in the tab of the page
    QObject m_follower;
};

TEST_F(SlowLeaving, WhoTakesTheClosingBackKeepsThePage) {
    desk.main->GetNewBrowser(InFront::Yes);
    Show(QStringLiteral("/other"), u"Other");
    ShowSlow(QStringLiteral("/slow"));
    CloseTogether({2, 3});
    ASSERT_TRUE(WaitUntilLeaving());
    Click(u"xtrReopenTab");
    GoOn("blank/other/slow", u"Slow");
}

TEST_F(SlowLeaving, OneThatWouldHoldItsUserIsLoadedAgainWithoutAQuestion) {
    desk.main->GetNewBrowser(InFront::Yes);
    Show(QStringLiteral("/other"), u"Other");
    ShowSlow(QStringLiteral("/slow-holds"));
    CloseTogether({2, 3});
    ASSERT_TRUE(WaitUntilLeaving());
    Click(u"xtrReopenTab");
    GoOn("blank/other/slow-holds", u"Slow");
}

TEST_F(SlowLeaving, TheTabThatIsLeftStays) {
    ShowSlow(QStringLiteral("/slow"));
    desk.main->CloseBrowserTab(1);
    desk.main->actBar.UserClick(*desk.main->actBar.Find(u"mnuCloseAll"));
    ASSERT_TRUE(WaitUntilLeaving());
    GoOn("blank", u"about:blank");
}

/// The same user, who types into forms that ask for nothing themselves.
class TypedPages : public LeavingPages {
protected:
    TypedPages() {
        server.Page(QStringLiteral("/form"),
                    "<title>Form</title><p>words</p><textarea id=area></textarea><div id=rich contenteditable></div>"
                    "<form method=post><input id=posted></form><form><input id=one><input id=other type=email>"
                    "<input id=search type=search><input id=box type=checkbox></form>"
                    "<form role=search><textarea id=asked></textarea></form>");
        server.Page(QStringLiteral("/frame"), "<title>Frame</title><p>words</p><iframe src='/form'></iframe>");
    }
    void Type(const QString& field) {
        const QString value = QStringLiteral("(%1.value ?? %1.innerText)").arg(field);
        Script(field + QStringLiteral(".focus(); 1"));
        // What the page is typed before its window is the active one is lost.
        const QString has =
            QStringLiteral("%1.ownerDocument.hasFocus() && %1.ownerDocument.activeElement === %1 ? 'yes' : 'no'");
        ASSERT_TRUE(WaitUntil([&] { return Script(has.arg(field)) == u"yes"; })) << field.toStdString();
        QTest::keyClicks(Front().Widget()->focusProxy(), QStringLiteral("typed"));
        ASSERT_TRUE(WaitUntil([&] { return Script(value) == u"typed"; })) << field.toStdString();
    }
};

TEST_F(TypedPages, ATextThatWasNotSentIsAskedAboutWhenTheProgramEnds) {
    for (const char* fields : {"area", "rich", "posted", "one other"}) {
        ShowAndClick(QStringLiteral("/form"), u"Form");
        EXPECT_EQ(Holders(), std::vector<std::int32_t>());
        for (const QString& field : QString::fromLatin1(fields).split(u' ')) Type(field);
        EXPECT_EQ(Holders(), std::vector<std::int32_t>{static_cast<std::int32_t>(desk.main->Tabs().CurrentIndex())})
            << fields;
        EXPECT_EQ(Question(), nullptr);
        desk.main->CloseBrowserTab(desk.main->Tabs().CurrentIndex());
    }
}

TEST_F(TypedPages, ASearchIsNoText) {
    for (const char* field : {"one", "search", "asked"}) {
        ShowAndClick(QStringLiteral("/form"), u"Form");
        Type(QString::fromLatin1(field));
        EXPECT_EQ(Holders(), std::vector<std::int32_t>()) << field;
        desk.main->CloseBrowserTab(desk.main->Tabs().CurrentIndex());
    }
}

TEST_F(TypedPages, WhatAScriptHasSentIsNotAskedAbout) {
    ShowAndClick(QStringLiteral("/form"), u"Form");
    Type(QStringLiteral("area"));
    EXPECT_EQ(Holders(), std::vector<std::int32_t>{2});
    Script(QStringLiteral("area.value = ''; 1"));
    EXPECT_EQ(Holders(), std::vector<std::int32_t>());
}

TEST_F(TypedPages, ATextInAFrameIsOneToo) {
    ShowAndClick(QStringLiteral("/frame"), u"Frame");
    const QString area = QStringLiteral("frames[0].document.getElementById('area')");
    Script(QStringLiteral("frames[0].focus(); 1"));
    Type(area);
    EXPECT_EQ(Holders(), std::vector<std::int32_t>{2});
    Script(area + QStringLiteral(".value = ''; 1"));
    EXPECT_EQ(Holders(), std::vector<std::int32_t>()) << "the frame was asked, too";
}

TEST_F(TypedPages, ATabClosesWithoutAQuestionAndComesBackWithItsText) {
    ShowAndClick(QStringLiteral("/form"), u"Form");
    Type(QStringLiteral("area"));
    // The engine notes what is in a form a little later.
    const QByteArray words(reinterpret_cast<const char*>(u"typed"), 10);
    ASSERT_TRUE(WaitUntil([&] { return QByteArray::fromStdString(Front().History()).contains(words); }));
    desk.main->CloseBrowserTab(2);
    ASSERT_TRUE(WaitUntil([&] { return Tabs() == 1; }));
    EXPECT_EQ(Question(), nullptr);
    desk.main->actBar.UserClick(*desk.main->actBar.Find(u"xtrReopenTab"));
    ASSERT_TRUE(WaitTitle(u"Form"));
    EXPECT_TRUE(WaitUntil([&] { return Script(QStringLiteral("area.value")) == u"typed"; }));
}

} // namespace

} // namespace tessa::qt
