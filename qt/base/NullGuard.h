#pragma once

namespace tessa::qt {

/// For functions of the engine that read through a null pointer where nothing tells beforehand.
namespace NullGuard {

/// Runs something in the calling thread. Returns false when it used a null pointer and was left at that point. Any
/// other fault does what it would do without this. One thread at a time. It must hold nothing then that has to be given
/// back: no lock, no memory, no object with a destructor.
[[nodiscard]] bool Survives(void (*act)(void* context), void* context);

} // namespace NullGuard

} // namespace tessa::qt
