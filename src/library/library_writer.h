#pragma once

// Writes records as a library file. The whole text is made first, in the code page and with the
// line ends that the file on disk has, and put in place by one write; when anything stands against
// it the file on disk stays as it is. Nothing here speaks: the result carries the text to show.
//
//   const auto records = recordsByGroup(app.libraries.sdtaDesignLibrary.records());
//   const SaveResult result = SaveSdtaLibrary(app, records, app.paths.sdtaLibraryPath);
//
// Texts stand in three quotes, an inner quote doubled, so that a spreadsheet keeps them as texts
// and the reader gives them back unchanged. A value stands bare unless it would not read back so:
// with the separator or a quote in it, or "<" at its start, which would end the row.

#include "core/application.h"
#include "library/save_result.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

template <class Record>
using RecordList = std::vector<const Record*>;

/// The records as a save wants them: by group, in key order inside a group; SDTA records that are
/// deleted (group below 0) left out. They point into the library.
template <class Record>
[[nodiscard]] RecordList<Record>
recordsByGroup(const std::map<std::wstring, Record, std::less<>>& library);
extern template RecordList<SdtaComponent> recordsByGroup<SdtaComponent>(const SdtaLibrary&);
extern template RecordList<AsrComponent> recordsByGroup<AsrComponent>(const AsrLibrary&);

struct FormattedLibrary {
    std::string bytes;
    /// False: `part` and `column` tell the first character that the code page lacks.
    bool encodable = true;
    std::wstring part;
    std::wstring column;
};

/// The content of a library file at `path`; the path stands in its banner.
template <class Record>
[[nodiscard]] FormattedLibrary formatLibrary(const CPartwrightPlugInApp& app,
                                             std::span<const Record* const> records,
                                             std::wstring_view path, TextForm form);
extern template FormattedLibrary formatLibrary<SdtaComponent>(const CPartwrightPlugInApp&,
                                                              std::span<const SdtaComponent* const>,
                                                              std::wstring_view, TextForm);
extern template FormattedLibrary formatLibrary<AsrComponent>(const CPartwrightPlugInApp&,
                                                             std::span<const AsrComponent* const>,
                                                             std::wstring_view, TextForm);

/// An empty path stands for the design library. `records` in the order of the file.
[[nodiscard]] SaveResult SaveSdtaLibrary(CPartwrightPlugInApp& app,
                                         std::span<const SdtaComponent* const> records,
                                         std::wstring_view path = {}, SaveChoices choices = {});
[[nodiscard]] SaveResult SaveAnalysesLibrary(CPartwrightPlugInApp& app,
                                             std::span<const AsrComponent* const> records,
                                             std::wstring_view path = {}, SaveChoices choices = {});

/// Single rows as they stand in a file, without a line end.
[[nodiscard]] std::wstring GroupHeaderRow(const CPartwrightPlugInApp& app, std::int32_t group);
[[nodiscard]] std::wstring ComponentRow(const CPartwrightPlugInApp& app,
                                        const SdtaComponent& record);
[[nodiscard]] std::wstring AnalysesGroupHeaderRow(const CPartwrightPlugInApp& app,
                                                  std::int32_t group);
[[nodiscard]] std::wstring AnalysesComponentRow(const CPartwrightPlugInApp& app,
                                                const AsrComponent& record);

} // namespace partwright
