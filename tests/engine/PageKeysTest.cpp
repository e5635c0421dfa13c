#include "qt/base/KeyFilter.h"
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QTest>

namespace tessa::qt {

namespace {

constexpr const char* kLeaves = "/leaves";
constexpr const char* kTakes = "/takes";

/// Keys while a page has the keyboard: one that leaves them alone, and one that handles every key itself.
class PageKeysTest : public CommandsOnPages, public testing::WithParamInterface<const char*>, private KeyTaker {
protected:
    void SetUp() override {
        server.Page(QLatin1String(kLeaves), Html("seen += e.key + ';';"));
        server.Page(QLatin1String(kTakes), Html("seen += e.key + ';'; e.preventDefault(); e.stopPropagation();"));
        view =
            desk.main->actBar.FocusWanted.Connect([this](Band&, Tool& tool) { focused += ToUtf8(tool.Name()) + ";"; });
        Show(QLatin1String(GetParam()), u"Keys");
        desk.window.activateWindow();
    }
    static QByteArray Html(const char* onKey) {
        return QByteArray("<title>Keys</title><p>words</p><script>var seen = '';"
                          "addEventListener('keydown', e => { ") +
               onKey + " }, true);</script>";
    }
    /// What has the keyboard, when that is the page.
    QWidget* Target() {
        QWidget* focus = QApplication::focusWidget();
        QWidget* page = Front().Widget();
        return focus && page && (page == focus || page->isAncestorOf(focus)) ? focus : nullptr;
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        Front().SetFocus();
        ASSERT_TRUE(WaitUntil([&] { return Target() != nullptr; }));
        ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.hasFocus()")) == u"true"; }));
        WaitForPicture();
        QTest::keyClick(Target(), key, held);
    }
    /// What the page in front has seen, once it has seen that key.
    std::string SeenUpTo(const char* key) {
        const auto seen = [this] { return Script(QStringLiteral("seen")).toStdString(); };
        EXPECT_TRUE(WaitUntil([&] { return seen().ends_with(key + std::string(";")); })) << seen();
        return seen();
    }

    KeyUsed KeyDown(KeyStroke key) override { return desk.main->Form_KeyDown(key); }
    KeyUsed KeyUp(KeyStroke key) override { return desk.main->Form_KeyUp(key); }
    [[nodiscard]] bool BeforeAccessKeys(KeyStroke) const override { return false; }

    std::string focused;
    KeyFilter keys{desk.window, *this};
    Connection view;
};

TEST_P(PageKeysTest, APlainKeyIsForThePage) {
    Press(Qt::Key_A);
    Press(Qt::Key_D);
    EXPECT_EQ(SeenUpTo("d"), "a;d;");
    EXPECT_EQ(focused, "");
    EXPECT_EQ(desk.main->pcPage.Count(), 1);
}

TEST_P(PageKeysTest, AltDAndAltRLeadToTheBoxes) {
    Press(Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(focused, "cboAddress;");
    Press(Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(focused, "cboAddress;cboSearch;");
}

TEST_P(PageKeysTest, CtrlTabGoesRoundTheTabs) {
    Click(u"mnuNewCurrent");
    ASSERT_TRUE(WaitTitle(u"Keys"));
    const Tab* second = desk.main->pcPage.SelectedItem();
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_NE(desk.main->pcPage.SelectedItem(), second);
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(desk.main->pcPage.SelectedItem(), second);
}

TEST_P(PageKeysTest, AShortcutOfTheBarIsNotForThePage) {
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(desk.main->pcPage.Count(), 2);
    EXPECT_TRUE(WaitUntil([&] { return Front().LocationURL() == u"about:blank" && !Front().Busy(); }));
    Click(u"mnuPreviousBrowserTab");
    Press(Qt::Key_X);
    EXPECT_EQ(SeenUpTo("x"), "Control;x;");
}

INSTANTIATE_TEST_SUITE_P(APage, PageKeysTest, testing::Values(kLeaves, kTakes), [](const auto& info) {
    return std::string(info.param == kLeaves ? "ThatLeavesKeysAlone" : "ThatHandlesKeysItself");
});

} // namespace

} // namespace tessa::qt
