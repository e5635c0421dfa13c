#include "qt/base/Bind.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <limits>
#include <memory>
#include <utility>

namespace tessa::qt {

namespace {

/// The widget follows the property until one of them is deleted, the widget first.
template<typename T>
void Follow(Property<T>& property, QObject& widget, std::function<void(const T&)> mirror) {
    KeepWith(widget, property.Attach(std::move(mirror)));
}

void FollowEnabled(Property<bool>& enabled, QWidget& widget) {
    Follow<bool>(enabled, widget, [&widget](bool on) { widget.setEnabled(on); });
}

// What a screen reader says: the caption without access key marks.
QString Spoken(const QString& caption, bool marked) { return marked ? ToQt(PlainCaption(FromQt(caption))) : caption; }

QString Shown(const QString& caption, QChar accessKey) {
    return accessKey.isNull() ? caption : WithAccessKey(caption, accessKey);
}

Qt::CheckState QtState(CheckState state) {
    if (state == CheckState::Grey) return Qt::PartiallyChecked;
    return state == CheckState::Ticked ? Qt::Checked : Qt::Unchecked;
}

CheckState StateOf(int qtState) {
    if (qtState == Qt::PartiallyChecked) return CheckState::Grey;
    return qtState == Qt::Checked ? CheckState::Ticked : CheckState::Unticked;
}

} // namespace

void KeepWith(QObject& owner, Connection connection) {
    const auto kept = std::make_shared<Connection>(std::move(connection));
    QObject::connect(&owner, &QObject::destroyed, [kept] { kept->End(); });
}

QString WithAccessKey(const QString& caption, QChar key) {
    qsizetype at = -1;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i].toLower() != key.toLower()) continue;
        const bool beginsWord = i == 0 || caption[i - 1].isSpace();
        if (at < 0 || beginsWord) at = i;
        if (beginsWord) break;
    }
    const auto escaped = [](const QString& text) { return ToQt(EscapedCaption(FromQt(text))); };
    if (at < 0) return escaped(caption);
    return escaped(caption.left(at)) + u'&' + escaped(caption.mid(at));
}

void Bind(CheckBox& box, QCheckBox& widget, const QString& name, QChar accessKey) {
    const QString caption = ToQt(box.Caption);
    widget.setObjectName(name);
    widget.setText(Shown(caption, accessKey));
    widget.setAccessibleName(Spoken(caption, accessKey.isNull()));
    FollowEnabled(box.Enabled, widget);
    Follow<CheckState>(box.Value, widget, [&widget](CheckState state) { widget.setCheckState(QtState(state)); });
    QObject::connect(&widget, &QCheckBox::stateChanged, &widget, [&box, &widget](int state) {
        // A user never makes a box grey.
        if (state != Qt::PartiallyChecked) widget.setTristate(false);
        box.Value = StateOf(state);
    });
}

void Bind(Button& button, QPushButton& widget, const QString& name, QChar accessKey) {
    widget.setObjectName(name);
    Follow<Text>(button.Caption, widget, [&widget, accessKey](const Text& text) {
        const QString caption = ToQt(text);
        widget.setText(Shown(caption, accessKey));
        widget.setAccessibleName(Spoken(caption, accessKey.isNull()));
    });
    FollowEnabled(button.Enabled, widget);
    Follow<bool>(button.Visible, widget, [&widget](bool visible) {
        // Only what was hidden is shown: a widget that has no parent yet would come up as a window.
        if (!visible || widget.testAttribute(Qt::WA_WState_ExplicitShowHide)) widget.setVisible(visible);
    });
    QObject::connect(&widget, &QPushButton::clicked, &widget, [&button] { button.Click(); });
}

void Bind(Label& label, QLabel& widget, const QString& name, QChar accessKey) {
    widget.setObjectName(name);
    widget.setTextFormat(Qt::PlainText);
    Follow<Text>(label.Caption, widget, [&widget, accessKey](const Text& text) {
        const QString caption = ToQt(text);
        widget.setText(Shown(caption, accessKey));
        widget.setAccessibleName(Spoken(caption, accessKey.isNull() && widget.buddy() != nullptr));
    });
}

void Bind(TextBox& box, QLineEdit& widget, const QString& name, const QString& accessibleName) {
    widget.setObjectName(name);
    widget.setAccessibleName(accessibleName);
    // The widget must not cut what the form holds.
    widget.setMaxLength(std::numeric_limits<int>::max());
    FollowEnabled(box.Enabled, widget);
    KeepWith(widget, box.SetFocus.Connect([&widget] {
        widget.setFocus(Qt::OtherFocusReason);
        widget.selectAll();
    }));
    Follow<Text>(box.Value, widget, [&widget](const Text& text) {
        // Setting the same text again would move the cursor.
        if (const QString shown = ToQt(text); shown != widget.text()) widget.setText(shown);
    });
    QObject::connect(&widget, &QLineEdit::textChanged, &widget,
                     [&box](const QString& text) { box.Value = FromQt(text); });
}

void Bind(FormState& form, QDialog& dialog, Button& cancel) {
    Follow<bool>(form.Visible, dialog, [&dialog](bool visible) {
        if (!visible) dialog.hide();
    });
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [&form, &cancel] {
        if (form.Visible()) cancel.Click();
    });
}

void ShowModal(FormState& form, QDialog& dialog) {
    form.Visible = true;
    dialog.exec();
    form.Visible = false;
}

} // namespace tessa::qt
