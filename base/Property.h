#pragma once
#include <functional>
#include <utility>

/// A value with a view. `Change` is the slot of the form's own handler, `Mirror` that of the widget that shows the
/// value; both run after the value has changed, the handler first. Assigning the value it has does nothing.
/// The owner of the form owns the property; it must outlive its mirror.
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
        if (Change) Change();
        if (Mirror) Mirror(m_value);
        return *this;
    }

    [[nodiscard]] const T& operator()() const { return m_value; }

    /// Attaches the view and shows it the present value.
    void Attach(std::function<void(const T&)> mirror) {
        Mirror = std::move(mirror);
        if (Mirror) Mirror(m_value);
    }

    std::function<void()> Change;
    std::function<void(const T&)> Mirror;

private:
    T m_value{};
};
