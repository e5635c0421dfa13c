#pragma once
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/WebPage.h"
#include "qt/program/TileAssembly.h"
#include "qt/strip/TabStripView.h"
#include "qt/window/FindBar.h"
#include "tests/engine/EngineDesk.h"
#include "tiles/TileText.h"
#include "tiles/Tiles.h"

#include <QWebEngineView>
#include <vector>

namespace tessa::qt {

/// Tabs 2, 3, ... on pages of a server, in panes as the program has them.
class TiledPages : public testing::Test {
protected:
    void Open(int count, const QByteArray& body) {
        std::vector<QString> addresses;
        for (int number = 2; number < count + 2; ++number) {
            const QString path = QStringLiteral("/%1").arg(number);
            server.Page(path, "<title>t" + QByteArray::number(number) + "</title>" + body);
            addresses.push_back(server.Address(path));
        }
        desk.window.resize(1000, 700);
        desk.window.show();
        desk.host.permissions = &sites;
        desk.host.pane = [this](const QRect& all, std::int32_t index) { return tiles.area.PageRect(all, index); };
        tiles.Serve(*desk.main, desk.engine, strip);
        tiles.Link(findBar);
        desk.Open(addresses);
        for (int index = 2; index < count + 2; ++index)
            ASSERT_TRUE(WaitUntil([&] { return Caption(index) == u"t" + Decimal(index); })) << index;
    }
    /// Where the page in front lies while it is shown alone.
    [[nodiscard]] QRect Whole() const {
        EXPECT_TRUE(WaitUntil([&] { return desk.engine.Front() && desk.engine.Front()->Widget()->isVisible(); }));
        return desk.engine.Front()->Widget()->geometry();
    }
    void Show(TextView layout) { desk.main->Tiles().Show(TileLayoutIn(layout).value()); }
    [[nodiscard]] Text Caption(int index) const {
        const auto* tab = desk.main->pcPage.Find(u"Tab" + Decimal(index));
        return tab ? tab->Caption() : Text();
    }
    [[nodiscard]] PageView& View(int index) const { return desk.View(index); }
    [[nodiscard]] bool Visible(int index) const { return View(index).Widget() && View(index).Widget()->isVisible(); }
    QString Script(int index, const QString& source) {
        QString result = QStringLiteral("no answer");
        bool answered = false;
        View(index).Page()->runJavaScript(source, [&](const QVariant& value) {
            result = value.toString();
            answered = true;
        });
        EXPECT_TRUE(WaitUntil([&] { return answered; }));
        return result;
    }
    /// Waits until the page says that of itself.
    bool Says(int index, const QString& source, const QString& expected) {
        return WaitUntil([&] { return Script(index, source) == expected; });
    }

    FakeSettings siteSettings;
    SitePermissions sites{siteSettings}; ///< what pages were allowed
    LocalServer server;
    EngineDesk desk;
    TileAssembly tiles{&desk.window, desk.messages};
    TabStripView strip{desk.main->pcPage};
    FindBar findBar{&desk.window};
};

inline const QString kVisibility = QStringLiteral("document.visibilityState");

} // namespace tessa::qt
