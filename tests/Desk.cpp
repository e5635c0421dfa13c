#include "tests/Desk.h"

#include <vector>

Desk::Desk(FakeSettings* shared)
    : FakeSurroundings(shared), main(InstalledPlatform()), m_skippedBefore(SkippedSteps()) {
    window.closed = [this] {
        if (main.Form_QueryUnload()) main.Form_Unload();
    };
    main.sbStatus.Complaint.ConnectForLife([this](TextView words) { main.Tabs.ShowStatusText(words); });
}

MainWindowPlatform Desk::InstalledPlatform() {
    MainWindowPlatform platform = Platform(views);
    platform.programPath = u"/programs/tessaview";
    platform.groupFolder = u"/groups/";
    platform.favoritesFolder = u"/favorites";
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
    for (int i = 1; i <= count; ++i) main.Tabs.SetTabTitle(i, Decimal(i));
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

void Desk::ClickTab(std::size_t position) { main.pcPage.UserClick(main.pcPage.FindAt(position)); }

void Desk::Click(TextView tool) {
    auto* found = main.actBar.Find(tool);
    ASSERT_NE(found, nullptr);
    main.actBar.UserClick(*found);
}

void Desk::TypeAddress(TextView text) {
    auto& box = *main.Tabs.AddressCombo();
    box.Value = Text(text);
    main.actBar.ComboKeyDown(box, {Keys::kEnter, 0});
}

void Desk::Type(TextView box, TextView text) {
    auto& combo = *main.actBar.FindCombo(box);
    for (const char16_t each : text) {
        Text value = combo.Value();
        const TextSelection selected = combo.Selection();
        combo.Value = value.replace(selected.Start, selected.Length, 1, each);
        combo.Selection = TextSelection{selected.Start + 1, 0};
        main.actBar.TextChange(combo);
    }
}

void Desk::Backspace(TextView box) {
    auto& combo = *main.actBar.FindCombo(box);
    TextSelection selected = combo.Selection();
    if (selected.Length == 0) selected = {selected.Start - 1, 1};
    Text value = combo.Value();
    combo.Value = value.erase(selected.Start, selected.Length);
    combo.Selection = TextSelection{selected.Start, 0};
    main.actBar.TextChange(combo);
}

KeyUsed Desk::Press(TextView box, KeyStroke key) { return main.actBar.ComboKeyDown(*main.actBar.FindCombo(box), key); }

void Desk::Choose(TextView box, std::size_t index) {
    auto& combo = *main.actBar.FindCombo(box);
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
