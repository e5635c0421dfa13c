#pragma once
#include "forms/Controls.h"
#include "history/ReadPages.h"
#include "history/Snippets.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace tessa {

/// A line of what was found: an open page, or a passage of the page above it.
struct OpenPageLine {
    std::int32_t Index = 0; ///< of the view
    bool IsPage = false;
    Snippet Shown{};
    Text Passage{}; ///< the whole of it
    bool operator==(const OpenPageLine&) const = default;
};

/// The panel that searches in all open tabs, as data. What sleeps, or was never loaded in this run, is searched as it
/// was remembered, and is not woken.
class frmOpenPages {
public:
    /// All outlive the form.
    frmOpenPages(ReadPages& pages, TabStrip& pcPage, ViewArray& Browser, VisitStore& store);
    frmOpenPages(const frmOpenPages&) = delete;
    frmOpenPages& operator=(const frmOpenPages&) = delete;

    FormState Form;
    Text Caption = u"Search in Open Pages";
    TextBox txtWords;
    Label lblCount{u""};
    Property<std::vector<OpenPageLine>> lstFound;

    /// Shows the panel and gives it the keyboard, or hides it when it has it already.
    void Open();
    /// Searches again, with what is known by now.
    void Show();
    /// Brings that page to the front, at that passage.
    void lstFound_Click(std::size_t line);
    /// More is known of a page.
    void Changed(std::int32_t index);

    /// Has `Show` called in a moment.
    Signal<void()> Schedule;
    /// The panel was shown or hidden.
    Signal<void(bool)> Shown;

private:
    void Form_Load();
    void LoadUnread(const std::multimap<Text, std::int32_t>& views);
    void Remember(const std::multimap<Text, std::int32_t>& views, const std::vector<HistoryEntry>& entries);
    [[nodiscard]] const std::vector<Passage>& PassagesOf(std::int32_t index) const;
    /// What was found in a page.
    struct Found {
        Text title, address; ///< as they were then
        std::vector<OpenPageLine> lines{};
    };
    void ForgetFound();
    [[nodiscard]] const std::vector<OpenPageLine>& LinesOf(const std::vector<SearchText::Piece>& pieces,
                                                           std::int32_t index, const BrowserView& view);
    void Search(const std::vector<SearchText::Piece>& pieces, std::int32_t index, Found& found) const;

    ReadPages& m_pages;
    TabStrip& m_pcPage;
    ViewArray& m_browser;
    VisitStore& m_store;
    std::map<std::int32_t, std::vector<Passage>> m_remembered; ///< of pages that were not read in this run
    Text m_searched;                                           ///< what was searched for last
    std::map<std::int32_t, Found> m_found;                     ///< of that, in pages that say now what they said then
    /// What is to be shown in a page as soon as it is there.
    struct Awaited {
        std::int32_t index;
        Text passage;
    };
    std::optional<Awaited> m_awaited;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace tessa
