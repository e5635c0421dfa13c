#pragma once
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QWebEnginePage>

namespace tessa::qt {

/// Commands that touch a page, clicked in a window on the real engine.
class CommandsOnPages : public testing::Test {
protected:
    void Click(TextView tool) { desk.main->actBar.UserClick(*desk.main->actBar.Find(tool)); }
    bool Enabled(TextView tool) { return desk.main->actBar.Find(tool)->Enabled(); }
    /// Clicks the tool once it can be clicked.
    void ClickWhenEnabled(TextView tool) {
        ASSERT_TRUE(WaitUntil([&] { return Enabled(tool); })) << ToUtf8(tool);
        Click(tool);
    }
    PageView& Front() { return static_cast<PageView&>(*desk.main->Tabs().CurrentView()->Control); }
    /// Waits for the page of that title in front; the address says what it is to show long before it shows that.
    bool WaitTitle(TextView title) {
        return WaitUntil([&] { return Front().LocationName() == title && !Front().Busy(); });
    }
    void Show(const QString& path, TextView title) {
        ResumeNext(Front().Navigate(FromQt(server.Address(path))));
        ASSERT_TRUE(WaitTitle(title)) << ToUtf8(Front().LocationName());
    }
    /// The path that the page in front shows.
    QString Path() { return QUrl(ToQt(Front().LocationURL())).path(); }
    QString Script(const QString& source) {
        // A tab that has just come to the front has no page yet.
        if (!Front().Page()) return {};
        QVariant result;
        bool answered = false;
        Front().Page()->runJavaScript(source, [&](const QVariant& value) {
            result = value;
            answered = true;
        });
        EXPECT_TRUE(WaitUntil([&] { return answered; }));
        return result.toString();
    }
    /// Waits until the page in front is on the screen: before, it takes neither clicks nor keys.
    void WaitForPicture() {
        Script(QStringLiteral("window.painted = ''; requestAnimationFrame(() => requestAnimationFrame(() => {"
                              "    window.painted = 'yes'; })); 1"));
        ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("window.painted")) == u"yes"; }));
    }

    LocalServer server;
    EngineDesk desk;
};

} // namespace tessa::qt
