#pragma once
#include "base/Signal.h"

#include <utility>

namespace tessa {

/// A value that tells when it changes: first the form's own handlers (`Change`), then the views that show it
/// (`Mirror`). Assigning the value it has does nothing. The owner of the form owns the property.
template<typename T>
class Property {
public:
    Property() = default;
    explicit Property(T value) : m_value(std::move(value)) {}
    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;

    Property& operator=(T value) {
        if (m_value == value) return *this;
        m_value = std::move(value);
        Change();
        Mirror(m_value);
        return *this;
    }

    [[nodiscard]] const T& operator()() const { return m_value; }

    /// Attaches a view and shows it the present value; until the connection goes.
    [[nodiscard]] Connection Attach(typename Signal<void(const T&)>::Listener mirror) {
        mirror(m_value);
        return Mirror.Connect(std::move(mirror));
    }

    Signal<void()> Change;
    Signal<void(const T&)> Mirror;

private:
    T m_value{};
};

} // namespace tessa
