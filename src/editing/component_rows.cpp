#include "editing/component_rows.h"

#include "core/cell_text.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "validation/analyses_options.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

std::wstring_view toShown(std::wstring_view value) {
    if (value == cell::noValue)
        return cell::shownNoValue;
    return value == cell::storedNotApplicable ? cell::notApplicable : value;
}

template <class Record>
bool isCompleted(const Record& record, AnalysisLevel level) {
    if constexpr (std::is_same_v<Record, AsrComponent>) {
        if (level == AnalysisLevel::SchematicReview)
            return record.completedForAsr != 0;
        if (level == AnalysisLevel::Rapid)
            return record.completedForRapid != 0;
    }
    return record.completed != 0;
}

std::wstring_view shownValue(const TableSetup& setup, const TableColumn& column,
                             std::wstring_view value, const PropertyView* property,
                             std::wstring_view type) {
    const bool isNotApplicable = value == cell::storedNotApplicable;
    switch (column.choices) {
    case ColumnChoices::At:
        return isNotApplicable ? cell::notApplicable : value;
    case ColumnChoices::Package:
        if (value.empty())
            return setup.defaultPackage;
        return isNotApplicable ? cell::notApplicable : value;
    case ColumnChoices::Process:
        if (isNotApplicable || (value.empty() && type != customTypeName))
            return cell::notApplicable;
        return value;
    case ColumnChoices::Option:
        // The auto-fill engine leaves the place in the list.
        value = shownOption(setup.group, column.parameter, value);
        break;
    default:
        break;
    }
    if (value.empty() && property != nullptr && property->doesNotApply(column.parameter))
        return cell::notApplicable;
    return toShown(value);
}

} // namespace

template <class Record>
TableRow rowOfRecord(const TableSetup& setup, std::wstring_view key, const Record& record,
                     const DatasheetLinks& links) {
    TableRow row;
    row.cells.resize(setup.columns.size());
    auto& cells = row.cells;
    cells[partNumberColumn] = upperCase(trim(record.PartNum));
    if (cells[partNumberColumn] != key)
        row.ownKey = key;
    cells[catalogNumberColumn] = upperCase(trim(record.CatNum));
    cells[descriptionColumn] = record.Description;
    cells[fullColumn] = isCompleted(record, setup.level) ? fullMark : notFullMark;
    const auto type = static_cast<std::size_t>(std::max(record.type, -1));
    cells[typeColumn] =
        type < setup.types.size() ? std::wstring_view(setup.types[type]) : defaultTypeName;
    const PropertyView& view = setup.properties[std::min(type, setup.types.size())];
    const PropertyView* property = view.names.empty() ? nullptr : &view;
    for (std::size_t at = typeColumn + 1; at <= setup.lastParameter; ++at) {
        const TableColumn& column = setup.columns[at];
        cells[at] = shownValue(setup, column, record.LPar[column.parameter - 1], property,
                               cells[typeColumn]);
    }
    if (const auto link = links.find(cells[partNumberColumn]); link != links.end())
        cells[setup.datasheetColumn] = link->second;
    cells[setup.manufacturerColumn] = record.Manufacturer;
    cells[setup.notesColumn] = record.Notes;
    return row;
}

template TableRow rowOfRecord(const TableSetup&, std::wstring_view, const SdtaComponent&,
                              const DatasheetLinks&);
template TableRow rowOfRecord(const TableSetup&, std::wstring_view, const AsrComponent&,
                              const DatasheetLinks&);

} // namespace partwright
