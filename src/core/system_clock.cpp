#include "core/system_clock.h"

#include <thread>

namespace partwright {

void SystemClock::pause(std::chrono::milliseconds duration) {
    std::this_thread::sleep_for(duration);
}

} // namespace partwright
