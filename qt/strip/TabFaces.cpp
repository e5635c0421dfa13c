#include "qt/strip/TabFaces.h"

namespace tessa::qt {

namespace {

class PlainFaces final : public TabFaces {
public:
    [[nodiscard]] QIcon IconOf(const Tab&) const override { return {}; }
    [[nodiscard]] Text TipOf(const Tab& tab) const override { return tab.Caption(); }
    [[nodiscard]] bool IsChanged(const TabGroup&) const override { return false; }
    [[nodiscard]] TabPane PaneOf(const Tab&) const override { return TabPane::None; }
    [[nodiscard]] Text NewTabKeys() const override { return {}; }
};

} // namespace

const TabFaces& TabFaces::Plain() {
    static const PlainFaces plain;
    return plain;
}

} // namespace tessa::qt
