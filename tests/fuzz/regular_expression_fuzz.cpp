// The lines but the last are expressions, the last one is the text. The set must answer as its
// members alone do, whatever both are.

#include "core/encoding.h"
#include "core/regular_expression_set.h"
#include "core/text.h"
#include "fuzz/fuzz_input.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    const std::wstring all = decodeLossy(test::bytesOf(data, size));
    const auto lines = split(all, L'\n');
    const std::wstring_view text = lines.back();
    const std::size_t count = std::min<std::size_t>(lines.size() - 1, 8);
    const std::vector<std::wstring> expressions(lines.begin(),
                                                lines.begin() + static_cast<std::ptrdiff_t>(count));
    const RegularExpressionSet set(expressions);
    const auto found = set.matches(text);
    for (std::size_t i = 0; i < count; ++i) {
        const RegularExpression single(expressions[i]);
        test::demand(set.valid(i) == single.valid(), "validity does not depend on the others");
        test::demand(std::binary_search(found.begin(), found.end(), i) == single.fullMatch(text),
                     "the set answers as its members");
    }
    return 0;
}
