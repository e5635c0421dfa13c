#pragma once
#include "base/Signal.h"
#include "qt/questions/NoticeBar.h"

#include <QHash>
#include <QObject>
#include <memory>

class QWebEngineNotification;
class QWebEngineProfile;

namespace tessa::qt {

/// Hands the notifications of pages to the desktop, or to the window where the desktop shows none. What the user does
/// with them goes back to the pages.
class Notifications final : public QObject {
    Q_OBJECT

public:
    /// Where the desktop shows none they are shown in `inside`, which outlives this.
    explicit Notifications(NoticeBar& inside);

    /// Takes the notifications of the profile's pages from now on.
    void Follow(QWebEngineProfile& profile);
    /// The user has clicked a notification: the program comes to the front.
    Signal<void()> Clicked;

private Q_SLOTS:
    void OnAction(uint id, const QString& action);
    void OnClosed(uint id, uint reason);

private:
    void Show(std::shared_ptr<QWebEngineNotification> notification);
    void ShowHere(const std::shared_ptr<QWebEngineNotification>& notification, const QString& words);
    void TakeBack(QWebEngineNotification* gone);

    NoticeBar& m_bar;
    QHash<uint, std::shared_ptr<QWebEngineNotification>> m_shown; ///< by the desktop's number
    QHash<QWebEngineNotification*, int> m_inside;                 ///< their numbers in the window
};

} // namespace tessa::qt
