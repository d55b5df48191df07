#include "core/content_mark.h"

#include <bit>
#include <cstring>

namespace partwright {

namespace {

constexpr std::uint64_t prime1 = 0x9E3779B185EBCA87ULL;
constexpr std::uint64_t prime2 = 0xC2B2AE3D27D4EB4FULL;
constexpr std::uint64_t prime3 = 0x165667B19E3779F9ULL;
constexpr std::uint64_t prime4 = 0x85EBCA77C2B2AE63ULL;
constexpr std::uint64_t prime5 = 0x27D4EB2F165667C5ULL;

/// The next number of the bytes, lowest byte first, which is how the hash is defined.
template <class Number>
std::uint64_t take(std::string_view& bytes) {
    Number number = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&number, bytes.data(), sizeof number);
    } else {
        for (std::size_t i = sizeof number; i-- > 0;)
            number = static_cast<Number>(number << 8 | static_cast<unsigned char>(bytes[i]));
    }
    bytes.remove_prefix(sizeof number);
    return number;
}

std::uint64_t round(std::uint64_t lane, std::uint64_t input) {
    return std::rotl(lane + input * prime2, 31) * prime1;
}

std::uint64_t join(std::uint64_t hash, std::uint64_t lane) {
    return (hash ^ round(0, lane)) * prime1 + prime4;
}

/// Four lanes of eight bytes each, as long as there are 32 bytes.
std::uint64_t hashLanes(std::string_view& bytes) {
    if (bytes.size() < 32)
        return prime5;
    std::uint64_t a = prime1 + prime2;
    std::uint64_t b = prime2;
    std::uint64_t c = 0;
    std::uint64_t d = 0 - prime1;
    while (bytes.size() >= 32) {
        a = round(a, take<std::uint64_t>(bytes));
        b = round(b, take<std::uint64_t>(bytes));
        c = round(c, take<std::uint64_t>(bytes));
        d = round(d, take<std::uint64_t>(bytes));
    }
    const std::uint64_t sum =
        std::rotl(a, 1) + std::rotl(b, 7) + std::rotl(c, 12) + std::rotl(d, 18);
    return join(join(join(join(sum, a), b), c), d);
}

} // namespace

std::uint64_t hash64(std::string_view bytes) {
    const std::uint64_t size = bytes.size();
    std::uint64_t hash = hashLanes(bytes) + size;
    while (bytes.size() >= 8)
        hash = std::rotl(hash ^ round(0, take<std::uint64_t>(bytes)), 27) * prime1 + prime4;
    if (bytes.size() >= 4)
        hash = std::rotl(hash ^ take<std::uint32_t>(bytes) * prime1, 23) * prime2 + prime3;
    while (!bytes.empty())
        hash = std::rotl(hash ^ take<std::uint8_t>(bytes) * prime5, 11) * prime1;
    hash = (hash ^ hash >> 33) * prime2;
    hash = (hash ^ hash >> 29) * prime3;
    return hash ^ hash >> 32;
}

ContentMark markOf(std::string_view bytes) {
    return {true, bytes.size(), hash64(bytes)};
}

} // namespace partwright
