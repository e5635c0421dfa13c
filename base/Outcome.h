#pragma once

/// Whether a step outside the core succeeded.
enum class [[nodiscard]] Outcome{Done, Failed};
