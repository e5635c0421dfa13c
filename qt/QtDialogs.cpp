#include "qt/QtDialogs.h"

#include "qt/QtText.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QRegularExpression>

namespace {

Answer AskWith(TextView question, QMessageBox::StandardButton first) {
    QMessageBox box(QMessageBox::Question, QGuiApplication::applicationDisplayName(), ToQt(question),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QApplication::activeWindow());
    // What is asked may name a page, and a page's name is text.
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(first);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

} // namespace

Answer QtMessageBoxes::AskYesNoCancel(TextView question) { return AskWith(question, QMessageBox::Yes); }

Answer QtMessageBoxes::AskNoFirst(TextView question) { return AskWith(question, QMessageBox::No); }

bool QtMessageBoxes::AskOwn(const OwnQuestion& question) {
    QMessageBox box(QMessageBox::Question, QGuiApplication::applicationDisplayName(), ToQt(question.Heading),
                    QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(ToQt(question.Details));
    // Its format is for the heading alone.
    for (auto* label : box.findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
        label->setOpenExternalLinks(false);
    }
    auto* keeps = box.addButton(ToQt(question.Keeps), QMessageBox::AcceptRole);
    auto* goesOn = box.addButton(ToQt(question.GoesOn), QMessageBox::DestructiveRole);
    box.setDefaultButton(keeps);
    box.setEscapeButton(keeps);
    box.exec();
    return box.clickedButton() == goesOn;
}

void QtMessageBoxes::Inform(TextView message) {
    QMessageBox box(QMessageBox::Information, QGuiApplication::applicationDisplayName(), ToQt(message), QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

namespace {

// Where only one kind of file is meant, a name without an ending means that kind.
QString OnlyEnding(const QStringList& filters) {
    static const QRegularExpression kOnePattern(QStringLiteral("\\(\\*\\.(\\w+)\\)$"));
    return filters.size() == 1 ? kOnePattern.match(filters.constFirst()).captured(1) : QString();
}

Text Show(QFileDialog& dialog, const FileDialogRequest& request) {
    if (const QStringList filters = QtNameFilters(request.Filter); !filters.isEmpty()) {
        dialog.setOption(QFileDialog::HideNameFilterDetails);
        dialog.setNameFilters(filters);
        dialog.setDefaultSuffix(OnlyEnding(filters));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return FromQt(dialog.selectedFiles().constFirst());
}

} // namespace

Text QtFileDialogs::ShowOpen(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), ToQt(request.DialogTitle), ToQt(request.InitDir));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.MustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    return Show(dialog, request);
}

Text QtFileDialogs::ShowSave(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), ToQt(request.DialogTitle), ToQt(request.InitDir));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (!request.FileName.empty()) dialog.selectFile(ToQt(request.FileName));
    return Show(dialog, request);
}

Text QtFileDialogs::ChooseFolder(TextView folder) {
    return FromQt(QFileDialog::getExistingDirectory(QApplication::activeWindow(), QString(), ToQt(folder)));
}

QStringList QtNameFilters(TextView filter) {
    const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& each : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            const QString pattern = each.trimmed();
            if (!pattern.isEmpty()) patterns << (pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern);
        }
        if (patterns.isEmpty()) continue;
        filters << QStringLiteral("%1 (%2)").arg(parts[i], patterns.join(QLatin1Char(' ')));
    }
    return filters;
}
