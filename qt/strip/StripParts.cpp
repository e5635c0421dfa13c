#include "qt/strip/StripParts.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"

namespace tessa::qt {

namespace {

/// Units of an address that anybody wants to hear.
constexpr std::size_t kMostSaid = 200;

QString WaitingWords(const Tab& tab) {
    return QStringLiteral("Waiting for ") + ToQt(OneLine(FirstUnits(tab.Awaited(), kMostSaid))) +
           QStringLiteral(", still shows the page before");
}

bool IsBusy(const Tab& tab) { return tab.Image() == TabImage::Red; }

} // namespace

QWindow* StripPart::window() const {
    const QAccessibleInterface* strip = parent();
    return strip ? strip->window() : nullptr;
}

void* StripPart::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QRect StripPart::OnScreen(const QRect& place) const {
    return place.isEmpty() ? QRect() : QRect(m_strip.mapToGlobal(place.topLeft()), place.size());
}

QString TabAccessible::text(QAccessible::Text kind) const {
    const Tab* tab = Find();
    if (!tab) return {};
    if (kind == QAccessible::Name) return ToQt(OneLine(tab->Shown()));
    if (kind != QAccessible::Description) return {};
    if (tab->Asks()) return QStringLiteral("Asks a question");
    if (tab->Chosen()) return QStringLiteral("Selected with others");
    if (tab->Private()) return QStringLiteral("Private");
    if (!tab->Awaited().empty()) return WaitingWords(*tab);
    if (IsBusy(*tab)) return QStringLiteral("Loading");
    return ToQt(OneLine(tab->NewsWords()));
}

QRect TabAccessible::rect() const {
    // Asking for places may lay the strip out, which ends the interfaces of tabs that have gone.
    const Tab* tab = Find();
    return tab ? OnScreen(m_strip.TabPlace(m_strip.Model().PositionOf(tab))) : QRect();
}

QAccessible::State TabAccessible::state() const {
    QAccessible::State state;
    const Tab* tab = Find();
    state.invalid = !tab;
    if (!tab) return state;
    state.selectable = true;
    state.focusable = true;
    state.selected = tab == m_strip.Model().SelectedItem();
    state.focused = state.selected && m_strip.hasFocus();
    state.busy = IsBusy(*tab);
    state.invisible = !m_strip.isVisible() || !m_strip.Model().IsShown(*tab);
    state.offscreen = !m_strip.rect().intersects(m_strip.TabPlace(m_strip.Model().PositionOf(tab)));
    return state;
}

void TabAccessible::doAction(const QString& name) {
    Tab* tab = Find();
    if (tab && name == pressAction()) m_strip.Click(*tab);
}

QString NewTabAccessible::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name) return QStringLiteral("New Tab");
    if (kind == QAccessible::Description) return QStringLiteral("Opens a blank tab; its menu has other kinds");
    return {};
}

QAccessible::State NewTabAccessible::state() const {
    QAccessible::State state;
    state.hasPopup = true;
    state.invisible = !m_strip.isVisible();
    return state;
}

void NewTabAccessible::doAction(const QString& name) {
    if (name == pressAction()) m_strip.BlankRequested();
    if (name == showMenuAction()) m_strip.NewMenuRequested();
}

QString HeadAccessible::text(QAccessible::Text kind) const {
    const TabGroup* group = Find();
    if (!group) return {};
    if (kind == QAccessible::Name) return ToQt(m_strip.Describe(*group));
    if (kind == QAccessible::Description) return QStringLiteral("Hides or shows its tabs; its menu has more");
    return {};
}

QRect HeadAccessible::rect() const {
    const TabGroup* group = Find();
    return group ? OnScreen(m_strip.HeadPlace(group)) : QRect();
}

QAccessible::State HeadAccessible::state() const {
    QAccessible::State state;
    const TabGroup* group = Find();
    state.invalid = !group;
    if (!group) return state;
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = !group->Folded();
    state.collapsed = group->Folded();
    state.invisible = !m_strip.isVisible();
    state.offscreen = !m_strip.rect().intersects(m_strip.HeadPlace(group));
    return state;
}

void HeadAccessible::doAction(const QString& name) {
    TabGroup* group = Find();
    if (group && name == pressAction()) m_strip.ToggleFolded(*group);
    if (group && name == showMenuAction()) m_strip.GroupMenuRequested(*group);
}

} // namespace tessa::qt
