#pragma once
#include "pages/PageQuestions.h"
#include "qt/base/EngineVersions.h"

#include <QPersistentModelIndex>
#include <cstddef>
#include <vector>

namespace tessa::qt {

/// The screens and windows of this computer, of which the user chooses the one that a page is shown. They come and go
/// while the user thinks.
class ScreenChoice {
public:
    /// The request is answered by exactly one of `Share` and `Refuse`, once.
    explicit ScreenChoice(EngineVersions::ScreenRequest request);

    [[nodiscard]] bool Empty() const { return m_sources.empty(); }
    /// As they are now: screens first. What was chosen stays chosen for as long as it is there.
    [[nodiscard]] PageChoices Choices();
    /// Chooses one of those that were given last.
    void Choose(std::size_t choice);
    /// Shows the page what is chosen; refuses and answers false when that has gone.
    bool Share();
    void Refuse() { m_request.Refuse(); }

private:
    void List();
    [[nodiscard]] Text NameOf(const QModelIndex& source) const;

    EngineVersions::ScreenRequest m_request;
    std::vector<QPersistentModelIndex> m_sources;
    QPersistentModelIndex m_chosen;
};

} // namespace tessa::qt
