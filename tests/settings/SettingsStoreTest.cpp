#include "settings/SettingsStore.h"
#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(SettingsStore, AnswersDefaultsWhenNothingWasEverStored) {
    FakeSettings settings;
    const SettingsStore store(settings);
    EXPECT_TRUE(store.AskDefaultBrowser.Get());
    EXPECT_TRUE(store.RememberLastSites.Get());
    EXPECT_FALSE(store.TGCloseOthersFirst.Get());
    EXPECT_EQ(store.TitleLengthLimit.Get(), 20);
    EXPECT_TRUE(store.OpenNewInFront.Get());
    EXPECT_EQ(store.WindowWidth.Get(), Twips{15360});
    EXPECT_EQ(store.WindowHeight.Get(), Twips{11520});
    EXPECT_FALSE(store.WindowTop.HasValue());
    EXPECT_FALSE(store.WindowLeft.HasValue());
    EXPECT_FALSE(store.WindowMaximized.Get());
    EXPECT_EQ(store.HandOffCommandLine.Get(), u"");
    EXPECT_TRUE(store.LastSites.Get().empty());
    EXPECT_TRUE(store.SearchHistory.Get().empty());
    EXPECT_TRUE(store.AddressHistory.Get().empty());
    EXPECT_TRUE(store.TabsUp.Get());
    EXPECT_FALSE(store.AllowMultipleInstances.Get());
    EXPECT_TRUE(store.ShowStatusBar.Get());
}

TEST(SettingsStore, KeepsEveryKindOfValueForTheNextObject) {
    FakeSettings settings;
    {
        SettingsStore store(settings);
        ResumeNext(store.TabsUp.Set(false));
        ResumeNext(store.AllowMultipleInstances.Set(true));
        ResumeNext(store.TitleLengthLimit.Set(-7));
        ResumeNext(store.WindowTop.Set(Twips{-300}));
        ResumeNext(store.HandOffCommandLine.Set(u" \"a\" "));
        ResumeNext(store.LastSites.Set({u"", u"b"}));
    }
    const SettingsStore store(settings);
    EXPECT_FALSE(store.TabsUp.Get());
    EXPECT_TRUE(store.AllowMultipleInstances.Get());
    EXPECT_EQ(store.TitleLengthLimit.Get(), -7);
    EXPECT_EQ(store.WindowTop.Get(), Twips{-300});
    EXPECT_TRUE(store.WindowTop.HasValue());
    EXPECT_EQ(store.HandOffCommandLine.Get(), u" \"a\" ");
    EXPECT_EQ(store.LastSites.Get(), (std::vector<Text>{u"", u"b"}));
}

TEST(SettingsStore, SeesItsOwnWritesAtOnce) {
    FakeSettings settings;
    SettingsStore store(settings);
    ResumeNext(store.TitleLengthLimit.Set(3));
    EXPECT_EQ(store.TitleLengthLimit.Get(), 3);
}

TEST(SettingsStore, ReleasesTheStorageWithTheObject) {
    FakeSettings settings;
    { const SettingsStore store(settings); }
    { const SettingsStore store(settings); }
    EXPECT_EQ(settings.opened, 2);
    EXPECT_EQ(settings.open, 0);
}

TEST(SettingsStore, WritesBooleansAsWordsAndNumbersAsDecimals) {
    FakeSettings settings;
    {
        SettingsStore store(settings);
        ResumeNext(store.TabsUp.Set(true));
        ResumeNext(store.ShowStatusBar.Set(false));
        ResumeNext(store.TitleLengthLimit.Set(INT32_MIN));
    }
    EXPECT_EQ(settings.Stored(u"TabsUp"), u"true");
    EXPECT_EQ(settings.Stored(u"ShowStatusBar"), u"false");
    EXPECT_EQ(settings.Stored(u"TitleLengthLimit"), u"-2147483648");
}

TEST(SettingsStore, AnswersTheDefaultForWhatItCannotUnderstand) {
    FakeSettings settings;
    settings.Put(u"TabsUp", u"perhaps");
    settings.Put(u"AllowMultipleInstances", u"");
    settings.Put(u"TitleLengthLimit", u"99999999999");
    settings.Put(u"WindowLeft", u"12 px");
    const SettingsStore store(settings);
    EXPECT_TRUE(store.TabsUp.Get());
    EXPECT_FALSE(store.AllowMultipleInstances.Get());
    EXPECT_EQ(store.TitleLengthLimit.Get(), 20);
    EXPECT_FALSE(store.WindowLeft.HasValue());
}

TEST(SettingsStore, SaturatesTheWindowPlacementIn16Bits) {
    FakeSettings settings;
    {
        SettingsStore store(settings);
        ResumeNext(store.WindowWidth.Set(Twips{60000}));
        ResumeNext(store.WindowLeft.Set(Twips{-60000}));
    }
    EXPECT_EQ(settings.Stored(u"WindowWidth"), u"32767");
    EXPECT_EQ(settings.Stored(u"WindowLeft"), u"-32768");
    settings.Put(u"WindowHeight", u"2000000000");
    EXPECT_EQ(SettingsStore(settings).WindowHeight.Get(), Twips{32767});
}

TEST(SettingsStore, KeepsTheOldValueWhenAWriteFails) {
    FakeSettings settings;
    settings.Put(u"TitleLengthLimit", u"12");
    settings.refuse.insert(u"TitleLengthLimit");
    {
        SettingsStore store(settings);
        EXPECT_EQ(store.TitleLengthLimit.Set(30), Outcome::Failed);
        EXPECT_EQ(store.TabsUp.Set(false), Outcome::Done);
    }
    EXPECT_EQ(SettingsStore(settings).TitleLengthLimit.Get(), 12);
    EXPECT_FALSE(SettingsStore(settings).TabsUp.Get());
}

TEST(SettingsStore, TwoObjectsOfTwoProcessesDoNotUndoEachOther) {
    FakeSettings settings;
    {
        SettingsStore first(settings);
        SettingsStore second(settings);
        ResumeNext(first.TabsUp.Set(false));
        ResumeNext(second.OpenNewInFront.Set(false));
    }
    EXPECT_FALSE(SettingsStore(settings).TabsUp.Get());
    EXPECT_FALSE(SettingsStore(settings).OpenNewInFront.Get());
}

} // namespace

} // namespace tessa
