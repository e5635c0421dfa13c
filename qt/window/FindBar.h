#pragma once
#include "base/Signal.h"

#include <QWidget>
#include <functional>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QWebEngineFindTextResult;
class QWebEnginePage;

namespace tessa::qt {

/// The bar under the page that finds text on it: forwards, backwards, counting what it finds.
class FindBar final : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent);

    /// Shows the bar with the text of last time, all of it selected.
    void Open();
    /// Hides it and takes the marks off the page.
    void Close();
    /// Another page has come to the front: what was found on the one before is no longer told.
    void OnPageChanged();

    /// The page in front; nothing when there is none.
    std::function<QWebEnginePage*()> Page;
    /// Those in which is found what is found there, too; may be empty.
    std::function<std::vector<QWebEnginePage*>()> LinkedPages;
    /// The bar was shown or hidden.
    Signal<void()> Changed;
    /// The user types into the bar.
    Signal<void()> Typed;
    /// Gives the keyboard back to the page.
    Signal<void()> FocusPage;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Direction { Forward, Backward };

    void ShowIcons();
    void Find(Direction direction);
    void FindAnew();
    [[nodiscard]] std::vector<QWebEnginePage*> AllPages() const;
    void Tell(const QWebEngineFindTextResult& result);

    QLineEdit* m_text;
    QCheckBox* m_matchCase;
    QLabel* m_found;
};

} // namespace tessa::qt
