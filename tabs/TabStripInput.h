#pragma once
#include "base/Signal.h"
#include "tabs/TabSet.h"

#include <optional>

namespace tessa {

/// Buttons of the mouse, with their known numbers.
enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

/// What the mouse and dragged text do on the tab strip. Owned by the main window.
class TabStripInput {
public:
    /// Knows where the tabs lie on the screen; the strip's view does.
    class Places {
    public:
        virtual ~Places() = default;
        /// The 0-based position of the tab at a point of the strip in logical pixels; -1 for none.
        [[nodiscard]] virtual int HitTest(Pixels x, Pixels y) = 0;
    };

    /// All outlive this object.
    TabStripInput(TabSet& tabs, TabStrip& pcPage, ViewArray& Browser, CommandBar& actBar)
        : m_tabs(tabs), m_pcPage(pcPage), m_browser(Browser), m_actBar(actBar) {}

    /// A button goes down at a point of the strip, in twips. The right one opens the pop-up for the tab under it,
    /// which is not selected.
    void MouseDown(MouseButton Button, Twips x, Twips y, Places& strip);
    /// The pop-up of the tab at that position, from 1, is wanted.
    void OpenPopup(std::size_t position);
    /// The pop-up of that group is wanted.
    void OpenGroupPopup(std::int32_t group);
    /// Data is dragged over a point of the strip, in logical pixels. Nothing without text.
    void OLEDragOver(bool hasText, double x, double y, Places& strip);
    /// Text is dropped where it was dragged last. On the selected tab, or on none, it opens a new tab; another tab
    /// loads it.
    void OLEDragDrop(const std::optional<Text>& text);

    /// The view of the tab that the pop-up was opened on; nothing when the tab is gone.
    [[nodiscard]] ArrayView* PopupView() const;
    [[nodiscard]] Tab* PopupTab() const { return m_pcPage.FindAt(PopupTabPosition); }

    /// 1-based positions; 0 when the pointer was over no tab.
    std::size_t PopupTabPosition = 0;
    std::size_t DropTabPosition = 0;
    /// The group that its pop-up was opened on, or that of the tab that the pop-up was; 0 for none.
    std::int32_t PopupGroup = 0;

    /// The pop-up of a tab is about to be shown, or that of a group.
    Signal<void()> Opening;
    Signal<void()> GroupOpening;

private:
    void OpenInNewTab(TextView text);

    TabSet& m_tabs;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    CommandBar& m_actBar;
};

} // namespace tessa
