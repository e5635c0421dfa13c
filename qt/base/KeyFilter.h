#pragma once
#include "bar/CommandBar.h"

#include <QKeySequence>
#include <QObject>

class QKeyEvent;
class QWidget;

namespace tessa::qt {

/// Who is told of the window's keys, and says which it uses.
class KeyTaker {
public:
    virtual KeyUsed KeyDown(KeyStroke key) = 0;
    virtual KeyUsed KeyUp(KeyStroke key) = 0;
    /// Whether a combination goes before the underlined letters of menus, labels and buttons in the window.
    [[nodiscard]] virtual bool BeforeAccessKeys(KeyStroke key) const = 0;

protected:
    ~KeyTaker() = default;
};

/// Shows every key for a window or anything in it to the program first, before the focused page or box. A key that the
/// program has used goes no further. Alt is told of when it goes up again and nothing else was pressed meanwhile.
class KeyFilter final : public QObject {
    Q_OBJECT

public:
    /// Both outlive it. Works as long as it lives.
    KeyFilter(QWidget& window, KeyTaker& taker);

    /// The key in the program's terms; its code is 0 for one that has no name there.
    [[nodiscard]] static KeyStroke Of(const QKeyEvent& event);
    /// A combination in Qt's terms, as a menu shows it. Empty for a key that has no name there.
    [[nodiscard]] static QKeySequence Sequence(KeyStroke key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsFor(const QObject* watched) const;
    [[nodiscard]] bool GoesFirst(const QEvent& event) const;
    void FollowAlt(const QEvent& event);
    [[nodiscard]] KeyStroke Told(const QKeyEvent& event, bool down);

    QWidget& m_window;
    KeyTaker& m_taker;
    bool m_altAlone = false; ///< it is down, and nothing else was pressed since
};

} // namespace tessa::qt
