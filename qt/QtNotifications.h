#pragma once
#include <QHash>
#include <QObject>
#include <functional>
#include <memory>

class QWebEngineNotification;
class QWebEngineProfile;

/// Hands the notifications of pages to the desktop, and what the user does with them back to the pages.
class QtNotifications final : public QObject {
    Q_OBJECT

public:
    QtNotifications();

    /// Takes the notifications of the profile's pages from now on.
    void Follow(QWebEngineProfile& profile);
    /// The user has clicked a notification: the program comes to the front.
    std::function<void()> Clicked;

private Q_SLOTS:
    void OnAction(uint id, const QString& action);
    void OnClosed(uint id, uint reason);

private:
    void Show(std::shared_ptr<QWebEngineNotification> notification);

    QHash<uint, std::shared_ptr<QWebEngineNotification>> m_shown; ///< by the desktop's number
};
