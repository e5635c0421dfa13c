#include "settings/Drawing.h"

#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

/// A computer at several starts.
struct Starts {
    FakeSettings settings;
    Drawing::Machine machine{u"driver 1, :0, here", true, [this] { return ++asked, renderer; }, u""};
    Text renderer = u"Some Graphics 770";
    int asked = 0;

    DrawingWay Start() { return Drawing::Choose(machine, settings); }
    void Wish(DrawingWish wish) {
        InternetValues values = InternetSettings(settings).Get();
        values.drawing = wish;
        InternetSettings(settings).Set(values);
    }
};

TEST(Drawing, IsByTheGraphicsProcessorWhereThereIsOne) {
    Starts starts;
    EXPECT_EQ(starts.Start(), DrawingWay::Graphics);
    starts.renderer = u"llvmpipe (LLVM 15.0.6, 256 bits)";
    starts.machine.Surroundings = u"another driver";
    EXPECT_EQ(starts.Start(), DrawingWay::Software);
    EXPECT_EQ(starts.settings.open, 0);
}

TEST(Drawing, IsFoundOutOnceForTheSameSurroundings) {
    Starts starts;
    for (const auto& [renderer, surroundings, way, asked] :
         {std::tuple(u"Some Graphics 770", u"driver 1", DrawingWay::Graphics, 1),
          std::tuple(u"llvmpipe", u"driver 1", DrawingWay::Graphics, 1),
          std::tuple(u"llvmpipe", u"driver 2", DrawingWay::Software, 2),
          std::tuple(u"Some Graphics 770", u"driver 2", DrawingWay::Software, 2),
          std::tuple(u"Some Graphics 770", u"driver 1", DrawingWay::Graphics, 3)}) {
        starts.renderer = renderer;
        starts.machine.Surroundings = surroundings;
        EXPECT_EQ(starts.Start(), way);
        EXPECT_EQ(starts.asked, asked);
    }
}

TEST(Drawing, WithoutAGraphicsProcessorNobodyIsAskedAndNothingKept) {
    Starts starts;
    starts.machine.HasProcessor = false;
    EXPECT_EQ(starts.Start(), DrawingWay::Software);
    EXPECT_EQ(starts.asked, 0);
    EXPECT_TRUE(starts.settings.written.empty());
}

TEST(Drawing, IsKnownWithoutAskingOnceItWasFoundOut) {
    Starts starts;
    const auto known = [&] { return Drawing::KnownWay(starts.machine, starts.settings); };
    EXPECT_EQ(known(), std::nullopt);
    EXPECT_EQ(starts.asked, 0);
    EXPECT_EQ(starts.Start(), DrawingWay::Graphics);
    EXPECT_EQ(known(), DrawingWay::Graphics);
    starts.machine.Surroundings = u"another driver";
    EXPECT_EQ(known(), std::nullopt);
    starts.Wish(DrawingWish::Software);
    EXPECT_EQ(known(), DrawingWay::Software);
    starts.Wish(DrawingWish::ByItself);
    starts.machine.HasProcessor = false;
    EXPECT_EQ(known(), DrawingWay::Software);
    starts.machine.Command = u"hardware";
    EXPECT_EQ(known(), DrawingWay::Graphics);
    EXPECT_EQ(starts.asked, 1);
}

TEST(Drawing, WithoutOpenGlIsInSoftware) {
    Starts starts;
    starts.renderer.clear();
    EXPECT_EQ(starts.Start(), DrawingWay::Software);
}

TEST(Drawing, IsAsTheUserWantsIt) {
    Starts starts;
    starts.Wish(DrawingWish::Software);
    EXPECT_EQ(starts.Start(), DrawingWay::Software);
    starts.machine.HasProcessor = false;
    starts.Wish(DrawingWish::Graphics);
    EXPECT_EQ(starts.Start(), DrawingWay::Graphics);
    EXPECT_EQ(starts.asked, 0);
    starts.settings.Put(u"InternetDrawing", u"somehow");
    EXPECT_EQ(starts.Start(), DrawingWay::Software) << "what cannot be understood was never written";
}

TEST(Drawing, ACommandHoldsBeforeAllElse) {
    Starts starts;
    starts.Wish(DrawingWish::Software);
    starts.machine.Command = u"hardware";
    EXPECT_EQ(starts.Start(), DrawingWay::Graphics);
    starts.Wish(DrawingWish::Graphics);
    starts.machine.Command = u"software";
    EXPECT_EQ(starts.Start(), DrawingWay::Software);
    starts.machine.Command = u"Software";
    EXPECT_EQ(starts.Start(), DrawingWay::Graphics) << "no such word";
}

TEST(Drawing, WhatCannotBeKeptIsFoundOutAgain) {
    Starts starts;
    starts.settings.refuseAll = true;
    for (const int asked : {1, 2}) {
        EXPECT_EQ(starts.Start(), DrawingWay::Graphics);
        EXPECT_EQ(starts.asked, asked);
    }
}

TEST(Drawing, KnowsWhoDrawsWithTheProcessorAlone) {
    for (const char16_t* name :
         {u"llvmpipe (LLVM 15.0.6, 256 bits)", u"softpipe", u"Software Rasterizer", u"Mesa DRI swrast",
          u"ANGLE (Google, Vulkan 1.3.0 (SwiftShader Device (LLVM 10.0.0)))", u"Microsoft Basic Render Driver"})
        EXPECT_TRUE(Drawing::IsSoftware(name)) << ToUtf8(name);
    for (const char16_t* name : {u"Mesa Intel(R) UHD Graphics 770 (ADL-S GT1)", u"AMD Radeon RX 580 (radeonsi)",
                                 u"NVIDIA GeForce RTX 3060/PCIe/SSE2", u"virgl (Mesa Intel(R) UHD)", u"V3D 4.2"})
        EXPECT_FALSE(Drawing::IsSoftware(name)) << ToUtf8(name);
}

} // namespace

} // namespace tessa
