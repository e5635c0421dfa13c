#pragma once
#include "base/Text.h"

namespace tessa::qt {

/// Handing the command line over to the instance that runs, without an application object, the engine or a window. The
/// user waits for it at every link that another program opens.
namespace HandOver {

/// Whether the instance that runs has the command line, so that this process may end. False when no instance takes it,
/// and when something must be asked that needs a window. The start then goes on as if this had not been called.
[[nodiscard]] bool TryWithoutWindow(TextView commandLine);

} // namespace HandOver

} // namespace tessa::qt
