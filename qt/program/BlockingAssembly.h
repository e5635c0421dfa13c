#pragma once
#include "qt/blocking/BlockedPages.h"
#include "qt/blocking/Blocker.h"
#include "qt/blocking/BlockingMenu.h"
#include "qt/blocking/ElementHiding.h"
#include "qt/blocking/EmptyAnswers.h"
#include "qt/blocking/ListUpdates.h"
#include "settings/BlockingOutside.h"

#include <memory>
#include <optional>

class QWidget;

namespace tessa {
class WallClock;
class frmMain;
} // namespace tessa

namespace tessa::qt {

class Engine;
class StatusBarView;

/// What blocks, and what shows and changes it.
class BlockingAssembly final : public BlockingOutside {
public:
    /// Lists lie in the folder; the factory and the clock outlive it.
    BlockingAssembly(SettingsStorageFactory& settings, const QString& folder, const WallClock& clock);

    /// The pages of that engine are followed, which outlives it or has ended by then.
    void Follow(Engine& engine);
    /// Shows its sign there, and opens its windows over `window`. All outlive it.
    void Serve(frmMain& main, StatusBarView& bar, QWidget& window);

    [[nodiscard]] Text OwnRules() override { return blocker.Shelf().OwnRules(); }
    void KeepOwnRules(TextView rules) override;
    [[nodiscard]] Text StateOf(TextView chosen) override;
    void Update(Told told) override { m_updates->Update(std::move(told)); }
    [[nodiscard]] std::vector<Text> Languages() override { return DesktopLanguages(); }

    Blocker blocker;
    BlockedPages pages{blocker};

private:
    void Pick(QWebEnginePage& page);
    void ShowPicked(const QString& selector);

    const WallClock& m_clock;
    ElementHiding m_hiding{blocker};
    EmptyAnswers m_empty;
    std::optional<ListUpdates> m_updates;
    std::optional<BlockingMenu> m_menu;
    Engine* m_engine = nullptr;
    frmMain* m_main = nullptr;
    QPointer<QWidget> m_window;
    QPointer<QWebEnginePage> m_picking; ///< in which the user points at something
};

} // namespace tessa::qt
