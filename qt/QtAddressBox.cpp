#include "qt/QtAddressBox.h"

#include "qt/QtText.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

QtAddressBox::QtAddressBox(ComboTool& tool, QWidget* parent) : QLineEdit(parent), m_tool(tool) {
    setObjectName(ToQt(tool.Name()));
    setAccessibleName(QStringLiteral("Address"));
    setPlaceholderText(QStringLiteral("Address or words to search for"));
    m_tool.Value.Attach([this](const Text& value) {
        if (m_typing) return;
        m_shown = value;
        setText(ToQt(value));
        // The beginning tells the site.
        if (!hasFocus()) home(false);
    });
    m_tool.Enabled.Attach([this](bool enabled) { setEnabled(enabled); });
    connect(this, &QLineEdit::textEdited, this, &QtAddressBox::OnTyped);
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (Entered) Entered();
    });
}

QtAddressBox::~QtAddressBox() {
    m_tool.Value.Attach({});
    m_tool.Enabled.Attach({});
}

void QtAddressBox::OnTyped(const QString& text) {
    m_typing = true;
    m_tool.Value = FromQt(text);
    m_typing = false;
}

void QtAddressBox::Restore() {
    const Text shown = m_shown;
    m_tool.Value = shown;
    setText(ToQt(shown));
    selectAll();
}

bool QtAddressBox::event(QEvent* event) {
    // Escape is ours while the box has the focus, not the shortcut of a command.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void QtAddressBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return Restore();
    QLineEdit::keyPressEvent(event);
}

void QtAddressBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_selectOnRelease = event->reason() == Qt::MouseFocusReason;
}

void QtAddressBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(m_selectOnRelease, false) && !hasSelectedText()) selectAll();
}
