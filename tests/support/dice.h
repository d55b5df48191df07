#pragma once

// Numbers that look random and are the same on every machine.

#include <cstdint>
#include <iterator>

namespace partwright::test {

class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}

    /// 0 to `sides` - 1.
    std::size_t roll(std::size_t sides) {
        state_ += 0x9E3779B97F4A7C15ULL;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return static_cast<std::size_t>((z ^ (z >> 31)) % sides);
    }

    template <class List>
    const auto& pick(const List& list) {
        return list[roll(std::size(list))];
    }

private:
    std::uint64_t state_;
};

} // namespace partwright::test
