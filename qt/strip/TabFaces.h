#pragma once
#include "forms/TabStrip.h"

#include <QIcon>

namespace tessa::qt {

/// What the strip shows beside captions and marks.
class TabFaces {
public:
    virtual ~TabFaces() = default;

    /// The icon of a tab's page; a null icon when it has none.
    [[nodiscard]] virtual QIcon IconOf(const Tab& tab) const = 0;
    /// What is shown of a tab while the pointer rests on it.
    [[nodiscard]] virtual Text TipOf(const Tab& tab) const = 0;
    /// The combination that opens a new tab, as menus spell it; empty for none.
    [[nodiscard]] virtual Text NewTabKeys() const = 0;

    /// No icons, the caption as a tip, and no keys.
    [[nodiscard]] static const TabFaces& Plain();
};

} // namespace tessa::qt
