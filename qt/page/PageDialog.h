#pragma once
#include "qt/page/DialogCover.h"

#include <QString>
#include <QUrl>

class QCheckBox;
class QLineEdit;

namespace tessa::qt {

enum class PageDialogKind { Alert, Confirm, Prompt, Leave };

/// What a page wants to say or ask in a dialog.
struct PageDialogRequest {
    PageDialogKind kind = PageDialogKind::Alert;
    QString host;    ///< of the page or the frame that speaks
    QString message; ///< its own words, not to be trusted
    QString suggestion;
    QUrl origin; ///< of the page or the frame that speaks
};

struct PageDialogAnswer {
    bool accepted = false;
    QString text;
    bool silenced = false; ///< the document need not ask again: the answer is always this one
};

/// The dialog of a tab in which its page speaks.
class PageDialog final : public DialogCover {
    Q_OBJECT

public:
    /// `offersSilence`: with a box that silences the page.
    PageDialog(const PageDialogRequest& request, bool offersSilence);

    [[nodiscard]] QString Text() const;
    [[nodiscard]] bool Silences() const;

private:
    void AddMessage(const QString& message);

    QLineEdit* m_text = nullptr;
    QCheckBox* m_silence = nullptr;
};

} // namespace tessa::qt
