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
#include <set>
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

/// The content of a library file at `path`; the path stands in its banner. Lines that were kept
/// when the file was read stand behind the last group, but for rows of parts that have a record
/// now.
template <class Record>
[[nodiscard]] FormattedLibrary
formatLibrary(const CPartwrightPlugInApp& app, std::span<const Record* const> records,
              std::wstring_view path, TextForm form, const LoadReport& report = {});
extern template FormattedLibrary formatLibrary<SdtaComponent>(const CPartwrightPlugInApp&,
                                                              std::span<const SdtaComponent* const>,
                                                              std::wstring_view, TextForm,
                                                              const LoadReport&);
extern template FormattedLibrary formatLibrary<AsrComponent>(const CPartwrightPlugInApp&,
                                                             std::span<const AsrComponent* const>,
                                                             std::wstring_view, TextForm,
                                                             const LoadReport&);

/// Parts of kept rows that have a record now, so that the row leaves the file.
template <class Record>
[[nodiscard]] std::set<std::wstring> supersededParts(const LoadReport& report,
                                                     std::span<const Record* const> records);
extern template std::set<std::wstring>
supersededParts<SdtaComponent>(const LoadReport&, std::span<const SdtaComponent* const>);
extern template std::set<std::wstring>
supersededParts<AsrComponent>(const LoadReport&, std::span<const AsrComponent* const>);

/// How many lines of the file with that report a save of these records would drop.
template <class Record>
[[nodiscard]] std::size_t droppedLines(const LoadReport& report,
                                       std::span<const Record* const> records);
extern template std::size_t droppedLines<SdtaComponent>(const LoadReport&,
                                                        std::span<const SdtaComponent* const>);
extern template std::size_t droppedLines<AsrComponent>(const LoadReport&,
                                                       std::span<const AsrComponent* const>);

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
