#pragma once

// The fixed classification of parts, compiled into the program: families, groups, parameter
// columns and types. A group is known by its number, which is its BiCod in every table; the two
// libraries number their groups separately. Group names are not here: they come from the rule
// tables, in the order of these numbers.
//
// A number that no row has (out of range, or a code that is not in use) has the family "N/A", no
// columns and the single type "Not defined".

#include <cstdint>
#include <span>
#include <string_view>

namespace partwright {

inline constexpr std::wstring_view notDefinedName = L"Not defined";
inline constexpr std::wstring_view defaultTypeName = L"Default";
inline constexpr std::wstring_view customTypeName = L"Custom";
inline constexpr std::wstring_view emptyMark = L"Empty";
inline constexpr std::wstring_view processColumn = L"Process";
inline constexpr std::wstring_view packageColumn = L"Package";
inline constexpr std::wstring_view temperatureReferenceColumn = L"at";
inline constexpr std::wstring_view notApplicableGroup = L"N/A";

/// Highest group number that has a row, and highest that has a type list of its own.
inline constexpr std::int32_t lastSdtaGroup = 26;
inline constexpr std::int32_t lastSdtaTypeGroup = 24;
inline constexpr std::int32_t lastAsrGroup = 39;

struct TypeName {
    std::wstring_view name;
    std::wstring_view description;
};

using Names = std::span<const std::wstring_view>;

/// LPar1 first.
[[nodiscard]] Names ColumnsOfSdtaGroup(std::int32_t group);
[[nodiscard]] Names ColumnsOfAsrGroup(std::int32_t group);

[[nodiscard]] std::wstring_view FamilyOfSdtaGroup(std::int32_t group);
[[nodiscard]] std::wstring_view FamilyOfAsrGroup(std::int32_t group);

/// Entry 0 is the pair ("Default", "Default"), or ("Not defined", "Default") alone.
[[nodiscard]] std::span<const TypeName> TypeTableOfSdtaGroup(std::int32_t group);
[[nodiscard]] std::span<const TypeName> TypeTableOfAsrGroup(std::int32_t group);

[[nodiscard]] Names familyNames();
/// Position in the family list; 0, which is "General", for an unknown or empty name.
[[nodiscard]] std::int32_t FamilyNumber(std::wstring_view familyName);

/// Values of the column "Package" of diodes, transistors and the like.
[[nodiscard]] Names semiconductorPackages();
/// Values of the column "Package" of integrated circuits, groups 1 and 2.
[[nodiscard]] Names circuitPackages();
/// Values of the column "at": the reference temperature is that of the ambient, or of the case.
inline constexpr std::wstring_view temperatureReferences[] = {L"A", L"C"};

/// A parameter that one type of an Analyses group takes from a fixed list; for the other types it
/// does not apply. The place in the list is what the auto-fill engine writes, from 1.
struct OptionColumn {
    std::int32_t group;
    std::size_t parameter;
    std::wstring_view type;
    std::wstring_view defaultValue;
    Names names;
    Names descriptions;
};
[[nodiscard]] std::span<const OptionColumn> optionColumnsOfAsr();

/// Failure rate prediction methods that a library request can ask for.
[[nodiscard]] Names predictionMethodNames();

} // namespace partwright
