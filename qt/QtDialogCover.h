#pragma once
#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;
class QVBoxLayout;

/// A dialog of one tab: a panel at the top of its page, which is darkened. Return answers, Escape cancels, the tab key
/// stays inside. Not modal for the program.
class QtDialogCover : public QWidget {
    Q_OBJECT

public:
    QtDialogCover();

    /// Given once at most; then the cover is to be taken off.
    std::function<void()> Accepted;
    std::function<void()> Cancelled;

protected:
    /// What stands in the panel, from top to bottom.
    [[nodiscard]] QVBoxLayout* Column() const { return m_column; }
    /// Plain text with the lines that it has.
    QLabel* AddWords(const QString& text, const char* name);
    QLabel* AddHeading(const QString& text);
    /// The buttons, last of all. `cancel` may be empty: then Escape answers too.
    void AddButtons(const QString& accept, const QString& cancel);

    bool event(QEvent* event) override;
    void paintEvent(class QPaintEvent* event) override;
    void keyPressEvent(class QKeyEvent* event) override;
    void mousePressEvent(class QMouseEvent* event) override;
    void resizeEvent(class QResizeEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Answer(std::function<void()> answer);

    QWidget* m_panel;
    QVBoxLayout* m_column;
    QPushButton* m_accept = nullptr;
    bool m_canCancel = false;
    bool m_answered = false;
};
