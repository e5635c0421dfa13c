#include "qt/strip/TabStripAccessible.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"
#include "qt/strip/TabStripView.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessa::qt {

namespace {

/// Units of an address that anybody wants to hear.
constexpr std::size_t kMostSaid = 200;

/// Something in the strip that has no parts and can be pressed.
class StripPart : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    explicit StripPart(TabStripView& strip) : m_strip(strip) {}

    // True without its tab as well, for only a valid interface can announce that its tab has gone.
    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&m_strip); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QWindow* window() const override {
        const QAccessibleInterface* strip = parent();
        return strip ? strip->window() : nullptr;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

protected:
    TabStripView& m_strip;
};

/// One tab. It knows its tab by key, so that it outlives the tab unharmed: then it answers nothing.
class TabAccessible final : public StripPart {
public:
    TabAccessible(TabStripView& strip, Text key) : StripPart(strip), m_key(std::move(key)) {}

    [[nodiscard]] const Text& Key() const { return m_key; }

    QAccessible::Role role() const override { return QAccessible::PageTab; }

    QString text(QAccessible::Text kind) const override {
        const Tab* tab = Find();
        if (!tab) return {};
        if (kind == QAccessible::Name) return ToQt(OneLine(tab->Shown()));
        if (kind == QAccessible::Description && tab->Asks()) return QStringLiteral("Asks a question");
        if (kind == QAccessible::Description && tab->Chosen()) return QStringLiteral("Selected with others");
        if (kind == QAccessible::Description && tab->Private()) return QStringLiteral("Private");
        if (kind == QAccessible::Description && !tab->Awaited().empty()) return Waiting(*tab);
        if (kind == QAccessible::Description && Busy(*tab)) return QStringLiteral("Loading");
        if (kind == QAccessible::Description) return ToQt(OneLine(tab->NewsWords()));
        return {};
    }

    QRect rect() const override {
        // Asking for places may lay the strip out, which ends the interfaces of tabs that have gone.
        const Tab* tab = Find();
        if (!tab) return {};
        const QRect place = m_strip.TabPlace(m_strip.Model().PositionOf(tab));
        return place.isEmpty() ? QRect() : QRect(m_strip.mapToGlobal(place.topLeft()), place.size());
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        const Tab* tab = Find();
        state.invalid = !tab;
        if (!tab) return state;
        state.selectable = true;
        state.focusable = true;
        state.selected = tab == m_strip.Model().SelectedItem();
        state.focused = state.selected && m_strip.hasFocus();
        state.busy = Busy(*tab);
        state.invisible = !m_strip.isVisible() || !m_strip.Model().IsShown(*tab);
        state.offscreen = !m_strip.rect().intersects(m_strip.TabPlace(m_strip.Model().PositionOf(tab)));
        return state;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        Tab* tab = Find();
        if (tab && name == pressAction()) m_strip.Click(*tab);
    }

private:
    [[nodiscard]] Tab* Find() const { return m_strip.Model().Find(m_key); }
    static QString Waiting(const Tab& tab) {
        return QStringLiteral("Waiting for ") + ToQt(OneLine(FirstUnits(tab.Awaited(), kMostSaid))) +
               QStringLiteral(", still shows the page before");
    }
    static bool Busy(const Tab& tab) { return tab.Image() == TabImage::Red; }

    Text m_key;
};

/// The button for a new tab, the last child of the strip.
class NewTabAccessible final : public StripPart {
public:
    using StripPart::StripPart;

    QAccessible::Role role() const override { return QAccessible::Button; }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return QStringLiteral("New Tab");
        if (kind == QAccessible::Description) return QStringLiteral("Opens a blank tab; its menu has other kinds");
        return {};
    }

    QRect rect() const override {
        const QRect place = m_strip.NewPlace();
        return {m_strip.mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.hasPopup = true;
        state.invisible = !m_strip.isVisible();
        return state;
    }

    QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
    void doAction(const QString& name) override {
        if (name == pressAction()) m_strip.BlankRequested();
        if (name == showMenuAction()) m_strip.NewMenuRequested();
    }
};

/// The head of a group. It knows its group by number.
class HeadAccessible final : public StripPart {
public:
    HeadAccessible(TabStripView& strip, std::int32_t group) : StripPart(strip), m_group(group) {}

    [[nodiscard]] std::int32_t Group() const { return m_group; }

    QAccessible::Role role() const override { return QAccessible::Button; }

    QString text(QAccessible::Text kind) const override {
        const TabGroup* group = Find();
        if (!group) return {};
        if (kind == QAccessible::Name) return ToQt(m_strip.Describe(*group));
        if (kind == QAccessible::Description) return QStringLiteral("Hides or shows its tabs; its menu has more");
        return {};
    }

    QRect rect() const override {
        const TabGroup* group = Find();
        if (!group) return {};
        const QRect place = m_strip.HeadPlace(group);
        return place.isEmpty() ? QRect() : QRect(m_strip.mapToGlobal(place.topLeft()), place.size());
    }

    QAccessible::State state() const override {
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

    QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
    void doAction(const QString& name) override {
        TabGroup* group = Find();
        if (group && name == pressAction()) m_strip.ToggleFolded(*group);
        if (group && name == showMenuAction()) m_strip.GroupMenuRequested(*group);
    }

private:
    [[nodiscard]] TabGroup* Find() const { return m_strip.Model().FindGroup(m_group); }

    std::int32_t m_group;
};

void Announce(QAccessibleInterface* interface, QAccessible::Event kind) {
    if (!interface) return;
    QAccessibleEvent event(interface, kind);
    QAccessible::updateAccessibility(&event);
}

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    if (className != QLatin1String(TabStripView::staticMetaObject.className())) return nullptr;
    auto* strip = qobject_cast<TabStripView*>(object);
    return strip ? new TabStripAccessible(*strip) : nullptr;
}

} // namespace

void InstallTabStripAccessibility() {
    // Qt keeps a factory once, however often it is installed.
    QAccessible::installFactory(MakeInterface);
}

TabStripAccessible::TabStripAccessible(TabStripView& strip)
    : QAccessibleWidget(&strip, QAccessible::PageTabList), m_strip(strip) {
    if (const Tab* selected = strip.Model().SelectedItem()) m_selected = selected->Key();
    m_connections += strip.Changed.Connect([this] { Follow(); });
}

TabStripAccessible::~TabStripAccessible() {
    for (const auto& [key, known] : m_known) QAccessible::deleteAccessibleInterface(known.id);
    for (const auto& [group, known] : m_heads) QAccessible::deleteAccessibleInterface(known.id);
    if (m_newTab) QAccessible::deleteAccessibleInterface(*m_newTab);
}

int TabStripAccessible::childCount() const {
    return static_cast<int>(m_strip.Model().Count() + m_strip.Model().Groups().size()) + 1;
}

QAccessibleInterface* TabStripAccessible::child(int index) const {
    if (index < 0) return nullptr;
    if (index + 1 == childCount()) return NewTab();
    const auto place = static_cast<std::size_t>(index);
    const std::size_t tabs = m_strip.Model().Count();
    if (place < tabs) return Interface(m_strip.Model().FindAt(place + 1)->Key());
    const auto groups = m_strip.Model().Groups();
    return place - tabs < groups.size() ? Head(groups[place - tabs]->Id()) : nullptr;
}

int TabStripAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (dynamic_cast<const NewTabAccessible*>(child)) return childCount() - 1;
    if (const auto* head = dynamic_cast<const HeadAccessible*>(child)) {
        const auto groups = m_strip.Model().Groups();
        const auto found = std::ranges::find(groups, head->Group(), &TabGroup::Id);
        return found == groups.end()
                   ? -1
                   : static_cast<int>(m_strip.Model().Count()) + static_cast<int>(found - groups.begin());
    }
    const auto* tab = dynamic_cast<const TabAccessible*>(child);
    if (!tab) return -1;
    return static_cast<int>(m_strip.Model().PositionOf(m_strip.Model().Find(tab->Key()))) - 1;
}

QAccessibleInterface* TabStripAccessible::childAt(int x, int y) const {
    const QPoint point = m_strip.mapFromGlobal(QPoint(x, y));
    if (m_strip.NewPlace().contains(point)) return NewTab();
    for (const TabGroup* each : m_strip.Model().Groups()) {
        if (m_strip.HeadPlace(each).contains(point)) return Head(each->Id());
    }
    const Tab* tab = m_strip.FindTabAt(point);
    return tab ? Interface(tab->Key()) : nullptr;
}

QAccessibleInterface* TabStripAccessible::focusChild() const {
    const Tab* selected = m_strip.Model().SelectedItem();
    return selected && m_strip.hasFocus() ? Interface(selected->Key()) : nullptr;
}

QAccessibleInterface* TabStripAccessible::NewTab() const {
    if (!m_newTab) m_newTab = QAccessible::registerAccessibleInterface(new NewTabAccessible(m_strip));
    return QAccessible::accessibleInterface(*m_newTab);
}

QAccessibleInterface* TabStripAccessible::Head(std::int32_t group) const {
    if (const auto found = m_heads.find(group); found != m_heads.end())
        return QAccessible::accessibleInterface(found->second.id);
    auto* interface = new HeadAccessible(m_strip, group);
    m_heads.emplace(
        group, Known{QAccessible::registerAccessibleInterface(interface), FromQt(interface->text(QAccessible::Name))});
    return interface;
}

QAccessibleInterface* TabStripAccessible::Interface(const Text& key) const {
    if (const auto found = m_known.find(key); found != m_known.end())
        return QAccessible::accessibleInterface(found->second.id);
    auto* interface = new TabAccessible(m_strip, key);
    const Tab* tab = m_strip.Model().Find(key);
    m_known.emplace(key, Known{QAccessible::registerAccessibleInterface(interface), tab ? tab->Shown() : Text(),
                               tab && tab->Chosen()});
    return interface;
}

void TabStripAccessible::Follow() {
    ForgetRemoved();
    AnnounceTabs();
    FollowHeads();
    AnnounceSelection();
}

void TabStripAccessible::FollowHeads() {
    for (auto each = m_heads.begin(); each != m_heads.end();) {
        auto* interface = QAccessible::accessibleInterface(each->second.id);
        const Text said = FromQt(interface->text(QAccessible::Name));
        const bool gone = !m_strip.Model().FindGroup(each->first);
        if (gone)
            Announce(interface, QAccessible::ObjectDestroyed);
        else if (std::exchange(each->second.caption, said) != said)
            Announce(interface, QAccessible::NameChanged);
        const QAccessible::Id id = each->second.id;
        each = gone ? m_heads.erase(each) : std::next(each);
        if (gone) QAccessible::deleteAccessibleInterface(id);
    }
    for (const TabGroup* each : m_strip.Model().Groups()) {
        if (!m_heads.contains(each->Id())) Announce(Head(each->Id()), QAccessible::ObjectCreated);
    }
}

void TabStripAccessible::ForgetRemoved() {
    for (auto each = m_known.begin(); each != m_known.end();) {
        if (m_strip.Model().Find(each->first)) {
            ++each;
            continue;
        }
        const QAccessible::Id id = each->second.id;
        Announce(QAccessible::accessibleInterface(id), QAccessible::ObjectDestroyed);
        each = m_known.erase(each);
        QAccessible::deleteAccessibleInterface(id);
    }
}

void TabStripAccessible::AnnounceTabs() {
    for (std::size_t position = 1; position <= m_strip.Model().Count(); ++position) {
        const Tab& tab = *m_strip.Model().FindAt(position);
        const auto known = m_known.find(tab.Key());
        if (known == m_known.end()) {
            Announce(Interface(tab.Key()), QAccessible::ObjectCreated);
            continue;
        }
        if (std::exchange(known->second.caption, tab.Shown()) != tab.Shown())
            Announce(Interface(tab.Key()), QAccessible::NameChanged);
        if (std::exchange(known->second.chosen, tab.Chosen()) != tab.Chosen())
            Announce(Interface(tab.Key()), QAccessible::DescriptionChanged);
    }
}

void TabStripAccessible::AnnounceSelection() {
    const Tab* tab = m_strip.Model().SelectedItem();
    const Text selected = tab ? tab->Key() : Text();
    const bool moved = selected != m_selected;
    const bool focusCame = m_strip.hasFocus() && !m_focused;
    m_focused = m_strip.hasFocus();
    if (moved) {
        if (m_strip.Model().Find(m_selected)) Announce(Interface(m_selected), QAccessible::SelectionRemove);
        m_selected = selected;
        if (tab) Announce(Interface(selected), QAccessible::Selection);
    }
    if (tab && m_focused && (moved || focusCame)) Announce(Interface(selected), QAccessible::Focus);
}

} // namespace tessa::qt
