#include "core/decimal_mark.h"

#include "core/number.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

std::wstring repairLibraryCell(std::wstring_view text, wchar_t mark) {
    if (!holdsDigit(text) || wholeNumber(text, mark))
        return std::wstring(text);
    return unifyMarks(text, mark);
}

std::wstring unifyMarks(std::wstring_view text, wchar_t mark) {
    std::wstring result(text);
    const wchar_t wanted = mark == L'.' ? L'.' : L',';
    std::replace(result.begin(), result.end(), foreignMark(mark), wanted);
    return result;
}

std::optional<double> readCheckedNumber(std::wstring_view text, wchar_t mark) {
    const auto number = wholeNumber(text, mark);
    return number || mark == L'.' ? number : wholeNumber(text, L'.');
}

} // namespace partwright
