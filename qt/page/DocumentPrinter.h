#pragma once
#include <QPageRanges>
#include <QStringList>
#include <functional>

class QPrinter;
class QWidget;

namespace tessa::qt {

/// The print dialog, and printing PDF documents as they are. The printing system takes them whole and does with them
/// what was chosen. Drawn anew they would be pictures of themselves.
namespace DocumentPrinter {

/// Whether this machine has the printing system's own program.
[[nodiscard]] bool IsThere();

/// Shows the print dialog; whether its user wants to print.
[[nodiscard]] bool Ask(QPrinter& printer, QWidget* parent);

/// The pages that were chosen in the print dialog; none when all were.
[[nodiscard]] QPageRanges Some(const QPrinter& printer);
/// What was chosen in the print dialog for the printing system alone, as which pages and how many on a sheet: names and
/// values in turn.
[[nodiscard]] QStringList ChosenFor(const QPrinter& printer);

/// What the printing system's own program is told for what was chosen in the print dialog.
[[nodiscard]] QStringList Arguments(const QPrinter& printer, const QStringList& chosen, const QString& file);

/// Hands the file to the printer. Tells once, when it need not lie there any longer, whether the printer has it.
void Print(const QPrinter& printer, const QString& file, std::function<void(bool taken)> told);

} // namespace DocumentPrinter

} // namespace tessa::qt
