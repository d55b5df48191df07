#pragma once

// How a record shows as a row of a component table: "-1" as "-", "-2" as "N/A", the place in an
// option list as its word, an empty package as the group's default.

#include "core/library_kind.h"
#include "editing/component_table.h"
#include "library/datasheet_links.h"

#include <string_view>

namespace partwright {

/// `key` is the record's key in its library.
template <class Record>
[[nodiscard]] TableRow rowOfRecord(const TableSetup& setup, std::wstring_view key,
                                   const Record& record, const DatasheetLinks& links);
extern template TableRow rowOfRecord(const TableSetup&, std::wstring_view, const SdtaComponent&,
                                     const DatasheetLinks&);
extern template TableRow rowOfRecord(const TableSetup&, std::wstring_view, const AsrComponent&,
                                     const DatasheetLinks&);

} // namespace partwright
