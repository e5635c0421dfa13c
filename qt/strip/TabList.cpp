#include "qt/strip/TabList.h"

#include "qt/base/SelectedIcon.h"
#include "qt/base/Strings.h"
#include "qt/base/Tip.h"
#include "qt/page/WebPage.h"
#include "qt/strip/TabLines.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace tessa::qt {

namespace {
constexpr int kTabKeyRole = Qt::UserRole, kSearchedRole = Qt::UserRole + 1, kHostRole = TabLines::kHostRole;
constexpr int kWidthInEms = 26, kRows = 18;
} // namespace

TabList::TabList(QWidget* parent)
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
    MakeList();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(m_search);
    column->addWidget(m_list);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& words) {
        m_found->setFilterFixedString(words);
        Mark(0);
    });
}

void TabList::MakeList() {
    m_list->setModel(m_found);
    auto* lines = new TabLines(m_list);
    lines->CloseAt.ConnectForLife([this](const QModelIndex& index) { Close(index); });
    m_list->setItemDelegate(lines);
    m_list->setMouseTracking(true);
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setFrameStyle(QFrame::NoFrame);
    connect(m_list, &QListView::clicked, this, [this, lines](const QModelIndex& index) {
        // A click on the button of a line has closed its tab.
        if (!lines->TakeClosed()) Choose(index);
    });
}

void TabList::Fill(const std::vector<TabListEntry>& tabs) {
    m_tabs->clear();
    for (const TabListEntry& tab : tabs) {
        auto* item = new QStandardItem(WithSelectedPageLook(tab.icon), tab.title);
        item->setData(ToQt(tab.key), kTabKeyRole);
        item->setData(QString(tab.title + QLatin1Char('\n') + tab.address), kSearchedRole);
        item->setData(WebPage::HostAndPort(QUrl(tab.address)), kHostRole);
        item->setToolTip(Tip::Html(tab.tip));
        m_tabs->appendRow(item);
    }
}

void TabList::Open(const std::vector<TabListEntry>& tabs, QPoint corner) {
    m_search->clear();
    Fill(tabs);
    LayDown(corner);
    show();
    m_search->setFocus();
    const auto selected = std::ranges::find(tabs, true, &TabListEntry::selected);
    Mark(selected == tabs.end() ? 0 : static_cast<int>(std::distance(tabs.begin(), selected)));
}

void TabList::Refresh(const std::vector<TabListEntry>& tabs) {
    if (!isVisible()) return;
    const QVariant marked = m_list->currentIndex().data(kTabKeyRole);
    const int row = m_list->currentIndex().row(), scrolled = m_list->verticalScrollBar()->value();
    Fill(tabs);
    int next = std::min(row, m_found->rowCount() - 1);
    for (int each = 0; each < m_found->rowCount(); ++each) {
        if (m_found->index(each, 0).data(kTabKeyRole) == marked) next = each;
    }
    m_list->verticalScrollBar()->setValue(scrolled);
    Mark(std::max(next, 0));
}

void TabList::LayDown(QPoint corner) {
    const QScreen* desktop = QGuiApplication::screenAt(corner);
    const QRect desk = (desktop ? desktop : screen())->availableGeometry();
    const int row = std::max(m_list->sizeHintForRow(0), fontMetrics().height() + 4);
    const int rows = std::clamp(m_tabs->rowCount(), 1, kRows);
    resize(std::min(kWidthInEms * fontMetrics().height(), desk.width()),
           std::min(rows * row + m_search->sizeHint().height() + 20, desk.height()));
    move(std::clamp(corner.x() - width(), desk.left(), std::max(desk.left(), desk.right() - width())),
         std::clamp(corner.y(), desk.top(), std::max(desk.top(), desk.bottom() - height())));
}

void TabList::Close(const QModelIndex& index) {
    if (!index.isValid()) return;
    const Text key = FromQt(index.data(kTabKeyRole).toString());
    // The program asks about the last one, and the list would be in front of that.
    if (m_tabs->rowCount() == 1) close();
    CloseRequested(key);
}

void TabList::Mark(int row) {
    const QModelIndex index = m_found->index(row, 0);
    m_list->setCurrentIndex(index);
    m_list->scrollTo(index);
}

bool TabList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Close)) {
        Close(m_list->currentIndex());
        return true;
    }
    const auto step = [this](int rows) {
        Mark(std::clamp(m_list->currentIndex().row() + rows, 0, std::max(m_found->rowCount() - 1, 0)));
        return true;
    };
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
        return step(1);
    case Qt::Key_Up:
        return step(-1);
    case Qt::Key_PageDown:
        return step(kRows);
    case Qt::Key_PageUp:
        return step(-kRows);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Choose(m_list->currentIndex());
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}

void TabList::Choose(const QModelIndex& index) {
    if (!index.isValid()) return;
    const Text key = FromQt(index.data(kTabKeyRole).toString());
    close();
    Chosen(key);
}

} // namespace tessa::qt
