#include "qt/bar/ToolBars.h"

#include "qt/bar/BandMenus.h"
#include "qt/bar/ComboBox.h"
#include "qt/bar/OverflowArrow.h"
#include "qt/bar/ToolActions.h"
#include "qt/base/Strings.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kLabelMargin = 4;
const QString kMoreTools = QStringLiteral("qt_toolbar_ext_button");

// Tells of the pointer that comes and goes. Lives as long as its widget.
class Hover final : public QObject {
public:
    Hover(QWidget& widget, std::function<void(bool over)> report) : QObject(&widget), m_report(std::move(report)) {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Enter) m_report(m_over = true);
        // What is hidden under the pointer, with the pop-up that it stood in, is not told that it leaves.
        const bool hidden = event->type() == QEvent::Hide && m_over;
        if (event->type() == QEvent::Leave || hidden) m_report(m_over = false);
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_over = false;
    std::function<void(bool)> m_report;
};

// Opens the tools that did not fit.
QToolButton* MoreButton(const QToolBar& bar) { return bar.findChild<QToolButton*>(kMoreTools); }

// The pointer may have left a button while its menu held the mouse, and nobody tells it.
void LeaveLater(QToolButton& button) {
    const auto leave = [&button] {
        if (button.rect().contains(button.mapFromGlobal(QCursor::pos()))) return;
        QEvent left(QEvent::Leave);
        QCoreApplication::sendEvent(&button, &left);
        button.setAttribute(Qt::WA_UnderMouse, false);
        button.update();
    };
    QTimer::singleShot(0, &button, leave);
}

void Empty(QToolBar& bar) {
    for (QAction* action : bar.actions()) {
        bar.removeAction(action);
        // Separators, labels and boxes are the toolbar's own; a box may be the one that is being typed in.
        if (action->parent() == &bar) action->deleteLater();
    }
}

} // namespace

int ToolBars::Still::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* data) const {
    return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
}

ToolBars::~ToolBars() {
    m_connections.End();
    for (const auto& [name, bar] : m_toolBars) delete bar;
}

bool ToolBars::Follow() {
    const std::size_t removed = std::erase_if(m_toolBars, [this](const auto& each) {
        if (m_bar.FindBand(each.first)) return false;
        each.second->hide();
        each.second->deleteLater();
        return true;
    });
    const std::size_t before = m_toolBars.size();
    for (const auto& band : m_bar.Bands()) {
        if (band->Kind() == BandKind::Toolbar && !m_toolBars.contains(band->Name())) Make(*band);
    }
    return removed > 0 || m_toolBars.size() > before;
}

void ToolBars::Make(Band& band) {
    auto* bar = new QToolBar(&m_window);
    bar->setObjectName(ToQt(band.Name()));
    bar->setStyle(&m_style);
    OverflowArrow::Show(*bar, kMoreTools, QStringLiteral("More tools"));
    m_toolBars.emplace(band.Name(), bar);
    m_connections += band.Caption.Attach([bar](const Text& caption) {
        bar->setWindowTitle(ToQt(caption));
        bar->setAccessibleName(ToQt(caption));
    });
    m_connections += band.Attach([this, &band, bar] {
        Fill(*bar, band);
        band.Clean();
    });
}

QToolBar* ToolBars::Find(const Band& band) const {
    const auto found = m_toolBars.find(band.Name());
    return found == m_toolBars.end() ? nullptr : found->second;
}

void ToolBars::Fill(QToolBar& bar, const Band& band) {
    Empty(bar);
    QLabel* label = nullptr;
    for (const BandEntry& entry : band.Entries()) {
        if (entry.Group == BeginGroup::Yes && !bar.actions().isEmpty()) bar.addSeparator();
        if (entry.Item->Kind() == ToolKind::Combo) AddBox(bar, entry, label);
        if (entry.Item->Kind() == ToolKind::Button) AddButton(bar, entry);
        label = entry.Item->Kind() == ToolKind::Label ? AddLabel(bar, entry) : nullptr;
    }
}

QLabel* ToolBars::AddLabel(QToolBar& bar, const BandEntry& entry) {
    auto* label = new QLabel(&bar);
    label->setContentsMargins(kLabelMargin, 0, kLabelMargin, 0);
    QAction* place = bar.addWidget(label);
    QAction* shown = m_actions.For(entry.Item);
    const auto follow = [label, place, shown] {
        label->setText(shown->text());
        place->setVisible(shown->isVisible());
    };
    connect(shown, &QAction::changed, label, follow);
    follow();
    ReportPointer(*label, *entry.Item);
    return label;
}

// The label before a box is its name and has its access key.
void ToolBars::AddBox(QToolBar& bar, const BandEntry& entry, QLabel* label) {
    ComboBox* box = m_boxes.Make(entry.Item, &bar);
    if (!box) return;
    if (label) label->setBuddy(box);
    bar.addWidget(box)->setVisible(entry.Item->Visible());
    ReportPointer(*box, *entry.Item);
}

void ToolBars::AddButton(QToolBar& bar, const BandEntry& entry) {
    const Tool& tool = *entry.Item;
    QAction* action = m_actions.For(entry.Item);
    if (!tool.SubBand.empty()) action->setMenu(m_menus.For(tool.SubBand));
    bar.addAction(action);
    auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
    if (!button) return;
    button->setPopupMode(tool.ClickWithSubBand ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
    if (action->menu()) connect(action->menu(), &QMenu::aboutToHide, button, [button] { LeaveLater(*button); });
    ReportPointer(*button, tool);
}

void ToolBars::ReportPointer(QWidget& widget, const Tool& tool) {
    new Hover(widget, [this, &tool](bool over) { m_bar.MouseOver(over ? &tool : nullptr); });
}

void ToolBars::FocusTool(const Band& band, const Tool& tool) {
    ComboBox* box = m_boxes.Find(tool.Name());
    const QToolBar* bar = Find(band);
    if (!box || !bar || !bar->isVisible()) return;
    // It may be among the tools that did not fit.
    QToolButton* more = MoreButton(*bar);
    if (!box->isVisible() && more && more->isVisible()) more->click();
    box->setFocus(Qt::ShortcutFocusReason);
    box->lineEdit()->selectAll();
}

std::vector<QToolBar*> ToolBars::InOrder() const {
    std::vector<QToolBar*> bars;
    for (const auto& [name, bar] : m_toolBars) {
        if (bar->isVisible() && !bar->isFloating()) bars.push_back(bar);
    }
    std::ranges::sort(bars, {}, [](const QToolBar* bar) { return std::pair(bar->y(), bar->x()); });
    return bars;
}

void ToolBars::OpenMenu(const Tool& tool) {
    QMenu* menu = m_menus.For(tool.SubBand);
    QPoint corner = m_window.mapToGlobal(QPoint(m_window.width() - menu->sizeHint().width(), 0));
    const QMenuBar& menuBar = *m_window.menuBar();
    for (QAction* action : menuBar.actions()) {
        const bool opens = menuBar.isVisible() && action->isVisible() && action->menu() == menu;
        if (opens) corner = menuBar.mapToGlobal(menuBar.actionGeometry(action).bottomLeft());
    }
    for (const QToolBar* bar : InOrder()) {
        for (auto* button : bar->findChildren<QToolButton*>()) {
            const QAction* action = button->defaultAction();
            const bool opens = button->isVisible() && action && action->menu() == menu;
            if (opens) corner = button->mapToGlobal(button->rect().bottomLeft());
        }
    }
    menu->popup(corner);
    // The keyboard has opened it, and goes on in it.
    if (!menu->actions().isEmpty()) menu->setActiveAction(menu->actions().constFirst());
}

} // namespace tessa::qt
