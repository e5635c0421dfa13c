#include "qt/base/NullGuard.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>

namespace tessa::qt {

namespace {

struct Object {
    int padding[100];
    int member;
};

struct Reading {
    const volatile Object* from;
    int got;
};

void Read(void* context) {
    auto& reading = *static_cast<Reading*>(context);
    reading.got = reading.from->member;
}

TEST(NullGuard, WhatReadsThroughANullPointerIsLeft) {
    for (int i = 0; i < 3; ++i) {
        Reading reading{nullptr, 1};
        EXPECT_FALSE(NullGuard::Survives(Read, &reading));
        EXPECT_EQ(reading.got, 1);
    }
}

TEST(NullGuard, WhatDoesNotIsDone) {
    const Object object{{}, 2};
    Reading reading{&object, 1};
    EXPECT_TRUE(NullGuard::Survives(Read, &reading));
    EXPECT_EQ(reading.got, 2);
}

TEST(NullGuard, AfterwardsFaultsAreWhatTheyWere) {
    const auto mine = [](int) {};
    std::signal(SIGSEGV, mine);
    Reading reading{nullptr, 1};
    EXPECT_FALSE(NullGuard::Survives(Read, &reading));
    EXPECT_EQ(std::signal(SIGSEGV, SIG_DFL), static_cast<void (*)(int)>(mine));
}

// The last is no address at all, and the machine tells none.
TEST(NullGuardDeathTest, OtherFaultsEndTheProgram) {
    for (const std::uintptr_t address : {std::uintptr_t{1} << 20, std::uintptr_t{0xefefefefefefefef}}) {
        Reading reading{reinterpret_cast<const volatile Object*>(address), 1};
        EXPECT_EXIT((void)NullGuard::Survives(Read, &reading), testing::KilledBySignal(SIGSEGV), "") << address;
    }
}

TEST(NullGuardDeathTest, ASignalThatWasSentIsNoFault) {
    EXPECT_EXIT((void)NullGuard::Survives([](void*) { std::raise(SIGSEGV); }, nullptr),
                testing::KilledBySignal(SIGSEGV), "");
}

void EndWell(int) { std::_Exit(7); }

TEST(NullGuardDeathTest, OtherFaultsAreForWhoeverSawThemBefore) {
    Reading reading{reinterpret_cast<const volatile Object*>(std::uintptr_t{1} << 20), 1};
    const auto fault = [&] {
        std::signal(SIGSEGV, EndWell);
        (void)NullGuard::Survives(Read, &reading);
    };
    EXPECT_EXIT(fault(), testing::ExitedWithCode(7), "");
}

} // namespace

} // namespace tessa::qt
