#include "qt/dialogs/ResizeDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace tessa::qt {

namespace {

// As wide as the widest step in whatever font, and no wider. A desktop's usual width would make a long row of them.
int StepWidth(const QPushButton& widest) {
    return widest.fontMetrics().horizontalAdvance(widest.text()) + 2 * widest.fontMetrics().averageCharWidth() + 12;
}

// Of the size that the desktop's usual font has.
QFont DialogFont(const frmResize& form, QFont usual) {
    const QString family = ToQt(form.Font);
    // Asked for a family that is missing, Qt may find one that only looks similar.
    if (QFontDatabase::hasFamily(family)) usual.setFamilies({family});
    return usual;
}

} // namespace

ResizeDialog::ResizeDialog(frmResize& form, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmResize"));
    setFont(DialogFont(form, font()));
    setWindowTitle(ToQt(form.Caption));
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(Steps(form));
    rows->addLayout(CloseRow(form));
    // Larger fonts enlarge the dialog; more room than it needs is of no use.
    rows->setSizeConstraint(QLayout::SetFixedSize);
    Bind(form.Form, *this, form.cmdClose);
    findChild<QPushButton*>(QStringLiteral("cmdClose"))->setFocus();
}

QHBoxLayout* ResizeDialog::Steps(frmResize& form) {
    auto* row = new QHBoxLayout;
    int width = 0;
    for (std::size_t i = 0; i < form.cmdResize.size(); ++i) {
        auto* step = new QPushButton;
        Bind(form.cmdResize.at(i), *step, QStringLiteral("cmdResize%1").arg(i));
        step->setAutoDefault(false);
        // Held down, it goes on.
        step->setAutoRepeat(true);
        width = std::max(width, StepWidth(*step));
        row->addWidget(step);
    }
    for (int i = 0; i < row->count(); ++i) row->itemAt(i)->widget()->setFixedWidth(width);
    return row;
}

QHBoxLayout* ResizeDialog::CloseRow(frmResize& form) {
    auto* close = new QPushButton;
    Bind(form.cmdClose, *close, QStringLiteral("cmdClose"));
    close->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(close);
    return row;
}

void ShowModal(frmResize& form, QWidget* parent) {
    const QPointer<ResizeDialog> dialog = new ResizeDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
