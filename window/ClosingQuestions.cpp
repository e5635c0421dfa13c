#include "window/ClosingQuestions.h"

#include "base/Captions.h"
#include "downloads/DownloadWords.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <memory>

namespace tessa {

namespace {

/// Of the pages that hold their user, as many as anybody reads, and as much of their names.
constexpr std::size_t kMostHolders = 8;
constexpr std::size_t kLongestHolder = 80;

} // namespace

bool ClosingQuestions::MayClose() {
    if (!m_left && !PagesLetGo()) return false;
    // When the window stays after all, its pages are asked anew the next time.
    m_left = false;
    const std::size_t running = m_parts.downloads.CountActive();
    return running == 0 || m_parts.messages.AskOwn(DownloadWords::ExitQuestion(running));
}

bool ClosingQuestions::PagesLetGo() {
    // The answer may come when this has long returned.
    const auto atOnce = std::make_shared<bool>(true);
    m_parts.tabs.Leaving.FindHolders([this, atOnce](const std::vector<std::int32_t>& holders) {
        m_left = holders.empty() || UserLeaves(holders);
        if (m_left && !*atOnce) m_parts.window.Close();
    });
    *atOnce = false;
    return m_left;
}

bool ClosingQuestions::UserLeaves(const std::vector<std::int32_t>& holders) {
    const auto count = static_cast<std::int64_t>(holders.size());
    OwnQuestion question{count == 1 ? Text(u"A page holds unsent text") : Decimal(count) + u" pages hold unsent text",
                         {},
                         u"&Stay",
                         u"&Leave"};
    for (std::size_t i = 0; i < std::min(holders.size(), kMostHolders); ++i) {
        const auto* tab = TabOfView(m_parts.pcPage, holders[i]);
        if (tab) question.Details += OneLine(FirstUnits(tab->Title(), kLongestHolder)) + u"\n";
    }
    if (holders.size() > kMostHolders) question.Details += u"...";
    if (m_parts.messages.AskOwn(question)) return true;
    if (auto* tab = TabOfView(m_parts.pcPage, holders.front())) m_parts.pcPage.Select(tab);
    return false;
}

} // namespace tessa
