#pragma once
#include "qt/engine/EngineHost.h"

#include <functional>

namespace tessa::qt {

/// The program around the engine, as a test wants it.
class FakeEngineHost final : public EngineHost {
public:
    Text HomeAddress() override { return home; }
    std::string StartPage() override { return startPage(); }
    QRect PageRect(const QRect& whole, std::int32_t index) override {
        const QRect all = whole.adjusted(0, barHeight, 0, 0);
        return pane ? pane(all, index) : all;
    }
    SitePermissions* Permissions() override { return permissions; }
    [[nodiscard]] bool WindowIsFull() const override { return windowIsFull; }
    void SetWindowFull(bool full) override { windowIsFull = full; }

    Text home;
    std::function<std::string()> startPage = [] { return std::string(); };
    int barHeight = 0;
    std::function<QRect(const QRect& all, std::int32_t index)> pane; ///< where views lie side by side
    SitePermissions* permissions = nullptr;
    bool windowIsFull = false;
};

} // namespace tessa::qt
