#include "bar/CommandBarLayout.h"

#include "bar/BandRules.h"
#include "bar/CommandBarLayoutWords.h"
#include "bar/KeyRules.h"
#include "base/ini/IniFile.h"

#include <algorithm>
#include <set>

namespace tessa {

using namespace LayoutWords;

namespace {

constexpr std::size_t kLongestFile = 1U << 20U;
constexpr std::int32_t kWidest = 10000;
constexpr std::int32_t kMostUserBands = 99;
constexpr TextView kUserBand = u"gui";
constexpr char kGroupMark = '|', kOwnMark = '/';

/// A tool's name in the file. One that a band has of its own stands behind the band's name.
std::string NameOf(const CommandBar& bar, const Tool& tool) {
    const auto& own = bar.OwnTools();
    const auto found = std::ranges::find(own, &tool, [](const auto& each) { return each.Item.get(); });
    return (found == own.end() ? "" : ToUtf8(found->Band) + kOwnMark) + ToUtf8(tool.Name());
}

std::shared_ptr<Tool> ToolOf(const CommandBar& bar, std::string_view name) {
    const auto mark = name.find(kOwnMark);
    if (mark == std::string_view::npos) return bar.Share(FromBytes(name));
    return bar.ShareOwn(FromBytes(name.substr(0, mark)), FromBytes(name.substr(mark + 1)));
}

std::vector<std::string> KnownNames(const CommandBar& bar) {
    std::vector<std::string> names;
    for (const auto& tool : bar.Tools()) names.push_back(NameOf(bar, *tool));
    for (const auto& own : bar.OwnTools()) names.push_back(NameOf(bar, *own.Item));
    return names;
}

std::string EntryWords(const CommandBar& bar, const Band& band) {
    std::vector<std::string> words;
    for (const BandEntry& entry : band.Entries()) {
        if (entry.Item->IsRunTime()) continue;
        words.push_back((entry.Group == BeginGroup::Yes ? std::string(1, kGroupMark) : "") + NameOf(bar, *entry.Item));
    }
    return ListWords(words);
}

std::string Line(std::string_view key, std::string_view value) {
    return std::string(key) + '=' + std::string(value) + "\r\n";
}

std::string Header(std::string_view name) { return '[' + std::string(name) + "]\r\n"; }

std::string BandLines(const CommandBar& bar, const Band& band) {
    return Header(ToUtf8(band.Name())) + Line("Kind", WordOf(kKinds, band.Kind())) +
           Line("Caption", '"' + ToUtf8(band.Caption()) + '"') + Line("Visible", WordOf(kTruths, band.Visible())) +
           Line("Dock", DockWords(band.Dock())) + Line("Tools", EntryWords(bar, band));
}

std::string LookLines(const CommandBar& bar) {
    const BarLook& look = bar.Look();
    return Header("Options") + Line("IconSize", WordOf(kIconSizes, look.Icons)) +
           Line("Text", WordOf(kTexts, look.Text)) + Line("ToolTips", WordOf(kTruths, look.ToolTips));
}

std::string WidthLines(const CommandBar& bar) {
    std::string lines = Header("Widths");
    for (const auto& tool : bar.Tools()) {
        const auto* box = dynamic_cast<const ComboTool*>(tool.get());
        // The width of a box that fills its row is the window's.
        if (box && !box->FillsRow())
            lines += Line(ToUtf8(box->Name()), std::to_string(std::clamp(box->Width().value, 0, kWidest)));
    }
    return lines;
}

/// The names of the tools that keys can be chosen for.
std::vector<Text> NamesForKeys(const CommandBar& bar) {
    std::vector<Text> names;
    for (const auto& tool : bar.Tools()) names.push_back(tool->Name());
    for (const auto& own : bar.OwnTools()) {
        // A key clicks the one of the master list.
        if (!bar.Share(own.Item->Name())) names.push_back(own.Item->Name());
    }
    return names;
}

/// Only what differs from the design, so that the keys of a later version's new commands come through.
std::string KeyLines(const CommandBar& bar) {
    std::string lines;
    for (const Text& tool : NamesForKeys(bar)) {
        if (!bar.Combinations.IsChosen(tool)) continue;
        std::vector<std::string> words;
        for (const KeyStroke key : bar.Combinations.Of(tool)) words.push_back(KeyWords::Word(key));
        lines += Line(ToUtf8(tool), ListWords(words));
    }
    return lines.empty() ? lines : Header("Keys") + lines;
}

/// A layout file while it is read into a bar.
class Reader {
public:
    Reader(CommandBar& bar, std::string_view bytes) : m_bar(bar), m_file(bytes), m_longest(bytes.size() + 1) {
        if (const auto known = ListOf(Value("Layout", "Known"))) m_known = {known->begin(), known->end()};
    }

    void Run() {
        ReadLook();
        ReadWidths();
        ReadKeys();
        const auto designed = Designed();
        for (const std::string& section : Sections()) ReadBand(section);
        if (!m_known.empty()) {
            for (const auto& [band, entries] : designed) AddNew(*band, entries);
        }
        BandRules::Mend(m_bar);
    }

private:
    using DesignedBands = std::vector<std::pair<Band*, std::vector<BandEntry>>>;

    [[nodiscard]] std::string Value(std::string_view section, std::string_view key) const {
        return m_file.Value(section, key, "", m_longest);
    }

    [[nodiscard]] std::vector<std::string> Sections() const { return NamesIn(m_file.SectionList(m_longest * 2)); }

    [[nodiscard]] DesignedBands Designed() const {
        DesignedBands designed;
        for (const auto& band : m_bar.Bands()) designed.emplace_back(band.get(), band->Entries());
        return designed;
    }

    void ReadLook() {
        BarLook look = m_bar.Look();
        look.Icons = ValueOf(kIconSizes, Value("Options", "IconSize")).value_or(look.Icons);
        look.Text = ValueOf(kTexts, Value("Options", "Text")).value_or(look.Text);
        look.ToolTips = ValueOf(kTruths, Value("Options", "ToolTips")).value_or(look.ToolTips);
        m_bar.Look = look;
    }

    void ReadWidths() {
        for (const auto& tool : m_bar.Tools()) {
            auto* box = dynamic_cast<ComboTool*>(tool.get());
            if (!box) continue;
            if (const auto width = NumberIn(Value("Widths", ToUtf8(box->Name())), 0, kWidest)) {
                box->Width = Pixels{*width};
                box->FillsRow = false;
            }
        }
    }

    void ReadKeys() {
        for (const Text& tool : NamesForKeys(m_bar)) {
            if (const auto keys = KeysOf(tool)) m_bar.Combinations.Choose(tool, *keys);
        }
    }

    /// What the file says of a tool's keys. A line with a word that is no combination, or one that no tool may have,
    /// says nothing.
    [[nodiscard]] std::optional<std::vector<KeyStroke>> KeysOf(const Text& tool) const {
        const std::string line = Value("Keys", ToUtf8(tool));
        const auto words = ListOf(line);
        if (!words) return std::nullopt;
        const auto designed = m_bar.Combinations.DesignedFor(tool);
        std::vector<KeyStroke> keys;
        for (const std::string_view word : *words) {
            const auto key = KeyWords::Of(word);
            if (!key) return std::nullopt;
            if (!KeyRules::Refusal(*key).empty() && !std::ranges::count(designed, *key)) return std::nullopt;
            keys.push_back(*key);
        }
        return keys;
    }

    void ReadBand(const std::string& section) {
        const auto kind = ValueOf(kKinds, Value(section, "Kind"));
        const auto visible = ValueOf(kTruths, Value(section, "Visible"));
        const auto dock = DockOf(Value(section, "Dock"));
        const auto tools = ListOf(Value(section, "Tools"));
        if (!kind || !visible || !dock || !tools) return;
        Band* band = m_bar.FindBand(FromBytes(section));
        if (!band) band = UserBand(section, *kind);
        if (!band || band->Kind() != *kind) return;
        // The menu bar is the way back to all that is hidden.
        band->Visible = *visible || *kind == BandKind::MenuBar;
        band->Dock = *dock;
        band->SetEntries(EntriesOf(*tools));
    }

    Band* UserBand(const std::string& section, BandKind kind) {
        const Text name = FromBytes(section);
        if (kind != BandKind::Toolbar || !name.starts_with(kUserBand)) return nullptr;
        const auto number = NumberIn(section.substr(kUserBand.size()), 1, kMostUserBands);
        const Text caption = BandRules::CleanCaption(FromBytes(Value(section, "Caption")));
        if (!number || caption.empty() || CommandBarLayout::UserBandName(*number) != name) return nullptr;
        return m_bar.AddBand(name, caption, kind, MadeFrom::User{});
    }

    std::vector<BandEntry> EntriesOf(const std::vector<std::string>& words) {
        std::vector<BandEntry> entries;
        for (const std::string_view word : words) {
            const bool group = word.starts_with(kGroupMark);
            auto tool = ToolOf(m_bar, word.substr(group ? 1 : 0));
            if (!tool) continue;
            m_listed.insert(tool.get());
            entries.push_back({std::move(tool), group ? BeginGroup::Yes : BeginGroup::No});
        }
        return entries;
    }

    /// Lists the tools of the design that are newer than the file, each behind the one that it follows there.
    void AddNew(Band& band, const std::vector<BandEntry>& designed) {
        for (std::size_t i = 0; i < designed.size(); ++i) {
            const BandEntry& entry = designed[i];
            if (m_known.contains(NameOf(m_bar, *entry.Item)) || m_listed.contains(entry.Item.get())) continue;
            if (Lists(band, *entry.Item)) continue;
            band.Insert(PlaceFor(band, designed, i), entry.Item, entry.Group);
        }
    }

    [[nodiscard]] static std::size_t PlaceOf(const Band& band, const Tool& tool) {
        const auto& entries = band.Entries();
        const auto found = std::ranges::find(entries, &tool, [](const BandEntry& each) { return each.Item.get(); });
        return static_cast<std::size_t>(found - entries.begin());
    }

    [[nodiscard]] static bool Lists(const Band& band, const Tool& tool) {
        return PlaceOf(band, tool) < band.Entries().size();
    }

    [[nodiscard]] static std::size_t PlaceFor(const Band& band, const std::vector<BandEntry>& designed, std::size_t i) {
        for (std::size_t before = i; before-- > 0;) {
            if (Lists(band, *designed[before].Item)) return PlaceOf(band, *designed[before].Item) + 1;
        }
        for (std::size_t after = i + 1; after < designed.size(); ++after) {
            if (Lists(band, *designed[after].Item)) return PlaceOf(band, *designed[after].Item);
        }
        return band.Entries().size();
    }

    CommandBar& m_bar;
    IniFile m_file;
    std::size_t m_longest;
    std::set<std::string> m_known;  ///< the tools of the day; none when that is not known
    std::set<const Tool*> m_listed; ///< by any band of the file
};

} // namespace

namespace CommandBarLayout {

std::string Save(const CommandBar& bar) {
    std::string bytes =
        Header("Layout") + Line("Known", ListWords(KnownNames(bar))) + LookLines(bar) + WidthLines(bar) + KeyLines(bar);
    for (const auto& band : bar.Bands()) {
        if (!band->IsRunTime()) bytes += BandLines(bar, *band);
    }
    return bytes;
}

void Load(CommandBar& bar, std::string_view bytes) {
    if (bytes.size() <= kLongestFile) Reader(bar, bytes).Run();
}

Text UserBandName(std::int32_t number) { return Text(kUserBand) + Decimal(number); }

} // namespace CommandBarLayout

} // namespace tessa
