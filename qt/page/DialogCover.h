#pragma once
#include "base/Signal.h"
#include "qt/base/AnswerGuard.h"

#include <QWidget>

class QFrame;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace tessa::qt {

/// Which button of a dialog Return presses, and which has the focus at first.
enum class DefaultAnswer { Accept, Cancel };

/// A dialog of one tab: a panel at the top of its page, which is darkened. Return answers, Escape cancels, the tab key
/// stays inside. Not modal for the program. What is held down or clicked when it comes up does not answer it.
class DialogCover : public QWidget {
    Q_OBJECT

public:
    /// The clock is the guard's.
    explicit DialogCover(AnswerGuard::Clock clock = {});

    /// Given once at most; then the cover is to be taken off.
    Signal<void()> Accepted;
    Signal<void()> Cancelled;

protected:
    /// What stands in the panel, from top to bottom.
    [[nodiscard]] QVBoxLayout* Column() const { return m_column; }
    /// Plain text with the lines that it has.
    QLabel* AddWords(const QString& text, const char* name);
    /// An address, whole, however long it is. Its label is "lblAddress".
    void AddAddress(const QString& address);
    QLabel* AddHeading(const QString& text);
    /// The buttons, last of all. `cancel` may be empty: then Escape answers too.
    void AddButtons(const QString& accept, const QString& cancel, DefaultAnswer byDefault = DefaultAnswer::Accept);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    QPushButton* AddButton(const QString& caption, const char* name, const Signal<void()>& answer);
    void Answer(const Signal<void()>& answer);

    QFrame* m_panel;
    QVBoxLayout* m_column;
    AnswerGuard::Clock m_clock;
    QHBoxLayout* m_buttons = nullptr;
    QPushButton* m_default = nullptr;
    bool m_canCancel = false;
    bool m_answered = false;
};

} // namespace tessa::qt
