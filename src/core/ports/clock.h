#pragma once

// Time as the program needs it; a test's clock does not wait.

#include <chrono>

namespace partwright {

class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual void pause(std::chrono::milliseconds duration) = 0;
};

} // namespace partwright
