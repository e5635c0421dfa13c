#include "qt/base/ItemRows.h"

namespace tessa::qt {

void ShowCell(QTreeWidgetItem& item, int column, const QString& text) {
    if (item.text(column) == text) return;
    item.setText(column, text);
    item.setToolTip(column, QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped()));
}

} // namespace tessa::qt
