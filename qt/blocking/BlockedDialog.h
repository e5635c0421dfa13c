#pragma once
#include "qt/blocking/BlockedPages.h"

#include <QDialog>

namespace tessa::qt {

/// Lists what was stopped on a page, and by which rule.
class BlockedDialog final : public QDialog {
public:
    BlockedDialog(const std::vector<BlockedRequest>& stopped, int count, QWidget* parent);
};

} // namespace tessa::qt
