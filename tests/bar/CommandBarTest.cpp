// Tests: Band, Tool
#include "bar/CommandBar.h"

#include <gtest/gtest.h>
#include <string>

namespace tessa {

namespace {

std::shared_ptr<Tool> SharedTool(CommandBar& bar, std::int32_t id, TextView name) {
    bar.Add(std::make_unique<Tool>(id, Text(name)));
    return bar.Share(name);
}

/// The names of a band's tools; "|" stands before one that begins a group.
std::string Listed(const Band& band) {
    std::string all;
    for (const BandEntry& entry : band.Entries())
        all += (all.empty() ? "" : " ") + std::string(entry.Group == BeginGroup::Yes ? "|" : "") +
               ToUtf8(entry.Item->Name());
    return all;
}

TEST(CommandBar, AToolOfTheMasterListIsOneObjectOnAllBands) {
    CommandBar bar;
    const auto tool = SharedTool(bar, 1, u"mnuStop");
    Band* one = bar.AddBand(u"bndOne", u"", BandKind::Toolbar);
    Band* two = bar.AddBand(u"bndTwo", u"", BandKind::Menu);
    one->Append(tool);
    two->Append(tool, BeginGroup::Yes);
    EXPECT_EQ(one->Find(u"mnuStop"), two->Find(u"mnuStop"));
    EXPECT_EQ(Listed(*one), "mnuStop");
    EXPECT_EQ(Listed(*two), "|mnuStop");
}

TEST(CommandBar, AToolOfABandIsFoundBehindTheMasterList) {
    CommandBar bar;
    const auto help = SharedTool(bar, 1, u"mnuHelp");
    Band* menu = bar.AddBand(u"bndMenu", u"", BandKind::MenuBar);
    Tool* own = menu->Add({}, 2, u"mnuHelp");
    Tool* only = menu->Add({}, 3, u"mnuOnly");
    EXPECT_EQ(bar.Find(u"mnuHelp"), help.get());
    EXPECT_NE(own, help.get());
    EXPECT_EQ(bar.Find(u"mnuOnly"), only);
    EXPECT_EQ(bar.Share(u"mnuOnly"), nullptr);
    EXPECT_EQ(bar.Find(u"MNUONLY"), nullptr);
}

TEST(CommandBar, ABandNameIsGivenOnce) {
    CommandBar bar;
    EXPECT_NE(bar.AddBand(u"bndOne", u"", BandKind::Menu), nullptr);
    EXPECT_EQ(bar.AddBand(u"bndOne", u"", BandKind::Menu), nullptr);
    bar.RemoveBand(u"bndOne");
    bar.RemoveBand(u"bndOne");
    EXPECT_NE(bar.AddBand(u"bndOne", u"", BandKind::Menu), nullptr);
}

TEST(CommandBar, EntriesAreInsertedMovedAndRemovedByPosition) {
    CommandBar bar;
    Band* band = bar.AddBand(u"bndOne", u"", BandKind::Toolbar);
    band->Append(SharedTool(bar, 1, u"a"));
    band->Insert(0, SharedTool(bar, 2, u"b"));
    band->Insert(99, SharedTool(bar, 3, u"c"), BeginGroup::Yes);
    EXPECT_EQ(Listed(*band), "b a |c");
    band->RemoveAt(1);
    band->RemoveAt(7);
    band->SetGroup(0, BeginGroup::Yes);
    EXPECT_EQ(Listed(*band), "|b |c");
    band->Append(nullptr);
    band->Clear();
    EXPECT_EQ(Listed(*band), "");
}

TEST(CommandBar, AViewHearsOfABandOnceUntilItIsClean) {
    CommandBar bar;
    Band* band = bar.AddBand(u"bndOne", u"", BandKind::Toolbar);
    int told = 0;
    const Connection view = band->Attach([&] { ++told; });
    EXPECT_EQ(told, 1) << "attaching shows the present entries";
    band->Clean();
    band->Add({}, 1, u"a");
    band->Add({}, 2, u"b");
    EXPECT_EQ(told, 2);
    band->Clean();
    band->Clear();
    EXPECT_EQ(told, 3);
}

TEST(CommandBar, AKeyClicksItsToolAndSaysWhetherItWasUsed) {
    CommandBar bar;
    const auto stop = SharedTool(bar, 1, u"mnuStop");
    bar.SetShortcuts({{u"mnuStop", {Keys::kEscape, 0}}, {u"mnuNone", {'T', Keys::kCtrl}}});
    std::string clicked;
    bar.Click.ConnectForLife([&](Tool& tool) { clicked += ToUtf8(tool.Name()) + ";"; });
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, 0}), KeyUsed::Yes);
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, Keys::kShift}), KeyUsed::No);
    EXPECT_EQ(bar.KeyDown({'T', Keys::kCtrl}), KeyUsed::No) << "no such tool";
    stop->Enabled = false;
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, 0}), KeyUsed::No) << "disabled";
    EXPECT_EQ(clicked, "mnuStop;");
}

TEST(CommandBar, AKeysWayUpIsUsedWhenItsWayDownWas) {
    CommandBar bar;
    const auto stop = SharedTool(bar, 1, u"mnuStop");
    bar.SetShortcuts({{u"mnuStop", {'S', Keys::kCtrl}}});
    EXPECT_EQ(bar.KeyUp({'S', Keys::kCtrl}), KeyUsed::No) << "it went down elsewhere";
    bar.KeyDown({'S', Keys::kCtrl});
    EXPECT_EQ(bar.KeyUp({'T', Keys::kCtrl}), KeyUsed::No) << "another key";
    EXPECT_EQ(bar.KeyUp({'S', 0}), KeyUsed::Yes) << "Ctrl may go up first";
    EXPECT_EQ(bar.KeyUp({'S', 0}), KeyUsed::No) << "once";
}

TEST(CommandBar, AWayUpThatNeverCameIsForgottenWhenTheKeyGoesDownAgain) {
    CommandBar bar;
    const auto stop = SharedTool(bar, 1, u"mnuStop");
    bar.SetShortcuts({{u"mnuStop", {'S', Keys::kCtrl}}});
    bar.KeyDown({'S', Keys::kCtrl});
    EXPECT_EQ(bar.KeyDown({'S', 0}), KeyUsed::No);
    EXPECT_EQ(bar.KeyUp({'S', 0}), KeyUsed::No);
    bar.KeyDown({'S', Keys::kCtrl});
    bar.KeyDown({'S', Keys::kCtrl});
    EXPECT_EQ(bar.KeyUp({'S', 0}), KeyUsed::Yes) << "a key that is held down repeats";
    EXPECT_EQ(bar.KeyUp({'S', 0}), KeyUsed::No);
}

TEST(CommandBar, EscapeIsForTheBoxThatTheUserIsChanging) {
    CommandBar bar;
    std::string clicked;
    bar.Click.ConnectForLife([&](Tool& tool) { clicked += ToUtf8(tool.Name()) + ";"; });
    bar.Add(std::make_unique<Tool>(1, u"mnuStop"));
    const ComboTool* box = bar.Add(std::make_unique<ComboTool>(2, u"cboAddress"));
    bar.SetShortcuts({{u"mnuStop", {Keys::kEscape, 0}}});
    bar.SetEdited(box);
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, 0}), KeyUsed::No);
    bar.SetEdited(nullptr);
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, 0}), KeyUsed::Yes);
    EXPECT_EQ(clicked, "mnuStop;");
}

TEST(CommandBar, ABoxFillsItsRowUntilItsWidthIsSet) {
    ComboTool box(1, u"cboAddress");
    box.FillsRow = true;
    box.Measure(Pixels{700});
    EXPECT_TRUE(box.FillsRow());
    EXPECT_EQ(box.Width().value, 700);
    box.Width = Pixels{701};
    EXPECT_FALSE(box.FillsRow());
}

TEST(CommandBar, ABoxKeepsTextsFirstToLast) {
    ComboTool box(1, u"cboAddress");
    box.InsertFirst(u"one");
    box.InsertFirst(u"two");
    box.RemoveItem(5);
    EXPECT_EQ(box.ListCount(), 2u);
    EXPECT_EQ(box.List().front(), u"two");
    box.RemoveItem(0);
    EXPECT_EQ(box.List().front(), u"one");
    box.Clear();
    EXPECT_EQ(box.ListCount(), 0u);
}

TEST(CommandBar, OnlyWhatWasDesignedOrMadeByTheUserOutlivesTheMenusOfTheRun) {
    CommandBar bar;
    bar.AddBand(u"bndOne", u"", BandKind::Menu);
    bar.AddBand(u"gui1", u"", BandKind::Toolbar, MadeFrom::User{});
    bar.AddBand(u"zzz/a", u"", BandKind::Popup, MadeFrom::FavoriteFolder{u"/a"});
    bar.AddBand(u"zzz/b", u"", BandKind::Popup, MadeFrom::FavoriteFolder{u"/b"});
    bar.AddBand(u"zzPage", u"", BandKind::Popup, MadeFrom::Page{});
    bar.RemoveRunTimeBands();
    ASSERT_EQ(bar.Bands().size(), 2U);
    EXPECT_EQ(bar.Bands()[0]->Name(), u"bndOne");
    EXPECT_EQ(bar.Bands()[1]->Name(), u"gui1");
    EXPECT_EQ(bar.FindBand(u"zzz/a"), nullptr);
    bar.RemoveRunTimeBands();
    EXPECT_EQ(bar.Bands().size(), 2U);
}

TEST(CommandBar, AToolSaysWhatItIsMadeFrom) {
    const Tool designed(50000, u"mnuStop");
    EXPECT_FALSE(designed.IsRunTime()) << "whatever its number";
    EXPECT_EQ(designed.From<MadeFrom::Group>(), nullptr);
    const Tool made(MadeFrom::Group{u"/a.tvg"}, 7, u"zzxa", u"a");
    EXPECT_TRUE(made.IsRunTime());
    EXPECT_EQ(made.From<MadeFrom::FavoriteLink>(), nullptr);
    ASSERT_NE(made.From<MadeFrom::Group>(), nullptr);
    EXPECT_EQ(made.From<MadeFrom::Group>()->path, u"/a.tvg");
    EXPECT_EQ(made.Id(), 7);
    EXPECT_EQ(made.Caption(), u"a");
    for (const ToolSource& source :
         {ToolSource(MadeFrom::FavoriteLink{}), ToolSource(MadeFrom::FavoriteFolder{}), ToolSource(MadeFrom::Page{})})
        EXPECT_TRUE(Tool(source, 1, u"mnuStop").IsRunTime()) << source.index();
}

} // namespace

} // namespace tessa
