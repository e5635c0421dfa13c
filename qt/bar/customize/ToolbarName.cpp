#include "qt/bar/customize/ToolbarName.h"

#include "qt/base/Strings.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

constexpr int kWidthInLetters = 32;

QLineEdit* NewNameBox(const Text& present) {
    auto* name = new QLineEdit(ToQt(present));
    name->setObjectName(QStringLiteral("txtName"));
    name->setAccessibleName(QStringLiteral("Name of the toolbar"));
    name->setMinimumWidth(name->fontMetrics().averageCharWidth() * kWidthInLetters);
    name->selectAll();
    return name;
}

} // namespace

std::optional<Text> AskToolbarName(QWidget& parent, const QString& title, const Text& present,
                                   const std::function<Text(TextView)>& refusal) {
    QDialog dialog(&parent);
    dialog.setObjectName(QStringLiteral("toolbarName"));
    dialog.setWindowTitle(title);
    auto* label = new QLabel(QStringLiteral("&Name of the toolbar:"));
    auto* name = NewNameBox(present);
    auto* why = new QLabel;
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    label->setBuddy(name);
    why->setObjectName(QStringLiteral("lblWhy"));
    auto* rows = new QVBoxLayout(&dialog);
    for (QWidget* each : std::initializer_list<QWidget*>{label, name, why, buttons}) rows->addWidget(each);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    const auto judge = [&] {
        const QString refused = ToQt(refusal(FromQt(name->text())));
        buttons->button(QDialogButtonBox::Ok)->setEnabled(refused.isEmpty());
        // An empty box speaks for itself.
        why->setText(name->text().isEmpty() ? QString() : refused);
    };
    QObject::connect(name, &QLineEdit::textChanged, &dialog, judge);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    judge();
    return dialog.exec() == QDialog::Accepted ? std::optional(FromQt(name->text())) : std::nullopt;
}

} // namespace tessa::qt
