// Tests: About, BuildInfo, SplashPanel
#include "qt/dialogs/Splash.h"

#include "qt/base/BuildInfo.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/About.h"
#include "tests/qt/dialogs/UseDialog.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QtWebEngineCore>
#include <gtest/gtest.h>
#include <set>

namespace tessa::qt {

namespace {

QString TextOf(const QWidget& window, const char* name) {
    const auto* label = window.findChild<QLabel*>(QString::fromLatin1(name));
    return label != nullptr ? label->text() : QStringLiteral("(no such label)");
}

TEST(Splash, ShowsTheFormWithoutAButton) {
    Splash splash;
    EXPECT_EQ(splash.Window(), nullptr);
    splash.Show();
    ASSERT_NE(splash.Window(), nullptr);
    const QWidget& window = *splash.Window();
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.isModal());
    EXPECT_EQ(TextOf(window, "Label1"), QStringLiteral("TessaView"));
    EXPECT_EQ(TextOf(window, "Label2"), QStringLiteral("Version 3.02 Build 159"));
    EXPECT_TRUE(TextOf(window, "Label3").contains(QStringLiteral("TessaView developers")));
    EXPECT_TRUE(window.findChildren<QPushButton*>().empty());
    splash.Unload();
    splash.Unload();
    EXPECT_EQ(splash.Window(), nullptr);
}

TEST(Splash, HasAPictureOfItsOwn) {
    Splash splash;
    splash.Show();
    const auto* picture = splash.Window()->findChild<QLabel*>(QStringLiteral("Image1"));
    ASSERT_NE(picture, nullptr);
    const QImage image = picture->pixmap().toImage();
    ASSERT_GE(image.width(), 400);
    std::set<QRgb> colours;
    for (int i = 0; i < image.width(); ++i) colours.insert(image.pixel(i, i * image.height() / image.width()));
    EXPECT_GT(colours.size(), 4u) << "the picture is drawn";
}

class AboutTest : public testing::Test {
protected:
    frmSplash m_form;
    void SetUp() override { m_form.ShowButton(); }

    void Use(const std::function<void(QDialog&)>& user) {
        UseDialog([&] { ShowModal(m_form, nullptr); }, user);
        EXPECT_FALSE(m_form.Form.Visible());
    }
};

TEST_F(AboutTest, SaysWhatRunsWhere) {
    const About box(m_form, {});
    EXPECT_EQ(box.windowTitle(), QStringLiteral("About TessaView"));
    EXPECT_EQ(TextOf(box, "Label2"), QStringLiteral("Version 3.02 Build 159"));
    const QString information = TextOf(box, "lblBuild");
    for (const char* part : {qWebEngineVersion(), qWebEngineChromiumVersion(), qWebEngineChromiumSecurityPatchVersion(),
                             qVersion(), "Version 3.02 Build 159"})
        EXPECT_TRUE(information.contains(QLatin1String(part))) << part;
    EXPECT_EQ(information, BuildInfo::Text());
}

TEST_F(AboutTest, SaysQuietlyThatTheEngineIsOld) {
    const About box(m_form, QStringLiteral("The engine is <b>old</b>."));
    const auto* notice = box.findChild<QLabel*>(QStringLiteral("lblNotice"));
    ASSERT_NE(notice, nullptr);
    EXPECT_EQ(notice->text(), QStringLiteral("The engine is <b>old</b>."));
    EXPECT_EQ(notice->textFormat(), Qt::PlainText);
    EXPECT_EQ(About(m_form, {}).findChild<QLabel*>(QStringLiteral("lblNotice")), nullptr);
}

TEST_F(AboutTest, GoesByTheSecurityFixesOfTheEngineThatRuns) {
    Use([](QDialog& box) {
        const auto* notice = box.findChild<QLabel*>(QStringLiteral("lblNotice"));
        EXPECT_EQ(FromQt(notice ? notice->text() : QString()), BuildInfo::EngineNotice());
        box.close();
    });
}

TEST_F(AboutTest, ItsButtonEnterAndEscapeCloseIt) {
    Use([](QDialog& box) {
        auto* button = box.findChild<QPushButton*>(QStringLiteral("Command1"));
        ASSERT_NE(button, nullptr);
        ASSERT_TRUE(button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
    });
    Use([](QDialog& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); });
    Use([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    Use([](QDialog& box) { box.close(); });
}

TEST_F(AboutTest, CopiesTheBuildInformation) {
    QGuiApplication::clipboard()->clear();
    Use([](QDialog& box) {
        auto* copy = box.findChild<QPushButton*>(QStringLiteral("cmdCopy"));
        ASSERT_NE(copy, nullptr);
        QTest::mouseClick(copy, Qt::LeftButton);
        EXPECT_TRUE(box.isVisible()) << "copying leaves the box open";
        box.close();
    });
    EXPECT_EQ(QGuiApplication::clipboard()->text(), BuildInfo::Text());
}

TEST_F(AboutTest, WithoutTheFormsButtonItHasNoneEither) {
    frmSplash plain;
    const About box(plain, {});
    EXPECT_TRUE(box.findChild<QPushButton*>(QStringLiteral("Command1"))->testAttribute(Qt::WA_WState_ExplicitShowHide));
}

} // namespace

} // namespace tessa::qt
