#include "qt/dialogs/SessionsDialog.h"

#include "qt/base/Strings.h"
#include "tests/Desk.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QCheckBox>
#include <QDateTime>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace tessa::qt {

namespace {

class SessionsDialogTest : public testing::Test {
protected:
    SessionsDialogTest() {
        Keep(u"b", {.Time = 700,
                    .Ended = true,
                    .Selected = 2,
                    .Pages = {{u"http://one/", u"One"}, {u"http://two/", u"<b>Two</b>"}, {u"http://three/", u""}}});
        Keep(u"a", {.Time = 500, .Selected = 1, .Pages = {{u"http://four/", u"Four"}}});
        m_desk.Start(u"http://here/");
    }
    void Keep(TextView id, const Session& session) {
        m_desk.sessions.earlier.push_back({Text(id), SessionBytes(session)});
    }

    /// What the user does in the open list; returns once it is closed.
    void Use(const std::function<void(QDialog&)>& user) {
        bool opened = false;
        m_desk.inSessions = [&](frmSessions& form) {
            opened = true;
            UseDialog([&] { ShowModal(form, nullptr); }, user);
        };
        m_desk.Click(u"xtrSessions");
        EXPECT_TRUE(opened);
    }
    static QListWidget& Sessions(const QDialog& dialog) {
        return *dialog.findChild<QListWidget*>(QStringLiteral("lstSessions"));
    }
    static QTreeWidget& Pages(const QDialog& dialog) {
        return *dialog.findChild<QTreeWidget*>(QStringLiteral("lstPages"));
    }
    static QPushButton& Button(const QDialog& dialog, const char* name) {
        return *dialog.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    static void ClickBoxOf(QTreeWidget& pages, int row) {
        const QRect place = pages.visualItemRect(pages.topLevelItem(row));
        QTest::mouseClick(pages.viewport(), Qt::LeftButton, {}, {place.left() + 10, place.center().y()});
    }
    [[nodiscard]] std::string Opened() {
        std::string all;
        for (int i = 2; i <= 4 && m_desk.views.Has(i); ++i) all += ToUtf8(m_desk.views.At(i).location) + " ";
        return all;
    }

    Desk m_desk;
};

TEST_F(SessionsDialogTest, ShowsSessionsAndPagesAsText) {
    Use([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Earlier Sessions"));
        ASSERT_EQ(Sessions(dialog).count(), 2);
        EXPECT_EQ(Sessions(dialog).item(0)->text(), QStringLiteral("at 700\n3 pages"));
        EXPECT_EQ(Sessions(dialog).item(1)->text(), QStringLiteral("at 500\nOne page, did not end properly"));
        EXPECT_EQ(Sessions(dialog).currentRow(), 0);
        ASSERT_EQ(Pages(dialog).topLevelItemCount(), 3);
        const auto* two = Pages(dialog).topLevelItem(1);
        EXPECT_EQ(two->text(0), QStringLiteral("<b>Two</b>"));
        EXPECT_EQ(two->text(1), QStringLiteral("http://two/"));
        EXPECT_FALSE(two->toolTip(0).contains(QStringLiteral("<b>"))) << "a title is never read as HTML";
        EXPECT_TRUE(two->font(0).bold()) << "it was in front";
        EXPECT_EQ(Pages(dialog).topLevelItem(2)->text(0), QStringLiteral("http://three/"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(Opened(), "");
}

TEST_F(SessionsDialogTest, TheArrowKeysChooseASession) {
    Use([](QDialog& dialog) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
        ASSERT_EQ(Pages(dialog).topLevelItemCount(), 1);
        EXPECT_EQ(Pages(dialog).topLevelItem(0)->text(0), QStringLiteral("Four"));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Up);
        EXPECT_EQ(Pages(dialog).topLevelItemCount(), 3);
        QTest::mouseClick(&Button(dialog, "cmdClose"), Qt::LeftButton);
    });
}

TEST_F(SessionsDialogTest, EnterOpensWhatIsTicked) {
    Use([](QDialog& dialog) {
        ClickBoxOf(Pages(dialog), 0);
        const auto* all = dialog.findChild<QCheckBox*>(QStringLiteral("chkAll"));
        EXPECT_EQ(all->checkState(), Qt::PartiallyChecked);
        Pages(dialog).setFocus();
        QTest::keyClick(&Pages(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(Opened(), "http://two/ http://three/ ");
    EXPECT_EQ(m_desk.Strip(), "1 [2*] 3");
}

TEST_F(SessionsDialogTest, TheSpaceBarTicksAndTheBoxAboveTicksAll) {
    Use([](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
        auto* all = dialog.findChild<QCheckBox*>(QStringLiteral("chkAll"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return all->checkState() == Qt::Unchecked; }));
        EXPECT_FALSE(Button(dialog, "cmdOpen").isEnabled());
        EXPECT_FALSE(Button(dialog, "cmdSave").isEnabled());
        Pages(dialog).setFocus();
        Pages(dialog).setCurrentItem(Pages(dialog).topLevelItem(2));
        QTest::keyClick(&Pages(dialog), Qt::Key_Space);
        EXPECT_EQ(all->checkState(), Qt::PartiallyChecked);
        EXPECT_EQ(Pages(dialog).currentItem(), Pages(dialog).topLevelItem(2));
        QTest::mouseClick(&Button(dialog, "cmdOpen"), Qt::LeftButton);
    });
    EXPECT_EQ(Opened(), "http://three/ ");
}

TEST_F(SessionsDialogTest, ADoubleClickOpensThatPage) {
    Use([](QDialog& dialog) {
        auto& pages = Pages(dialog);
        const QPoint point = pages.visualItemRect(pages.topLevelItem(1)).center();
        QTest::mouseClick(pages.viewport(), Qt::LeftButton, {}, point);
        QTest::mouseDClick(pages.viewport(), Qt::LeftButton, {}, point);
        QTest::mouseRelease(pages.viewport(), Qt::LeftButton, {}, point);
    });
    EXPECT_EQ(Opened(), "http://two/ ");
}

TEST_F(SessionsDialogTest, ForgettingTakesTheSessionOffTheList) {
    Use([](QDialog& dialog) {
        QTest::mouseClick(&Button(dialog, "cmdForget"), Qt::LeftButton);
        ASSERT_EQ(Sessions(dialog).count(), 1);
        EXPECT_EQ(Sessions(dialog).currentRow(), 0);
        EXPECT_EQ(Pages(dialog).topLevelItem(0)->text(0), QStringLiteral("Four"));
        QTest::mouseClick(&Button(dialog, "cmdForget"), Qt::LeftButton);
        EXPECT_EQ(Sessions(dialog).count(), 0);
        EXPECT_EQ(Pages(dialog).topLevelItemCount(), 0);
        EXPECT_FALSE(Button(dialog, "cmdForget").isEnabled());
        dialog.close();
    });
    EXPECT_TRUE(m_desk.sessions.earlier.empty());
}

TEST_F(SessionsDialogTest, EveryControlHasANameForScreenReaders) {
    Use([](QDialog& dialog) {
        for (const QWidget* each : dialog.findChildren<QWidget*>()) {
            if (each->focusPolicy() == Qt::NoFocus || each->objectName().isEmpty() ||
                each->objectName().startsWith(u"qt_"))
                continue;
            EXPECT_FALSE(each->accessibleName().isEmpty()) << qPrintable(each->objectName());
        }
        dialog.close();
    });
}

} // namespace

} // namespace tessa::qt
