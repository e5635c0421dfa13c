#include "qt/program/QtEngineOptions.h"

#include "qt/desktop/QtInstanceProfile.h"
#include "qt/engine/QtBrowsingData.h"
#include "qt/engine/QtEngine.h"
#include "qt/engine/QtRequests.h"
#include "qt/engine/QtWebOptions.h"
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
class QtEngineOptionsTest : public testing::Test {
protected:
    ~QtEngineOptionsTest() override { QtWebOptions::ApplyProxy({}, nullptr); }

    FakeSettings settings;
    QWidget pageArea;
    QtInstanceProfile ownProfile{{}, {}};
    FakeEngineHost host;
    QtEngine engine{&pageArea, ownProfile, host};
    QtRequests requests{[] { return ServiceTemplates(); }};
    QtBrowsingData data;
    QtEngineOptions options{settings, engine, requests, data};
};

TEST_F(QtEngineOptionsTest, WhatPagesMayLoadReachesRequestsAndPages) {
    options.ApplyLoadOptions();
    EXPECT_TRUE(requests.Loads.videos);
    EXPECT_TRUE(engine.Profiles().PlaysSounds());
    SettingsStore(settings).LoadVideos.Set(false);
    SettingsStore(settings).LoadSounds.Set(false);
    options.ApplyLoadOptions();
    EXPECT_FALSE(requests.Loads.videos);
    EXPECT_TRUE(requests.Loads.images);
    EXPECT_FALSE(engine.Profiles().PlaysSounds());
}

TEST_F(QtEngineOptionsTest, InternetOptionsReachRequestsBeforeThereIsAProfile) {
    options.ApplyInternetOptions();
    EXPECT_FALSE(requests.DoNotTrack);
    InternetSettings(settings).Set({.doNotTrack = true});
    options.ApplyInternetOptions();
    EXPECT_TRUE(requests.DoNotTrack);
    EXPECT_FALSE(requests.GlobalPrivacyControl);
}

TEST_F(QtEngineOptionsTest, WithoutAProfileNotAllIsForgotten) {
    std::optional<Cleared> told;
    options.Clear({}, [&](Cleared cleared) { told = cleared; });
    EXPECT_EQ(told, Cleared::NotAll);
}

} // namespace

} // namespace tessa::qt
