#pragma once
#include "platform/Trash.h"

#include <QString>
#include <vector>

namespace tessa::qt {

/// The desktop's trash.
class DesktopTrash final : public Trash {
public:
    Outcome Take(TextView path) override;
    Outcome Restore(TextView path) override;

private:
    struct Taken {
        Text path;
        QString place; ///< in the trash
    };
    std::vector<Taken> m_taken;
};

} // namespace tessa::qt
