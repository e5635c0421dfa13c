#pragma once
#include "settings/SettingsStore.h"
#include "tests/fakes/FakeSurroundings.h"
#include "tests/fakes/FakeViews.h"

#include <gtest/gtest.h>
#include <string>

/// A user at the program: the real models and handlers of the main window, fakes for what lies outside. States come
/// as short strings to compare with.
class Desk : public FakeSurroundings {
public:
    /// The settings are those of a first start unless the test has put others there.
    explicit Desk(FakeSettings* shared = nullptr);
    /// Fails the test when a step was skipped that was not announced.
    ~Desk() override;

    /// Loads the window with that command line, shows it and activates it.
    void Start(TextView commandLine = u"");
    /// `count` tabs with the views 1 to count, named by their page's titles "1", "2", ...; the first is selected.
    void StartWithTabs(int count);

    /// The keys' numbers in the order of the strip, the selected one in brackets with a star: "1 [2*] 3".
    [[nodiscard]] std::string Strip() const;
    /// The same with captions, busy ones with a "!": "News! [Blank*]".
    [[nodiscard]] std::string Captions() const;
    /// The navigation commands that are enabled: "Back Stop".
    [[nodiscard]] std::string Enabled() const;
    [[nodiscard]] std::string Address() const { return ToUtf8(main.Tabs.AddressCombo()->Value()); }
    [[nodiscard]] std::string Status() const { return ToUtf8(main.sbStatus.SimpleText()); }

    /// What the program itself has to say, with " [Undo]" when that can be taken back.
    [[nodiscard]] std::string Said() const;

    void ClickTab(std::size_t position);
    void Click(TextView tool);
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
    /// A view's page goes through a whole navigation of its own.
    void PageLoads(int index, TextView address, TextView title);

    /// Announces that `count` steps are skipped from here on.
    void ExpectSkipped(std::size_t count) { m_skippedBefore += count; }

    FakeViews views;
    FakeWindow& window = frame;
    FakeApplication application{log};
    FakeChannel channel{log};
    frmMain main;

private:
    [[nodiscard]] MainWindowPlatform InstalledPlatform();
    std::size_t m_skippedBefore;
};
