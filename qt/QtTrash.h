#pragma once
#include "common/platform/Trash.h"

/// The desktop's trash.
class QtTrash final : public Trash {
public:
    Outcome Take(TextView path) override;
};
