#pragma once

// Running out of memory in the middle of some work: the work is given up, a box says so, and the
// program goes on where it can. Memory that is set aside beforehand is there for the box.

#include "core/ports/prompt.h"

#include <cstddef>
#include <memory>
#include <new>

namespace partwright {

class MemoryGuard {
public:
    explicit MemoryGuard(Prompt& prompt) : prompt_(prompt) {}

    /// What the work answers; false when it was given up.
    template <class Work>
    bool run(const Work& work) {
        try {
            return work();
        } catch (const std::bad_alloc&) {
            tell();
            return false;
        }
    }

private:
    static constexpr std::size_t reserveSize = std::size_t{4} << 20;

    void tell();

    Prompt& prompt_;
    std::unique_ptr<char[]> reserve_ = std::make_unique<char[]>(reserveSize);
};

} // namespace partwright
