// Tests: FindBar
#include "qt/window/FindBar.h"

#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// A page with three roses, and the bar that finds them.
class FindBarTest : public testing::Test, FoundPages {
protected:
    void SetUp() override {
        server.Page(QStringLiteral("/garden"), "<title>Garden</title><p>rose</p><p>Rose</p><p>rose garden</p>");
        desk.Load(server.Address(QStringLiteral("/garden")));
        bar.SearchIn(*this);
        bar.FocusPage.ConnectForLife([this] { ++focused; });
        bar.setGeometry(0, 560, 800, 40);
        bar.Open();
    }

    [[nodiscard]] std::vector<QWebEnginePage*> PagesToSearch() const override { return {desk.Real().Page()}; }
    QLineEdit& Field() { return *bar.findChild<QLineEdit*>(QStringLiteral("txtFind")); }
    bool WaitTold(const QString& told) {
        return WaitUntil([&] {
            const auto labels = bar.findChildren<QLabel*>();
            return std::ranges::any_of(labels, [&](const QLabel* label) { return label->text() == told; });
        });
    }
    void Press(const char* button) { bar.findChild<QToolButton*>(QLatin1String(button))->click(); }

    LocalServer server;
    EngineView desk;
    FindBar bar{&desk.window};
    int focused = 0;
};

TEST_F(FindBarTest, TypingFindsAndCounts) {
    QTest::keyClicks(&Field(), QStringLiteral("rose"));
    EXPECT_TRUE(WaitTold(QStringLiteral("1 of 3")));
    QTest::keyClicks(&Field(), QStringLiteral("x"));
    EXPECT_TRUE(WaitTold(QStringLiteral("Not found")));
    Field().clear();
    EXPECT_TRUE(WaitTold(QString()));
}

TEST_F(FindBarTest, EnterAndTheButtonsGoOnAndBack) {
    QTest::keyClicks(&Field(), QStringLiteral("rose"));
    ASSERT_TRUE(WaitTold(QStringLiteral("1 of 3")));
    QTest::keyClick(&Field(), Qt::Key_Return);
    EXPECT_TRUE(WaitTold(QStringLiteral("2 of 3")));
    Press("cmdNext");
    EXPECT_TRUE(WaitTold(QStringLiteral("3 of 3")));
    Press("cmdNext");
    EXPECT_TRUE(WaitTold(QStringLiteral("1 of 3"))) << "round again";
    QTest::keyClick(&Field(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(WaitTold(QStringLiteral("3 of 3")));
    Press("cmdPrevious");
    EXPECT_TRUE(WaitTold(QStringLiteral("2 of 3")));
}

TEST_F(FindBarTest, TheCaseCountsWhenItIsAskedFor) {
    QTest::keyClicks(&Field(), QStringLiteral("Rose"));
    ASSERT_TRUE(WaitTold(QStringLiteral("1 of 3")));
    bar.findChild<QCheckBox*>()->click();
    EXPECT_TRUE(WaitTold(QStringLiteral("1 of 1")));
}

TEST_F(FindBarTest, EscapeClosesItAndTheTextIsThereTheNextTime) {
    QTest::keyClicks(&Field(), QStringLiteral("rose"));
    ASSERT_TRUE(WaitTold(QStringLiteral("1 of 3")));
    QTest::keyClick(&Field(), Qt::Key_Escape);
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(focused, 1);
    bar.Open();
    EXPECT_EQ(Field().selectedText(), QStringLiteral("rose"));
    EXPECT_TRUE(WaitTold(QStringLiteral("1 of 3")));
}

TEST_F(FindBarTest, AnotherPageIsSearchedAnew) {
    QTest::keyClicks(&Field(), QStringLiteral("rose"));
    ASSERT_TRUE(WaitTold(QStringLiteral("1 of 3")));
    bar.OnPageChanged();
    EXPECT_TRUE(WaitTold(QString()));
    EXPECT_FALSE(bar.isHidden());
}

} // namespace

} // namespace tessa::qt
