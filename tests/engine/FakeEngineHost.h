#pragma once
#include "qt/engine/EngineHost.h"

#include <functional>

namespace tessa::qt {

/// The program around the engine, as a test wants it.
class FakeEngineHost final : public EngineHost {
public:
    Text HomeAddress() override { return home; }
    std::string StartPage() override { return startPage(); }
    QRect PageRect(const QRect& whole) override { return whole.adjusted(0, barHeight, 0, 0); }
    SitePermissions* Permissions() override { return permissions; }
    [[nodiscard]] bool WindowIsFull() const override { return windowIsFull; }
    void SetWindowFull(bool full) override { windowIsFull = full; }

    Text home;
    std::function<std::string()> startPage = [] { return std::string(); };
    int barHeight = 0;
    SitePermissions* permissions = nullptr;
    bool windowIsFull = false;
};

} // namespace tessa::qt
