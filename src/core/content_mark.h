#pragma once

// What a file held, as little as it takes to see whether it holds something else now: the number
// of its bytes and their hash (XXH64, seed 0).

#include <cstdint>
#include <string_view>

namespace partwright {

struct ContentMark {
    /// False: there was no file.
    bool present = false;
    std::uint64_t size = 0;
    std::uint64_t hash = 0;
    friend bool operator==(const ContentMark&, const ContentMark&) = default;
};

[[nodiscard]] std::uint64_t hash64(std::string_view bytes);
[[nodiscard]] ContentMark markOf(std::string_view bytes);

} // namespace partwright
