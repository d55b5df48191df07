#include "library/part_key.h"

#include "core/cell_text.h"
#include "core/text.h"
#include "library/field_scanner.h"

#include <algorithm>

namespace partwright {

std::wstring asReadBack(std::wstring_view partNumber) {
    const std::wstring line = removeAll(partNumber, L"\r\n");
    const auto text = dropLeadingBlanks<wchar_t>(line).substr(0, cell::maximumLength);
    std::wstring key = upperCase(dropTrailingBlanks(text));
    std::replace(key.begin(), key.end(), L'\\', L'-');
    return key;
}

} // namespace partwright
