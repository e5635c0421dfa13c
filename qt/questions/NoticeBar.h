#pragma once
#include "base/Signal.h"
#include "qt/base/PageBar.h"

#include <deque>
#include <functional>
#include <utility>

class QLabel;
class QPushButton;

namespace tessa::qt {

/// The bar below the page. It shows what pages have to tell, one at a time, when the desktop shows no notifications.
class NoticeBar final : public PageBar {
    Q_OBJECT

public:
    struct Notice {
        QString words; ///< with who says it
        std::function<void()> shown;
        std::function<void()> dismissed;
    };

    explicit NoticeBar(QWidget* parent);

    /// Shows it behind those that are shown already; its number.
    int Add(Notice notice);
    /// Takes one back, which calls nothing. One that is not there any more does nothing.
    void Remove(int number);
    [[nodiscard]] std::size_t Count() const { return m_notices.size(); }
    /// The bar was shown or hidden, or needs other room.
    Signal<void()> Changed;

private:
    void ShowFirst();
    void Answer(std::function<void()> Notice::*answer);

    std::deque<std::pair<int, Notice>> m_notices;
    int m_last = 0;
    QLabel* m_words;
    QLabel* m_more;
};

} // namespace tessa::qt
