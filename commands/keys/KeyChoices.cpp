#include "commands/keys/KeyChoices.h"

#include "bar/KeyRules.h"
#include "bar/ToolName.h"
#include "base/Address.h"
#include "base/Captions.h"
#include "commands/keys/WindowKeys.h"

#include <algorithm>

namespace tessa {

namespace {

// They are about the tab whose menu is open, and without one they do nothing.
constexpr TextView kOnlyInAMenu = u"Popup";

Text Quoted(const Tool& tool) { return u"\u201C" + WithoutAccessKey(tool.Caption()) + u"\u201D"; }

/// Whether a key clicks that tool, and the click does something.
bool TakesKeys(const CommandBar& bar, const Tool& tool) {
    return tool.Kind() != ToolKind::Label && tool.Category != kOnlyInAMenu && bar.Find(tool.Name()) == &tool;
}

Text Joined(const std::vector<KeyStroke>& keys) {
    Text all;
    for (const KeyStroke key : keys) all += (all.empty() ? u"" : u", ") + KeyWords::Shown(key);
    return all;
}

bool HasAll(const Text& text, const Text& words) {
    for (std::size_t at = 0; at < words.size();) {
        const std::size_t end = std::min(words.find(u' ', at), words.size());
        if (text.find(words.substr(at, end - at)) == Text::npos) return false;
        at = end + 1;
    }
    return true;
}

} // namespace

std::vector<KeyRow> KeyChoices::Rows(TextView search) const {
    const CommandBar& bar = m_custom.Bar();
    const Text words = Address::CaseFolded(search);
    std::vector<KeyRow> rows;
    for (const Text& category : m_custom.Categories()) {
        for (const auto& tool : m_custom.Commands(category)) {
            if (!TakesKeys(bar, *tool)) continue;
            std::vector<KeyStroke> keys = KeysOf(*tool);
            std::ranges::copy(FixedKeysOf(*tool), std::back_inserter(keys));
            KeyRow row{tool, Customization::TitleOf(*tool), category, Joined(keys), IsChanged(*tool)};
            if (HasAll(Address::CaseFolded(row.Title + u"\n" + row.Category + u"\n" + row.Keys), words))
                rows.push_back(std::move(row));
        }
    }
    return rows;
}

std::vector<KeyStroke> KeyChoices::KeysOf(const Tool& tool) const {
    return m_custom.Bar().Combinations.Of(tool.Name());
}

std::vector<KeyStroke> KeyChoices::FixedKeysOf(const Tool& tool) const {
    return ToolKeys::Fixed(m_custom.Bar(), tool.Name());
}

bool KeyChoices::IsChanged(const Tool& tool) const {
    return KeysOf(tool) != m_custom.Bar().Combinations.DesignedFor(tool.Name());
}

bool KeyChoices::AnyChanged() const { return m_custom.Bar().Combinations.AnyChosen(); }

Text KeyChoices::TitleOf(TextView tool) const {
    const Tool* found = m_custom.Bar().Find(tool);
    return found ? Quoted(*found) : Text(tool);
}

const Tool* KeyChoices::FindAccessKey(KeyStroke key) const {
    if (key.Shift != Keys::kAlt) return nullptr;
    for (const auto& band : m_custom.Bar().Bands()) {
        if (band->Kind() != BandKind::MenuBar) continue;
        for (const BandEntry& entry : band->Entries()) {
            const auto letter = AccessKeyOf(entry.Item->Caption());
            if (entry.Item->Visible() && letter && *letter == key.KeyCode) return entry.Item.get();
        }
    }
    return nullptr;
}

// A tool's own design is never refused: Escape stops the page.
Text KeyChoices::Allowed(const Tool& tool, KeyStroke key) const {
    const auto designed = m_custom.Bar().Combinations.DesignedFor(tool.Name());
    return std::ranges::count(designed, key) > 0 ? Text() : KeyRules::Refusal(key);
}

/// What a combination does so far, as the end of a sentence; empty when nothing. What the user has chosen comes first.
Text KeyChoices::OwnerOf(const Tool& tool, KeyStroke key) const {
    const CommandBar& bar = m_custom.Bar();
    const Shortcut* taken = bar.Combinations.Find(key);
    if (taken && taken->ToolName != TextView(tool.Name())) return u"belongs to " + TitleOf(taken->ToolName) + u".";
    if (bar.Combinations.IsChosen(key)) return {};
    if (const WindowKey* own = WindowKeys::Find(key))
        return (own->BoxOn ? u"leads to the box " : u"runs ") + TitleOf(own->Tool) + u".";
    if (const Tool* menu = FindAccessKey(key))
        return (menu->SubBand.empty() ? u"runs " : u"opens the menu ") + Quoted(*menu) + u".";
    if (const auto step = CommandBar::StepOf(key))
        return *step == BarStep::MenuBar ? u"leads to the menu bar." : u"leads round the window.";
    return {};
}

KeyVerdict KeyChoices::Judge(const Tool& tool, KeyStroke key) const {
    const Text shown = KeyWords::Shown(key);
    const auto present = KeysOf(tool), fixed = FixedKeysOf(tool);
    if ((!present.empty() && present.front() == key) || std::ranges::count(fixed, key) > 0)
        return {false, shown + u" is its key already."};
    if (Text why = Allowed(tool, key); !why.empty()) return {false, std::move(why)};
    if (const Text owner = OwnerOf(tool, key); !owner.empty())
        return {true, shown + u" " + owner + u" Assign takes it over."};
    if (std::ranges::count(present, key) > 0) return {true, u"Assign makes it the one that menus show."};
    return {true, shown + u" is free."};
}

void KeyChoices::TakeFrom(TextView tool, KeyStroke key) {
    auto keys = m_custom.Bar().Combinations.Of(tool);
    std::erase(keys, key);
    m_custom.Bar().Combinations.Choose(tool, keys);
}

void KeyChoices::Assign(const Tool& tool, KeyStroke key) {
    if (!Judge(tool, key).Accepted) return;
    KeyTable& table = m_custom.Bar().Combinations;
    if (const Shortcut* taken = table.Find(key)) TakeFrom(Text(taken->ToolName), key);
    auto keys = KeysOf(tool);
    keys.insert(keys.begin(), key);
    table.Choose(tool.Name(), keys);
}

void KeyChoices::Remove(const Tool& tool, KeyStroke key) {
    const auto present = KeysOf(tool);
    if (std::ranges::count(present, key) > 0) TakeFrom(tool.Name(), key);
}

Text KeyChoices::Reset(const Tool& tool) {
    KeyTable& table = m_custom.Bar().Combinations;
    Text told;
    for (const KeyStroke key : table.DesignedFor(tool.Name())) {
        const Shortcut* taken = table.Find(key);
        if (!taken || taken->ToolName == TextView(tool.Name())) continue;
        const Text other(taken->ToolName);
        told += (told.empty() ? u"" : u" ") + KeyWords::Shown(key) + u" was taken from " + TitleOf(other) + u".";
        TakeFrom(other, key);
    }
    table.Reset(tool.Name());
    return told;
}

void KeyChoices::ResetAll() { m_custom.Bar().Combinations.ResetAll(); }

} // namespace tessa
