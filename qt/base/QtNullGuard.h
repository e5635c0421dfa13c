#pragma once

/// For functions of the engine that read through a null pointer where nothing tells beforehand.
namespace QtNullGuard {

/// Does something in the thread that calls; false when it has read or written through a null pointer, and was left at
/// that point; any other fault is what it would be without this. One thread at a time. It must hold nothing then that
/// has to be given back: no lock, no memory, no object with a destructor.
[[nodiscard]] bool Survives(void (*act)(void* context), void* context);

} // namespace QtNullGuard
