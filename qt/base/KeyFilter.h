#pragma once
#include "bar/CommandBar.h"

#include <QKeySequence>
#include <QObject>
#include <functional>

class QKeyEvent;
class QWidget;

namespace tessa::qt {

/// Shows every key for a window or anything in it to the program first, before the focused page or box. A key that the
/// program has used goes no further. Alt is told of when it goes up again and nothing else was pressed meanwhile.
class KeyFilter final : public QObject {
    Q_OBJECT

public:
    /// The window outlives it. Works as long as it lives.
    explicit KeyFilter(QWidget& window);

    /// The key in the program's terms; its code is 0 for one that has no name there.
    [[nodiscard]] static KeyStroke Of(const QKeyEvent& event);
    /// A combination in Qt's terms, as a menu shows it. Empty for a key that has no name there.
    [[nodiscard]] static QKeySequence Sequence(KeyStroke key);

    std::function<KeyUsed(KeyStroke)> Down;
    std::function<KeyUsed(KeyStroke)> Up;
    /// Whether a combination goes before the underlined letters of menus, labels and buttons in the window. May be
    /// empty; then none does.
    std::function<bool(KeyStroke)> BeforeAccessKeys;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsFor(const QObject* watched) const;
    [[nodiscard]] bool GoesFirst(const QEvent& event) const;
    void FollowAlt(const QEvent& event);
    [[nodiscard]] KeyStroke Told(const QKeyEvent& event, bool down);

    QWidget& m_window;
    bool m_altAlone = false; ///< it is down, and nothing else was pressed since
};

} // namespace tessa::qt
