#pragma once
#include "base/Text.h"
#include "pages/PageNavigation.h"

#include <QUrl>

namespace tessa::qt {

/// Where a view is and where it goes: the addresses, and how far it has come.
class Whereabouts {
public:
    PageNavigation stage;
    QUrl requested; ///< the address of the last navigation from outside the page
    QUrl shown;     ///< the address of the document shown, whatever is to come

    /// The address that the view is called by, as it is shown.
    [[nodiscard]] Text Address() const;
    /// Whether no page has been shown yet, and one is to come soon.
    [[nodiscard]] bool AwaitsFirst() const;
    /// Whether a page is shown that is more than a blank one.
    [[nodiscard]] bool ShowsPage() const { return stage.HasDocument() && shown.scheme() != u"about"; }
    /// Whether a blank page is shown with nothing in it, and nothing else is to come. `awaits` when the page itself is
    /// about to show something.
    [[nodiscard]] bool Blank(bool awaits) const;
    /// Whether what is shown is known to be what was asked for, and no error.
    [[nodiscard]] bool IsTrue() const { return stage.HasDocument() && stage.Known() == PageNavigation::Kind::Page; }

private:
    mutable QUrl m_told; ///< the address that was told last
    mutable Text m_toldText;
};

} // namespace tessa::qt
