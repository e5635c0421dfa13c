#include "qt/QtTabList.h"

#include "qt/QtText.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <algorithm>

namespace {
constexpr int kTabKeyRole = Qt::UserRole, kSearchedRole = Qt::UserRole + 1;
constexpr int kWidthInEms = 26, kRows = 18;
} // namespace

QtTabList::QtTabList(QWidget* parent)
    : QFrame(parent, Qt::Popup),
      m_search(new QLineEdit(this)),
      m_list(new QListView(this)),
      m_tabs(new QStandardItemModel(this)),
      m_found(new QSortFilterProxyModel(this)) {
    setObjectName(QStringLiteral("tabList"));
    setAccessibleName(QStringLiteral("All tabs"));
    setFrameStyle(QFrame::StyledPanel);
    m_search->setPlaceholderText(QStringLiteral("Search tabs"));
    m_search->setAccessibleName(QStringLiteral("Search tabs"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_found->setSourceModel(m_tabs);
    m_found->setFilterRole(kSearchedRole);
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setModel(m_found);
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setFrameStyle(QFrame::NoFrame);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(m_search);
    column->addWidget(m_list);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& words) {
        m_found->setFilterFixedString(words);
        Mark(0);
    });
    connect(m_list, &QListView::clicked, this, &QtTabList::Choose);
}

void QtTabList::Open(const std::vector<QtTabListEntry>& tabs, QPoint corner) {
    m_tabs->clear();
    m_search->clear();
    int selected = 0;
    for (const QtTabListEntry& tab : tabs) {
        auto* item = new QStandardItem(tab.icon, tab.title);
        item->setData(ToQt(tab.key), kTabKeyRole);
        item->setData(QString(tab.title + QLatin1Char('\n') + tab.address), kSearchedRole);
        item->setToolTip(Qt::convertFromPlainText(tab.title + QLatin1Char('\n') + tab.address, Qt::WhiteSpaceNormal));
        if (tab.selected) selected = m_tabs->rowCount();
        m_tabs->appendRow(item);
    }
    const int row = std::max(m_list->sizeHintForRow(0), fontMetrics().height() + 4);
    const int rows = std::clamp(static_cast<int>(tabs.size()), 1, kRows);
    resize(kWidthInEms * fontMetrics().height(), rows * row + m_search->sizeHint().height() + 20);
    const QRect desk = screen()->availableGeometry();
    move(std::clamp(corner.x() - width(), desk.left(), std::max(desk.left(), desk.right() - width())),
         std::clamp(corner.y(), desk.top(), std::max(desk.top(), desk.bottom() - height())));
    show();
    m_search->setFocus();
    Mark(selected);
}

void QtTabList::Mark(int row) {
    const QModelIndex index = m_found->index(row, 0);
    m_list->setCurrentIndex(index);
    m_list->scrollTo(index);
}

bool QtTabList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    const int row = m_list->currentIndex().row(), last = m_found->rowCount() - 1;
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
        Mark(std::min(row + 1, last));
        return true;
    case Qt::Key_Up:
        Mark(std::max(row - 1, 0));
        return true;
    case Qt::Key_PageDown:
        Mark(std::min(row + kRows, last));
        return true;
    case Qt::Key_PageUp:
        Mark(std::max(row - kRows, 0));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Choose(m_list->currentIndex());
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}

void QtTabList::Choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    const Text key = FromQt(index.data(kTabKeyRole).toString());
    close();
    if (Chosen) Chosen(key);
}
