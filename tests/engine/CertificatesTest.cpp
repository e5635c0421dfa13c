// Tests: CertificatePage, RefusedCertificates
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/questions/CertificatePage.h"
#include "tests/engine/EngineDesk.h"

#include <QLabel>
#include <QPushButton>
#include <QWebEngineHistory>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

class Certificates : public ::testing::Test {
protected:
    Certificates() {
        secure.Page(QStringLiteral("/private"), "<title>Private</title>inside");
        secure.Page(QStringLiteral("/script"), "document.title = 'stolen'");
        plain.Page(QStringLiteral("/plain"), "<title>Plain</title>");
        plain.Page(QStringLiteral("/parts"),
                   "<title>Parts</title><script>var failed = 0; addEventListener('error', () => failed++, true)"
                   "</script><script src='" +
                       secure.Address(QStringLiteral("/script")).toUtf8() + "'></script>");
        plain.Page(QStringLiteral("/frame"), "<title>Framed</title><iframe src='" +
                                                 secure.Address(QStringLiteral("/private")).toUtf8() + "'></iframe>");
    }

    [[nodiscard]] CertificatePage* Page() const { return desk.window.findChild<CertificatePage*>(); }

    [[nodiscard]] bool IsExplained() const {
        return WaitUntil([&] { return Page() && Page()->isVisible() && !desk.view->Busy(); });
    }

    void Press(const char* button) const {
        auto* found = Page()->findChild<QPushButton*>(QLatin1String(button));
        ASSERT_NE(found, nullptr) << button;
        found->click();
    }

    LocalServer secure{QStringLiteral("self.example")};
    LocalServer plain;
    EngineView desk;
};

TEST_F(Certificates, ARefusedOneIsExplainedInPlaceOfThePage) {
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    ASSERT_TRUE(IsExplained());
    EXPECT_EQ(Page()->findChild<QLabel*>(QStringLiteral("lblHeading"))->text(),
              u"TessaView cannot be sure that this is 127.0.0.1");
    EXPECT_TRUE(Page()->findChild<QLabel*>(QStringLiteral("lblWhy"))->text().contains(u"vouches for itself"));
    EXPECT_TRUE(secure.requests.isEmpty()) << "nothing was asked of the host";
    EXPECT_EQ(Page()->geometry(), desk.Real().Widget()->geometry());
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 1);
}

TEST_F(Certificates, TheDetailsAreShownWhenAskedFor) {
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    ASSERT_TRUE(IsExplained());
    auto* details = Page()->findChild<QWidget*>(QStringLiteral("certificateDetails"));
    EXPECT_FALSE(details->isVisible());
    Press("cmdDetails");
    EXPECT_TRUE(details->isVisible());
    QStringList texts;
    for (const auto* label : details->findChildren<QLabel*>()) texts << label->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("self.example"))) << texts.join(u'|').toStdString();
}

TEST_F(Certificates, GoingOnHoldsForTheHostInThisRun) {
    desk.Load(plain.Address(QStringLiteral("/plain")));
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    ASSERT_TRUE(IsExplained());
    Press("cmdGoOn");
    ASSERT_TRUE(WaitUntil([&] { return desk.events.lines.contains(QStringLiteral("T:Private")); }));
    EXPECT_TRUE(WaitUntil([&] { return Page() == nullptr; }));
    EXPECT_EQ(desk.Real().Page()->history()->count(), 2) << "the page before and this one";
    desk.Load(plain.Address(QStringLiteral("/plain")));
    desk.events.Take();
    desk.Load(secure.Address(QStringLiteral("/private")));
    EXPECT_TRUE(desk.events.lines.contains(QStringLiteral("T:Private"))) << "without asking again";
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 0);
}

TEST_F(Certificates, GoingOnInAnOrdinaryPageSaysNothingOfPrivateOnes) {
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    ASSERT_TRUE(IsExplained());
    Press("cmdGoOn");
    ASSERT_TRUE(WaitUntil([&] { return desk.events.lines.contains(QStringLiteral("T:Private")); }));
    ASSERT_TRUE(WaitUntil([&] { return Page() == nullptr; }));
    desk.Replace(Privacy::Private);
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    EXPECT_TRUE(IsExplained());
}

TEST_F(Certificates, GoingBackLeadsToThePageBefore) {
    desk.Load(plain.Address(QStringLiteral("/plain")));
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    ASSERT_TRUE(IsExplained());
    desk.events.Take();
    Press("cmdBack");
    EXPECT_TRUE(WaitUntil([&] { return desk.events.lines.contains(QStringLiteral("T:Plain")); }));
    EXPECT_TRUE(WaitUntil([&] { return Page() == nullptr; }));
    EXPECT_TRUE(secure.requests.isEmpty());
}

TEST_F(Certificates, APartOfAPageIsRefusedWithoutAQuestion) {
    desk.Load(plain.Address(QStringLiteral("/parts")));
    EXPECT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("failed")) == u"1"; }));
    EXPECT_EQ(Page(), nullptr);
    EXPECT_EQ(desk.Script(QStringLiteral("document.title")), u"Parts");
    EXPECT_TRUE(secure.requests.isEmpty());
}

TEST_F(Certificates, AFrameIsRefusedWithoutAQuestion) {
    desk.Load(plain.Address(QStringLiteral("/frame")));
    EXPECT_EQ(Page(), nullptr);
    EXPECT_TRUE(secure.requests.isEmpty());
}

TEST_F(Certificates, TheExplanationLeavesWithItsTab) {
    desk.Navigate(secure.Address(QStringLiteral("/private")));
    ASSERT_TRUE(IsExplained());
    desk.view.reset();
    EXPECT_TRUE(WaitUntil([&] { return Page() == nullptr; }));
    desk.view = desk.engine.Create(2, desk.events, Privacy::Ordinary);
}

TEST(CertificatesOfTabs, ABackgroundTabIsMarkedAndStaysInTheBackground) {
    LocalServer secure(QStringLiteral("self.example"));
    EngineDesk desk;
    auto* view = desk.main->GetNewBrowser(InFront::No);
    ResumeNext(view->Navigate(FromQt(secure.Address(QStringLiteral("/private")))));
    ASSERT_TRUE(WaitUntil([&] { return desk.main->pcPage.Find(u"Tab2")->Asks(); }));
    EXPECT_EQ(desk.main->pcPage.SelectedItem()->Key(), u"Tab1");
    auto* page = desk.window.findChild<CertificatePage*>();
    ASSERT_NE(page, nullptr);
    EXPECT_FALSE(page->isVisible());
    desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab2"));
    EXPECT_TRUE(WaitUntil([&] { return page->isVisible(); }));
    desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab1"));
    EXPECT_TRUE(WaitUntil([&] { return !page->isVisible(); }));
}

} // namespace

} // namespace tessa::qt
