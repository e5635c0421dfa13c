#include "window/WindowPlacement.h"

#include <algorithm>

namespace tessa {

namespace {

constexpr Twips kSmallestHeight{4000};
constexpr Twips kSmallestWidth{6000};

Placement StoredPlacement(const SettingsStore& store, const MainWindow& window) {
    Placement place;
    place.left = std::max(Saturated16(store.WindowLeft.Get()), Twips{0});
    place.top = std::max(Saturated16(store.WindowTop.Get()), Twips{0});
    place.height = std::max(Saturated16(store.WindowHeight.Get()), kSmallestHeight);
    place.width = std::max(Saturated16(store.WindowWidth.Get()), kSmallestWidth);
    // Deliberate: strictly greater, a top equal to the screen's height is kept.
    if (place.top > window.ScreenHeight()) place.top = {0};
    if (place.left > window.ScreenWidth()) place.left = {0};
    return place;
}

} // namespace

namespace WindowPlacement {

void Restore(MainWindow& window, const SettingsStore& store) {
    if (store.WindowMaximized.Get()) {
        window.SetState(WindowState::Maximized);
        return;
    }
    window.SetState(WindowState::Normal);
    const Placement place = StoredPlacement(store, window);
    // A window that was never placed gets its size from us and its place from the desktop.
    if (store.WindowLeft.HasValue() || store.WindowTop.HasValue())
        window.SetPlace(place);
    else
        window.SetSize(place.width, place.height);
}

void Save(SettingsStore& store, const MainWindow& window) {
    ResumeNext(store.WindowMaximized.Set(window.State() == WindowState::Maximized));
    if (window.State() == WindowState::Minimized) return;
    const Placement place = window.Place();
    ResumeNext(store.WindowTop.Set(place.top));
    ResumeNext(store.WindowLeft.Set(place.left));
    ResumeNext(store.WindowWidth.Set(place.width));
    ResumeNext(store.WindowHeight.Set(place.height));
}

} // namespace WindowPlacement

} // namespace tessa
