#include "qt/dialogs/DesktopDialogs.h"

#include "qt/base/Strings.h"

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTreeView>

namespace tessa::qt {

namespace {

enum class MayCancel { No, Yes };

Answer AskWithOwnButtons(const OwnQuestion& question, MayCancel mayCancel) {
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
    auto* cancel = mayCancel == MayCancel::Yes ? box.addButton(QMessageBox::Cancel) : nullptr;
    box.setDefaultButton(keeps);
    box.setEscapeButton(cancel ? cancel : keeps);
    box.exec();
    if (box.clickedButton() == goesOn) return Answer::Yes;
    return box.clickedButton() == keeps ? Answer::No : Answer::Cancel;
}

} // namespace

Answer DesktopMessageBoxes::AskYesNoCancel(TextView question) {
    QMessageBox box(QMessageBox::Question, QGuiApplication::applicationDisplayName(), ToQt(question),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QApplication::activeWindow());
    // What is asked may name a page, and a page's name is text.
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::Yes);
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

bool DesktopMessageBoxes::AskOwn(const OwnQuestion& question) {
    return AskWithOwnButtons(question, MayCancel::No) == Answer::Yes;
}

Answer DesktopMessageBoxes::AskOwnOrCancel(const OwnQuestion& question) {
    return AskWithOwnButtons(question, MayCancel::Yes);
}

void DesktopMessageBoxes::Inform(TextView message) {
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

// As Qt lays it out, the names are cut off while the column of the dates ends in empty space.
void WidenNames(QFileDialog& dialog) {
    const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!list) return;
    auto* header = list->header();
    header->setStretchLastSection(false);
    for (int column = 1; column < header->count(); ++column)
        header->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
}

Text Show(QFileDialog& dialog, const FileDialogRequest& request) {
    WidenNames(dialog);
    if (const QStringList filters = NameFilters(request.Filter); !filters.isEmpty()) {
        dialog.setOption(QFileDialog::HideNameFilterDetails);
        dialog.setNameFilters(filters);
        dialog.setDefaultSuffix(OnlyEnding(filters));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return FromQt(dialog.selectedFiles().constFirst());
}

} // namespace

Text DesktopFileDialogs::ShowOpen(const FileDialogRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), ToQt(request.DialogTitle), ToQt(request.InitDir));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.MustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    return Show(dialog, request);
}

Text DesktopFileDialogs::ShowSave(const FileDialogRequest& request) {
    const QString folder = request.InitDir.empty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                                                   : ToQt(request.InitDir);
    QFileDialog dialog(QApplication::activeWindow(), ToQt(request.DialogTitle), folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (!request.FileName.empty()) dialog.selectFile(ToQt(request.FileName));
    return Show(dialog, request);
}

Text DesktopFileDialogs::ChooseFolder(TextView folder) {
    return FromQt(QFileDialog::getExistingDirectory(QApplication::activeWindow(), QString(), ToQt(folder)));
}

QStringList NameFilters(TextView filter) {
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

} // namespace tessa::qt
