#include "qt/bar/customize/ResetQuestion.h"

#include <QMessageBox>
#include <QPushButton>

namespace tessa::qt {

bool ConfirmReset(QWidget& parent, const QString& title, const QString& words) {
    QMessageBox box(QMessageBox::Question, title, words, QMessageBox::NoButton, &parent);
    auto* keeps = box.addButton(QStringLiteral("&Keep Them"), QMessageBox::AcceptRole);
    auto* resets = box.addButton(QStringLiteral("&Reset All"), QMessageBox::DestructiveRole);
    box.setDefaultButton(keeps);
    box.setEscapeButton(keeps);
    box.exec();
    return box.clickedButton() == resets;
}

} // namespace tessa::qt
