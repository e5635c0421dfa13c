#pragma once
#include "base/Signal.h"
#include "qt/base/QtPageBar.h"
#include <functional>

class QLabel;
class QPushButton;

/// The bar above the page that offers to reopen the pages of a session that ended badly. It waits for as long as the
/// user likes.
class QtSessionOffer final : public QtPageBar {
    Q_OBJECT

public:
    explicit QtSessionOffer(QWidget* parent);

    /// Shows the bar for a session with so many pages; `which` says when they were open and which they are.
    void Offer(std::size_t pages, const QString& which);

    /// Hides the bar: there is nothing left to reopen.
    void Withdraw();

    Signal<void()> Reopen;
    Signal<void()> Dismiss;
    /// Opens the list of earlier sessions.
    Signal<void()> ShowAll;
    /// The bar was shown or hidden.
    Signal<void()> Changed;

private:
    void Close();

    QLabel* m_text;
    QLabel* m_which;
};
