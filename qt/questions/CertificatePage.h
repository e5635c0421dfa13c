#pragma once
#include "base/Signal.h"

#include <QScrollArea>

class QPushButton;
class QVBoxLayout;

namespace tessa {
struct RefusedCertificate;
} // namespace tessa

namespace tessa::qt {

/// The page of our own that stands in for one whose certificate was refused. It says who, what and why, with details,
/// and has the ways back and on.
class CertificatePage final : public QScrollArea {
    Q_OBJECT

public:
    explicit CertificatePage(const RefusedCertificate& certificate);

    Signal<void()> GoBack;
    Signal<void()> GoOn;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddWords(QVBoxLayout& column, const RefusedCertificate& certificate);
    void AddDetails(QVBoxLayout& column, const RefusedCertificate& certificate);
    void AddButtons(QVBoxLayout& column, const RefusedCertificate& certificate);

    QPushButton* m_back = nullptr;
};

} // namespace tessa::qt
