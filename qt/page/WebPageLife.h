#pragma once
#include "base/Signal.h"
#include "platform/PageLife.h"

#include <QIcon>
#include <QList>
#include <QObject>
#include <QPointer>

class QWebEngineDownloadRequest;

namespace tessa::qt {

class WebPage;

/// How one page of the engine lives. A page that sleeps is discarded by the engine, and its process ends. Address,
/// title and history stay, and it loads again when it is shown. One on which the engine has no hold but that others
/// refer to stays awake.
class WebPageLife final : public QObject, public PageLife {
    Q_OBJECT

public:
    /// The page outlives this object.
    explicit WebPageLife(WebPage& page);

    [[nodiscard]] PageActivity Activity() const override;
    [[nodiscard]] bool Asleep() const override;
    Outcome Sleep() override;
    [[nodiscard]] std::string Picture() const override;
    [[nodiscard]] std::int64_t Process() const override;
    [[nodiscard]] bool Ended() const override { return m_ended; }
    [[nodiscard]] bool ProcessPrints() const override;
    Outcome EndProcess() override;

    /// Wakes the page although it is not shown, because it is about to be used.
    void Wake();
    /// The page is about to get the history of another one.
    void NoteRefill() { m_untold = true; }
    /// The page's icon; the engine cannot be asked for that of a page that has slept, or has another one's history.
    [[nodiscard]] const QIcon& Icon() const { return m_icon; }

    /// What only the view knows of what goes on.
    Signal<void(PageActivity&)> AddActivity;
    /// Which other pages run in that process is known to whoever makes them: whether one of them is being printed.
    Signal<void(std::int64_t process, bool& prints)> OthersPrint;
    /// Another icon than before.
    Signal<void()> IconChanged;

private:
    void OnIcon();
    void OnAddress(const QUrl& address);
    void OnDownload(QWebEngineDownloadRequest* request);

    WebPage& m_page;
    QIcon m_icon;
    QString m_iconHost; ///< of the page whose icon it is
    QList<QPointer<QWebEngineDownloadRequest>> m_downloads;
    bool m_ended = false;
    bool m_untold = false; ///< the engine tells no more of its icons
};

} // namespace tessa::qt
