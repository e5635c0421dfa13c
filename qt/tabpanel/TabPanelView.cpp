#include "qt/tabpanel/TabPanelView.h"

#include "qt/base/Strings.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <chrono>

namespace tessa::qt {

namespace {

constexpr std::chrono::milliseconds kScrollStep{40};

bool IsTyped(const QKeyEvent& event) {
    const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !command && !event.text().isEmpty() && event.text().at(0).isPrint() && event.key() != Qt::Key_Space;
}

} // namespace

TabPanelView::TabPanelView(frmTabPanel& form, const TabIcons& icons, QWidget* parent)
    : QTreeView(parent),
      m_form(form),
      m_model(new TabPanelModel(form, icons, this)),
      m_lines(new TabPanelLines(*m_model, this)) {
    setObjectName(QStringLiteral("lstTabs"));
    setAccessibleName(QStringLiteral("Tabs"));
    setModel(m_model);
    setItemDelegate(m_lines);
    BeAPlainList();
    m_scroll.setInterval(kScrollStep);
    m_scroll.callOnTimeout(this, [this] { ScrollAtEdge(); });
    Refresh();
}

// Without columns, branches and what edits or selects by itself.
void TabPanelView::BeAPlainList() {
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setMouseTracking(true);
}

void TabPanelView::Refresh() {
    const std::int32_t current = m_model->ViewAt(currentIndex());
    const int scrolled = verticalScrollBar()->value();
    m_model->Refresh();
    if (verticalScrollBar()->value() != scrolled) {
        // What was reset is laid out before there is anything to scroll.
        executeDelayedItemsLayout();
        verticalScrollBar()->setValue(scrolled);
    }
    const Tab* front = m_form.Front();
    const std::int32_t inFront = front ? front->Tag : 0;
    const QModelIndex marked = m_model->IndexOf(current);
    if (const QModelIndex shown = marked.isValid() ? marked : m_model->IndexOf(inFront); shown != currentIndex())
        selectionModel()->setCurrentIndex(shown, QItemSelectionModel::NoUpdate);
    ShowFolded();
    SelectRows();
    if (std::exchange(m_front, inFront) == inFront) return;
    if (const QModelIndex line = m_model->IndexOf(inFront); line.isValid()) scrollTo(line);
}

// For screen readers, as what is selected: nothing stands below a line here.
void TabPanelView::ShowFolded() {
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex line = m_model->index(row, 0);
        const TabGroup* group = m_model->GroupAt(line);
        if (group) setExpanded(line, !m_form.IsFolded(*group));
    }
}

// For whoever asks what is selected: screen readers.
void TabPanelView::SelectRows() {
    QItemSelection rows;
    int first = -1;
    const int count = m_model->rowCount();
    const Tab* front = m_form.Front();
    const bool choice = m_form.Strip().CountChosen() > 0;
    for (int row = 0; row <= count; ++row) {
        const Tab* tab = row < count ? m_model->TabAt(m_model->index(row, 0)) : nullptr;
        const bool in = tab && (choice ? tab->Chosen() : tab == front);
        if (in && first < 0) first = row;
        if (in || first < 0) continue;
        rows.select(m_model->index(first, 0), m_model->index(row - 1, 0));
        first = -1;
    }
    if (rows != selectionModel()->selection()) selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

QItemSelectionModel::SelectionFlags TabPanelView::selectionCommand(const QModelIndex&, const QEvent*) const {
    return QItemSelectionModel::NoUpdate;
}

void TabPanelView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (!m_place || m_model->rowCount() == 0) return;
    QPainter painter(viewport());
    PaintPlace(painter, *m_place);
}

// What comes into a group comes under its tabs, a step further in; onto its name, into a frame around that.
void TabPanelView::PaintPlace(QPainter& painter, const TabPanelPlace& place) const {
    const QColor ink = palette().color(QPalette::Highlight);
    const int row = static_cast<int>(place.Entry);
    if (place.OnGroup) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(ink, 2));
        return painter.drawRoundedRect(QRectF(visualRect(m_model->index(row - 1, 0))).adjusted(1, 1, -1, -1), 3, 3);
    }
    const bool end = row >= m_model->rowCount();
    const QRect line = visualRect(m_model->index(end ? m_model->rowCount() - 1 : row, 0));
    const int left = place.Group == 0 ? 2 : 2 + TabPanelLines::kStep;
    painter.fillRect(QRect(left, (end ? line.bottom() + 1 : line.top()) - 1, viewport()->width() - 2 - left, 2), ink);
}

void TabPanelView::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const std::int32_t view = m_model->ViewAt(byKey ? currentIndex() : indexAt(event->pos()));
    if (view > 0) MenuRequested(view);
    if (view < 0) GroupMenuRequested(-view);
    event->accept();
}

bool TabPanelView::OnKey(const QKeyEvent& event) {
    const std::int32_t view = m_model->ViewAt(currentIndex());
    const bool ctrl = event.modifiers() & Qt::ControlModifier;
    switch (event.key()) {
    case Qt::Key_Escape:
        m_dragged.empty() ? Left() : EndDrag();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        ctrl&& event.key() == Qt::Key_Space ? m_form.CtrlClick(view) : m_form.Click(view);
        return true;
    case Qt::Key_Delete:
        m_form.Close(view);
        return true;
    case Qt::Key_F2:
        if (view > 0) edit(currentIndex());
        return true;
    default:
        return OnWholeKey(event);
    }
}

// What is done with a whole group, or with all.
bool TabPanelView::OnWholeKey(const QKeyEvent& event) {
    const bool left = event.key() == Qt::Key_Left, ctrl = event.modifiers() & Qt::ControlModifier;
    if (left || event.key() == Qt::Key_Right) {
        Fold(m_model->ViewAt(currentIndex()), left);
        return true;
    }
    if (event.key() != Qt::Key_A || !ctrl) return false;
    m_form.ChooseAll();
    return true;
}

void TabPanelView::Fold(std::int32_t line, bool fold) {
    const auto* group = m_form.FindGroup(line);
    if (group && group->Folded() != fold) m_form.Click(line);
}

// The arrow keys go from line to line, and bring none to the front. With Shift they choose.
bool TabPanelView::OnMove(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Up && currentIndex().row() <= 0 && event.modifiers() == Qt::NoModifier) {
        Typed(QString());
        return true;
    }
    const QModelIndex before = currentIndex();
    QKeyEvent plain(event.type(), event.key(), Qt::NoModifier, event.text());
    QTreeView::keyPressEvent(&plain);
    const bool moved = currentIndex() != before;
    if (moved && event.modifiers() & Qt::ShiftModifier) m_form.ShiftClick(m_model->ViewAt(currentIndex()));
    return moved;
}

void TabPanelView::keyPressEvent(QKeyEvent* event) {
    if (state() == QAbstractItemView::EditingState) return QTreeView::keyPressEvent(event);
    if (OnKey(*event)) return event->accept();
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        OnMove(*event);
        return event->accept();
    default:
        break;
    }
    if (!IsTyped(*event)) return event->ignore();
    Typed(event->text());
}

} // namespace tessa::qt
