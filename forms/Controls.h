#pragma once
// The controls of a form, as data. A view binds each to a widget; the form's own handler listens to the property's
// Change or to Click.

#include "base/Property.h"
#include "base/Text.h"

namespace tessa {

enum class CheckState { Unticked = 0, Ticked = 1, Grey = 2 };

struct CheckBox {
    explicit CheckBox(Text caption) : Caption(std::move(caption)) {}
    Text Caption;
    Property<CheckState> Value{CheckState::Unticked};
    Property<bool> Enabled{true};

    /// Ticked exactly; a grey box is not.
    [[nodiscard]] bool Ticked() const { return Value() == CheckState::Ticked; }
    void Tick(bool ticked) { Value = ticked ? CheckState::Ticked : CheckState::Unticked; }
};

struct TextBox {
    Property<Text> Value;
    Property<bool> Enabled{true};
    /// The box is to have the keyboard, its text selected; for its view.
    Signal<void()> SetFocus;
};

struct Label {
    explicit Label(Text caption) : Caption(std::move(caption)) {}
    Property<Text> Caption;
};

struct Button {
    explicit Button(Text caption) : Caption(std::move(caption)) {}
    Property<Text> Caption;
    Property<bool> Enabled{true};
    Property<bool> Visible{true};
    Signal<void()> Click;
};

/// A part of a form with controls of its own.
struct Frame {
    Property<bool> Visible{false};
};

/// Whether a form is on the screen; hiding ends a modal show.
struct FormState {
    Property<bool> Visible{false};
};

} // namespace tessa
