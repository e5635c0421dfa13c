#pragma once
#include "base/Signal.h"

#include <QWidget>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QWebEngineFindTextResult;
class QWebEnginePage;

namespace tessa::qt {

/// Where something is found.
class FoundPages {
public:
    virtual ~FoundPages() = default;
    /// The page in front, and behind it those in which is found what is found there.
    [[nodiscard]] virtual std::vector<QWebEnginePage*> PagesToSearch() const = 0;
};

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

    /// From now on it finds there. They outlive it.
    void SearchIn(const FoundPages& pages) { m_pages = &pages; }

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

    const FoundPages* m_pages = nullptr;
    QLineEdit* m_text;
    QCheckBox* m_matchCase;
    QLabel* m_found;
};

} // namespace tessa::qt
