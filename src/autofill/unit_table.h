#pragma once

// UnitTable: every unit, keyword and code list that the engine knows, by key. What name and value
// of a row mean depends on the key: a unit and its factor, a keyword and its code, or a word that
// marks a number.
//
//   units.find(L"Pw")  ->  names {/W, kW, mW, MW, W}, values {1, 1000, 0.001, 0.001, 1}

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct UnitList {
    std::vector<std::wstring> names;
    std::vector<std::wstring> values;
};

class UnitTable {
public:
    UnitTable() = default;
    /// From rows of key, name and value; a row of three empty texts ends them.
    template <class Rows>
    explicit UnitTable(const Rows& rows) {
        for (const auto& row : rows) {
            if (row.key.empty() && row.name.empty() && row.value.empty())
                break;
            append(row.key, row.name, row.value);
        }
        moveDefaults();
    }

    /// Null when no row has the key.
    [[nodiscard]] const UnitList* find(std::wstring_view key) const;
    [[nodiscard]] const std::map<std::wstring, UnitList, std::less<>>& lists() const {
        return lists_;
    }

private:
    void append(std::wstring_view key, std::wstring_view name, std::wstring_view value);
    /// A keyword search finds "DEFAULT" only as the last keyword of its list.
    void moveDefaults();

    std::map<std::wstring, UnitList, std::less<>> lists_;
};

} // namespace partwright
