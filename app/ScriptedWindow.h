#pragma once
#include "base/Signal.h"
#include "history/SearchText.h"
#include "platform/VisitStore.h"
#include "script/TabList.h"
#include "window/frmMain.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessa {

/// The main window as a script drives it. Tabs are known by the numbers of their views. Nothing that a script asks
/// for waits for an answer, but for what may come from strangers: that is asked of the user, as ever.
class ScriptedWindow {
public:
    /// What was opened; or why nothing was, a sentence.
    struct Opened {
        std::vector<std::uint32_t> numbers;
        Text refusal{};
    };
    /// Why something was not done, a sentence; empty when it was.
    using Refusal = Text;

    /// Both outlive it. `window` is what stands on the screen.
    ScriptedWindow(frmMain& main, MainWindow& window) : m_main(main), m_window(window) {}

    [[nodiscard]] std::vector<ScriptTab> List() const;
    /// The tabs that have all these words, whatever their case, in title or address, and behind them those whose page
    /// says them, as far as it was read; no private ones.
    [[nodiscard]] std::vector<ScriptTab> Search(TextView words) const;
    /// Has the open pages read that were not read yet, as somebody does who searches in them. No private ones, and none
    /// is woken. Those that are being read now; `PageRead` tells when one has been.
    [[nodiscard]] std::vector<std::int32_t> ReadUnread();
    [[nodiscard]] Signal<void(std::int32_t index)>& PageRead() { return m_main.Reads().Changed; }
    /// These tabs, the other tabs that show pages of which the history knows, and behind them the pages that are not
    /// open. The number of the latter is 0, their state "history".
    [[nodiscard]] std::vector<ScriptTab> WithRead(std::vector<ScriptTab> tabs,
                                                  const std::vector<HistoryEntry>& entries) const;
    /// Each in a tab of its own; behind, the tab in front stays so. Refused, one leaves the others.
    [[nodiscard]] Opened Open(const std::vector<Text>& addresses, bool behind);
    /// A group by the full path of its file, or by its name in the user's folder.
    [[nodiscard]] Opened OpenGroup(TextView group, bool closeOthers);
    /// The file of a group that is named so; empty when there is none that can be read.
    [[nodiscard]] Text FileOf(TextView group) const;
    [[nodiscard]] Refusal SaveGroup(TextView path, bool replace);
    [[nodiscard]] Refusal Activate(std::uint32_t number);
    /// Closes as a user does: a page may hold its user, and is asked.
    [[nodiscard]] Refusal Close(const std::vector<std::uint32_t>& numbers);
    /// All tabs when none is named.
    [[nodiscard]] Refusal Reload(const std::vector<std::uint32_t>& numbers);
    /// Whether a tool of the bar is there to be clicked.
    [[nodiscard]] Refusal MayRun(TextView tool) const;
    /// Clicks it.
    void RunCommand(TextView tool);
    void Quit() { m_window.Close(); }

    /// Whether that page may be read: there is such a tab, and it is not private.
    [[nodiscard]] Refusal MayRead(std::uint32_t number) const;
    /// Whether any of these tabs loads; of all when none is named. One that has gone loads no more.
    [[nodiscard]] bool AnyLoading(const std::vector<std::uint32_t>& numbers) const;
    /// Which of these there is no tab of, said as a refusal.
    [[nodiscard]] Refusal Missing(const std::vector<std::uint32_t>& numbers) const;

private:
    [[nodiscard]] const Tab* Find(std::uint32_t number) const;
    [[nodiscard]] std::optional<std::uint32_t> OpenOne(TextView address, InFront place);
    [[nodiscard]] ScriptTab Describe(const Tab& tab) const;
    [[nodiscard]] bool Says(const ScriptTab& tab, const std::vector<SearchText::Piece>& pieces) const;
    [[nodiscard]] std::string StateOf(const Tab& tab, ArrayView& view) const;

    frmMain& m_main;
    MainWindow& m_window;
};

} // namespace tessa
