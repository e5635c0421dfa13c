#include "qt/dialogs/GroupList.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/GroupPlanMenu.h"
#include "qt/dialogs/ListBoxItems.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>
#include <array>

namespace tessa::qt {

namespace {

constexpr std::array kHeaders{"Address", "Opens", "Asleep", "Muted", "Text size"};
/// How wide addresses are at least.
constexpr int kLeastAddress = 160;

/// All that can stand in a column besides its header.
QStringList WordsIn(GroupList::Column column) {
    using Place = PagePlan::Place;
    QStringList words;
    if (column == GroupList::Place) {
        for (const Place place : {Place::AsListed, Place::First, Place::Last}) words << GroupPlanMenu::NameOf(place);
    }
    if (column == GroupList::TextSize) {
        words << GroupPlanMenu::NameOf(std::nullopt);
        for (int size = 0; size < 5; ++size) words << GroupPlanMenu::NameOf(size);
    }
    return words;
}

} // namespace

/// The addresses, and how each opens.
class GroupListItems final : public ListBoxItems {
public:
    GroupListItems(frmTessaGroup& form, QObject* parent) : ListBoxItems(form.lstUrls, parent), m_form(form) {}

    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : GroupList::kColumns;
    }
    [[nodiscard]] QVariant headerData(int column, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return QString::fromLatin1(kHeaders.at(static_cast<std::size_t>(column)));
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || index.column() == GroupList::Address) return ListBoxItems::data(index, role);
        const PagePlan plan = m_form.PlanAt(static_cast<std::size_t>(index.row()));
        if (index.column() == GroupList::Asleep) return Mark(plan.asleep, role);
        if (index.column() == GroupList::Muted) return Mark(plan.muted, role);
        if (role != Qt::DisplayRole) return {};
        return index.column() == GroupList::Place ? GroupPlanMenu::NameOf(plan.place)
                                                  : GroupPlanMenu::NameOf(plan.textSize);
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        // Entries are dropped between others, never onto one.
        if (!index.isValid()) return Qt::ItemIsDropEnabled;
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    }
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }

private:
    [[nodiscard]] static QVariant Mark(bool set, int role) {
        if (role == Qt::CheckStateRole) return set ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::AccessibleTextRole) return set ? QStringLiteral("Yes") : QStringLiteral("No");
        return {};
    }

    frmTessaGroup& m_form;
};

GroupList::GroupList(frmTessaGroup& form)
    : m_form(form), m_list(form.lstUrls), m_model(new GroupListItems(form, this)) {
    // A view takes its model with nothing selected, and says so.
    const std::int32_t selected = m_list.ListIndex();
    setModel(m_model);
    SetUp();
    m_connections += m_list.Attach([this](RowChange change) { m_model->Follow(change); });
    m_connections += m_list.FocusWanted.Connect([this] { setFocus(Qt::OtherFocusReason); });
    m_list.ListIndex = selected;
    m_connections += m_list.ListIndex.Attach([this](std::int32_t index) { Select(index); });
    m_connections += m_list.Enabled.Attach([this](bool enabled) { setEnabled(enabled); });
    connect(this, &QTreeView::clicked, this, &GroupList::Click);
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() == Address) m_list.DblClick();
    });
}

void GroupList::SetUp() {
    setObjectName(QStringLiteral("lstUrls"));
    setAccessibleName(QStringLiteral("Addresses"));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setDragDropMode(InternalMove);
    setDropIndicatorShown(true);
    SetUpColumns();
}

// As wide as the widest that can stand there, so that nothing moves when a plan changes.
void GroupList::SetUpColumns() {
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setSectionResizeMode(Address, QHeaderView::Stretch);
    int all = 0;
    for (const Column column : {Place, Asleep, Muted, TextSize}) {
        int widest = fontMetrics().horizontalAdvance(QString::fromLatin1(kHeaders.at(column)));
        for (const QString& each : WordsIn(column)) widest = std::max(widest, fontMetrics().horizontalAdvance(each));
        const int width = widest + 2 * fontMetrics().height();
        header()->resizeSection(column, width);
        all += width;
    }
    setMinimumWidth(all + kLeastAddress);
}

void GroupList::Select(std::int32_t index) {
    const QModelIndex selected = m_model->index(index, 0);
    const bool sameRow = selected.row() == currentIndex().row();
    // What has only the keyboard's frame is not selected yet.
    if (sameRow && (!selected.isValid() || selectionModel()->isSelected(selected))) return;
    setCurrentIndex(selected);
    if (!selected.isValid()) clearSelection();
}

void GroupList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    m_list.ListIndex = current.row();
}

void GroupList::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    m_list.GotFocus();
}

void GroupList::mousePressEvent(QMouseEvent* event) {
    // Beside the entries there is nothing to select, and what is selected stays so.
    if (indexAt(event->position().toPoint()).isValid()) QTreeView::mousePressEvent(event);
}

void GroupList::dropEvent(QDropEvent* event) {
    if (event->source() != this) return event->ignore();
    event->setDropAction(Qt::MoveAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    MoveTo(event->position().toPoint());
}

void GroupList::MoveTo(QPoint point) {
    const QModelIndex under = indexAt(point);
    const int from = currentIndex().row();
    int place = m_model->rowCount({});
    if (under.isValid()) place = under.row() + (point.y() > visualRect(under).center().y() ? 1 : 0);
    // Its own place becomes free.
    const int to = place > from ? place - 1 : place;
    if (from >= 0) m_form.MoveEntry(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
}

void GroupList::Click(const QModelIndex& index) {
    const auto place = static_cast<std::size_t>(index.row());
    PagePlan plan = m_form.PlanAt(place);
    switch (index.column()) {
    case Asleep:
        plan.asleep = !plan.asleep;
        return m_form.SetPlan(place, plan);
    case Muted:
        plan.muted = !plan.muted;
        return m_form.SetPlan(place, plan);
    case Place:
    case TextSize:
        return PopUp(index, static_cast<Column>(index.column()),
                     viewport()->mapToGlobal(visualRect(index).bottomLeft()));
    default:
        break;
    }
}

void GroupList::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    const QPoint below = viewport()->mapToGlobal(visualRect(index.siblingAtColumn(Address)).bottomLeft());
    PopUp(index, Address, byKey ? below : event->globalPos());
}

void GroupList::PopUp(const QModelIndex& index, Column column, QPoint globalPoint) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    FillMenu(*menu, static_cast<std::size_t>(index.row()), column);
    menu->popup(globalPoint);
}

void GroupList::FillMenu(QMenu& menu, std::size_t place, Column column) {
    if (column == Place) return GroupPlanMenu::AddPlaces(menu, m_form, place);
    if (column == TextSize) return GroupPlanMenu::AddSizes(menu, m_form, place);
    GroupPlanMenu::AddAll(menu, m_form, place);
}

bool GroupList::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowToolTip(help->pos(), help->globalPos());
    return true;
}

void GroupList::ShowToolTip(QPoint point, QPoint globalPoint) {
    const QModelIndex under = indexAt(point);
    const auto row = static_cast<std::size_t>(under.row());
    if (!under.isValid() || under.column() != Address || row >= m_list.ListCount()) return QToolTip::hideText();
    const Text& item = m_list.Rows()[row];
    const QString title = ToQt(OneLine(m_form.TitleOf(item))).toHtmlEscaped();
    // A title comes from a page, an address from anywhere: both are text, whatever they look like.
    QString tip = ToQt(OneLine(item)).toHtmlEscaped();
    if (!title.isEmpty()) tip = QStringLiteral("<b>%1</b><br>%2").arg(title, tip);
    QToolTip::showText(globalPoint, QStringLiteral("<p style='word-break:break-all'>%1</p>").arg(tip), viewport(),
                       visualRect(under));
}

} // namespace tessa::qt
