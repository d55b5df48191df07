#pragma once

// What differs between two states of a library, record by record, in words.

#include "core/definitions.h"
#include "core/library_kind.h"

#include <string>
#include <vector>

namespace partwright::cli {

struct FieldChange {
    std::wstring name;
    std::wstring before;
    std::wstring after;
};

struct RecordChange {
    std::wstring partNumber;
    /// The record was not there before.
    bool added = false;
    std::vector<FieldChange> fields;
};

/// The type as the file names it: the default type by its own name.
template <class Record>
[[nodiscard]] std::int32_t typeInFile(const Definitions<Record>& definitions, std::int32_t group,
                                      std::int32_t type) {
    const auto& defaults = definitions.defaultTypes;
    if (type != 0 || group <= 0 || static_cast<std::size_t>(group) >= defaults.size())
        return type;
    return defaults[static_cast<std::size_t>(group)];
}

/// In key order of `after`; keys are compared in capitals. A record that is new lists all it has.
template <class Library>
[[nodiscard]] std::vector<RecordChange>
changesBetween(const Definitions<typename Library::mapped_type>& definitions, const Library& before,
               const Library& after);

extern template std::vector<RecordChange> changesBetween(const Definitions<SdtaComponent>&,
                                                         const SdtaLibrary&, const SdtaLibrary&);
extern template std::vector<RecordChange> changesBetween(const Definitions<AsrComponent>&,
                                                         const AsrLibrary&, const AsrLibrary&);

} // namespace partwright::cli
