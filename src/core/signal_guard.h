#pragma once

// Keeps the signals that end a program in order (interrupt, termination, hang-up) waiting while it
// lives: a save is done, or not begun, but never cut in its middle by a key. A signal that came is
// sent anew when the last guard goes. Works for the whole process, whatever threads it has; guards
// are for one thread at a time.

namespace partwright {

class SignalGuard {
public:
    SignalGuard();
    ~SignalGuard();
    SignalGuard(const SignalGuard&) = delete;
    SignalGuard& operator=(const SignalGuard&) = delete;
};

/// Writing where nobody reads, and writing past a limit of the process, fail as any other write
/// does instead of ending the program. For the start of main().
void ignoreWriteSignals();

} // namespace partwright
