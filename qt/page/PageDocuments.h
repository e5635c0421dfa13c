#pragma once
#include <QObject>
#include <QPointer>
#include <QUrl>
#include <QWebEngineDownloadRequest>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QWebEnginePage;

namespace tessa::qt {

/// Writes documents that pages show to files, as the bytes that came. The engine takes them from its cache. What must
/// not lie there it fetches again, but never by sending a form again. It does so by downloads, which whoever follows
/// these hands to `Take`.
class PageDocuments final : public QObject {
public:
    struct Wanted {
        QString Path;
        /// Called once, with whether the file is there. Without one the download is an ordinary one.
        std::function<void(bool came)> Told;
    };

    /// Begins to write what `page` shows; replaces what is there. Given up when the page goes elsewhere before it
    /// began.
    void Save(QWebEnginePage& page, const QString& path, std::function<void(bool came)> told = {}) {
        SaveAs(page, path, QWebEngineDownloadRequest::SingleHtmlSaveFormat, std::move(told));
    }
    /// The same of a web page, as it is now, with all that belongs to it in one file.
    void SaveWhole(QWebEnginePage& page, const QString& path, std::function<void(bool came)> told) {
        SaveAs(page, path, QWebEngineDownloadRequest::MimeHtmlSaveFormat, std::move(told));
    }
    /// What was wanted when the request is the one that came of it, once.
    [[nodiscard]] std::optional<Wanted> Take(const QWebEngineDownloadRequest& request);
    /// Lets the request write the file, and tells.
    static void Bring(QWebEngineDownloadRequest& request, const Wanted& wanted);

private:
    struct Pending {
        QPointer<QWebEnginePage> page;
        QUrl address;
        Wanted wanted;
        std::unique_ptr<QObject> watch; ///< of the page, for as long as this is wanted
    };
    void SaveAs(QWebEnginePage& page, const QString& path, QWebEngineDownloadRequest::SavePageFormat format,
                std::function<void(bool came)> told);
    void GiveUp(const QObject* watch);

    std::vector<Pending> m_pending;
};

} // namespace tessa::qt
