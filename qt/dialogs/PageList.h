#pragma once
#include <QWidget>

class QListWidget;
class QStackedWidget;

namespace tessa::qt {

/// Pages of a dialog, with a list of their names at the side. However many there are, all of them can be seen. A page
/// is shown by its access key, by Ctrl+Tab and Ctrl+Page, and from the list. A page that has no room on the screen
/// scrolls.
class PageList final : public QWidget {
    Q_OBJECT

public:
    explicit PageList(QWidget* parent = nullptr);

    /// Adds a page, which it takes over, under a name with an access key mark.
    void Add(QWidget& page, const QString& name);
    void Show(QWidget& page);
    [[nodiscard]] int Count() const;
    [[nodiscard]] QWidget* Page(int index) const;
    /// The page that is shown, from 0.
    [[nodiscard]] int Current() const;
    void SetCurrent(int index);

private:
    void AddKey(const QKeySequence& keys, int step);
    void FitNames();

    QListWidget* m_names;
    QStackedWidget* m_pages;
};

} // namespace tessa::qt
