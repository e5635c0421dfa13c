#pragma once
#include "qt/strip/TabStripView.h"

#include <QAccessible>
#include <utility>

namespace tessa::qt {

/// Something in the strip that has no parts and can be pressed, as assistive tools see it.
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
    QWindow* window() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

protected:
    /// A place of the widget on the screen; empty when it is.
    [[nodiscard]] QRect OnScreen(const QRect& place) const;

    TabStripView& m_strip;
};

/// One tab. It knows its tab by key, so that it outlives the tab unharmed: then it answers nothing.
class TabAccessible final : public StripPart {
public:
    TabAccessible(TabStripView& strip, Text key) : StripPart(strip), m_key(std::move(key)) {}

    [[nodiscard]] const Text& Key() const { return m_key; }

    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override;

private:
    [[nodiscard]] Tab* Find() const { return m_strip.Model().Find(m_key); }

    Text m_key;
};

/// The button for a new tab, the last child of the strip.
class NewTabAccessible final : public StripPart {
public:
    using StripPart::StripPart;

    QAccessible::Role role() const override { return QAccessible::Button; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override { return OnScreen(m_strip.NewPlace()); }
    QAccessible::State state() const override;
    QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
    void doAction(const QString& name) override;
};

/// The head of a group. It knows its group by number.
class HeadAccessible final : public StripPart {
public:
    HeadAccessible(TabStripView& strip, std::int32_t group) : StripPart(strip), m_group(group) {}

    [[nodiscard]] std::int32_t Group() const { return m_group; }

    QAccessible::Role role() const override { return QAccessible::Button; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override { return {pressAction(), showMenuAction()}; }
    void doAction(const QString& name) override;

private:
    [[nodiscard]] TabGroup* Find() const { return m_strip.Model().FindGroup(m_group); }

    std::int32_t m_group;
};

} // namespace tessa::qt
