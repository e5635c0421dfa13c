#include "qt/history/OpenPagesPanel.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"
#include "qt/history/PassageLines.h"

#include <QDockWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>

namespace tessa::qt {

namespace {
// Pages answer one after the other, and are shown together.
constexpr std::chrono::milliseconds kGathered{40};
constexpr int kUsualPanelWidth = 360, kPanelMargin = 6;
} // namespace

OpenPagesPanel::OpenPagesPanel(frmOpenPages& form, QMainWindow& window)
    : m_form(form), m_window(window), m_panel(window, QStringLiteral("open pages"), {}) {
    m_refresh.setSingleShot(true);
    m_refresh.callOnTimeout(this, [this] { m_form.Show(); });
    m_connections += m_form.Schedule.Connect([this] {
        if (!m_refresh.isActive()) m_refresh.start(kGathered);
    });
    m_connections += m_panel.Dismissed.Connect([this] { m_form.Form.Visible = false; });
    m_connections += m_form.Form.Visible.Attach([this](bool visible) { visible ? Open() : m_panel.Close(); });
}

OpenPagesPanel::~OpenPagesPanel() {
    m_connections.End();
    m_panel.Close();
}

void OpenPagesPanel::Open() {
    if (m_panel.Get()) return;
    m_panel.Open(ToQt(m_form.Caption), *Contents());
    m_panel.SetWidth(std::min(kUsualPanelWidth, m_window.width() / 3));
    ShowLines();
    m_panel.Get()->findChild<QLineEdit*>()->setFocus(Qt::OtherFocusReason);
}

QWidget* OpenPagesPanel::Contents() {
    auto* contents = new QWidget;
    auto* rows = new QVBoxLayout(contents);
    rows->setContentsMargins(kPanelMargin, kPanelMargin, kPanelMargin, kPanelMargin);
    auto* words = new QLineEdit;
    Bind(m_form.txtWords, *words, QStringLiteral("txtWords"), QStringLiteral("Words to search for in all open pages"));
    words->setPlaceholderText(QStringLiteral("Search in all open pages"));
    words->setClearButtonEnabled(true);
    words->installEventFilter(this);
    auto* count = new QLabel;
    Bind(m_form.lblCount, *count, QStringLiteral("lblCount"));
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("lstFound"));
    m_list->setAccessibleName(QStringLiteral("What was found"));
    m_list->setItemDelegate(new PassageLines(m_list));
    m_list->setWordWrap(true);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->installEventFilter(this);
    for (QWidget* each : {static_cast<QWidget*>(words), static_cast<QWidget*>(count), static_cast<QWidget*>(m_list)})
        rows->addWidget(each);
    connect(m_list, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { m_form.lstFound_Click(static_cast<std::size_t>(m_list->row(item))); });
    KeepWith(*m_list, m_form.lstFound.Mirror.Connect([this](const auto&) { ShowLines(); }));
    return contents;
}

void OpenPagesPanel::ShowLines() {
    if (!m_list) return;
    const int row = m_list->currentRow();
    m_list->clear();
    for (const OpenPageLine& each : m_form.lstFound()) {
        auto* item = new QListWidgetItem(PassageLines::TextOf(each.Shown), m_list);
        item->setData(PassageLines::kMarks, PassageLines::MarksOf(each.Shown));
        item->setData(PassageLines::kIsPage, each.IsPage);
    }
    m_list->setCurrentRow(std::min(row, m_list->count() - 1));
}

// From the words down into the list and back; Return opens the first, or the one that is selected.
bool OpenPagesPanel::OnKey(QObject* watched, int key) {
    const bool list = watched == m_list;
    if (key == Qt::Key_Down && !list && m_list && m_list->count() > 0) {
        m_list->setFocus(Qt::TabFocusReason);
        if (m_list->currentRow() < 0) m_list->setCurrentRow(0);
    } else if (key == Qt::Key_Up && list && m_list->currentRow() <= 0) {
        m_panel.Get()->findChild<QLineEdit*>()->setFocus(Qt::BacktabFocusReason);
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && m_list && m_list->count() > 0) {
        m_form.lstFound_Click(static_cast<std::size_t>(std::max(0, m_list->currentRow())));
    } else {
        return false;
    }
    return true;
}

bool OpenPagesPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && OnKey(watched, static_cast<QKeyEvent*>(event)->key())) return true;
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
