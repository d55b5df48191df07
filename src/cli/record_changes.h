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
