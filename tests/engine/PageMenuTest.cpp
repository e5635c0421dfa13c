#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace tessa::qt {

namespace {

/// A page of the test's own, and a user who asks for its menu.
class EnginePageMenu : public testing::Test {
protected:
    void Load(const QByteArray& html) {
        server.Page(QStringLiteral("/page"), html);
        desk.Load(server.Address(QStringLiteral("/page")));
    }
    /// What lies on the element, as the menu is told it.
    PageContext AskOn(const QString& element) {
        desk.events.menu.reset();
        desk.ClickOn(element, Qt::RightButton);
        EXPECT_TRUE(WaitUntil([this] { return desk.events.menu.has_value(); }));
        return desk.events.menu.value_or(PageContext());
    }
    [[nodiscard]] Text Address(const QString& path) const { return FromQt(server.Address(path)); }
    [[nodiscard]] QString Value() { return desk.Script(QStringLiteral("field.value")); }

    LocalServer server;
    EngineView desk;
};

TEST_F(EnginePageMenu, IsToldOfLinksAndImages) {
    Load("<a id=link href='/next#x'>link</a><br><a href='/big'><img id=image width=50 height=50 "
         "src='data:image/"
         "png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJ"
         "RU5ErkJggg=='></a>");
    const PageContext link = AskOn(QStringLiteral("link"));
    EXPECT_EQ(link.LinkURL, Address(QStringLiteral("/next#x")));
    EXPECT_EQ(link.Media, PageContext::Kind::None);
    const PageContext image = AskOn(QStringLiteral("image"));
    EXPECT_EQ(image.LinkURL, Address(QStringLiteral("/big")));
    EXPECT_EQ(image.Media, PageContext::Kind::Image);
    EXPECT_TRUE(image.MediaURL.starts_with(u"data:image/png"));
}

TEST_F(EnginePageMenu, OfATextFieldUndoesRedoesAndPastesPlainText) {
    // The engine takes no clicks for a page without words until it has waited for some.
    Load("<p>words</p><input id=field style='width:200px'>");
    desk.ClickOn(QStringLiteral("field"));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("document.activeElement.id")) == u"field"; }));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("abc"));
    ASSERT_TRUE(WaitUntil([&] { return Value() == u"abc"; }));
    const PageContext field = AskOn(QStringLiteral("field"));
    EXPECT_TRUE(field.Editable);
    EXPECT_TRUE(field.CanUndo);
    PageTools& tools = *desk.view->Tools();
    EXPECT_EQ(tools.Run(PageAction::Undo), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return Value().isEmpty(); }));
    EXPECT_EQ(tools.Run(PageAction::Redo), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return Value() == u"abc"; }));
    QGuiApplication::clipboard()->setText(QStringLiteral("def"));
    EXPECT_EQ(tools.Run(PageAction::PasteAsText), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return Value().contains(u"def"); }));
}

TEST_F(EnginePageMenu, FindsTheLinksOfTheSelectionInTheirOrder) {
    Load("<p id=before><a href='/0'>zero</a></p><div id=part><a href='/1'>one</a> and <a href='/2'>two</a> and <a "
         "href='/1'>one</a></div><a href='/3'>three</a>");
    desk.Script(QStringLiteral("getSelection().selectAllChildren(part); ''"));
    std::optional<std::vector<Text>> found;
    desk.view->Tools()->FindSelectedLinks([&](std::vector<Text> links) { found = std::move(links); });
    ASSERT_TRUE(WaitUntil([&] { return found.has_value(); }));
    EXPECT_EQ(*found, (std::vector<Text>{Address(QStringLiteral("/1")), Address(QStringLiteral("/2"))}));
    desk.Script(QStringLiteral("getSelection().removeAllRanges(); ''"));
    found.reset();
    desk.view->Tools()->FindSelectedLinks([&](std::vector<Text> links) { found = std::move(links); });
    ASSERT_TRUE(WaitUntil([&] { return found.has_value(); }));
    EXPECT_TRUE(found->empty());
}

TEST_F(EnginePageMenu, OpensALinkTheOtherWayWithTheKeyOrTheMiddleButton) {
    Load("<a id=link href='/next'>link</a>");
    desk.ClickOn(QStringLiteral("link"), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("W:other")) == 1; }));
    desk.ClickOn(QStringLiteral("link"), Qt::MiddleButton);
    EXPECT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("W:other")) == 2; }));
    EXPECT_EQ(desk.events.Count(QStringLiteral("W")), 0);
}

} // namespace

} // namespace tessa::qt
