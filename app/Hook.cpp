#include "app/Hook.h"

#include <memory>

namespace tessa {

namespace {

void OnMessage(MainWindow& window, frmMain& main, const Text& text) {
    if (window.State() == WindowState::Minimized) window.SetState(WindowState::Normal);
    auto* view = main.GetNewBrowser(InFront::Yes);
    // Deliberate: the text is an address as it stands; a TessaGroup is opened only by the start of the program.
    if (view) main.OpenGiven(*view, text);
}

} // namespace

namespace Hook {

void Install(InstanceChannel& instances, MainWindow& window, frmMain& main) {
    auto listening = std::make_shared<Connection>(
        instances.Message.Connect([&window, &main](const Text& text) { OnMessage(window, main, text); }));
    main.Unloaded.ConnectForLife([listening] { listening->End(); });
}

} // namespace Hook

} // namespace tessa
