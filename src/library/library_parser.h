#pragma once

// The content of a library file as records, and what of it was not taken. Pure: no file is touched.
//
//   ParsedLibrary<SdtaComponent> library = parseLibrary(app.of<SdtaComponent>(), app.decimalMark(),
//   bytes, codePage);
//
// Line 1 is never a row. Lines are told apart by their first field: header row, data row, frame of
// the file; anything else is a remark. Of two rows of one part the later one counts. Lines that
// carry what no record has (remarks, rows of another kind, rows with a cell that is too long) are
// kept for the writer as they stand.

#include "core/definitions.h"
#include "core/load_report.h"

#include <string>

namespace partwright {

template <class Record>
struct ParsedLibrary {
    typename Kind<Record>::Library records;
    LoadReport report;
};

enum class Listing {
    On,
    /// The records alone; shows what the list costs.
    Off,
};

/// `bytes` without a byte-order mark.
template <class Record>
[[nodiscard]] ParsedLibrary<Record> parseLibrary(const Definitions<Record>& definitions,
                                                 wchar_t decimalMark, std::string bytes,
                                                 CodePage codePage, Listing listing = Listing::On);
extern template ParsedLibrary<SdtaComponent> parseLibrary(const Definitions<SdtaComponent>&,
                                                          wchar_t, std::string, CodePage, Listing);
extern template ParsedLibrary<AsrComponent> parseLibrary(const Definitions<AsrComponent>&, wchar_t,
                                                         std::string, CodePage, Listing);

} // namespace partwright
