#pragma once
#include "base/Text.h"

#include <cstddef>
#include <cstdint>

namespace tessa {

/// The colour that marks a tab as one of several that belong together.
enum class TabColour { None, Red, Orange, Yellow, Green, Blue, Purple, Grey };

/// What files call the colours, in their order; `None` has no name.
inline constexpr TextView kTabColours[] = {u"red", u"orange", u"yellow", u"green", u"blue", u"purple", u"grey"};

/// Tabs of a strip that belong together. Its strip owns it, and lets it go with its last tab.
class TabGroup {
public:
    explicit TabGroup(std::int32_t id) : m_id(id) {}

    /// From 1 on; never used for another group.
    [[nodiscard]] std::int32_t Id() const { return m_id; }
    [[nodiscard]] const Text& Name() const { return m_name; }
    [[nodiscard]] TabColour Colour() const { return m_colour; }
    /// Of its tabs only the selected one is shown.
    [[nodiscard]] bool Folded() const { return m_folded; }
    [[nodiscard]] std::size_t Count() const { return m_count; }
    /// How many of its tabs load, or wait until it is their turn to.
    [[nodiscard]] std::size_t Loading() const { return m_loading; }

private:
    friend class TabStrip;
    std::int32_t m_id;
    Text m_name;
    TabColour m_colour = TabColour::None;
    bool m_folded = false;
    std::size_t m_count = 0, m_loading = 0;
};

} // namespace tessa
