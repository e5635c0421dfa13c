#include "qt/tabpanel/TabPanel.h"

#include "qt/base/Bind.h"
#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kUsualPanelWidth = 260, kShareOfWindow = 3, kFilterMargin = 6;

Qt::DockWidgetArea SideOf(bool right) { return right ? Qt::RightDockWidgetArea : Qt::LeftDockWidgetArea; }

} // namespace

TabPanel::TabPanel(frmTabPanel& form, const TabIcons& icons, QMainWindow& window)
    : m_form(form), m_icons(icons), m_window(window), m_panel(window, QStringLiteral("tabs"), [&window] {
          return std::min(kUsualPanelWidth, window.width() / kShareOfWindow);
      }) {
    m_panel.OnSidesAlone();
    m_clock.LayoutDue.ConnectForLife([this] { Refresh(); });
    m_clock.FacesDue.ConnectForLife([this] { Refresh(); });
    m_connections += m_panel.Dismissed.Connect([this] { m_form.Form.Visible = false; });
    m_connections += m_panel.KeyboardFree.Connect([this] { FocusPage(); });
    m_connections += m_panel.WidthChosen.Connect([this](int width) { m_form.Width = width; });
    m_connections +=
        m_panel.Moved.Connect([this](Qt::DockWidgetArea side) { m_form.OnRight = side == Qt::RightDockWidgetArea; });
    m_connections += m_form.Filtered.Connect([this] { Refresh(); });
    m_connections += m_form.Dozed.Connect([this] { RefreshFaces(); });
    m_connections += m_form.OnRight.Attach([this](bool right) { m_panel.MoveTo(SideOf(right)); });
    m_connections += m_form.Form.Visible.Attach([this](bool visible) { visible ? Open() : Close(); });
}

TabPanel::~TabPanel() {
    m_connections.End();
    Close();
}

void TabPanel::Open() {
    if (m_panel.Get()) return;
    m_panel.SetUserWidth(m_form.Width);
    m_panel.Open(ToQt(m_form.Caption), *Contents(), SideOf(m_form.OnRight()));
    m_strip = m_form.Strip().Attach([this](TabStripChange change) { m_clock.Note(change); });
}

void TabPanel::Close() {
    m_strip.End();
    m_clock.Stop();
    m_panel.Close();
}

QWidget* TabPanel::Contents() {
    auto* contents = new QWidget;
    auto* rows = new QVBoxLayout(contents);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(FilterLine());
    AddList(*contents);
    return contents;
}

QWidget* TabPanel::FilterLine() {
    auto* line = new QWidget;
    auto* parts = new QHBoxLayout(line);
    parts->setContentsMargins(kFilterMargin, kFilterMargin, kFilterMargin, kFilterMargin);
    m_filter = new QLineEdit;
    Bind(m_form.txtFilter, *m_filter, QStringLiteral("txtFilter"), QStringLiteral("Filter tabs"));
    m_filter->setPlaceholderText(QStringLiteral("Filter tabs"));
    m_filter->setClearButtonEnabled(true);
    m_filter->installEventFilter(this);
    auto* menu = new QToolButton;
    menu->setObjectName(QStringLiteral("cmdPanelMenu"));
    menu->setAccessibleName(QStringLiteral("Menu of the tabs at the side"));
    menu->setToolTip(QStringLiteral("What can be done with this list"));
    menu->setIcon(Icons::OfOrBlank({u"application-menu"}));
    menu->setAutoRaise(true);
    connect(menu, &QToolButton::clicked, this, [this] { PanelMenuRequested(); });
    parts->addWidget(m_filter, 1);
    parts->addWidget(menu);
    return line;
}

void TabPanel::AddList(QWidget& contents) {
    auto* none = new QLabel(&contents);
    Bind(m_form.lblNone, *none, QStringLiteral("lblNone"));
    none->setWordWrap(true);
    none->setContentsMargins(kFilterMargin, 0, kFilterMargin, kFilterMargin);
    m_list = new TabPanelView(m_form, m_icons, &contents);
    contents.layout()->addWidget(none);
    contents.layout()->addWidget(m_list);
    const auto showNone = [none](const Text& words) { none->setVisible(!words.empty()); };
    KeepWith(*none, m_form.lblNone.Caption.Attach(showNone));
    m_list->MenuRequested.ConnectForLife([this](std::int32_t view) { MenuRequested(view); });
    m_list->GroupMenuRequested.ConnectForLife([this](std::int32_t group) { GroupMenuRequested(group); });
    m_list->DraggedOut.ConnectForLife([this](const auto& views, QPoint at) { DraggedOut(views, at); });
    m_list->DraggedBack.ConnectForLife([this] { DraggedBack(); });
    m_list->DroppedOut.ConnectForLife([this](const auto& views, QPoint at) { DroppedOut(views, at); });
    m_list->Typed.ConnectForLife([this](const QString& letters) { Type(letters); });
    m_list->Left.ConnectForLife([this] { Leave(); });
}

void TabPanel::RefreshFaces() {
    if (m_list) m_clock.Note(TabStripChange::Faces);
}

void TabPanel::Refresh() {
    if (!m_list) return;
    m_clock.Stop();
    m_form.Strip().Clean();
    m_form.Show();
    m_list->Refresh();
}

void TabPanel::Type(const QString& letters) {
    m_filter->setFocus(Qt::OtherFocusReason);
    m_filter->end(false);
    if (!letters.isEmpty()) m_filter->insert(letters);
}

// Away from what was looked for, then away from the panel.
void TabPanel::Leave() { m_filter->text().isEmpty() ? FocusPage() : m_filter->clear(); }

bool TabPanel::OnFilterKey(int key) {
    if (key == Qt::Key_Escape) {
        Leave();
    } else if (key == Qt::Key_Down && m_list->Lines().rowCount() > 0) {
        m_list->setFocus(Qt::TabFocusReason);
        if (!m_list->currentIndex().isValid()) m_list->setCurrentIndex(m_list->Lines().index(0, 0));
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && !m_form.Entries().empty()) {
        const auto first = std::ranges::find_if(m_form.Entries(), [](const auto& each) { return !each.IsGroup(); });
        if (first != m_form.Entries().end()) m_form.Click(first->Index);
    } else {
        return false;
    }
    return true;
}

bool TabPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && OnFilterKey(static_cast<QKeyEvent*>(event)->key())) return true;
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
