#pragma once

#include "core/ports/clock.h"

namespace partwright {

/// Time as the machine has it.
class SystemClock final : public Clock {
public:
    void pause(std::chrono::milliseconds duration) override;
};

} // namespace partwright
