#include "qt/downloads/DownloadsPanel.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"
#include "qt/downloads/DownloadLines.h"

#include <QDockWidget>
#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace tessa::qt {

namespace {
constexpr std::chrono::milliseconds kLinesRefresh{250};
constexpr int kUsualWidth = 380;
constexpr int kShareOfWindow = 4;
constexpr int kContentsMargin = 6;
} // namespace

DownloadsPanel::DownloadsPanel(frmDownloads& form, QMainWindow& window)
    : m_form(form), m_window(window), m_panel(window, QStringLiteral("downloads"), [&window] {
          return std::min(kUsualWidth, window.width() / kShareOfWindow);
      }) {
    m_refresh.setSingleShot(true);
    m_refresh.callOnTimeout(this, [this] { m_form.Show(); });
    m_connections += m_form.Schedule.Connect([this] {
        if (!m_refresh.isActive()) m_refresh.start(kLinesRefresh);
    });
    m_connections += m_panel.Dismissed.Connect([this] { m_form.Form.Visible = false; });
    m_connections += m_form.Form.Visible.Attach([this](bool visible) { visible ? Open() : Close(); });
}

DownloadsPanel::~DownloadsPanel() {
    m_connections.End();
    Close();
}

void DownloadsPanel::Open() {
    if (m_panel.Get()) return;
    m_panel.Open(ToQt(m_form.Caption), *Contents());
    m_panel.Get()->widget()->installEventFilter(this);
    LayButtons();
    m_panel.Get()->findChild<DownloadLines*>()->setFocus(Qt::OtherFocusReason);
}

QWidget* DownloadsPanel::Contents() {
    auto* contents = new QWidget;
    auto* rows = new QVBoxLayout(contents);
    rows->setContentsMargins(kContentsMargin, kContentsMargin, kContentsMargin, kContentsMargin);
    rows->addWidget(new DownloadLines(m_form, contents), 1);
    auto* none = new QLabel(contents);
    Bind(m_form.lblNone, *none, QStringLiteral("lblNone"));
    none->setWordWrap(true);
    rows->addWidget(none);
    AddButtons(*contents);
    rows->addLayout(m_buttons);
    return contents;
}

void DownloadsPanel::AddButtons(QWidget& contents) {
    m_buttons = new QGridLayout;
    m_columns = 0;
    const std::initializer_list<std::pair<Button*, const char*>> all{
        {&m_form.cmdOpen, "cmdOpen"},     {&m_form.cmdShowInFolder, "cmdShowInFolder"},
        {&m_form.cmdPause, "cmdPause"},   {&m_form.cmdRetry, "cmdRetry"},
        {&m_form.cmdCancel, "cmdCancel"}, {&m_form.cmdRemove, "cmdRemove"},
        {&m_form.cmdClear, "cmdClear"}};
    for (const auto& [button, name] : all) {
        auto* widget = new QPushButton(&contents);
        Bind(*button, *widget, QLatin1String(name));
        m_buttons->addWidget(widget, m_buttons->count(), 0);
        // Two beside each other must not keep a panel wide that is to be narrow.
        widget->setMinimumWidth(1);
    }
}

// Where two do not fit beside each other with their words, they stand below each other.
void DownloadsPanel::LayButtons() {
    int widest = 0;
    std::vector<QWidget*> all;
    for (int i = 0; i < m_buttons->count(); ++i) {
        all.push_back(m_buttons->itemAt(i)->widget());
        widest = std::max(widest, all.back()->sizeHint().width());
    }
    const int free = m_panel.Get()->widget()->width() - 2 * kContentsMargin - m_buttons->horizontalSpacing();
    const int columns = free >= 2 * widest ? 2 : 1;
    if (std::exchange(m_columns, columns) == columns) return;
    for (QWidget* each : all) m_buttons->removeWidget(each);
    for (int i = 0; QWidget * each : all) {
        const bool wide = columns == 1 || each == all.back();
        m_buttons->addWidget(each, i / columns, i % columns, 1, wide ? columns : 1);
        ++i;
    }
}

void DownloadsPanel::Close() {
    if (!m_panel.Get()) return;
    m_panel.Get()->widget()->removeEventFilter(this);
    m_panel.Close();
}

bool DownloadsPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) LayButtons();
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
