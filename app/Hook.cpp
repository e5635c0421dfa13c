#include "app/Hook.h"

#include "settings/SettingsStore.h"

namespace {

void OnMessage(frmMain& main, SettingsStorageFactory& settings) {
    if (main.Platform.window.State() == WindowState::Minimized) main.Platform.window.SetState(WindowState::Normal);
    auto* view = main.GetNewBrowser(InFront::Yes);
    // Deliberate: the text is an address as it stands; a TessaGroup is opened only by the start of the program.
    if (view) ResumeNext(view->Navigate(SettingsStore(settings).HandOffCommandLine.Get()));
}

} // namespace

namespace Hook {

void Install(InstanceChannel& instances, frmMain& main, SettingsStorageFactory& settings) {
    instances.Message = [&main, &settings] { OnMessage(main, settings); };
    main.Unloaded = [&instances] { Remove(instances); };
}

void Remove(InstanceChannel& instances) { instances.Message = nullptr; }

} // namespace Hook
