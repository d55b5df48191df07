#pragma once

// What differs between two states of a library, record by record, in words.

#include "core/definitions.h"

#include <string>
#include <vector>

namespace partwright {

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

/// Every text in which two states of a record differ, in the order of the file; columns that the
/// later group does not have come last. The special texts stand as the file has them.
template <class Record>
[[nodiscard]] RecordChange changeBetween(const Definitions<Record>& definitions,
                                         const Record& before, const Record& after);

/// How many texts of a change were empty before, stood before, and are empty now. The notes, where
/// every auto-fill command leaves its mark, do not count.
struct ChangeCount {
    std::size_t filled = 0;
    std::size_t replaced = 0;
    std::size_t emptied = 0;
    [[nodiscard]] std::size_t all() const { return filled + replaced + emptied; }
};
[[nodiscard]] ChangeCount countOf(const RecordChange& change);

/// In key order of `after`; keys are compared in capitals. A record that is new lists all it has.
template <class Library>
[[nodiscard]] std::vector<RecordChange>
changesBetween(const Definitions<typename Library::mapped_type>& definitions, const Library& before,
               const Library& after);

extern template RecordChange changeBetween(const Definitions<SdtaComponent>&, const SdtaComponent&,
                                           const SdtaComponent&);
extern template RecordChange changeBetween(const Definitions<AsrComponent>&, const AsrComponent&,
                                           const AsrComponent&);
extern template std::vector<RecordChange> changesBetween(const Definitions<SdtaComponent>&,
                                                         const SdtaLibrary&, const SdtaLibrary&);
extern template std::vector<RecordChange> changesBetween(const Definitions<AsrComponent>&,
                                                         const AsrLibrary&, const AsrLibrary&);

} // namespace partwright
