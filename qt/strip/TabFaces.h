#pragma once
#include "forms/TabStrip.h"

#include <QIcon>

namespace tessa::qt {

/// Whether a tab's page lies side by side with others.
enum class TabPane {
    None,
    Behind, ///< it does when it is shown
    Shown
};

/// What the strip shows beside captions and marks.
class TabFaces {
public:
    virtual ~TabFaces() = default;

    /// The icon of a tab's page; a null icon when it has none.
    [[nodiscard]] virtual QIcon IconOf(const Tab& tab) const = 0;
    /// What is shown of a tab while the pointer rests on it.
    [[nodiscard]] virtual Text TipOf(const Tab& tab) const = 0;
    /// Whether the tabs of a group are others than its file says.
    [[nodiscard]] virtual bool IsChanged(const TabGroup& group) const = 0;
    [[nodiscard]] virtual TabPane PaneOf(const Tab& tab) const = 0;
    /// The combination that opens a new tab, as menus spell it; empty for none.
    [[nodiscard]] virtual Text NewTabKeys() const = 0;

    /// No icons, the caption as a tip, nothing changed, no panes and no keys.
    [[nodiscard]] static const TabFaces& Plain();
};

} // namespace tessa::qt
