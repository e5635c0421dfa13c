#include "bar/CommandBar.h"

#include "base/ResumeNext.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

struct StepKey {
    KeyStroke key;
    BarStep step;
};

// Alt counts when it goes up: until then it may still become a combination.
constexpr std::array kSteps{
    StepKey{{Keys::kAltAlone, 0}, BarStep::MenuBar},
    StepKey{{Keys::kF10, 0}, BarStep::MenuBar},
    StepKey{{Keys::kF6, 0}, BarStep::Next},
    StepKey{{Keys::kF6, Keys::kShift}, BarStep::Previous},
};

} // namespace

void ComboTool::ShowSigned(Text text, BoxSign sign) {
    sign.Of = text;
    Sign = std::move(sign);
    Value = std::move(text);
}

BoxSign ComboTool::SignBeside(TextView text) const {
    if (Sign().Meaning.empty() || text == Sign().Of) return Sign();
    return {{u"document-edit"}, u"Not the address of the page that is shown", {}};
}

void ComboTool::Measure(Pixels width) {
    m_measuring = true;
    Width = width;
    m_measuring = false;
}

void ComboTool::InsertFirst(Text item) {
    std::vector<Text> list = List();
    list.insert(list.begin(), std::move(item));
    List = std::move(list);
}

void ComboTool::RemoveItem(std::size_t index) {
    if (index >= ListCount()) return;
    std::vector<Text> list = List();
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
    List = std::move(list);
}

void CommandBar::Keep(std::shared_ptr<Tool> tool) {
    Must(tool && m_byName.emplace(tool->Name(), tool).second);
    m_tools.push_back(std::move(tool));
}

std::shared_ptr<Tool> CommandBar::Share(TextView name) const {
    const auto found = m_byName.find(Text(name));
    return found == m_byName.end() ? nullptr : found->second;
}

Tool* CommandBar::Find(TextView name) const {
    if (const auto found = m_byName.find(Text(name)); found != m_byName.end()) return found->second.get();
    for (const auto& band : m_bands) {
        if (Tool* tool = band->Find(name)) return tool;
    }
    const auto own = std::ranges::find(m_ownTools, name, [](const auto& each) { return TextView(each.Item->Name()); });
    return own == m_ownTools.end() ? nullptr : own->Item.get();
}

std::shared_ptr<Tool> CommandBar::AddOwn(Text band, std::unique_ptr<Tool> tool) {
    Must(tool && !ShareOwn(band, tool->Name()));
    m_ownTools.push_back({std::move(band), std::move(tool)});
    return m_ownTools.back().Item;
}

std::shared_ptr<Tool> CommandBar::ShareOwn(TextView band, TextView name) const {
    const auto found = std::ranges::find_if(
        m_ownTools, [&](const OwnTool& own) { return own.Band == band && own.Item->Name() == name; });
    return found == m_ownTools.end() ? nullptr : found->Item;
}

ComboTool* CommandBar::FindCombo(TextView name) const { return dynamic_cast<ComboTool*>(Find(name)); }

Band* CommandBar::AddBand(Text name, Text caption, BandKind kind, BandSource source) {
    if (FindBand(name)) return nullptr;
    m_bands.push_back(std::make_unique<Band>(std::move(name), std::move(caption), kind, std::move(source)));
    Band* band = m_bands.back().get();
    m_bandsByName.emplace(band->Name(), band);
    TellOf(kind);
    return band;
}

void CommandBar::Enable(TextView tool, bool enabled) {
    if (auto* found = Find(tool)) found->Enabled = enabled;
}

Band* CommandBar::FindBand(TextView name) const {
    const auto found = m_bandsByName.find(Text(name));
    return found == m_bandsByName.end() ? nullptr : found->second;
}

void CommandBar::RemoveBand(TextView name) {
    const auto place = std::ranges::find(m_bands, name, [](const auto& band) { return TextView(band->Name()); });
    if (place == m_bands.end()) return;
    // The view must let go of the band's tools before they end.
    const std::unique_ptr<Band> removed = std::move(*place);
    m_bandsByName.erase(removed->Name());
    m_bands.erase(place);
    removed->Clear();
    TellOf(removed->Kind());
}

void CommandBar::RemoveRunTimeBands() {
    std::vector<Text> names;
    for (const auto& band : m_bands) {
        if (band->IsRunTime()) names.push_back(band->Name());
    }
    for (const Text& name : names) RemoveBand(name);
}

void CommandBar::TellOf(BandKind kind) const {
    // Only a toolbar or the menu bar is on the screen by itself; a menu is made when it opens.
    if (kind == BandKind::Toolbar || kind == BandKind::MenuBar) BandsChanged();
}

void CommandBar::Popup(TextView band) {
    if (Band* found = FindBand(band)) PopupWanted(*found);
}

void CommandBar::FocusTool(TextView band, TextView tool) {
    Band* found = FindBand(band);
    Tool* item = found ? found->Find(tool) : nullptr;
    if (item) FocusWanted(*found, *item);
}

void CommandBar::FocusBox(const Tool& box) {
    for (const auto& band : m_bands) {
        if (band->Kind() == BandKind::Toolbar && band->Find(box.Name())) return FocusTool(band->Name(), box.Name());
    }
}

void CommandBar::RecalcLayout() { LayoutWanted(); }

Tool* CommandBar::ToolFor(KeyStroke key) const {
    if (m_edited && key == KeyStroke{Keys::kEscape, 0}) return nullptr;
    const Shortcut* shortcut = Combinations.Find(key);
    Tool* tool = shortcut ? Find(shortcut->ToolName) : nullptr;
    return tool && tool->Enabled() ? tool : nullptr;
}

void CommandBar::SetEdited(const ComboTool* box) {
    m_edited = box;
    if (box) NoteTyped();
}

KeyUsed CommandBar::KeyDown(KeyStroke key) {
    // Its last way up may have gone to another window.
    std::erase(m_usedDown, key.KeyCode);
    Tool* tool = ToolFor(key);
    if (!tool && StepBy(key) == KeyUsed::No) return KeyUsed::No;
    // Before the click, which may run a loop of its own in which the key goes up.
    m_usedDown.push_back(key.KeyCode);
    if (tool) RunByKey(*tool);
    return KeyUsed::Yes;
}

void CommandBar::RunByKey(Tool& tool) {
    const bool onlyOpens = !tool.SubBand.empty() && !tool.ClickWithSubBand;
    if (tool.Kind() == ToolKind::Combo)
        FocusBox(tool);
    else if (!onlyOpens)
        UserClick(tool);
    else
        MenuWanted(tool);
}

std::optional<BarStep> CommandBar::StepOf(KeyStroke key) {
    const auto* found = std::ranges::find(kSteps, key, &StepKey::key);
    return found == kSteps.end() ? std::nullopt : std::optional(found->step);
}

KeyUsed CommandBar::StepBy(KeyStroke key) const {
    const auto step = StepOf(key);
    if (!step || !StepWanted.HasListeners()) return KeyUsed::No;
    StepWanted(*step);
    return KeyUsed::Yes;
}

// Everything happens when a key goes down. Its way up is no news to whoever has not seen that.
KeyUsed CommandBar::KeyUp(KeyStroke key) {
    if (key.KeyCode == Keys::kAltAlone) return StepBy({Keys::kAltAlone, 0});
    return std::erase(m_usedDown, key.KeyCode) > 0 ? KeyUsed::Yes : KeyUsed::No;
}

void CommandBar::OpenBand(Band& band) const { BandOpen(band); }

void CommandBar::UserClick(Tool& tool) const {
    if (tool.Enabled()) Click(tool);
}

KeyUsed CommandBar::UserKey(ComboTool& box, KeyStroke key) const {
    KeyUsed used = KeyUsed::No;
    ComboKeyDown(box, key, used);
    return used;
}

} // namespace tessa
