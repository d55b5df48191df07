#include "core/vocabulary.h"

#include "core/vocabulary_rows.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace partwright {

namespace {

static_assert(std::size(rows::families) == 21);
static_assert(std::size(rows::sdtaGroups) == 26);
static_assert(std::size(rows::semiconductorPackages) == 16);
static_assert(std::size(rows::circuitPackages) == 19);
static_assert(std::size(rows::predictionMethods) == 10);

/// The rows of one library by group number.
class GroupTable {
public:
    GroupTable(std::span<const rows::GroupRow> groups, std::span<const rows::TypeRow> types,
               std::int32_t last)
        : groups_(static_cast<std::size_t>(last) + 1, nullptr),
          types_(static_cast<std::size_t>(last) + 1) {
        for (const rows::GroupRow& row : groups)
            groups_[static_cast<std::size_t>(row.group)] = &row;
        for (const rows::TypeRow& row : types) {
            auto& list = types_[static_cast<std::size_t>(row.group)];
            if (list.empty())
                list.push_back({defaultTypeName, defaultTypeName});
            list.push_back({row.name, row.description});
        }
        for (auto& list : types_)
            if (list.empty())
                list.push_back({notDefinedName, defaultTypeName});
    }

    [[nodiscard]] Names columns(std::int32_t group) const {
        const rows::GroupRow* row = find(group);
        if (row == nullptr)
            return {};
        const auto* end =
            std::find(std::begin(row->columns), std::end(row->columns), std::wstring_view());
        return {std::begin(row->columns), end};
    }

    [[nodiscard]] std::wstring_view family(std::int32_t group) const {
        const rows::GroupRow* row = find(group);
        return row == nullptr ? notApplicableGroup : row->family;
    }

    [[nodiscard]] std::span<const TypeName> types(std::int32_t group) const {
        return types_[inRange(group) ? static_cast<std::size_t>(group) : 0];
    }

private:
    [[nodiscard]] bool inRange(std::int32_t group) const {
        return group >= 0 && static_cast<std::size_t>(group) < groups_.size();
    }
    [[nodiscard]] const rows::GroupRow* find(std::int32_t group) const {
        return inRange(group) ? groups_[static_cast<std::size_t>(group)] : nullptr;
    }

    std::vector<const rows::GroupRow*> groups_;
    std::vector<std::vector<TypeName>> types_;
};

const GroupTable& sdtaTable() {
    static const GroupTable table(rows::sdtaGroups, rows::sdtaTypes, lastSdtaGroup);
    return table;
}

const GroupTable& asrTable() {
    static const GroupTable table(rows::asrGroups, rows::asrTypes, lastAsrGroup);
    return table;
}

} // namespace

Names ColumnsOfSdtaGroup(std::int32_t group) {
    return sdtaTable().columns(group);
}
Names ColumnsOfAsrGroup(std::int32_t group) {
    return asrTable().columns(group);
}
std::wstring_view FamilyOfSdtaGroup(std::int32_t group) {
    return sdtaTable().family(group);
}
std::wstring_view FamilyOfAsrGroup(std::int32_t group) {
    return asrTable().family(group);
}
std::span<const TypeName> TypeTableOfSdtaGroup(std::int32_t group) {
    return sdtaTable().types(group);
}
std::span<const TypeName> TypeTableOfAsrGroup(std::int32_t group) {
    return asrTable().types(group);
}

Names familyNames() {
    return rows::families;
}

std::int32_t FamilyNumber(std::wstring_view familyName) {
    const auto* hit = std::find(std::begin(rows::families), std::end(rows::families), familyName);
    return hit == std::end(rows::families)
               ? 0
               : static_cast<std::int32_t>(hit - std::begin(rows::families));
}

Names semiconductorPackages() {
    return rows::semiconductorPackages;
}
Names circuitPackages() {
    return rows::circuitPackages;
}
std::span<const OptionColumn> optionColumnsOfAsr() {
    return rows::asrOptions;
}
Names predictionMethodNames() {
    return rows::predictionMethods;
}

} // namespace partwright
