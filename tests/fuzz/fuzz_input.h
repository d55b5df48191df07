#pragma once

// What the fuzz targets share. A broken promise ends the process.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace partwright::test {

inline std::string bytesOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

inline void demand(bool kept, const char* promise) {
    if (kept)
        return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

} // namespace partwright::test
