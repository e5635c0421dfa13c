#include "qt/bar/ComboBox.h"

#include "qt/bar/ComboEdit.h"
#include "qt/base/Icons.h"
#include "qt/base/KeyFilter.h"
#include "qt/base/Strings.h"

#include <QAbstractItemView>
#include <QAction>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QToolBar>
#include <QWheelEvent>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kNarrowestBox = 120; // of a box that has to make room, in logical pixels
constexpr int kVisibleItems = 16;

bool OpensList(const QKeyEvent& event) {
    const int key = event.key();
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (key == Qt::Key_F4) return plain;
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    return (key == Qt::Key_Down && (plain || alt)) || (key == Qt::Key_Up && alt);
}

} // namespace

ComboBox::ComboBox(CommandBar& bar, ComboTool& tool, QWidget* parent)
    : QComboBox(parent), m_bar(bar), m_tool(tool), m_edit(new ComboEdit) {
    setObjectName(ToQt(tool.Name()));
    setAccessibleName(ToQt(tool.Caption()));
    setLineEdit(m_edit);
    m_edit->setAccessibleName(accessibleName());
    m_edit->setPlaceholderText(ToQt(tool.Description));
    setCompleter(nullptr);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(kVisibleItems);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    view()->setTextElideMode(Qt::ElideMiddle);
    // Else leaving a text that the list has as well counted as choosing it there.
    disconnect(m_edit, &QLineEdit::editingFinished, this, nullptr);
    connect(m_edit, &QLineEdit::textEdited, this, &ComboBox::OnEdited);
    connect(m_edit, &QLineEdit::cursorPositionChanged, this, &ComboBox::Publish);
    connect(m_edit, &QLineEdit::textChanged, this, &ComboBox::ShowSign);
    connect(m_edit, &QLineEdit::selectionChanged, this, &ComboBox::Publish);
    connect(this, &QComboBox::activated, this, &ComboBox::OnChosen);
}

ComboBox::~ComboBox() { SetEditing(false); }

void ComboBox::SetEditing(bool editing) {
    m_editing = editing;
    if (editing)
        m_bar.SetEdited(&m_tool);
    else if (m_bar.Edited() == &m_tool)
        m_bar.SetEdited(nullptr);
}

void ComboBox::ShowSign() {
    const BoxSign sign = m_tool.SignBeside(FromQt(m_edit->text()));
    if (sign == m_shownSign) return;
    m_shownSign = sign;
    ShowPicture(sign);
    m_edit->ShowWeight(static_cast<int>(sign.Weight.Start), static_cast<int>(sign.Weight.Length), sign.Waiting);
}

void ComboBox::ShowPicture(const BoxSign& sign) {
    if (sign.Meaning.empty()) {
        delete std::exchange(m_sign, nullptr);
        m_edit->setAccessibleDescription({});
        return;
    }
    const QIcon icon = sign.Image.Name == u"tessaview" ? Icons::Application() : Icons::Of(sign.Image);
    if (!m_sign) {
        m_sign = m_edit->addAction(icon, QLineEdit::LeadingPosition);
        m_sign->setObjectName(QStringLiteral("addressSign"));
    }
    m_sign->setIcon(icon);
    // The text makes room for it, but is not painted anew by itself.
    m_edit->update();
    m_sign->setText(ToQt(sign.Meaning));
    m_sign->setToolTip(ToQt(sign.Meaning));
    m_edit->setAccessibleDescription(ToQt(sign.Meaning));
}

// The caret stands at the selection's end, wherever the user began it.
void ComboBox::Publish() {
    if (m_showing) return;
    const QScopedValueRollback publishing(m_publishing, true);
    const bool selected = m_edit->hasSelectedText();
    const int start = selected ? m_edit->selectionStart() : m_edit->cursorPosition();
    m_tool.Value = FromQt(m_edit->text());
    m_tool.Selection =
        TextSelection{static_cast<std::size_t>(start), static_cast<std::size_t>(m_edit->selectionLength())};
}

void ComboBox::OnEdited() {
    if (m_showing) return;
    SetEditing(true);
    Publish();
    // What is not yet decided on is not to be completed, and moving the caret would decide it.
    if (m_edit->IsComposing()) return;
    {
        const QScopedValueRollback publishing(m_publishing, true);
        m_bar.TextChange(m_tool);
    }
    ShowAnswer();
}

void ComboBox::ShowAnswer() {
    const QScopedValueRollback showing(m_showing, true);
    m_edit->Show(ToQt(m_tool.Value()));
    ShowSelection();
}

void ComboBox::ShowValue() {
    if (m_publishing) return;
    m_pageText = m_tool.Value();
    m_heldBack = m_editing;
    // The text on the screen is what Enter means.
    if (m_editing) return Publish();
    ShowText(ToQt(m_pageText));
    // A selection that the program sets next counts from here.
    Publish();
}

void ComboBox::ShowText(const QString& text) {
    const QScopedValueRollback showing(m_showing, true);
    m_edit->setText(text);
    if (!m_edit->hasFocus()) m_edit->ShowWeighty();
}

void ComboBox::ShowSelection() {
    if (m_publishing) return;
    const QScopedValueRollback showing(m_showing, true);
    const auto size = static_cast<std::size_t>(m_edit->text().size());
    const std::size_t start = std::min(m_tool.Selection().Start, size);
    const std::size_t length = std::min(m_tool.Selection().Length, size - start);
    if (length == 0)
        m_edit->setCursorPosition(static_cast<int>(start));
    else
        m_edit->setSelection(static_cast<int>(start), static_cast<int>(length));
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    const KeyStroke key = KeyFilter::Of(*event);
    const bool escape = key == KeyStroke{Keys::kEscape, 0};
    Publish();
    // Enter makes the text the box's own, Escape gives it up: what the program sets now is to be shown.
    if (escape || key.KeyCode == Keys::kEnter) SetEditing(false);
    if (m_bar.UserKey(m_tool, key) == KeyUsed::Yes) return event->accept();
    if (escape) return Restore();
    if (OpensList(*event)) return showPopup();
    m_edit->event(event);
}

void ComboBox::Restore() {
    m_tool.Value = Text(m_pageText);
    m_edit->selectAll();
}

void ComboBox::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    const Qt::FocusReason reason = event->reason();
    // The user comes back and goes on.
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
    SetEditing(false);
    if (std::exchange(m_heldBack, false)) m_tool.Value = Text(m_pageText);
    if (!m_edit->hasSelectedText()) m_edit->ShowWeighty();
}

void ComboBox::OnChosen(int index) {
    SetEditing(false);
    m_heldBack = false;
    Publish();
    m_pageText = FromQt(itemText(index));
    m_bar.SelChange(m_tool);
}

void ComboBox::showPopup() {
    FillList();
    if (count() > 0) QComboBox::showPopup();
}

// The list is copied when it opens; changing it sets the text, which is to stay.
void ComboBox::FillList() {
    const QScopedValueRollback showing(m_showing, true);
    const QSignalBlocker quiet(this);
    const QString text = m_edit->text();
    clear();
    for (const Text& item : m_tool.List()) addItem(ToQt(item));
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    m_edit->setText(text);
    ShowSelection();
}

void ComboBox::SetRoom(int width) {
    if (m_room == width) return;
    m_room = width;
    updateGeometry();
}

int ComboBox::Wanted() const { return m_tool.Width().value; }

int ComboBox::Narrowest() const { return std::min(Wanted(), kNarrowestBox); }

QSize ComboBox::sizeHint() const {
    const bool fills = m_tool.FillsRow();
    const int width = m_room == 0 ? Wanted() : fills ? m_room : std::min(Wanted(), m_room);
    return {width, QComboBox::sizeHint().height()};
}

QSize ComboBox::minimumSizeHint() const {
    return {std::min(sizeHint().width(), kNarrowestBox), QComboBox::minimumSizeHint().height()};
}

void ComboBox::resizeEvent(QResizeEvent* event) {
    QComboBox::resizeEvent(event);
    // Upright, the toolbar gives it what a column can spare, which is not its width.
    const auto* bar = qobject_cast<const QToolBar*>(parentWidget());
    const bool upright = bar && bar->orientation() == Qt::Vertical;
    if (!m_tool.FillsRow() || m_room == 0 || upright || !isVisible()) return;
    m_tool.Measure(Pixels{width()});
}

// A turn of the wheel must not choose from the list.
void ComboBox::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace tessa::qt
