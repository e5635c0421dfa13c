#include "app/Hook.h"

#include <memory>

namespace {

void OnMessage(frmMain& main, const Text& text) {
    if (main.Platform.window.State() == WindowState::Minimized) main.Platform.window.SetState(WindowState::Normal);
    auto* view = main.GetNewBrowser(InFront::Yes);
    // Deliberate: the text is an address as it stands; a TessaGroup is opened only by the start of the program.
    if (view) main.OpenGiven(*view, text);
}

} // namespace

namespace Hook {

void Install(InstanceChannel& instances, frmMain& main) {
    auto listening =
        std::make_shared<Connection>(instances.Message.Connect([&main](const Text& text) { OnMessage(main, text); }));
    main.Unloaded.ConnectForLife([listening] { listening->End(); });
}

} // namespace Hook
