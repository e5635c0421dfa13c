#include "commands/Customization.h"

#include "bar/BandRules.h"
#include "bar/CommandBarLayout.h"
#include "bar/ToolName.h"
#include "base/Captions.h"
#include "commands/DesignTimeBar.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tessa {

namespace {

constexpr std::int32_t kMostUserBands = 99;
constexpr std::array kBuiltAtRunTime{u"bndFavorites"_band, u"bndTessaGroupsMenu"_band};
// The master list spells the name otherwise than any command; the font menu's own tool is offered in its place.
constexpr ToolName kNoCommand = u"mnFontLarge"_tool;

bool IsOffered(const Tool& tool) { return !tool.Category.empty() && tool.Name() != kNoCommand; }

std::vector<std::shared_ptr<Tool>> Offered(const CommandBar& bar) {
    std::vector<std::shared_ptr<Tool>> offered;
    std::ranges::copy_if(bar.Tools(), std::back_inserter(offered), [](const auto& tool) { return IsOffered(*tool); });
    for (const auto& own : bar.OwnTools()) {
        if (IsOffered(*own.Item)) offered.push_back(own.Item);
    }
    return offered;
}

std::size_t PlaceOf(const Band& band, const Tool& tool) {
    const auto& entries = band.Entries();
    const auto found = std::ranges::find(entries, &tool, [](const BandEntry& entry) { return entry.Item.get(); });
    return static_cast<std::size_t>(found - entries.begin());
}

TextView KindWord(BandKind kind) {
    switch (kind) {
    case BandKind::MenuBar:
        return u"";
    case BandKind::Toolbar:
        return u"Toolbar: ";
    case BandKind::Menu:
        return u"Menu: ";
    case BandKind::Popup:
        return u"Pop-up menu: ";
    }
    return u"";
}

} // namespace

void Customization::Tell() const { Changed(); }

bool Customization::MayArrange(const Band& band) {
    return !band.IsRunTime() && !std::ranges::count(kBuiltAtRunTime, TextView(band.Name()));
}

std::vector<Band*> Customization::Toolbars() const {
    std::vector<Band*> toolbars;
    for (const BandKind kind : {BandKind::MenuBar, BandKind::Toolbar}) {
        for (const auto& band : m_bar.Bands()) {
            if (band->Kind() == kind) toolbars.push_back(band.get());
        }
    }
    return toolbars;
}

void Customization::Show(Band& band, bool visible) {
    band.Visible = visible || !MayHide(band);
    Tell();
}

Text Customization::Refusal(TextView caption, const Band* renamed) const {
    const Text clean = BandRules::CleanCaption(caption);
    if (clean.empty()) return u"Type a name for the toolbar.";
    for (const Band* band : Toolbars()) {
        if (band != renamed && band->Caption() == clean) return u"There is a toolbar of that name already.";
    }
    return {};
}

Band* Customization::New(TextView caption) {
    if (!Refusal(caption).empty()) return nullptr;
    std::int32_t number = 1, row = 0;
    while (m_bar.FindBand(CommandBarLayout::UserBandName(number))) ++number;
    if (number > kMostUserBands) return nullptr;
    for (const Band* band : Toolbars()) row = std::max(row, band->Dock().Row);
    Band* made = m_bar.AddBand(CommandBarLayout::UserBandName(number), BandRules::CleanCaption(caption),
                               BandKind::Toolbar, MadeFrom::User{});
    if (!made) return nullptr;
    made->Dock = Docking{DockSide::Top, row + 1, 0, {}, {}};
    Tell();
    return made;
}

void Customization::Rename(Band& band, TextView caption) {
    if (!band.IsUserMade() || !Refusal(caption, &band).empty()) return;
    band.Caption = BandRules::CleanCaption(caption);
    Tell();
}

void Customization::Delete(Band& band) {
    if (!band.IsUserMade()) return;
    m_bar.RemoveBand(Text(band.Name()));
    Tell();
}

void Customization::ResetQuietly(Band& band) {
    if (!MayArrange(band) || !DesignTimeBar::ResetBand(m_bar, band.Name())) return;
    for (const BandEntry& entry : std::vector(band.Entries())) TakeBoxOff(*entry.Item, band);
    BandRules::Mend(m_bar);
}

void Customization::Reset(Band& band) {
    ResetQuietly(band);
    Tell();
}

void Customization::ResetAll() {
    for (Band* band : Toolbars()) {
        if (band->IsUserMade()) m_bar.RemoveBand(Text(band->Name()));
    }
    for (Band* band : Bands()) ResetQuietly(*band);
    DesignTimeBar::ResetWidths(m_bar);
    m_bar.Look = BarLook();
    m_bar.Combinations.ResetAll();
    Tell();
}

std::vector<Text> Customization::Categories() const {
    std::vector<Text> categories;
    for (const auto& tool : Offered(m_bar)) {
        if (!std::ranges::count(categories, tool->Category)) categories.push_back(tool->Category);
    }
    return categories;
}

std::vector<std::shared_ptr<Tool>> Customization::Commands(TextView category) const {
    std::vector<std::shared_ptr<Tool>> commands = Offered(m_bar);
    std::erase_if(commands, [&](const auto& tool) { return tool->Category != category; });
    return commands;
}

Text Customization::TitleOf(const Tool& tool) {
    const Text title = PlainCaption(tool.Caption());
    if (tool.Kind() == ToolKind::Label) return title + u" (label)";
    return tool.Kind() == ToolKind::Combo ? title + u" (box)" : title;
}

std::vector<Band*> Customization::Bands() const {
    std::vector<Band*> bands = Toolbars();
    for (const BandKind kind : {BandKind::Menu, BandKind::Popup}) {
        for (const auto& band : m_bar.Bands()) {
            if (band->Kind() == kind && MayArrange(*band)) bands.push_back(band.get());
        }
    }
    return bands;
}

Text Customization::TitleOf(const Band& band) const {
    Text caption = band.Caption();
    for (const auto& tool : m_bar.Tools()) {
        if (caption.empty() && tool->SubBand == band.Name()) caption = PlainCaption(tool->Caption());
    }
    return Text(KindWord(band.Kind())) + caption;
}

bool Customization::Accepts(const Band& band, const Tool& tool) const {
    return MayArrange(band) && !tool.IsRunTime() && BandRules::MayList(m_bar, band, tool);
}

void Customization::TakeOut(Band& band, std::size_t index) {
    const BeginGroup group = band.Entries()[index].Group;
    band.RemoveAt(index);
    if (group == BeginGroup::Yes) band.SetGroup(index, BeginGroup::Yes);
}

void Customization::TakeBoxOff(const Tool& tool, const Band& keeping) {
    if (tool.Kind() != ToolKind::Combo) return;
    for (const auto& band : m_bar.Bands()) {
        const std::size_t place = PlaceOf(*band, tool);
        if (band.get() != &keeping && place < band->Entries().size()) TakeOut(*band, place);
    }
}

void Customization::Add(Band& band, std::size_t place, const std::shared_ptr<Tool>& tool) {
    if (!tool || !Accepts(band, *tool)) return;
    if (const std::size_t present = PlaceOf(band, *tool); present < band.Entries().size())
        return Move(band, present, band, place);
    TakeBoxOff(*tool, band);
    band.Insert(place, tool);
    Tell();
}

void Customization::Move(Band& from, std::size_t index, Band& to, std::size_t place) {
    if (index >= from.Entries().size() || !MayArrange(from) || !Accepts(to, *from.Entries()[index].Item)) return;
    if (&from == &to) return Reorder(from, index, place);
    const auto tool = from.Entries()[index].Item;
    TakeOut(from, index);
    const std::size_t present = PlaceOf(to, *tool);
    if (present < to.Entries().size()) return Reorder(to, present, place);
    to.Insert(place, tool);
    Tell();
}

// A separator goes along with its entry.
void Customization::Reorder(Band& band, std::size_t index, std::size_t place) {
    const BandEntry entry = band.Entries()[index];
    if (index < place) --place;
    if (place != index) {
        band.RemoveAt(index);
        band.Insert(place, entry.Item, entry.Group);
    }
    Tell();
}

void Customization::Remove(Band& band, std::size_t index) {
    if (index >= band.Entries().size() || !MayArrange(band)) return;
    TakeOut(band, index);
    Tell();
}

void Customization::MoveUp(Band& band, std::size_t index) {
    if (index > 0) Move(band, index, band, index - 1);
}

void Customization::MoveDown(Band& band, std::size_t index) {
    if (index + 1 < band.Entries().size()) Move(band, index, band, index + 2);
}

void Customization::ToggleGroup(Band& band, std::size_t index) {
    if (index >= band.Entries().size() || !MayArrange(band)) return;
    const bool begins = band.Entries()[index].Group == BeginGroup::Yes;
    band.SetGroup(index, begins ? BeginGroup::No : BeginGroup::Yes);
    Tell();
}

bool Customization::Accepts(const Band& band, const DraggedTool& dragged) const {
    return dragged.Item && Accepts(band, *dragged.Item) && (!dragged.From || MayArrange(*dragged.From));
}

void Customization::Drop(const DraggedTool& dragged, Band& band, std::size_t place) {
    if (dragged.From)
        Move(*dragged.From, dragged.Index, band, place);
    else
        Add(band, place, dragged.Item);
}

void Customization::DropOff(const DraggedTool& dragged) {
    if (dragged.From) Remove(*dragged.From, dragged.Index);
}

void Customization::SetLook(const BarLook& look) {
    m_bar.Look = look;
    Tell();
}

} // namespace tessa
