#include "qt/dialogs/DefBrowserDialog.h"

#include "qt/base/Bind.h"
#include "qt/base/FormRows.h"
#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStyle>

namespace tessa::qt {

namespace {

QLabel* QuestionLine(Label& label, const char* name) {
    auto* line = new QLabel;
    Bind(label, *line, QString::fromLatin1(name));
    return line;
}

} // namespace

DefBrowserDialog::DefBrowserDialog(frmDefBrowser& form, QWidget* parent) : QDialog(parent), m_form(form) {
    setObjectName(QStringLiteral("frmDefBrowser"));
    setWindowTitle(ToQt(form.Caption));
    setWindowIcon(Icons::Application());
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    auto* picture = new QLabel;
    picture->setPixmap(Icons::Application().pixmap(QSize(size, size), devicePixelRatio()));
    auto* box = new QCheckBox;
    Bind(form.Check1, *box, QStringLiteral("Check1"));

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(size / 3);
    grid->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(QuestionLine(form.Label1, "Label1"), 0, 1);
    grid->addWidget(QuestionLine(form.Label2, "Label2"), 1, 1);
    grid->setRowMinimumHeight(2, size / 4);
    grid->addWidget(box, 3, 1);
    grid->setRowMinimumHeight(4, size / 4);
    grid->addWidget(Buttons(), 5, 0, 1, 2);
    // Larger fonts enlarge the dialog; more room than it needs is of no use.
    grid->setSizeConstraint(QLayout::SetFixedSize);
    Bind(form.Form, *this, form.cmdNo);
    findChild<QPushButton*>(QStringLiteral("cmdYes"))->setFocus();
}

QWidget* DefBrowserDialog::Buttons() {
    return NewAnswers({m_form.cmdYes, "cmdYes", QDialogButtonBox::YesRole},
                      {m_form.cmdNo, "cmdNo", QDialogButtonBox::NoRole});
}

void ShowModal(frmDefBrowser& form, QWidget* parent) {
    const QPointer<DefBrowserDialog> dialog = new DefBrowserDialog(form, parent);
    ShowModal(form.Form, *dialog);
    delete dialog;
}

} // namespace tessa::qt
