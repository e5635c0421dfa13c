#pragma once
#include <QObject>
#include <chrono>
#include <functional>

class QFocusEvent;
class QKeyEvent;
class QWidget;

namespace tessa::qt {

/// Keeps input meant for a page from answering the question that comes up over it. Such input is a held key, the second
/// half of a double click, or a click of the moment before. A question takes no key or click for a short time after it
/// is shown or gets the focus. It never takes a key that repeats. Refusing with Escape is always possible.
class AnswerGuard final : public QObject {
    Q_OBJECT

public:
    using Clock = std::function<std::chrono::milliseconds()>;
    /// So long a question takes no answer: longer than a double click takes, shorter than reading does.
    static constexpr std::chrono::milliseconds kQuiet{500};

    /// Owned by the question. Watches it and all that stands in it; without a clock of the caller's, a steady one.
    explicit AnswerGuard(QWidget& question, Clock clock = {});
    /// Watches what was added to the question later.
    void Watch(QWidget& part);
    /// Another question is shown.
    void Restart() { m_since = m_now(); }
    /// Whether the question takes answers now.
    [[nodiscard]] bool Ready() const { return m_now() - m_since >= kQuiet; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsAnswer(const QObject& watched, const QKeyEvent& key) const;
    [[nodiscard]] bool Stops(const QObject& watched, const QEvent& event) const;
    void NoteFocus(const QFocusEvent& event);

    QWidget& m_question;
    Clock m_now;
    std::chrono::milliseconds m_since;
    bool m_hasFocus = false;
};

} // namespace tessa::qt
