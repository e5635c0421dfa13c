#include "qt/questions/ScreenChoice.h"

#include "base/PlainText.h"
#include "qt/base/Strings.h"

#include <QAbstractItemModel>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {
constexpr std::size_t kLongestSourceName = 80;
}

ScreenChoice::ScreenChoice(EngineVersions::ScreenRequest request) : m_request(std::move(request)) { List(); }

void ScreenChoice::List() {
    m_sources.clear();
    for (const auto* model : {m_request.Screens, m_request.Windows}) {
        for (int row = 0; row < model->rowCount(); ++row) m_sources.emplace_back(model->index(row, 0));
    }
    // Only while the user looks, who sees what takes the place of what has gone.
    if (!m_chosen.isValid() && !m_sources.empty()) m_chosen = m_sources.front();
}

// What a window is called is other people's text.
Text ScreenChoice::NameOf(const QModelIndex& source) const {
    const Text name = PlainLine(FromQt(source.data().toString()), kLongestSourceName);
    return (source.model() == m_request.Screens ? Text(u"Screen: ") : Text(u"Window: ")) + name;
}

PageChoices ScreenChoice::Choices() {
    List();
    PageChoices choices;
    for (const QPersistentModelIndex& each : m_sources) choices.Names.push_back(NameOf(each));
    const auto chosen = std::ranges::find(m_sources, m_chosen);
    if (chosen != m_sources.end()) choices.Chosen = static_cast<std::size_t>(chosen - m_sources.begin());
    return choices;
}

void ScreenChoice::Choose(std::size_t choice) {
    if (choice < m_sources.size()) m_chosen = m_sources[choice];
}

bool ScreenChoice::Share() {
    const bool isThere = m_chosen.isValid();
    if (!isThere)
        Refuse();
    else
        (m_chosen.model() == m_request.Screens ? m_request.ShareScreen : m_request.ShareWindow)(m_chosen);
    return isThere;
}

} // namespace tessa::qt
