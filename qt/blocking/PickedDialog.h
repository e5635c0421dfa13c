#pragma once
#include "qt/blocking/ElementHiding.h"

#include <QDialog>
#include <QPointer>

class QLabel;
class QLineEdit;
class QPushButton;
class QWebEnginePage;

namespace tessa::qt {

/// Shows what would be hidden on a page, and hides it there meanwhile. Keeps the rule when the user says so.
class PickedDialog final : public QDialog {
public:
    /// Blocker and hiding outlive it; the page may go.
    PickedDialog(Blocker& blocker, const ElementHiding& hiding, QWebEnginePage& page, const QString& selector,
                 QWidget* parent);

    /// The rule was kept, or could not be.
    Signal<void(bool kept)> Done;
    Signal<void()> PicksAgain;

protected:
    void done(int result) override;

private:
    /// The rows of the dialog; what it returns chooses another element.
    QPushButton* LayOut();
    void Preview();
    void ShowCount(int count);
    [[nodiscard]] QString Rule() const;

    Blocker& m_blocker;
    const ElementHiding& m_hiding;
    QPointer<QWebEnginePage> m_page;
    QString m_host;
    QLineEdit* m_selector;
    QLabel* m_words;
    QPushButton* m_keep;
};

} // namespace tessa::qt
