#pragma once
#include "settings/SettingsStore.h"
#include "tabs/TabSleep.h"
#include "tests/fakes/FakeSurroundings.h"
#include "tests/fakes/FakeViews.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

/// What of the world is there before the window is.
struct DeskSetting {
    FakeSettings* shared = nullptr;       ///< settings of another process; nothing for those of a first start
    Text groupFolder = u"/groups/";       ///< with the separator at the end
    Text favoritesFolder = u"/favorites"; ///< without one
    AddressProbe* probe = nullptr;        ///< nothing for one that never answers
};

/// A user at the program: the real models and handlers of the main window, fakes for what lies outside. The user does
/// what verbs say. What he sees, states say: as short strings to compare with, or as the element that shows it.
class Desk : public FakeSurroundings {
public:
    Desk() : Desk(DeskSetting()) {}
    explicit Desk(FakeSettings* shared) : Desk(DeskSetting{.shared = shared}) {}
    explicit Desk(DeskSetting setting);
    /// Fails the test when a step was skipped that was not announced.
    ~Desk() override;

    /// Loads the window with that command line, shows it and activates it.
    void Start(TextView commandLine = u"");
    /// `count` tabs with the views 1 to count, named by their page's titles "1", "2", ...; the first is selected.
    void StartWithTabs(int count);

    // The window, step by step.
    void Load(TextView commandLine) { main.Form_Load(commandLine); }
    void Activate() { main.Form_Activate(); }
    void Resize() { main.Form_Resize(); }
    void Unload() { main.Form_Unload(); }
    /// What waits for room on the disk is written again.
    void RetryWrites() { main.RetryWrites(); }
    /// The journal of the session is written, as it is a part of a second after a change.
    void WriteSession() { main.Sessions().Write(); }

    // Tabs, by their positions from 1 or by the indexes of their views.
    /// The keys' numbers in the order of the strip, the selected one in brackets with a star: "1 [2*] 3".
    [[nodiscard]] std::string Strip() const;
    /// The same with captions, busy ones with a "!": "News! [Blank*]".
    [[nodiscard]] std::string Captions() const;
    /// The same with what belongs together: "^1 News(2 [3*]) 4 News(5)" has a pinned tab, and a group in two parts.
    /// Behind the name stands "-" when it is folded and "!" when it is not as its file. Then comes the number of tabs
    /// that load.
    [[nodiscard]] std::string Units() const;
    [[nodiscard]] std::size_t CountTabs() const { return main.pcPage.Count(); }
    [[nodiscard]] tessa::Tab& TabAt(std::size_t position) const;
    [[nodiscard]] tessa::Tab& TabOf(std::int32_t index) const;
    [[nodiscard]] tessa::Tab& SelectedTab() const { return *main.pcPage.SelectedItem(); }
    /// What a tab's tip says.
    [[nodiscard]] Text Describe(const tessa::Tab& tab) const { return main.Tabs().Describe(tab); }
    /// A tab's address in the list of tabs.
    [[nodiscard]] Text AddressOf(const tessa::Tab& tab) const { return main.Tabs().AddressOf(tab); }
    [[nodiscard]] TabPlacement PlaceOfTabs() const { return main.pcPage.Placement(); }
    void ClickTab(std::size_t position);
    void MoveTab(std::size_t from, std::size_t to) { main.pcPage.Move(&TabAt(from), to); }
    /// Opens the pop-up of the tab there; of no tab when there is none.
    void OpenTabMenu(std::size_t position);
    BrowserView* NewTab(InFront inFront, Privacy privacy = Privacy::Ordinary) {
        return main.GetNewBrowser(inFront, privacy);
    }
    void Close(std::int32_t index) { main.CloseBrowserTab(index); }
    void Pin(std::int32_t index, bool pinned = true) { main.pcPage.SetPinned(&TabOf(index), pinned); }
    void NameTab(std::size_t position, TextView name) { main.pcPage.SetName(&TabAt(position), Text(name)); }
    /// Opens tabs and closes them again until the view index `last` has been used.
    void UseIndexesUpTo(std::int32_t last);
    void CloseOtherTabs() { Click(u"mnuCloseAll"); }
    /// Closes all tabs right of that position, by its pop-up.
    void CloseRightOf(std::size_t position);
    /// The tab loses its view, as nothing that a user does can bring about.
    void TakeViewAway(std::size_t position) { TabAt(position).Tag = 99; }
    /// The strip loses the tab there, and its view stays.
    void TakeTabAway(std::size_t position) { main.pcPage.Remove(&TabAt(position)); }

    // Several tabs at once, by the indexes of their views.
    void ChooseTabs(const std::vector<std::int32_t>& indexes) { main.Choice().Replace(indexes); }
    [[nodiscard]] bool HasChosenTabs() { return main.Choice().Any(); }
    /// Lays them side by side, as the text says, see `TileText`.
    void LaySideBySide(TextView layout);
    void LayAlone() { main.Tiles().Dissolve(); }
    /// The panes that are shown, as such a text; "alone" when the selected tab has none beside it.
    [[nodiscard]] std::string SideBySide();

    // TessaGroups and where else tabs come from.
    void OpenGroup(TextView path) { main.OpenTessaGroup(path); }
    /// The group of the tab there.
    [[nodiscard]] TabGroup& GroupAt(std::size_t position) const { return *TabAt(position).Group(); }
    void FoldGroup(std::size_t position) { main.pcPage.SetFolded(&GroupAt(position), true); }
    /// Opens the pop-up of the group's head.
    void OpenGroupMenu(std::size_t position) { main.StripInput().OpenGroupPopup(GroupAt(position).Id()); }
    /// Writes into the group's file what its tabs show, and whether they show anything else.
    void SaveGroupBack(std::size_t position) { main.Groups().SaveBack(GroupAt(position).Id()); }
    [[nodiscard]] bool IsGroupToSave(std::size_t position) { return main.Groups().IsToSave(GroupAt(position).Id()); }
    void OpenGroups(const std::vector<Text>& paths) { main.OpenTessaGroups(paths); }
    void AddToGroup(TextView address, TextView path) { main.AddToTessaGroup(address, path); }
    void OpenGiven(BrowserView& view, TextView text) { main.OpenGiven(view, text); }
    void FollowStartLink(std::string_view link) { main.OpenStartLink(link); }

    // The command bar.
    [[nodiscard]] CommandBar& Bar() { return main.actBar; }
    [[nodiscard]] tessa::Tool& Tool(TextView name) const;
    [[nodiscard]] tessa::Band& Band(TextView name) const;
    [[nodiscard]] ComboTool& Combo(TextView name) const;
    /// The navigation commands that are enabled: "Back Stop".
    [[nodiscard]] std::string Enabled() const;
    void Click(TextView tool);
    /// Clicks a tool that no band lists.
    void ClickMade(const tessa::Tool& tool) { main.actBar_Click(tool); }
    void OpenMenu(TextView band) { main.actBar.OpenBand(Band(band)); }
    /// Opens a menu of files; whether it was made anew for that, because it was out of date.
    [[nodiscard]] bool Renews(TextView band);
    /// Something happens in the folder that the menu shows.
    void ChangeFolderOf(TextView band);
    /// Asks what can be done with an entry of a menu; whether anything can.
    bool PopUp(const tessa::Tool& entry) { return main.Menus().EntryPopup(entry); }
    /// What a middle click or the Delete key on an entry does once the menus have closed; nothing for most.
    [[nodiscard]] std::function<void()> MiddleClick(const tessa::Tool& entry) {
        return main.Menus().EntryMiddleClick(entry);
    }
    [[nodiscard]] std::function<void()> Delete(const tessa::Tool& entry) { return main.Menus().EntryDelete(entry); }
    /// The bar is arranged by its dialog, which saves it when it closes.
    void CloseCustomize() { main.SaveLayout(); }

    // Keys that the window gets first.
    KeyUsed Press(KeyStroke key, KeyboardOn keyboard = KeyboardOn::Other) { return main.Form_KeyDown(key, keyboard); }
    KeyUsed Release(KeyStroke key) { return main.Form_KeyUp(key); }
    void TypeOverPage() { main.Form_Type(); }

    // The boxes.
    [[nodiscard]] std::string Address() const { return ToUtf8(Combo(u"cboAddress").Value()); }
    void TypeAddress(TextView text);
    /// Types into a box over what is selected, key by key.
    void Type(TextView box, TextView text);
    void Backspace(TextView box);
    KeyUsed Press(TextView box, KeyStroke key);
    /// Chooses an item of a box's list, counted from 0.
    void Choose(TextView box, std::size_t index);
    /// A box's text, what is selected of it in brackets: "ne[ws.example]".
    [[nodiscard]] std::string Box(TextView box) const;
    /// The items of a box's list in brackets.
    [[nodiscard]] std::string List(TextView box) const;

    // The status bar.
    [[nodiscard]] std::string Status() const { return ToUtf8(main.sbStatus.SimpleText()); }
    /// What the program itself has to say, with " [Undo]" when that can be taken back.
    [[nodiscard]] std::string Said() const;
    [[nodiscard]] bool ShowsStatusBar() const { return main.sbStatus.Visible(); }
    [[nodiscard]] Pixels StatusBarHeight() const { return main.sbStatus.Height; }
    [[nodiscard]] std::string ShownZoom() const { return ToUtf8(main.sbStatus.Zoom()); }
    [[nodiscard]] bool OffersStopAll() const { return main.sbStatus.StopAll.Visible(); }
    /// What is being saved, as the status bar tells it; "(nothing)" when it does not.
    [[nodiscard]] std::string Saving() const;
    void StopAll() { main.sbStatus.StopAll.Click(); }
    void ClickSaving() { main.sbStatus.Saving.Click(); }
    void Undo() { main.sbStatus.Undo.Click(); }
    [[nodiscard]] bool CanUndo() const { return main.sbStatus.Undo.Click.HasListeners(); }
    /// What the program has said was there long enough to be read.
    void ReadNotice() { main.sbStatus.Withdraw(); }
    void EmptyStatus() { main.sbStatus.SimpleText = u""; }

    // Pages, by the indexes of their views.
    /// A view's page goes through a whole navigation of its own.
    void PageLoads(int index, TextView address, TextView title);
    /// It begins one.
    void PageBegins(int index, TextView address);
    void PageIsCalled(int index, TextView title);
    /// Its history allows to go there, or does not.
    void PageMayGo(int index, HistoryCommand where, bool may);
    void PageClosesItself(int index);
    /// The page in front says whether it loads, as its view's `busy` has it.
    void PageSaysWhetherItLoads();

    /// Whether the panel of downloads is shown.
    [[nodiscard]] bool ShowsDownloads() { return main.DownloadPanel().Form.Visible(); }

    /// Changes a setting in the settings dialog, by its name.
    void Set(TextView name, TextView value);

    /// Announces that `count` steps are skipped from here on.
    void ExpectSkipped(std::size_t count) { m_skippedBefore += count; }

    FakeViews views;
    FakeWindow& window = frame;
    FakeApplication application{log};
    FakeChannel channel{log};
    const Text groupFolder, favoritesFolder;
    frmMain main;

private:
    [[nodiscard]] MainWindowPlatform InstalledPlatform(AddressProbe* probe);
    /// Where views report to; all to the same.
    [[nodiscard]] BrowserViewEvents& Events() { return views.living.begin()->second->events; }
    std::size_t m_skippedBefore;
};

} // namespace tessa
