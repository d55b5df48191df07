#pragma once

// The two kinds of library side by side. Code that serves both is a template over the record type
// and asks Kind<Record> for what differs; this page is the whole difference in numbers and names.
// Tables and records of a kind are members of the application object (application.h).

#include "core/records.h"
#include "core/vocabulary.h"

#include <cstdint>
#include <string_view>

namespace partwright {

template <class Record>
struct Kind;

template <>
struct Kind<SdtaComponent> {
    using Record = SdtaComponent;
    using Row = SdtaPropertyRow;
    using Library = SdtaLibrary;

    static constexpr std::wstring_view name = L"SDTA";
    /// Number of this kind's numbering of groups in the rule tables.
    static constexpr std::int32_t method = 14;
    static constexpr std::size_t maximumColumns = 14;
    /// Cells that the auto-fill engine works on, and how many of them a record takes over.
    static constexpr std::size_t fillCells = 24;
    static constexpr std::size_t takenCells = 14;
    static constexpr std::int32_t lastGroup = lastSdtaGroup;

    static Names columns(std::int32_t group) { return ColumnsOfSdtaGroup(group); }
    static std::wstring_view family(std::int32_t group) { return FamilyOfSdtaGroup(group); }
};

template <>
struct Kind<AsrComponent> {
    using Record = AsrComponent;
    using Row = AsrPropertyRow;
    using Library = AsrLibrary;

    static constexpr std::wstring_view name = L"Analyses";
    static constexpr std::int32_t method = 20;
    static constexpr std::size_t maximumColumns = 24;
    static constexpr std::size_t fillCells = 26;
    static constexpr std::size_t takenCells = 26;
    static constexpr std::int32_t lastGroup = lastAsrGroup;

    static Names columns(std::int32_t group) { return ColumnsOfAsrGroup(group); }
    static std::wstring_view family(std::int32_t group) { return FamilyOfAsrGroup(group); }
};

} // namespace partwright
