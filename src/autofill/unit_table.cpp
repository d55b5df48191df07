#include "autofill/unit_table.h"

#include <algorithm>

namespace partwright {

const UnitList* UnitTable::find(std::wstring_view key) const {
    const auto found = lists_.find(key);
    return found == lists_.end() ? nullptr : &found->second;
}

void UnitTable::append(std::wstring_view key, std::wstring_view name, std::wstring_view value) {
    auto found = lists_.find(key);
    if (found == lists_.end())
        found = lists_.emplace(key, UnitList()).first;
    found->second.names.emplace_back(name);
    found->second.values.emplace_back(value);
}

void UnitTable::moveDefaults() {
    for (auto& [key, list] : lists_) {
        const auto name = std::find(list.names.begin(), list.names.end(), L"DEFAULT");
        if (name == list.names.end())
            continue;
        const auto value = list.values.begin() + (name - list.names.begin());
        std::rotate(name, name + 1, list.names.end());
        std::rotate(value, value + 1, list.values.end());
    }
}

} // namespace partwright
