#pragma once
#include "base/os/MemoryReader.h"
#include "tabs/MemoryShortage.h"

namespace tessa {

/// A machine of 4 GB that is as short of memory as the test says.
class FakeMemory final : public MemoryReader {
public:
    [[nodiscard]] std::vector<MemoryRoom> Read() override {
        ++asked;
        constexpr std::int64_t kMegabyte = 1024 * 1024;
        const std::int64_t free = level == Shortage::None ? 3000 : level == Shortage::Short ? 400 : 100;
        return {{.Total = 4096 * kMegabyte, .Free = free * kMegabyte}};
    }

    Shortage level = Shortage::None;
    int asked = 0;
};

} // namespace tessa
