#include "qt/bar/customize/BandList.h"

#include "qt/bar/customize/ToolMime.h"
#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QApplication>
#include <QDropEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QTimerEvent>

namespace tessa::qt {

namespace {

constexpr int kGroupRole = Qt::UserRole;
constexpr int kBandIconSize = 16, kDropLine = 3;

// Draws the separator above an entry that begins a group.
class GroupDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (!index.data(kGroupRole).toBool()) return;
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->drawLine(option.rect.topLeft(), option.rect.topRight());
    }
};

QListWidgetItem* ItemOf(const BandEntry& entry) {
    const Tool& tool = *entry.Item;
    const QString title = ToQt(Customization::TitleOf(tool));
    auto* item = new QListWidgetItem(Icons::OfOrBlank(tool.Image), title);
    // Of a menu's entries the arrow says what a menu says with it.
    if (!tool.SubBand.empty()) item->setText(title + QStringLiteral(" \u25B8"));
    item->setToolTip(ToQt(tool.Description));
    item->setData(kGroupRole, entry.Group == BeginGroup::Yes);
    item->setData(Qt::AccessibleTextRole,
                  entry.Group == BeginGroup::Yes ? QStringLiteral("separator, %1").arg(title) : title);
    return item;
}

} // namespace

BandList::BandList(Customization& custom, QWidget* parent) : QListWidget(parent), m_custom(custom) {
    setItemDelegate(new GroupDelegate(this));
    setIconSize({kBandIconSize, kBandIconSize});
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(QAbstractItemView::DragDrop);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { WantMenu(row(item)); });
}

void BandList::ShowBand(const Band& band) {
    m_band = band.Name();
    Refresh();
    setCurrentRow(0);
}

Band* BandList::Shown() const { return m_custom.Bar().FindBand(m_band); }

void BandList::Refresh() {
    const int current = currentRow();
    clear();
    m_place = -1;
    const Band* band = Shown();
    if (!band) return;
    for (const BandEntry& entry : band->Entries()) addItem(ItemOf(entry));
    setCurrentRow(std::min(current, count() - 1));
}

QSize BandList::sizeHint() const {
    const int row = count() ? sizeHintForRow(0) : fontMetrics().height() * 2;
    const int frame = 2 * frameWidth();
    const int most = screen()->availableSize().height() / 2;
    const int height = row * std::max(count(), 1) + frame;
    const int bar = height > most ? verticalScrollBar()->sizeHint().width() : 0;
    return {std::max(sizeHintForColumn(0) + frame + bar, fontMetrics().averageCharWidth() * 16),
            std::min(height, most)};
}

void BandList::startDrag(Qt::DropActions) {
    Band* band = Shown();
    const auto index = static_cast<std::size_t>(currentRow());
    if (!band || currentRow() < 0 || index >= band->Entries().size()) return;
    const DraggedTool dragged{band->Entries()[index].Item, band, index};
    // Not from within the list's own event: the list may be closed before the drag ends.
    QTimer::singleShot(0, this, [this, dragged] { ToolMime::Drag(*this, m_custom.Bar(), dragged); });
}

int BandList::PlaceAt(const QPoint& point) const {
    for (int row = 0; row < count(); ++row) {
        if (point.y() < visualItemRect(item(row)).center().y()) return row;
    }
    return count();
}

void BandList::ShowPlace(int row) {
    m_place = row;
    viewport()->update();
}

void BandList::HoverOver(int row) {
    if (row == m_hovered) return;
    m_hovered = row;
    m_hover.start(ToolMime::kHoverMilliseconds, this);
}

void BandList::WantMenu(int row) {
    Band* band = Shown();
    if (!band || row < 0 || row >= count()) return;
    const Text& name = band->Entries()[static_cast<std::size_t>(row)].Item->SubBand;
    Band* menu = name.empty() ? nullptr : m_custom.Bar().FindBand(name);
    const QRect place = visualItemRect(item(row));
    if (menu) MenuWanted(*menu, {viewport()->mapToGlobal(place.topLeft()), place.size()});
}

void BandList::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_hover.timerId()) return QListWidget::timerEvent(event);
    m_hover.stop();
    WantMenu(m_hovered);
}

void BandList::dragEnterEvent(QDragEnterEvent* event) { event->acceptProposedAction(); }

void BandList::dragMoveEvent(QDragMoveEvent* event) {
    const Band* band = Shown();
    const auto dragged = ToolMime::Read(m_custom.Bar(), event->mimeData());
    const bool takes = band && dragged && m_custom.Accepts(*band, *dragged);
    const QPoint at = event->position().toPoint();
    ShowPlace(takes ? PlaceAt(at) : -1);
    HoverOver(row(itemAt(at)));
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(takes);
}

void BandList::dragLeaveEvent(QDragLeaveEvent*) {
    ShowPlace(-1);
    m_hovered = -1;
    m_hover.stop();
}

void BandList::dropEvent(QDropEvent* event) {
    const auto dragged = ToolMime::Read(m_custom.Bar(), event->mimeData());
    const int place = PlaceAt(event->position().toPoint());
    dragLeaveEvent(nullptr);
    event->setDropAction(Qt::MoveAction);
    event->accept();
    Band* band = Shown();
    if (!band || !dragged || !m_custom.Accepts(*band, *dragged)) return;
    m_custom.Drop(*dragged, *band, static_cast<std::size_t>(place));
    setCurrentRow(std::min(place, count() - 1));
}

void BandList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (m_place < 0) return;
    QPainter painter(viewport());
    const bool behind = m_place >= count();
    const QRect entry = count() ? visualItemRect(item(behind ? count() - 1 : m_place)) : QRect();
    const int y = behind ? entry.bottom() - kDropLine + 2 : entry.top();
    painter.fillRect(0, std::max(y, 0), viewport()->width(), kDropLine, palette().color(QPalette::Highlight));
}

} // namespace tessa::qt
