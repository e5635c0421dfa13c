#include "tiles/Tiles.h"

#include "tabs/TabKeys.h"
#include "tiles/TileText.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

/// As many tabs as a command that closed them is brought back of.
constexpr std::size_t kMostLeft = 1000;

} // namespace

Tiles::Tiles(TabSet& tabs, TabStrip& pcPage) : m_tabs(tabs), m_pcPage(pcPage) {
    m_tabs.Together = this;
    m_tabs.Closing.ConnectForLife([this](std::int32_t index) { OnClosing(index); });
    m_pcPage.Touched.ConnectForLife([this] { Touch(); });
}

const TileLayout* Tiles::FindOf(std::int32_t index) const {
    const auto found = std::ranges::find_if(m_layouts, [index](const TileLayout& each) { return each.Has(index); });
    return found == m_layouts.end() ? nullptr : &*found;
}

TileLayout* Tiles::FindOf(std::int32_t index) { return const_cast<TileLayout*>(std::as_const(*this).FindOf(index)); }

std::vector<std::int32_t> Tiles::BesideOf(std::int32_t Index) const {
    const auto* layout = FindOf(Index);
    if (!layout || layout->Full) return {};
    auto numbers = layout->Numbers();
    std::erase(numbers, Index);
    return numbers;
}

std::vector<std::int32_t> Tiles::LinkedWith(std::int32_t Index) const {
    const auto* layout = FindOf(Index);
    if (!layout || !layout->Linked) return {};
    auto numbers = layout->Numbers();
    std::erase(numbers, Index);
    return numbers;
}

void Tiles::Show(const TileLayout& layout) {
    const auto numbers = layout.Numbers();
    for (const std::int32_t each : numbers) Leave(each);
    m_layouts.push_back(layout);
    if (!layout.Has(Focus())) Select(numbers.front());
    ShowChange();
}

bool Tiles::ShowBeside(const std::vector<std::int32_t>& indexes) {
    const std::int32_t focus = Focus();
    std::vector<std::int32_t> wanted;
    for (const std::int32_t each : indexes) {
        if (each != focus && m_tabs.IsOpen(each)) wanted.push_back(each);
    }
    if (wanted.empty() || !m_tabs.IsOpen(focus)) return false;
    const auto* there = FindOf(focus);
    if (!there) {
        wanted.insert(wanted.begin(), focus);
        const auto layout = TileLayouts::Columns(wanted);
        if (layout) Show(*layout);
        return layout.has_value();
    }
    TileLayout changed = *there;
    changed.Full = false;
    if (!TileLayouts::SplitEqually(changed, focus, wanted)) return changed.Has(wanted.front());
    Show(changed);
    return true;
}

bool Tiles::Drop(std::int32_t index, std::int32_t at, TileEdge edge) {
    if (index == at || !m_tabs.IsOpen(index) || !m_tabs.IsOpen(at)) return false;
    const auto* there = FindOf(at);
    auto changed = there && there->Has(index) ? TileLayouts::Without(*there, index)
                   : there                    ? std::optional(*there)
                                              : std::nullopt;
    if (!changed) {
        const bool before = edge == TileEdge::Left || edge == TileEdge::Top;
        const std::vector<std::int32_t> both = before ? std::vector{index, at} : std::vector{at, index};
        const bool row = edge == TileEdge::Left || edge == TileEdge::Right;
        changed = row ? TileLayouts::Columns(both) : TileLayouts::Rows(both);
        if (changed && there) changed->Linked = there->Linked;
    } else if (!TileLayouts::Split(*changed, at, edge, index)) {
        return false;
    }
    if (!changed) return false;
    changed->Full = false;
    Show(*changed);
    Select(index);
    return true;
}

void Tiles::TakeOut(std::int32_t index) {
    if (!FindOf(index)) return;
    const std::int32_t neighbour = index == Focus() ? FindOf(index)->Neighbour(index) : 0;
    Leave(index);
    if (neighbour != 0) Select(neighbour);
    ShowChange();
}

void Tiles::Dissolve() {
    const auto* shown = Shown();
    if (!shown) return;
    m_layouts.erase(m_layouts.begin() + (shown - m_layouts.data()));
    ShowChange();
}

void Tiles::ToggleFull(std::int32_t index) {
    if (!FindOf(index)) return;
    Select(index);
    auto* layout = FindOf(index);
    layout->Full = !layout->Full;
    ShowChange();
}

void Tiles::ToggleLinked() {
    auto* layout = FindOf(Focus());
    if (!layout) return;
    layout->Linked = !layout->Linked;
    Changed();
}

void Tiles::MoveDivider(const TileDivider& divider, std::int32_t to, std::int32_t least) {
    auto* layout = FindOf(Focus());
    if (!layout) return;
    tessa::MoveDivider(*layout, divider, to, least);
    Changed();
}

void Tiles::Equalise(const TilePath& path) {
    auto* layout = FindOf(Focus());
    if (!layout) return;
    TileLayouts::Equalise(*layout, path);
    Changed();
}

void Tiles::ShowHeaders(bool show) {
    if (std::exchange(m_headers, show) != show) Changed();
}

void Tiles::BeginDrag(std::int32_t index) {
    if (index != Focus() || FindOf(index) || m_before == index) return;
    Select(m_before);
}

std::vector<Text> Tiles::Kept(const std::function<std::int32_t(std::int32_t)>& become) const {
    std::vector<Text> kept;
    for (const TileLayout& each : m_layouts) {
        if (const auto layout = TileLayouts::Renumbered(each, become)) kept.push_back(TileText(*layout));
    }
    return kept;
}

void Tiles::Restore(const std::vector<Text>& kept, const std::vector<std::int32_t>& indexes) {
    bool any = false;
    for (const Text& text : kept) {
        const auto read = TileLayoutIn(text);
        if (!read) continue;
        const auto layout = TileLayouts::Renumbered(*read, [&](std::int32_t number) {
            const auto place = static_cast<std::size_t>(number) - 1;
            const std::int32_t index = place < indexes.size() ? indexes[place] : 0;
            return m_tabs.IsOpen(index) && !IsInPane(index) ? index : 0;
        });
        if (layout) m_layouts.push_back(*layout);
        any |= layout.has_value();
    }
    if (any) ShowChange();
}

// Those beside it have stayed where they were, or are alone by now. Where they lie otherwise, it comes beside the one
// that it would have handed the keyboard to.
std::optional<TileLayout> Tiles::LayoutWith(const TileLayout& left, std::int32_t index) const {
    const auto numbers = left.Numbers();
    const auto lies = std::ranges::find_if(numbers, [&](std::int32_t each) { return each != index && IsInPane(each); });
    const TileLayout* there = lies == numbers.end() ? nullptr : FindOf(*lies);
    const auto stays = [&](std::int32_t each) {
        const bool with = there ? there->Has(each) : m_tabs.IsOpen(each) && !IsInPane(each);
        return each == index || with ? each : 0;
    };
    auto layout = TileLayouts::Renumbered(left, stays);
    if (!there || !layout) return layout;
    layout->Full = false;
    layout->Linked = there->Linked;
    if (TileLayouts::Without(*layout, index).value_or(*there).Numbers() == there->Numbers()) return layout;
    TileLayout beside = *there;
    beside.Full = false;
    const std::int32_t neighbour = layout->Neighbour(index);
    return TileLayouts::Split(beside, neighbour, TileEdge::Right, index) ? std::optional(beside) : std::nullopt;
}

void Tiles::Return(std::int32_t was, std::int32_t is) {
    const auto become = [=](std::int32_t number) { return number == was ? is : number; };
    for (auto& [index, left] : m_left) left = TileLayouts::Renumbered(left, become).value_or(left);
    const auto left = m_left.extract(was);
    const auto layout =
        left.empty() || IsInPane(is) || !m_tabs.IsOpen(is) ? std::nullopt : LayoutWith(left.mapped(), is);
    if (!layout) return;
    for (const std::int32_t each : layout->Numbers()) Leave(each);
    m_layouts.push_back(*layout);
    ShowChange();
}

void Tiles::Leave(std::int32_t index) {
    auto* layout = FindOf(index);
    if (!layout) return;
    if (auto rest = TileLayouts::Without(*layout, index))
        *layout = *std::move(rest);
    else
        m_layouts.erase(m_layouts.begin() + (layout - m_layouts.data()));
}

void Tiles::Select(std::int32_t index) {
    if (auto* tab = TabOfView(m_pcPage, index)) m_pcPage.Select(tab);
}

// What lies beside the selected tab's page is another than before.
void Tiles::ShowChange() {
    m_tabs.pcPage_Click();
    Changed();
}

void Tiles::Touch() {
    const std::int32_t front = Focus();
    if (front == m_front) return;
    m_before = std::exchange(m_front, front);
    if (!m_layouts.empty()) Changed();
}

// The one beside it gets its room and the keyboard. Else a tab that is shown nowhere would come to the front.
void Tiles::OnClosing(std::int32_t index) {
    const auto* layout = FindOf(index);
    if (!layout) return;
    const std::int32_t neighbour = layout->Neighbour(index);
    const bool focused = index == Focus();
    m_left[index] = *layout;
    if (m_left.size() > kMostLeft) m_left.erase(m_left.begin());
    Leave(index);
    if (focused) Select(neighbour);
    Changed();
}

} // namespace tessa
