#pragma once

// Faults of a save on order. The shared library behind this header stands between the program and
// the system's library: it counts the calls by which files below one folder are changed, and lets
// the one that was ordered fail, or ends the process there.

#include <cstddef>

namespace partwright::test {

enum class Fault {
    None,
    /// The process ends before the call, after it, or, of a write, in its middle.
    KillBefore,
    KillAfter,
    KillInside,
    /// A write takes half of its bytes.
    Short,
    /// The call fails once.
    Interrupted,
    NoSpace,
    DeviceError,
    /// The call and all that follow fail.
    NoSpaceFromNow,
    DeviceErrorFromNow,
    InterruptedFromNow,
};

/// Counts anew, and orders the fault for the call of that number, from 1.
void planFault(const char* folder, std::size_t call, Fault fault);
/// Calls since then.
[[nodiscard]] std::size_t countedCalls();
/// The file whose call failed last; empty when none did.
[[nodiscard]] const char* failedFile();

} // namespace partwright::test
