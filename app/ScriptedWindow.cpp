#include "app/ScriptedWindow.h"

#include "base/LinkTrust.h"
#include "base/os/AtomicFile.h"
#include "base/os/Paths.h"
#include "groups/TessaGroups.h"
#include "history/Snippets.h"
#include "tabs/TabKeys.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace tessa {

namespace {

// Small letters of any script would need tables of all; those of ASCII are what addresses are made of.
bool HasAll(const Text& where, TextView words) {
    const Text all = InSmallLetters(where), wanted = InSmallLetters(words);
    for (std::size_t begin = 0; begin < wanted.size();) {
        const std::size_t end = std::min(wanted.find(u' ', begin), wanted.size());
        if (all.find(wanted.substr(begin, end - begin)) == Text::npos) return false;
        begin = end + 1;
    }
    return true;
}

} // namespace

const Tab* ScriptedWindow::Find(std::uint32_t number) const {
    if (number > static_cast<std::uint32_t>(ViewArray::kLastIndex)) return nullptr;
    return TabOfView(m_main.pcPage, static_cast<std::int32_t>(number));
}

ScriptTab ScriptedWindow::Describe(const Tab& tab) const {
    const auto number = static_cast<std::uint32_t>(tab.Tag);
    auto* view = m_main.Tabs().OpenView(tab.Tag);
    if (!view) return {.number = number, .title = ToUtf8(tab.Caption()), .address{}, .group{}, .state{}};
    const std::string state = StateOf(tab, *view);
    // What is private is nobody's business, not even its name.
    if (view->Privacy == Privacy::Private) return {.number = number, .title{}, .address{}, .group{}, .state = state};
    return {.number = number,
            .title = ToUtf8(view->Control->LocationName()),
            .address = ToUtf8(view->Control->LocationURL()),
            .group = PathToBytes(m_main.Groups().GroupOf(tab.Tag)),
            .state = state};
}

std::string ScriptedWindow::StateOf(const Tab& tab, ArrayView& view) const {
    const auto* life = view.Control->Life();
    const PageProgress progress = view.Control->Progress();
    std::string state;
    for (const auto& [is, word] :
         {std::pair{&tab == m_main.pcPage.SelectedItem(), "front"},
          std::pair{progress == PageProgress::Loading, "loading"},
          std::pair{progress == PageProgress::PutOff, "waiting"}, std::pair{life && life->Asleep(), "asleep"},
          std::pair{life && life->Ended(), "ended"}, std::pair{tab.Asks(), "asks"},
          std::pair{view.Control->Audible(), "playing"}, std::pair{view.Control->Muted(), "muted"},
          std::pair{view.Privacy == Privacy::Private, "private"}}) {
        if (is) state += (state.empty() ? "" : " ") + std::string(word);
    }
    return state;
}

std::vector<ScriptTab> ScriptedWindow::List() const {
    std::vector<ScriptTab> tabs;
    for (std::size_t at = 1; at <= m_main.pcPage.Count(); ++at) tabs.push_back(Describe(*m_main.pcPage.FindAt(at)));
    return tabs;
}

std::vector<ScriptTab> ScriptedWindow::Search(TextView words) const {
    const auto pieces = SearchText::PiecesOf(words);
    std::vector<ScriptTab> named, saying;
    for (ScriptTab& tab : List()) {
        if (tab.address.empty()) continue;
        if (HasAll(FromBytes(tab.title + '\n' + tab.address), words))
            named.push_back(std::move(tab));
        else if (!pieces.empty() && Says(tab, pieces))
            saying.push_back(std::move(tab));
    }
    std::ranges::move(saying, std::back_inserter(named));
    return named;
}

bool ScriptedWindow::Says(const ScriptTab& tab, const std::vector<SearchText::Piece>& pieces) const {
    const Text title = FromBytes(tab.title), address = FromBytes(tab.address);
    std::vector<TextView> texts{title, address};
    for (const Passage& each : m_main.Reads().TextOf(static_cast<std::int32_t>(tab.number)))
        texts.push_back(each.Words);
    return Snippets::HoldAll(pieces, texts);
}

std::vector<std::int32_t> ScriptedWindow::ReadUnread() {
    std::vector<std::int32_t> reading;
    for (const ScriptTab& tab : List()) {
        const auto index = static_cast<std::int32_t>(tab.number);
        const auto* view = tab.address.empty() ? nullptr : m_main.Tabs().OpenView(index);
        auto* life = view ? view->Control->Life() : nullptr;
        if (!view || (life && life->Asleep()) || m_main.Reads().HasText(index)) continue;
        if (m_main.Reads().ReadNow(index) && !m_main.Reads().HasText(index)) reading.push_back(index);
    }
    return reading;
}

std::vector<ScriptTab> ScriptedWindow::WithRead(std::vector<ScriptTab> tabs,
                                                const std::vector<HistoryEntry>& entries) const {
    std::set<std::string> known;
    for (const HistoryEntry& entry : entries) known.insert(ToUtf8(entry.Address));
    for (ScriptTab& tab : List()) {
        const bool isNew = std::ranges::find(tabs, tab.number, &ScriptTab::number) == tabs.end();
        if (isNew && known.contains(tab.address)) tabs.push_back(std::move(tab));
    }
    std::set<std::string> open;
    for (const ScriptTab& tab : tabs) open.insert(tab.address);
    for (const HistoryEntry& entry : entries) {
        const std::string address = ToUtf8(entry.Address);
        if (open.insert(address).second)
            tabs.push_back(
                {.number = 0, .title = ToUtf8(entry.Title), .address = address, .group{}, .state = "history"});
    }
    return tabs;
}

std::optional<std::uint32_t> ScriptedWindow::OpenOne(TextView address, InFront place) {
    const std::int32_t index = m_main.Tabs().NextBrowserIndex;
    auto* view = m_main.GetNewBrowser(place);
    if (!view) return std::nullopt;
    ResumeNext(view->Navigate(address));
    return static_cast<std::uint32_t>(index);
}

ScriptedWindow::Opened ScriptedWindow::Open(const std::vector<Text>& addresses, bool behind) {
    Opened opened;
    std::vector<Text> pages;
    for (const Text& address : addresses) {
        if (!address.empty() && TrustOf(address, LinkSource::HandOver) == LinkTrust::Open)
            pages.push_back(address);
        else
            opened.refusal = u"This is no page, and was not opened: " + address;
    }
    // A tab behind comes right of the one in front, so the last has to come first.
    if (behind) std::ranges::reverse(pages);
    for (const Text& page : pages) {
        const auto number = OpenOne(page, behind ? InFront::No : InFront::Yes);
        if (number)
            opened.numbers.push_back(*number);
        else
            opened.refusal = u"No more tabs can be opened.";
    }
    if (behind) std::ranges::reverse(opened.numbers);
    return opened;
}

Text ScriptedWindow::FileOf(TextView group) const {
    const Text file = IsAbsolute(PathToBytes(group)) ? Text(group) : m_main.Groups().FileOf(group);
    return TessaGroups::IsReadable(file) ? file : Text();
}

ScriptedWindow::Opened ScriptedWindow::OpenGroup(TextView group, bool closeOthers) {
    const bool isPath = IsAbsolute(PathToBytes(group));
    const Text file = isPath ? Text(group) : m_main.Groups().FileOf(group);
    if (file.empty()) return {{}, u"There is no TessaGroup of that name: " + Text(group)};
    if (!TessaGroups::IsReadable(file)) return {{}, u"The TessaGroup could not be read: " + file};
    GroupCommands& groups = m_main.Groups();
    const bool before = std::exchange(groups.TGCloseOthersFirst, groups.TGCloseOthersFirst || closeOthers);
    const std::vector<std::int32_t> indexes = groups.OpenTessaGroups({file});
    groups.TGCloseOthersFirst = before;
    return {{indexes.begin(), indexes.end()}, {}};
}

ScriptedWindow::Refusal ScriptedWindow::SaveGroup(TextView path, bool replace) {
    using TessaGroups::Saved;
    const std::string file = PathToBytes(path);
    if (!IsAbsolute(file) || !GroupCommands::IsGroupFile(path))
        return u"The path of a TessaGroup ends in .tvg: " + Text(path);
    if (!replace && FileExists(file)) return u"There is such a file already: " + Text(path);
    switch (m_main.Groups().SaveUnasked(path)) {
    case Saved::Yes:
        return {};
    case Saved::Nothing:
        return u"There is nothing to save.";
    default:
        return u"The file could not be written: " + Text(path);
    }
}

ScriptedWindow::Refusal ScriptedWindow::Missing(const std::vector<std::uint32_t>& numbers) const {
    const auto gone = std::ranges::find_if(numbers, [this](std::uint32_t number) { return !Find(number); });
    return gone == numbers.end() ? Refusal() : u"There is no tab " + Decimal(*gone) + u".";
}

ScriptedWindow::Refusal ScriptedWindow::Activate(std::uint32_t number) {
    if (const Refusal missing = Missing({number}); !missing.empty()) return missing;
    m_main.pcPage.Select(m_main.pcPage.Find(Find(number)->Key()));
    return {};
}

ScriptedWindow::Refusal ScriptedWindow::Close(const std::vector<std::uint32_t>& numbers) {
    if (const Refusal missing = Missing(numbers); !missing.empty()) return missing;
    for (const std::uint32_t number : numbers) {
        // The last one would ask whether the program is to end; there is a command for that.
        if (m_main.pcPage.Count() == 1) return u"The last tab stays; quit ends the program.";
        if (Find(number)) m_main.CloseBrowserTab(static_cast<std::int32_t>(number));
    }
    return {};
}

ScriptedWindow::Refusal ScriptedWindow::Reload(const std::vector<std::uint32_t>& numbers) {
    if (const Refusal missing = Missing(numbers); !missing.empty()) return missing;
    std::vector<std::uint32_t> all = numbers;
    if (all.empty()) {
        for (const ScriptTab& tab : List()) all.push_back(tab.number);
    }
    for (const std::uint32_t number : all) {
        // A page may close others while it is loaded again.
        if (auto* view = m_main.Tabs().OpenView(static_cast<std::int32_t>(number)))
            ResumeNext(view->Control->Refresh());
    }
    return {};
}

ScriptedWindow::Refusal ScriptedWindow::MayRun(TextView tool) const {
    const auto* found = m_main.actBar.Find(tool);
    if (!found) return u"There is no such command: " + Text(tool);
    if (!found->Enabled()) return u"The command is disabled at the moment: " + Text(tool);
    return {};
}

void ScriptedWindow::RunCommand(TextView tool) {
    if (const auto* found = m_main.actBar.Find(tool)) m_main.actBar_Click(*found);
}

ScriptedWindow::Refusal ScriptedWindow::MayRead(std::uint32_t number) const {
    if (const Refusal missing = Missing({number}); !missing.empty()) return missing;
    auto* view = m_main.Tabs().OpenView(static_cast<std::int32_t>(number));
    if (!view) return u"The tab shows nothing.";
    return view->Privacy == Privacy::Private ? Text(u"The tab is private.") : Text();
}

bool ScriptedWindow::AnyLoading(const std::vector<std::uint32_t>& numbers) const {
    std::vector<std::uint32_t> all = numbers;
    if (all.empty()) {
        for (std::size_t at = 1; at <= m_main.pcPage.Count(); ++at)
            all.push_back(static_cast<std::uint32_t>(m_main.pcPage.FindAt(at)->Tag));
    }
    return std::ranges::any_of(all, [this](std::uint32_t number) {
        auto* view = m_main.Tabs().OpenView(static_cast<std::int32_t>(number));
        return view && view->Control->Progress() == PageProgress::Loading;
    });
}

} // namespace tessa
