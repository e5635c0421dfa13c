#pragma once
#include "settings/frmBlocking.h"

class QWidget;

namespace tessa::qt {

/// The pages of the Internet Options about blocking: the lists, and what the user adds to them. The form outlives them.
namespace BlockingPages {

[[nodiscard]] QWidget* NewLists(frmBlocking& form);
[[nodiscard]] QWidget* NewOwnRules(frmBlocking& form);

} // namespace BlockingPages

} // namespace tessa::qt
