#include "bar/EntryGestures.h"

namespace tessa {

namespace {

class NoGestures final : public EntryGestures {
public:
    bool EntryPopup(const Tool&) override { return false; }
    std::function<void()> EntryMiddleClick(const Tool&) override { return {}; }
    std::function<void()> EntryDelete(const Tool&) override { return {}; }
};

} // namespace

EntryGestures& EntryGestures::None() {
    static NoGestures none;
    return none;
}

} // namespace tessa
