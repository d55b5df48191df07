#include "platform/memory_guard.h"

#include "core/messages.h"

#include <cstdio>

namespace partwright {

void MemoryGuard::tell() {
    reserve_.reset();
    try {
        prompt_.tell(message::outOfMemory, PromptIcon::Warning);
        reserve_ = std::make_unique<char[]>(reserveSize);
    } catch (const std::bad_alloc&) {
        std::fputs("Out of memory.\n", stderr);
    }
}

} // namespace partwright
