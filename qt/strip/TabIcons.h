#pragma once
#include "forms/TabStrip.h"

#include <QIcon>

namespace tessa::qt {

/// The pictures of tabs, wherever tabs are shown.
class TabIcons {
public:
    virtual ~TabIcons() = default;

    /// The icon of a tab's page; a null icon when it has none.
    [[nodiscard]] virtual QIcon IconOf(const Tab& tab) const = 0;
};

} // namespace tessa::qt
