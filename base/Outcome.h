#pragma once

namespace tessa {

/// Whether a step outside the core succeeded.
enum class [[nodiscard]] Outcome{Done, Failed};

} // namespace tessa
