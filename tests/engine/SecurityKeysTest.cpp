// A page uses a security key on a computer without one.
#include "qt/QtSecurityKeyDialog.h"
#include "tests/engine/EngineDesk.h"

#include <QPushButton>

namespace {

TEST(SecurityKeyOfAPage, NobodyHasSendsThePageItsAnswer) {
    LocalServer server;
    server.Page(QStringLiteral("/key"), "<title>Key</title><p id=there>words");
    EngineView desk;
    desk.window.activateWindow();
    // Only a secure origin may ask for a key; this host counts as one.
    desk.Load(server.Address(QStringLiteral("/key"), QStringLiteral("localhost")));
    desk.ClickOn(QStringLiteral("there"));
    desk.Script(QStringLiteral("navigator.credentials.get({publicKey: {challenge: new Uint8Array(16), timeout: 1000}})"
                               ".catch(error => { document.title = error.name; }); 1"));
    EXPECT_TRUE(WaitUntil([&] {
        if (auto* dialog = desk.window.findChild<QtSecurityKeyDialog*>())
            dialog->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        // Engines before 6.7 know no keys.
        const Text title = desk.view->LocationName();
        return title == u"NotAllowedError" || title == u"NotSupportedError";
    })) << ToUtf8(desk.view->LocationName());
}

} // namespace
