#include "qt/bar/customize/ToolDrag.h"

#include "qt/bar/customize/BarPlaces.h"
#include "qt/bar/customize/ToolMime.h"
#include "qt/base/Strings.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>
#include <QTimerEvent>
#include <QToolBar>

namespace tessa::qt {

namespace {

const auto kEmptyHint = QStringLiteral("emptyToolBarHint");

class DropLine final : public QWidget {
public:
    explicit DropLine(QWidget* bar) : QWidget(bar) {
        setObjectName(QStringLiteral("dropLine"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAutoFillBackground(true);
        setBackgroundRole(QPalette::Highlight);
    }
};

// The menu bar's name is of Qt's making; a toolbar has its band's.
Band* BandOf(const CommandBar& bar, const QWidget& widget) {
    if (!qobject_cast<const QMenuBar*>(&widget)) return bar.FindBand(FromQt(widget.objectName()));
    for (const auto& band : bar.Bands()) {
        if (band->Kind() == BandKind::MenuBar) return band.get();
    }
    return nullptr;
}

} // namespace

ToolDrag::ToolDrag(Customization& custom, QMainWindow& window, QWidget& dialog)
    : m_custom(custom), m_window(window), m_dialog(dialog), m_panels(custom, window) {
    AcceptDrops(true);
    Follow();
    QCoreApplication::instance()->installEventFilter(this);
}

ToolDrag::~ToolDrag() {
    QCoreApplication::instance()->removeEventFilter(this);
    AcceptDrops(false);
    for (const auto* bar : m_window.findChildren<QToolBar*>()) {
        for (QAction* action : bar->actions()) {
            const QWidget* shown = bar->widgetForAction(action);
            if (shown && shown->objectName() == kEmptyHint) delete action;
        }
    }
    delete m_line;
}

void ToolDrag::AcceptDrops(bool accept) {
    m_window.setAcceptDrops(accept);
    m_window.menuBar()->setAcceptDrops(accept);
    m_dialog.setAcceptDrops(accept);
}

void ToolDrag::Follow() {
    m_panels.Refresh();
    for (auto* bar : m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly)) {
        bar->setAcceptDrops(true);
        MarkEmpty(*bar);
    }
}

// An empty toolbar is too narrow to be hit. The hint goes by itself with the first tool that the toolbar gets.
void ToolDrag::MarkEmpty(QWidget& bar) {
    const Band* band = BandOf(m_custom.Bar(), bar);
    auto* toolBar = qobject_cast<QToolBar*>(&bar);
    if (!band || !toolBar || !band->Entries().empty() || !toolBar->actions().isEmpty()) return;
    auto* hint = new QLabel(QStringLiteral("Drag tools here"), toolBar);
    hint->setObjectName(kEmptyHint);
    hint->setForegroundRole(QPalette::PlaceholderText);
    toolBar->addWidget(hint);
}

QWidget* ToolDrag::BarOf(QWidget& widget) const {
    for (QWidget* each = &widget; each; each = each->parentWidget()) {
        const bool bar = qobject_cast<QToolBar*>(each) || qobject_cast<QMenuBar*>(each);
        if (bar && each->parentWidget() == &m_window) return each;
        if (each->isWindow()) return nullptr;
    }
    return nullptr;
}

ToolDrag::Spot ToolDrag::SpotAt(QWidget& watched, const QPoint& point) const {
    QWidget* bar = BarOf(watched);
    if (!bar) return {};
    Spot spot{bar, BandOf(m_custom.Bar(), *bar), -1, watched.mapTo(bar, point)};
    const int entry = BarPlaces::EntryAt(*bar, spot.point);
    if (spot.band && entry < static_cast<int>(spot.band->Entries().size())) spot.entry = entry;
    return spot;
}

std::optional<DraggedTool> ToolDrag::ToolAt(const Spot& spot) const {
    if (!spot.band || spot.entry < 0) return std::nullopt;
    const auto index = static_cast<std::size_t>(spot.entry);
    if (index >= spot.band->Entries().size()) return std::nullopt;
    return DraggedTool{spot.band->Entries()[index].Item, spot.band, index};
}

bool ToolDrag::Press(QWidget& watched, const QMouseEvent& event) {
    const Spot spot = SpotAt(watched, event.position().toPoint());
    if (!ToolAt(spot)) {
        if (!m_panels.Hold(watched) && watched.window() != &m_dialog) m_panels.Close();
        return false;
    }
    if (event.button() != Qt::LeftButton) return false;
    m_pressed = spot;
    m_pressedAt = event.globalPosition().toPoint();
    return true;
}

bool ToolDrag::Move(const QMouseEvent& event) {
    if (!m_pressed) return false;
    const QPoint way = event.globalPosition().toPoint() - m_pressedAt;
    if (way.manhattanLength() < QApplication::startDragDistance()) return true;
    // Not from within the event of a button that the drop may delete.
    QTimer::singleShot(0, this, [this, spot = *std::exchange(m_pressed, std::nullopt)] { BeginDrag(spot); });
    return true;
}

void ToolDrag::BeginDrag(const Spot& spot) {
    const auto dragged = ToolAt(spot);
    if (spot.bar && dragged) ToolMime::Drag(*spot.bar, m_custom.Bar(), *dragged);
    DragEnds();
}

// The focus is still where it was when a menu was opened to be arranged. In the dialog Escape would close it; in the
// window Escape means something else.
bool ToolDrag::Escape(const QWidget& watched, QEvent& event) {
    const bool ours = watched.window() == &m_window || watched.window() == &m_dialog || m_panels.Hold(watched);
    if (!ours || static_cast<QKeyEvent&>(event).key() != Qt::Key_Escape || !m_panels.Root()) return false;
    if (event.type() == QEvent::KeyPress) return m_panels.CloseLast();
    event.accept();
    return true;
}

bool ToolDrag::Release() {
    if (!m_pressed) return false;
    const Spot spot = *std::exchange(m_pressed, std::nullopt);
    const auto clicked = ToolAt(spot);
    const Band* menu = clicked ? m_custom.Bar().FindBand(clicked->Item->SubBand) : nullptr;
    const bool open = menu && m_panels.Root() == menu;
    m_panels.Close();
    if (!open) OpenMenu(spot);
    return true;
}

void ToolDrag::OpenMenu(const Spot& spot) {
    const auto tool = ToolAt(spot);
    Band* menu = tool ? m_custom.Bar().FindBand(tool->Item->SubBand) : nullptr;
    if (!menu || !spot.bar) return;
    const QRect entry = BarPlaces::Entries(*spot.bar).at(static_cast<std::size_t>(spot.entry));
    m_panels.Open(*menu, {spot.bar->mapToGlobal(entry.topLeft()), entry.size()});
}

void ToolDrag::ShowPlace(const Spot& spot) {
    if (!m_line || m_line->parentWidget() != spot.bar) {
        delete m_line;
        m_line = new DropLine(spot.bar);
    }
    m_line->setGeometry(BarPlaces::LineAt(*spot.bar, BarPlaces::PlaceAt(*spot.bar, spot.point)));
    m_line->show();
}

void ToolDrag::DragEnds() {
    delete m_line;
    m_hover.stop();
    m_hovered = {};
}

bool ToolDrag::DragOverBar(const Spot& spot, QDropEvent& event, const DraggedTool& dragged) {
    if (spot.bar != m_hovered.bar || spot.entry != m_hovered.entry) {
        m_hovered = spot;
        m_hover.start(ToolMime::kHoverMilliseconds, this);
    }
    const bool takes = spot.band && m_custom.Accepts(*spot.band, dragged);
    if (takes)
        ShowPlace(spot);
    else
        delete m_line;
    event.setAccepted(takes);
    return true;
}

bool ToolDrag::DragOver(QWidget& watched, QDropEvent& event) {
    const auto dragged = ToolMime::Read(m_custom.Bar(), event.mimeData());
    if (!dragged || m_panels.Hold(watched) || qobject_cast<BandList*>(watched.parentWidget())) return false;
    event.setDropAction(Qt::MoveAction);
    if (event.type() == QEvent::DragEnter) {
        // Else the window around it would be asked in its place.
        event.accept();
        return true;
    }
    const Spot spot = SpotAt(watched, event.position().toPoint());
    if (spot.bar) return DragOverBar(spot, event, *dragged);
    DragEnds();
    event.setAccepted(dragged->From != nullptr);
    return true;
}

bool ToolDrag::Drop(QWidget& watched, QDropEvent& event) {
    if (!DragOver(watched, event)) return false;
    const Spot spot = SpotAt(watched, event.position().toPoint());
    const auto dragged = ToolMime::Read(m_custom.Bar(), event.mimeData());
    DragEnds();
    if (!event.isAccepted() || !dragged) return true;
    if (spot.bar)
        m_custom.Drop(*dragged, *spot.band, static_cast<std::size_t>(BarPlaces::PlaceAt(*spot.bar, spot.point)));
    else
        m_custom.DropOff(*dragged);
    return true;
}

void ToolDrag::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_hover.timerId()) return QObject::timerEvent(event);
    m_hover.stop();
    OpenMenu(m_hovered);
}

bool ToolDrag::eventFilter(QObject* watched, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget) return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return Escape(*widget, *event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return Press(*widget, static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove:
        return Move(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        return Release();
    case QEvent::DragEnter:
    case QEvent::DragMove:
        return DragOver(*widget, static_cast<QDropEvent&>(*event));
    case QEvent::Drop:
        return Drop(*widget, static_cast<QDropEvent&>(*event));
    case QEvent::DragLeave:
        if (m_line) m_line->hide();
        return false;
    default:
        return false;
    }
}

} // namespace tessa::qt
