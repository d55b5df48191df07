#include "core/part_list.h"

#include "core/text.h"
#include "core/vocabulary.h"

namespace partwright {

std::wstring PartList::ProjectValue(std::wstring_view referenceDesignator,
                                    std::wstring_view columnName) const {
    const auto entry = projectEntries.find(referenceDesignator);
    if (entry == projectEntries.end())
        return {};
    const auto& values = entry->second.values;
    auto value = values.find(columnName);
    if (value == values.end())
        value = values.find(upperCase(columnName));
    if (value == values.end() || value->second == L"-" || value->second == emptyMark)
        return {};
    std::wstring result;
    for (const wchar_t c : value->second) {
        const auto low = static_cast<std::uint32_t>(c) & 0xFFU;
        if (low >= 32 && low != 127 && low != 152 && low != 160 && low != 173)
            result.push_back(c);
    }
    return result;
}

} // namespace partwright
