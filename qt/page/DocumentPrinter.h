#pragma once
#include <QStringList>
#include <functional>

class QPrinter;

namespace tessa::qt {

/// Prints PDF documents as they are. The printing system takes them whole and does with them what was chosen. Drawn
/// anew they would be pictures of themselves.
namespace DocumentPrinter {

/// Whether this machine has the printing system's own program.
[[nodiscard]] bool IsThere();

/// What the printing system's own program is told for what was chosen in the print dialog.
[[nodiscard]] QStringList Arguments(const QPrinter& printer, const QString& file);

/// Hands the file to the printer. Tells once, when it need not lie there any longer, whether the printer has it.
void Print(const QPrinter& printer, const QString& file, std::function<void(bool taken)> told);

} // namespace DocumentPrinter

} // namespace tessa::qt
