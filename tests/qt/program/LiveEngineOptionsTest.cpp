#include "qt/program/LiveEngineOptions.h"

#include "qt/desktop/InstanceProfile.h"
#include "qt/engine/Engine.h"
#include "qt/engine/Requests.h"
#include "qt/engine/StoredBrowsingData.h"
#include "qt/engine/WebOptions.h"
#include "settings/InternetSettings.h"
#include "settings/SettingsStore.h"
#include "tests/engine/FakeEngineHost.h"
#include "tests/fakes/FakeSettings.h"

#include <QWidget>
#include <gtest/gtest.h>
#include <optional>

namespace tessa::qt {

namespace {

/// The options of an engine that has no profile yet.
class LiveEngineOptionsTest : public testing::Test {
protected:
    ~LiveEngineOptionsTest() override { WebOptions::ApplyProxy({}, nullptr); }

    FakeSettings settings;
    QWidget pageArea;
    InstanceProfile ownProfile{{}, {}};
    FakeEngineHost host;
    Engine engine{&pageArea, ownProfile, host};
    Requests requests{[] { return ServiceTemplates(); }};
    StoredBrowsingData data;
    LiveEngineOptions options{settings, engine, requests, data};
};

TEST_F(LiveEngineOptionsTest, WhatPagesMayLoadReachesRequestsAndPages) {
    options.ApplyLoadOptions();
    EXPECT_TRUE(requests.Loads.videos);
    EXPECT_TRUE(engine.Profiles().PlaysSounds());
    ASSERT_EQ(SettingsStore(settings).LoadVideos.Set(false), Outcome::Done);
    ASSERT_EQ(SettingsStore(settings).LoadSounds.Set(false), Outcome::Done);
    options.ApplyLoadOptions();
    EXPECT_FALSE(requests.Loads.videos);
    EXPECT_TRUE(requests.Loads.images);
    EXPECT_FALSE(engine.Profiles().PlaysSounds());
}

TEST_F(LiveEngineOptionsTest, InternetOptionsReachRequestsBeforeThereIsAProfile) {
    options.ApplyInternetOptions();
    EXPECT_FALSE(requests.DoNotTrack);
    InternetSettings(settings).Set({.doNotTrack = true});
    options.ApplyInternetOptions();
    EXPECT_TRUE(requests.DoNotTrack);
    EXPECT_FALSE(requests.GlobalPrivacyControl);
}

TEST_F(LiveEngineOptionsTest, WithoutAProfileNotAllIsForgotten) {
    std::optional<Cleared> told;
    options.Clear({}, [&](Cleared cleared) { told = cleared; });
    EXPECT_EQ(told, Cleared::NotAll);
}

} // namespace

} // namespace tessa::qt
