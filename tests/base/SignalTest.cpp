// Tests: Property
#include "base/Signal.h"
#include "base/Property.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tessa {

namespace {

/// A signal whose listeners write down in which order they were told what.
struct Told {
    auto Writer(const std::string& name) {
        return [this, name](int value) { words += name + std::to_string(value) + ' '; };
    }
    std::string words;
    Signal<void(int)> signal;
};

TEST(Signal, WithoutListenersNothingHappens) {
    const Told told;
    told.signal(1);
    EXPECT_FALSE(told.signal.HasListeners());
}

TEST(Signal, TellsAllInTheOrderInWhichTheyCame) {
    Told told;
    const Connection one = told.signal.Connect(told.Writer("a"));
    told.signal.ConnectForLife(told.Writer("b"));
    const Connection three = told.signal.Connect(told.Writer("c"));
    told.signal(1);
    told.signal(2);
    EXPECT_EQ(told.words, "a1 b1 c1 a2 b2 c2 ");
}

TEST(Signal, AConnectionEndsWithItsOwner) {
    Told told;
    {
        const Connection one = told.signal.Connect(told.Writer("a"));
        EXPECT_TRUE(told.signal.HasListeners());
    }
    told.signal(1);
    EXPECT_EQ(told.words, "");
    EXPECT_FALSE(told.signal.HasListeners());
}

TEST(Signal, WhatAListenerHoldsGoesWithItsConnection) {
    Told told;
    const auto held = std::make_shared<int>(1);
    Connection one = told.signal.Connect([held](int) {});
    EXPECT_EQ(held.use_count(), 2);
    one.End();
    EXPECT_EQ(held.use_count(), 1);
    one.End();
}

TEST(Signal, AConnectionMovesToItsOwner) {
    Told told;
    Connection owner;
    {
        Connection one = told.signal.Connect(told.Writer("a"));
        owner = std::move(one);
    }
    told.signal(1);
    owner = told.signal.Connect(told.Writer("b"));
    told.signal(2);
    EXPECT_EQ(told.words, "a1 b2 ") << "the new one takes the place of the old one";
}

TEST(Signal, ManyConnectionsEndTogether) {
    Told told;
    Connections all;
    all += told.signal.Connect(told.Writer("a"));
    all += told.signal.Connect(told.Writer("b"));
    told.signal(1);
    all.End();
    told.signal(2);
    EXPECT_EQ(told.words, "a1 b1 ");
}

TEST(Signal, AConnectionMayOutliveTheSignal) {
    auto told = std::make_optional<Told>();
    Connection one = told->signal.Connect(told->Writer("a"));
    told.reset();
    one.End();
}

TEST(Signal, AListenerMayEndItself) {
    Told told;
    Connection one;
    const auto held = std::make_shared<std::string>("held");
    one = told.signal.Connect([&, held](int) {
        one.End();
        told.words += *held + ' ';
    });
    const Connection two = told.signal.Connect(told.Writer("b"));
    told.signal(1);
    told.signal(2);
    EXPECT_EQ(told.words, "held b1 b2 ");
    EXPECT_EQ(held.use_count(), 1);
}

TEST(Signal, AListenerThatAnotherEndsIsNotTold) {
    Told told;
    Connection second;
    const Connection first = told.signal.Connect([&](int) { second.End(); });
    second = told.signal.Connect(told.Writer("b"));
    told.signal(1);
    EXPECT_EQ(told.words, "");
}

TEST(Signal, AListenerThatComesMeanwhileIsToldTheNextTime) {
    Told told;
    Connections later;
    const Connection first = told.signal.Connect([&](int value) {
        if (value == 1) later += told.signal.Connect(told.Writer("b"));
    });
    told.signal(1);
    EXPECT_EQ(told.words, "");
    told.signal(2);
    EXPECT_EQ(told.words, "b2 ");
}

TEST(Signal, AListenerMayRaiseItAgain) {
    Told told;
    Connection second;
    const Connection first = told.signal.Connect([&](int value) {
        if (value == 1) told.signal(2);
        if (value == 2) second.End();
    });
    second = told.signal.Connect(told.Writer("b"));
    const Connection third = told.signal.Connect(told.Writer("c"));
    told.signal(1);
    EXPECT_EQ(told.words, "c2 c1 ");
}

TEST(Signal, TheSignalMayGoWhileItTells) {
    auto told = std::make_unique<Told>();
    std::string words;
    Connection second;
    const Connection first = told->signal.Connect([&](int) { told.reset(); });
    second = told->signal.Connect([&](int) { words += "told"; });
    told->signal(1);
    EXPECT_EQ(words, "");
    EXPECT_EQ(told, nullptr);
}

TEST(Signal, AListenerThatHoldsAConnectionOfTheSameSignalMayGo) {
    Told told;
    auto inner = std::make_shared<Connection>(told.signal.Connect(told.Writer("a")));
    Connection outer = told.signal.Connect([inner](int) {});
    inner.reset();
    outer.End();
    told.signal(1);
    EXPECT_EQ(told.words, "");
}

TEST(Property, TheHandlerIsToldBeforeTheView) {
    Property<int> number;
    std::string words;
    number.Change.ConnectForLife([&] { words += "form "; });
    const Connection view = number.Attach([&](int value) { words += std::to_string(value) + ' '; });
    number = 3;
    number = 3;
    EXPECT_EQ(words, "0 form 3 ") << "the view shows at once what there is; the same value again is no change";
}

TEST(Property, HasAnyNumberOfViews) {
    Property<int> number{1};
    std::string words;
    Connection one = number.Attach([&](int value) { words += 'a' + std::to_string(value); });
    const Connection two = number.Attach([&](int value) { words += 'b' + std::to_string(value); });
    number = 2;
    one.End();
    number = 3;
    EXPECT_EQ(words, "a1b1a2b2b3");
}

} // namespace

} // namespace tessa
