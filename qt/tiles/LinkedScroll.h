#pragma once
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWebEngineView>
#include <vector>

namespace tessa::qt {

/// Scrolls pages together. The one that a person has last done something in leads. The others follow to the same part
/// of their height and width.
class LinkedScroll final : public QObject {
public:
    LinkedScroll();

    /// From now on these pages are scrolled together; none, or one, for nothing.
    void Link(const std::vector<QWebEngineView*>& views);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow();

    std::vector<QPointer<QWebEngineView>> m_views;
    std::vector<QMetaObject::Connection> m_connections;
    QPointer<QWebEngineView> m_leader;
    QTimer m_soon;
};

} // namespace tessa::qt
