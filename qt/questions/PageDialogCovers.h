#pragma once
#include "base/Signal.h"
#include "pages/PageDialogs.h"
#include "qt/page/PageDialog.h"

#include <QObject>
#include <QPointer>
#include <deque>
#include <functional>

class QWebEngineUrlRequestJob;

namespace tessa::qt {

class Covers;
class DialogScheme;
class WebPage;

/// Shows the dialogs of one page over it, one at a time, and silences it when the user wants that.
class PageDialogCovers final : public QObject {
    Q_OBJECT

public:
    /// All outlive this object.
    PageDialogCovers(WebPage& page, Covers& covers, DialogScheme& scheme);
    ~PageDialogCovers() override;

    /// Asks the user over the page whether he leaves it. Not answered any more once the page has gone.
    void AskToLeave(std::function<void(bool leaves)> answered);
    /// Takes that question away, and answers it so.
    void LetUserStay();
    /// Whether the page waits for the user's answer to a question of its own.
    [[nodiscard]] bool HasQuestion() const;

private:
    using Answer = std::function<void(const PageDialogAnswer&)>;
    struct Asked {
        PageDialogRequest request;
        Answer answer;
        QPointer<QWebEngineUrlRequestJob> job; ///< none when the engine itself asks
        bool byEngine = false;
    };

    void OnJob(QWebEngineUrlRequestJob& job);
    void Ask(Asked asked);
    void ShowNext();
    void Finish(bool accepted);
    void DismissAll();
    void OnJobGone();

    WebPage& m_page;
    Covers& m_covers;
    DialogScheme& m_scheme;
    const QString m_token;
    PageDialogRule m_rule;
    std::deque<Asked> m_asked; ///< the first is shown
    QPointer<PageDialog> m_shown;
    Connections m_connections;
};

} // namespace tessa::qt
