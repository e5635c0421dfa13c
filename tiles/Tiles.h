#pragma once
#include "base/Signal.h"
#include "base/Text.h"
#include "tabs/ShownTabs.h"
#include "tabs/TabSet.h"
#include "tiles/TilePlaces.h"

#include <map>

namespace tessa {

/// Which tabs lie side by side in panes. The number of a pane is the index of its view. A tab is in one layout at most;
/// the layout of the selected tab is shown, with that tab's pane in focus. A tab in no layout is shown alone, and the
/// layouts stay as they are meanwhile. Owned by the main window; strip and tabs outlive it.
class Tiles final : public ShownTabs {
public:
    Tiles(TabSet& tabs, TabStrip& pcPage);
    Tiles(const Tiles&) = delete;
    Tiles& operator=(const Tiles&) = delete;

    /// The layout that the selected tab is in; nothing when it is shown alone.
    [[nodiscard]] const TileLayout* Shown() const { return FindOf(Focus()); }
    /// The index of the selected tab's view; 0 without one.
    [[nodiscard]] std::int32_t Focus() const { return m_tabs.CurrentIndex(); }
    [[nodiscard]] std::vector<std::int32_t> BesideOf(std::int32_t Index) const override;
    [[nodiscard]] std::vector<std::int32_t> LinkedWith(std::int32_t Index) const override;
    [[nodiscard]] bool IsInPane(std::int32_t index) const { return FindOf(index) != nullptr; }

    /// Shows these tabs in that way. They leave the layouts that they were in.
    void Show(const TileLayout& layout);
    /// Puts a tab into a pane right of the one in focus. False when it is that one, or there is no room for it.
    bool ShowBeside(std::int32_t index) { return ShowBeside(std::vector{index}); }
    /// The same for several tabs, in their order: all get the same part of its room. Those that lie beside it already
    /// stay there. False when none does then.
    bool ShowBeside(const std::vector<std::int32_t>& indexes);
    /// Puts a tab into a pane at that edge of the page of the tab `at`, and selects it. False as above.
    bool Drop(std::int32_t index, std::int32_t at, TileEdge edge);
    /// Takes a tab out of its layout; the tab stays.
    void TakeOut(std::int32_t index);
    /// Gives up the layout that is shown; the tabs stay.
    void Dissolve();
    /// Gives that pane all the room, or every pane its own again.
    void ToggleFull(std::int32_t index);
    void ToggleLinked();
    /// See `tessa::MoveDivider`.
    void MoveDivider(const TileDivider& divider, std::int32_t to, std::int32_t least);
    void Equalise(const TilePath& path);
    /// Whether there is a title above each page of a layout.
    [[nodiscard]] bool HasHeaders() const { return m_headers; }
    void ShowHeaders(bool show);
    /// A tab is dragged out of the strip, where pressing it has selected it: shows again what was in front before.
    void BeginDrag(std::int32_t index);

    /// The layouts as they are written down, with the number that `become` gives for a view's index; those of 0 are
    /// left out.
    [[nodiscard]] std::vector<Text> Kept(const std::function<std::int32_t(std::int32_t)>& become) const;
    /// Brings back what `Kept` gave. Number n is `indexes[n - 1]`, the index of a view, or 0 when it has not come back.
    void Restore(const std::vector<Text>& kept, const std::vector<std::int32_t>& indexes);

    /// A tab that has closed has come back as another. It lies beside the same ones again if they still lie together,
    /// or if it was alone with one of them.
    void Return(std::int32_t was, std::int32_t is);

    /// A layout, or which pane has the focus, has changed.
    Signal<void()> Changed;

private:
    [[nodiscard]] const TileLayout* FindOf(std::int32_t index) const;
    [[nodiscard]] TileLayout* FindOf(std::int32_t index);
    void Leave(std::int32_t index);
    void Select(std::int32_t index);
    void ShowChange();
    void Touch();
    void OnClosing(std::int32_t index);
    [[nodiscard]] std::optional<TileLayout> LayoutWith(const TileLayout& left, std::int32_t index) const;

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    std::vector<TileLayout> m_layouts;
    std::map<std::int32_t, TileLayout> m_left; ///< what tabs lay in that have closed, by the indexes of their views
    bool m_headers = true;
    std::int32_t m_front = 0, m_before = 0; ///< the view in front, and the one that was before it
};

} // namespace tessa
