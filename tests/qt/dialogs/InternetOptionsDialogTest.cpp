// Tests: ChoiceBinding, ListBoxItems, ListBoxView, PageList
#include "qt/dialogs/InternetOptionsDialog.h"

#include "qt/base/Strings.h"
#include "qt/dialogs/PageList.h"
#include "tests/fakes/FakeSettings.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class InternetOptionsDialogTest : public testing::Test {
protected:
    std::vector<SiteChoice> Sites() {
        std::vector<SiteChoice> all;
        for (const Text& each : m_decided) all.push_back({each, [this, each] { std::erase(m_decided, each); }});
        return all;
    }
    FakeSettings m_settings;
    std::vector<Text> m_decided{u"a may", u"b may", u"c may not"};
    std::vector<BrowsingData> m_cleared;
    frmInternetOptions m_form{
        m_settings,
        {.chooseFolder = [](TextView) { return Text(u"/chosen"); },
         .siteChoices = {.All = [this] { return Sites(); }, .RevokeAll = [this] { m_decided.clear(); }},
         .clear =
             [this](const BrowsingData& data, const Forgotten& done) {
                 m_cleared.push_back(data);
                 done(Cleared::Yes);
             },
         .currentPage = u"http://here.example/",
         .mailProgram = {},
         .newsProgram = {}}};

    /// What the user does in the open dialog; returns once it is closed.
    void Use(const std::function<void(QDialog&)>& user) {
        UseDialog([&] { ShowModal(m_form, nullptr); }, user);
        EXPECT_FALSE(m_form.Form.Visible());
    }

    template<typename T>
    static T& Find(QDialog& dialog, const char* name) {
        auto* widget = dialog.findChild<T*>(QString::fromLatin1(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    static void ShowPageOf(QDialog& dialog, const QWidget& control) {
        auto& pages = Find<PageList>(dialog, "pagesOptions");
        for (int i = 0; i < pages.Count(); ++i)
            if (pages.Page(i)->isAncestorOf(&control)) pages.SetCurrent(i);
        ASSERT_TRUE(control.isVisible()) << control.objectName().toStdString();
    }

    static void Type(QDialog& dialog, const char* name, const char* text) {
        auto& box = Find<QLineEdit>(dialog, name);
        ShowPageOf(dialog, box);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(text));
    }

    static void Click(QDialog& dialog, const char* name) {
        auto& button = Find<QAbstractButton>(dialog, name);
        if (QString::fromLatin1(name) != u"cmdOK" && QString::fromLatin1(name) != u"cmdCancel")
            ShowPageOf(dialog, button);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }

    static void Choose(QDialog& dialog, const char* name, int steps) {
        auto& box = Find<QComboBox>(dialog, name);
        ShowPageOf(dialog, box);
        for (int i = 0; i < steps; ++i) QTest::keyClick(&box, Qt::Key_Down);
    }
};

TEST_F(InternetOptionsDialogTest, WhatIsTypedAndTickedIsKeptAfterOk) {
    Use([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Internet Options"));
        Type(dialog, "txtHomePage", "home.example");
        Type(dialog, "txtSearch", "https://s.example/?q=%s");
        Type(dialog, "txtMail", "letters");
        Type(dialog, "txtDownloads", "/tmp/d");
        Click(dialog, "chkJavaScript");
        Click(dialog, "chkDoNotTrack");
        Click(dialog, "chkGlobalPrivacyControl");
        Choose(dialog, "cboCookies", 1);
        Choose(dialog, "cboProxy", 2);
        Type(dialog, "txtProxyHost", "proxy.example");
        Type(dialog, "txtProxyPort", "3128");
        Click(dialog, "cmdOK");
    });
    EXPECT_TRUE(m_form.Apply);
    EXPECT_EQ(InternetSettings(m_settings).Get(), (InternetValues{.homePage = u"home.example",
                                                                  .javaScript = false,
                                                                  .cookies = CookieRule::None,
                                                                  .doNotTrack = true,
                                                                  .globalPrivacyControl = true,
                                                                  .proxy = ProxyKind::Http,
                                                                  .proxyHost = u"proxy.example",
                                                                  .proxyPort = 3128,
                                                                  .downloadFolder = u"/tmp/d"}));
    EXPECT_EQ(m_settings.Stored(u"SearchService"), u"https://s.example/?q=%s");
    EXPECT_EQ(m_settings.Stored(u"MailClient"), u"letters");
}

TEST_F(InternetOptionsDialogTest, TabsSleepAfterTheTimeThatIsTyped) {
    Use([](QDialog& dialog) {
        EXPECT_FALSE(Find<QLineEdit>(dialog, "txtSleepMinutes").isEnabled());
        Find<PageList>(dialog, "pagesOptions").SetCurrent(2);
        auto& check = Find<QAbstractButton>(dialog, "chkSleep");
        check.setFocus();
        QTest::keyClick(&check, Qt::Key_Space);
        QTest::keyClick(&check, Qt::Key_Tab);
        auto& minutes = Find<QLineEdit>(dialog, "txtSleepMinutes");
        ASSERT_TRUE(minutes.hasFocus());
        QTest::keyClicks(&minutes, QStringLiteral("0"));
        Find<PageList>(dialog, "pagesOptions").SetCurrent(4);
        Click(dialog, "cmdOK");
        EXPECT_TRUE(minutes.hasFocus()) << "what is wrong is led to, wherever it is";
        EXPECT_FALSE(Find<QLabel>(dialog, "lblSleepBad").text().isEmpty());
        QTest::keyClicks(&minutes, QStringLiteral("15"));
        QTest::keyClick(&minutes, Qt::Key_Return);
    });
    EXPECT_TRUE(m_form.Apply);
    EXPECT_TRUE(InternetSettings(m_settings).Get().tabsSleep);
    EXPECT_EQ(InternetSettings(m_settings).Get().sleepMinutes, 15);
}

TEST_F(InternetOptionsDialogTest, EscapeKeepsNothing) {
    Use([](QDialog& dialog) {
        Type(dialog, "txtHomePage", "home.example");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(m_form.Apply);
    EXPECT_TRUE(m_settings.written.empty());
}

TEST_F(InternetOptionsDialogTest, AProxyThatIsNotWholeLeadsToWhatIsMissing) {
    Use([](QDialog& dialog) {
        Choose(dialog, "cboProxy", 2);
        Find<PageList>(dialog, "pagesOptions").SetCurrent(0);
        Click(dialog, "cmdOK");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(Find<QLineEdit>(dialog, "txtProxyHost").isVisible());
        EXPECT_EQ(dialog.focusWidget(), &Find<QLineEdit>(dialog, "txtProxyHost"));
        EXPECT_FALSE(Find<QLabel>(dialog, "lblProxyBad").text().isEmpty());
        Click(dialog, "cmdCancel");
    });
    EXPECT_FALSE(m_form.Apply);
}

TEST_F(InternetOptionsDialogTest, ClearNowClearsWhileTheDialogStaysOpen) {
    Use([this](QDialog& dialog) {
        EXPECT_FALSE(Find<QPushButton>(dialog, "cmdClear").isEnabled());
        Click(dialog, "chkClearCookies");
        Choose(dialog, "cboSince", 1);
        Click(dialog, "cmdClear");
        EXPECT_EQ(m_cleared.size(), 1u);
        EXPECT_EQ(Find<QLabel>(dialog, "lblCleared").text(), QStringLiteral("Cleared."));
        Click(dialog, "cmdCancel");
    });
    EXPECT_EQ(m_cleared.at(0), (BrowsingData{.cookies = true, .seconds = 24 * 3600}));
}

TEST_F(InternetOptionsDialogTest, WhatSitesMayIsRevokedByKeyboard) {
    Use([this](QDialog& dialog) {
        const auto& pages = Find<PageList>(dialog, "pagesOptions");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_E, Qt::AltModifier);
        auto& list = Find<QListView>(dialog, "lstSites");
        ASSERT_TRUE(list.isVisible()) << pages.Current();
        QTest::keyClick(dialog.focusWidget(), Qt::Key_W, Qt::AltModifier);
        ASSERT_EQ(dialog.focusWidget(), &list);
        EXPECT_EQ(list.model()->rowCount(), 3);
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_Delete);
        EXPECT_EQ(m_decided, (std::vector<Text>{u"a may", u"c may not"}));
        EXPECT_EQ(list.currentIndex().data().toString(), QStringLiteral("c may not"));
        QTest::keyClick(&list, Qt::Key_R, Qt::AltModifier);
        // A button that is pressed by its key is clicked a moment later.
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_decided == std::vector<Text>{u"a may"}; }));
        m_decided.emplace_back(u"another");
        QTest::keyClick(&list, Qt::Key_A, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_decided.empty(); }));
        EXPECT_EQ(list.model()->rowCount(), 0);
        EXPECT_FALSE(Find<QPushButton>(dialog, "cmdRevoke").isEnabled());
        EXPECT_FALSE(Find<QPushButton>(dialog, "cmdRevokeAll").isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_TRUE(m_settings.written.empty());
}

TEST_F(InternetOptionsDialogTest, ThePresentPageAndAChosenFolderFillTheirBoxes) {
    Use([](QDialog& dialog) {
        Click(dialog, "cmdUseCurrent");
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtHomePage").text(), QStringLiteral("http://here.example/"));
        Click(dialog, "cmdUseDefault");
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtHomePage").text(), QString());
        Click(dialog, "cmdBrowse");
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtDownloads").text(), QStringLiteral("/chosen"));
        Click(dialog, "cmdCancel");
    });
}

TEST_F(InternetOptionsDialogTest, EveryControlHasANameThatAPersonCanHearAndKeysOfAPageDiffer) {
    InternetOptionsDialog dialog(m_form);
    auto& pages = Find<PageList>(dialog, "pagesOptions");
    QString pageKeys, keys;
    const auto take = [&keys](const QString& text) {
        const qsizetype at = text.indexOf(u'&');
        if (at < 0) return;
        EXPECT_FALSE(keys.contains(text[at + 1].toLower())) << text.toStdString();
        keys += text[at + 1].toLower();
    };
    auto& names = Find<QListWidget>(dialog, "lstPages");
    for (int i = 0; i < names.count(); ++i) take(names.item(i)->data(Qt::UserRole).toString());
    ASSERT_EQ(keys.size(), pages.Count());
    pageKeys = keys;
    for (int i = 0; i < pages.Count(); ++i) {
        keys = pageKeys;
        for (const auto* label : pages.Page(i)->findChildren<QLabel*>()) take(label->text());
        for (const auto* button : pages.Page(i)->findChildren<QAbstractButton*>()) take(button->text());
        for (const auto* edit : pages.Page(i)->findChildren<QLineEdit*>())
            EXPECT_FALSE(edit->accessibleName().isEmpty()) << edit->objectName().toStdString();
        for (const auto* box : pages.Page(i)->findChildren<QComboBox*>())
            EXPECT_FALSE(box->accessibleName().isEmpty()) << box->objectName().toStdString();
    }
}

TEST_F(InternetOptionsDialogTest, PagesLargerThanTheScreenScrollToWhatHasTheKeyboard) {
    Use([](QDialog& dialog) {
        const auto& pages = Find<PageList>(dialog, "pagesOptions");
        const QSize screen = dialog.screen()->availableSize();
        for (int i = 0; i < pages.Count(); ++i) {
            // A page that grows, as with large letters, must not take the buttons off the screen.
            pages.Page(i)->setMinimumHeight(screen.height() * 2);
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.height() > screen.height() / 2; }));
        EXPECT_LE(dialog.height(), screen.height());
        EXPECT_LE(dialog.width(), screen.width());
        auto& list = Find<PageList>(dialog, "pagesOptions");
        auto& last = Find<QCheckBox>(dialog, "chkHistoryNothing");
        for (int i = 0; i < list.Count(); ++i) {
            if (list.Page(i)->isAncestorOf(&last)) list.SetCurrent(i);
        }
        static_cast<QVBoxLayout*>(last.parentWidget()->layout())->insertSpacing(0, screen.height() + 200);
        ASSERT_TRUE(QTest::qWaitFor([&] { return last.visibleRegion().isEmpty(); }));
        last.setFocus(Qt::ShortcutFocusReason);
        EXPECT_TRUE(QTest::qWaitFor([&] { return last.visibleRegion().boundingRect() == last.rect(); }));
        Click(dialog, "cmdCancel");
    });
}

TEST_F(InternetOptionsDialogTest, AllPagesStandInAListAtTheSideAndAreReachedByKeyboard) {
    Use([](QDialog& dialog) {
        auto& list = Find<QListWidget>(dialog, "lstPages");
        const auto& pages = Find<PageList>(dialog, "pagesOptions");
        QStringList names;
        for (int i = 0; i < list.count(); ++i) {
            names << list.item(i)->text();
            const QRect place = list.visualItemRect(list.item(i));
            EXPECT_TRUE(list.viewport()->rect().contains(place)) << "no page is hidden: " << i;
            EXPECT_LE(list.fontMetrics().horizontalAdvance(names.last()), place.width());
        }
        EXPECT_EQ(names.join(u'|'), u"Blocking|My Rules|General|Programs|Privacy|Sites|History|Clear Data|Connection");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_L, Qt::AltModifier);
        EXPECT_EQ(pages.Current(), 7);
        EXPECT_TRUE(list.hasFocus());
        QTest::keyClick(&list, Qt::Key_Up);
        EXPECT_EQ(pages.Current(), 6);
        EXPECT_TRUE(pages.Page(6)->isVisible());
        QTest::keyClick(&list, Qt::Key_P);
        EXPECT_EQ(pages.Current(), 3) << "by the name's first letter";
        for (const int wanted : {4, 5, 6, 7, 8, 0}) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
            EXPECT_EQ(pages.Current(), wanted);
        }
        QTest::keyClick(dialog.focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(pages.Current(), 8);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(InternetOptionsDialogTest, AnEmptyListOfSitesSaysWhatItIsFor) {
    Use([this](QDialog& dialog) {
        auto& hint = Find<QLabel>(dialog, "lblSitesHint");
        EXPECT_EQ(hint.text(), QStringLiteral("When you revoke an answer, the site has to ask you again."));
        Click(dialog, "cmdRevokeAll");
        EXPECT_TRUE(hint.text().startsWith(QStringLiteral("There is nothing yet."))) << hint.text().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

} // namespace

} // namespace tessa::qt
