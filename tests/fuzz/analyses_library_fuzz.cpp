#include "fuzz/library_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    test::tryLibrary<AsrComponent>(test::bytesOf(data, size));
    return 0;
}
