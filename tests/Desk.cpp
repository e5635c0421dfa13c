#include "tests/Desk.h"

#include "base/ResumeNext.h"
#include "settings/frmSettings.h"
#include "tabs/TabKeys.h"
#include "tiles/TileText.h"

#include <utility>
#include <vector>

namespace tessa {

Desk::Desk(DeskSetting setting)
    : FakeSurroundings(setting.shared),
      groupFolder(std::move(setting.groupFolder)),
      favoritesFolder(std::move(setting.favoritesFolder)),
      main(InstalledPlatform(setting.probe)),
      m_skippedBefore(SkippedSteps()) {
    window.closed = [this] {
        if (main.Form_QueryUnload()) main.Form_Unload();
    };
    main.sbStatus.Complaint.ConnectForLife([this](TextView words) { main.sbStatus.SimpleText = Text(words); });
}

MainWindowPlatform Desk::InstalledPlatform(AddressProbe* probe) {
    MainWindowPlatform platform = Platform(views, {.probe = probe});
    platform.programPath = u"/programs/tessaview";
    platform.groupFolder = groupFolder;
    platform.favoritesFolder = favoritesFolder;
    return platform;
}

Desk::~Desk() { EXPECT_EQ(SkippedSteps(), m_skippedBefore) << "a step was skipped that was not announced"; }

void Desk::Start(TextView commandLine) {
    main.Form_Load(commandLine);
    window.Show();
    main.Form_Activate();
}

void Desk::StartWithTabs(int count) {
    Start();
    for (int i = 2; i <= count; ++i) {
        ClickTab(static_cast<std::size_t>(i - 1));
        main.GetNewBrowser(InFront::No);
    }
    for (int i = 1; i <= count; ++i) PageIsCalled(i, Decimal(i));
    ClickTab(1);
}

std::string Desk::Strip() const {
    std::string all;
    for (std::size_t i = 1; i <= main.pcPage.Count(); ++i) {
        const auto* tab = main.pcPage.FindAt(i);
        const std::string key = ToUtf8(tab->Key()).substr(3);
        all += (all.empty() ? "" : " ") + (tab == main.pcPage.SelectedItem() ? "[" + key + "*]" : key);
    }
    return all;
}

std::string Desk::Units() const {
    std::string all;
    const TabGroup* open = nullptr;
    const auto& strip = main.pcPage;
    for (std::size_t position = 1; position <= strip.Count(); ++position) {
        const tessa::Tab& tab = TabAt(position);
        if (open && tab.Group() != open) all += ")";
        if (position > 1) all += " ";
        if (tab.Group() && tab.Group() != open) {
            const TabGroup& group = *tab.Group();
            all += ToUtf8(group.Name()) + (group.Folded() ? "-" : "") +
                   (main.TabGroups().IsChanged(group.Id()) ? "!" : "") +
                   (group.Loading() > 0 ? std::to_string(group.Loading()) : "") + "(";
        }
        open = tab.Group();
        const std::string number = (tab.Pinned() ? "^" : "") + std::to_string(tab.Tag);
        all += &tab == strip.SelectedItem() ? "[" + number + "*]" : number;
    }
    return all + (open ? ")" : "");
}

std::string Desk::Captions() const {
    std::string all;
    for (std::size_t i = 1; i <= main.pcPage.Count(); ++i) {
        const auto* tab = main.pcPage.FindAt(i);
        const std::string face = ToUtf8(tab->Caption()) + (tab->Image() == TabImage::Red ? "!" : "");
        all += (all.empty() ? "" : " ") + (tab == main.pcPage.SelectedItem() ? "[" + face + "*]" : face);
    }
    return all;
}

std::string Desk::Enabled() const {
    std::string all;
    for (const auto& [name, word] : std::vector<std::pair<TextView, std::string>>{
             {u"mnuGoBack", "Back"}, {u"mnuGoForward", "Forward"}, {u"mnuStop", "Stop"}, {u"mnuRefresh", "Refresh"}}) {
        if (main.actBar.Find(name)->Enabled()) all += (all.empty() ? "" : " ") + word;
    }
    return all;
}

std::string Desk::Said() const {
    return ToUtf8(main.sbStatus.Notice()) + (main.sbStatus.Undo.Visible() ? " [Undo]" : "");
}

Tab& Desk::TabAt(std::size_t position) const {
    auto* tab = main.pcPage.FindAt(position);
    Must(tab);
    return *tab;
}

Tab& Desk::TabOf(std::int32_t index) const {
    auto* tab = TabOfView(main.pcPage, index);
    Must(tab);
    return *tab;
}

void Desk::OpenTabMenu(std::size_t position) { main.StripInput().OpenPopup(position); }

void Desk::LaySideBySide(TextView layout) {
    const auto read = TileLayoutIn(layout);
    Must(read.has_value());
    main.Tiles().Show(*read);
}

std::string Desk::SideBySide() {
    const auto* layout = main.Tiles().Shown();
    return layout ? ToUtf8(TileText(*layout)) : "alone";
}

void Desk::UseIndexesUpTo(std::int32_t last) {
    for (std::int32_t index = 0; index < last;) {
        NewTab(InFront::No);
        index = TabAt(2).Tag;
        Close(index);
    }
}

void Desk::CloseRightOf(std::size_t position) {
    OpenTabMenu(position);
    Click(u"xtrTabCloseRight");
}

tessa::Tool& Desk::Tool(TextView name) const {
    auto* tool = main.actBar.Find(name);
    Must(tool);
    return *tool;
}

tessa::Band& Desk::Band(TextView name) const {
    auto* band = main.actBar.FindBand(name);
    Must(band);
    return *band;
}

ComboTool& Desk::Combo(TextView name) const {
    auto* box = main.actBar.FindCombo(name);
    Must(box);
    return *box;
}

bool Desk::Renews(TextView band) {
    const int before = folderWatch.asked;
    OpenMenu(band);
    return folderWatch.asked != before;
}

void Desk::ChangeFolderOf(TextView band) {
    folderWatch.Changed(band == u"bndTessaGroupsMenu" ? groupFolder : favoritesFolder);
}

std::string Desk::Saving() const {
    return main.sbStatus.Saving.Visible() ? ToUtf8(main.sbStatus.Saving.Caption()) : "(nothing)";
}

void Desk::Set(TextView name, TextView value) {
    settings.Put(name, value);
    const auto before = std::exchange(inSettings, [](frmSettings& form) { form.cmdOK.Click(); });
    Click(u"mnuSettings");
    inSettings = before;
}

void Desk::ClickTab(std::size_t position) { main.pcPage.UserClick(main.pcPage.FindAt(position)); }

void Desk::Click(TextView tool) {
    auto* found = main.actBar.Find(tool);
    ASSERT_NE(found, nullptr);
    main.actBar.UserClick(*found);
}

void Desk::TypeAddress(TextView text) {
    auto& box = Combo(u"cboAddress");
    box.Value = Text(text);
    main.actBar.UserKey(box, {Keys::kEnter, 0});
}

void Desk::Type(TextView box, TextView text) {
    auto& combo = Combo(box);
    for (const char16_t each : text) {
        Text value = combo.Value();
        const TextSelection selected = combo.Selection();
        combo.Value = value.replace(selected.Start, selected.Length, 1, each);
        combo.Selection = TextSelection{selected.Start + 1, 0};
        main.actBar.TextChange(combo);
    }
}

void Desk::Backspace(TextView box) {
    auto& combo = Combo(box);
    TextSelection selected = combo.Selection();
    if (selected.Length == 0) selected = {selected.Start - 1, 1};
    Text value = combo.Value();
    combo.Value = value.erase(selected.Start, selected.Length);
    combo.Selection = TextSelection{selected.Start, 0};
    main.actBar.TextChange(combo);
}

KeyUsed Desk::Press(TextView box, KeyStroke key) { return main.actBar.UserKey(Combo(box), key); }

void Desk::Choose(TextView box, std::size_t index) {
    auto& combo = Combo(box);
    const Text item = combo.List().at(index);
    combo.Value = item;
    main.actBar.SelChange(combo);
}

std::string Desk::Box(TextView box) const {
    const auto& combo = *main.actBar.FindCombo(box);
    const Text& value = combo.Value();
    const auto [start, length] = combo.Selection();
    if (length == 0) return ToUtf8(value);
    return ToUtf8(value.substr(0, start) + u"[" + value.substr(start, length) + u"]" + value.substr(start + length));
}

std::string Desk::List(TextView box) const {
    std::string all;
    for (const Text& item : main.actBar.FindCombo(box)->List()) all += "[" + ToUtf8(item) + "]";
    return all;
}

void Desk::PageLoads(int index, TextView address, TextView title) {
    auto& view = views.At(index);
    auto& events = view.events;
    const auto n = static_cast<std::int16_t>(index);
    events.BeforeNavigate2(n, PageLevel::Top, address);
    view.busy = true;
    events.DownloadBegin(n);
    view.location = address;
    view.name = title;
    events.NavigateComplete2(n, PageLevel::Top, address);
    events.TitleChange(n, title);
    view.busy = false;
    events.DownloadComplete(n);
    events.DocumentComplete(n, PageLevel::Top, address);
}

void Desk::PageBegins(int index, TextView address) {
    Events().BeforeNavigate2(static_cast<std::int16_t>(index), PageLevel::Top, address);
}

void Desk::PageIsCalled(int index, TextView title) { Events().TitleChange(static_cast<std::int16_t>(index), title); }

void Desk::PageMayGo(int index, HistoryCommand where, bool may) {
    Events().CommandStateChange(static_cast<std::int16_t>(index), where, may);
}

void Desk::PageClosesItself(int index) { Events().WindowClosing(static_cast<std::int16_t>(index)); }

void Desk::PageSaysWhetherItLoads() { Events().DownloadBegin(1); }

} // namespace tessa
