#pragma once
#include "qt/downloads/EngineDownloads.h"

#include <functional>

namespace tessa::qt {

/// The engine's pages, as a test wants downloads to see them. By itself each page may save.
class FakeDownloadSource final : public DownloadSource {
public:
    QWebEngineProfile* Profile() override { return profile(); }
    bool MaySave(QWebEnginePage* page, const QUrl& address) override { return maySave(page, address); }
    PageDocuments& Documents() override { return documents(); }

    std::function<QWebEngineProfile*()> profile = [] { return nullptr; };
    std::function<bool(QWebEnginePage*, const QUrl&)> maySave = [](QWebEnginePage*, const QUrl&) { return true; };
    std::function<PageDocuments&()> documents = [this]() -> PageDocuments& { return own; };
    PageDocuments own;
};

} // namespace tessa::qt
