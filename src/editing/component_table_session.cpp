#include "editing/component_table_session.h"

#include "core/cell_text.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "editing/new_component_session.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

std::wstring_view toShown(std::wstring_view value) {
    if (value == cell::noValue)
        return cell::shownNoValue;
    return value == cell::storedNotApplicable ? cell::notApplicable : value;
}

std::wstring_view toStored(std::wstring_view text) {
    if (text == cell::shownNoValue)
        return cell::noValue;
    return text == cell::notApplicable ? cell::storedNotApplicable : text;
}

void assign(std::wstring& target, std::wstring_view text) {
    if (target != text)
        target = text;
}

std::unique_ptr<TableChecks> checksFor(const TableDescriptor& kind, const ValidationTables& rules) {
    if (kind.hasStressChecks)
        return std::make_unique<StressChecks>(rules);
    return std::make_unique<TableChecks>();
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

} // namespace

template <class Record>
ComponentTableSession<Record>::ComponentTableSession(const CPartwrightPlugInApp& app,
                                                     std::int32_t group, AnalysisLevel level,
                                                     Library records, const ValidationTables& rules,
                                                     TablePlace place, Prompt& prompt)
    : TableSession(makeTableSetup<Record>(app, group, level), rules,
                   checksFor(tableDescriptor<Record>(), rules), std::move(place), prompt),
      app_(app), records_(std::move(records)) {
    openedParts_ = records_.size();
    loadRows(app.datasheetLinks);
}

template <class Record>
bool ComponentTableSession<Record>::isOpened(std::wstring_view part) const {
    return records_.find(part) != records_.end();
}

template <class Record>
void ComponentTableSession<Record>::loadRows(const DatasheetLinks& links) {
    const TableSetup& setup = this->setup();
    table_.reserve(records_.size());
    for (const auto& [key, record] : records_) {
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
        for (std::size_t at = typeColumn + 1; at <= setup.lastParameter; ++at)
            cells[at] = shownValue(record, setup.columns[at], property, cells[typeColumn]);
        if (const auto link = links.find(cells[partNumberColumn]); link != links.end())
            cells[setup.datasheetColumn] = link->second;
        cells[setup.manufacturerColumn] = record.Manufacturer;
        cells[setup.notesColumn] = record.Notes;
        table_.load(std::move(row));
    }
}

template <class Record>
std::wstring ComponentTableSession<Record>::shownValue(const Record& record,
                                                       const TableColumn& column,
                                                       const PropertyView* property,
                                                       std::wstring_view type) const {
    const std::wstring& value = record.LPar[column.parameter - 1];
    switch (column.choices) {
    case ColumnChoices::At:
        return std::wstring(value == cell::storedNotApplicable ? cell::notApplicable
                                                               : std::wstring_view(value));
    case ColumnChoices::Package:
        if (value.empty())
            return setup().defaultPackage;
        return std::wstring(value == cell::storedNotApplicable ? cell::notApplicable
                                                               : std::wstring_view(value));
    case ColumnChoices::Process:
        if (value == cell::storedNotApplicable || (value.empty() && type != customTypeName))
            return std::wstring(cell::notApplicable);
        return value;
    case ColumnChoices::Option: {
        // The auto-fill engine leaves the place in the list.
        const OptionColumn& option = *setup().option(typeColumn + column.parameter)->first;
        const IntegerPrefix place = readInteger(value);
        if (place.consumed == value.size() && place.value >= 1 &&
            static_cast<std::size_t>(place.value) <= option.names.size())
            return std::wstring(option.names[static_cast<std::size_t>(place.value) - 1]);
        break;
    }
    default:
        break;
    }
    if (value.empty() && property != nullptr && property->doesNotApply(column.parameter))
        return std::wstring(cell::notApplicable);
    return std::wstring(toShown(value));
}

template <class Record>
FamilyGroups ComponentTableSession<Record>::familyGroups() const {
    return partwright::familyGroups<Record>(app_);
}

template <class Record>
TableOutcome ComponentTableSession<Record>::ok(RowOrder order, DatasheetLinks& links) {
    TableOutcome outcome = checkAllRowsForOk(order);
    if (outcome.accepted) {
        StoreRowsToRecords();
        StoreDatasheetLinks(links);
    }
    return outcome;
}

template <class Record>
void ComponentTableSession<Record>::StoreRowsToRecords() {
    // Rows and records come in the same order but for what was added, so the next record is
    // nearly always the one looked for.
    std::vector<const Record*> kept;
    kept.reserve(table_.rowCount() + table_.departed().size());
    auto next = records_.begin();
    for (std::size_t row = 0; row < table_.rowCount(); ++row) {
        const auto record = recordOf(table_.row(row), next);
        storeRow(table_.row(row), record->second);
        kept.push_back(&record->second);
        next = std::next(record);
    }
    for (const DepartedPart& part : table_.departed()) {
        const auto record = recordOf(part.row, records_.end());
        kept.push_back(&record->second);
        storeDeparted(part);
    }
    if (kept.size() == records_.size())
        return;
    std::sort(kept.begin(), kept.end());
    for (auto record = records_.begin(); record != records_.end();)
        record = std::binary_search(kept.begin(), kept.end(), &record->second)
                     ? std::next(record)
                     : records_.erase(record);
}

template <class Record>
typename ComponentTableSession<Record>::Library::iterator
ComponentTableSession<Record>::recordOf(const TableRow& row, typename Library::iterator hint) {
    if (!row.isNew)
        return hint != records_.end() && hint->first == row.part() ? hint
                                                                   : records_.find(row.part());
    Record record;
    if (const auto source = records_.find(row.source); source != records_.end()) {
        record = source->second;
    } else {
        record.group = setup().group;
        record.family = FamilyNumber(Kind<Record>::family(setup().group));
    }
    record.PartNum = row.part();
    return records_.insert_or_assign(row.part(), std::move(record)).first;
}

template <class Record>
void ComponentTableSession<Record>::storeRow(const TableRow& row, Record& record) const {
    storeTexts(row, record);
    storeFlags(row.cells[fullColumn] == fullMark, record);
    const std::size_t type = setup().typeNumber(row.cells[typeColumn]);
    record.type = type == TableSetup::noType ? 0 : static_cast<std::int32_t>(type);
    for (std::size_t at = typeColumn + 1; at <= setup().lastParameter; ++at)
        assign(record.LPar[at - typeColumn - 1], toStored(row.cells[at]));
}

template <class Record>
void ComponentTableSession<Record>::storeTexts(const TableRow& row, Record& record) const {
    assign(record.CatNum, row.cells[catalogNumberColumn]);
    assign(record.Description, row.cells[descriptionColumn]);
    assign(record.Notes, row.cells[setup().notesColumn]);
    assign(record.Manufacturer, row.cells[setup().manufacturerColumn]);
}

template <class Record>
void ComponentTableSession<Record>::storeFlags(bool isFull, Record& record) const {
    if constexpr (std::is_same_v<Record, AsrComponent>) {
        const std::int32_t flag = isFull ? 1 : 0;
        if (!isFull || setup().level == AnalysisLevel::Full)
            record.completed = flag;
        if (setup().level == AnalysisLevel::Rapid)
            record.completedForRapid = flag;
        else if (isFull || setup().level == AnalysisLevel::SchematicReview)
            record.completedForAsr = flag;
    } else {
        record.completed = isFull ? 1 : 0;
    }
}

template <class Record>
void ComponentTableSession<Record>::storeDeparted(const DepartedPart& part) {
    Record& record = records_.find(part.row.part())->second;
    storeTexts(part.row, record);
    storeFlags(false, record);
    if constexpr (std::is_same_v<Record, AsrComponent>)
        record.completedForAsr = record.completedForRapid = 0;
    record.group = part.group;
    record.family = part.family;
    record.type = defaultTypeOf<Record>(app_, part.group);
    for (std::wstring& value : record.LPar)
        value.clear();
    if (setup().group == setup().kind->processGroup && !part.row.isNew)
        record.LPar[0] = cell::storedNotApplicable;
}

template <class Record>
void ComponentTableSession<Record>::StoreDatasheetLinks(DatasheetLinks& links) const {
    const auto store = [&](const TableRow& row) {
        const std::wstring& part = row.cells[partNumberColumn];
        const std::wstring& file = row.cells[setup().datasheetColumn];
        const auto link = links.find(part);
        if (link != links.end())
            assign(link->second, file);
        else if (!file.empty())
            links.emplace(part, file);
    };
    for (std::size_t row = 0; row < table_.rowCount(); ++row)
        store(table_.row(row));
    for (const DepartedPart& part : table_.departed())
        store(part.row);
}

template class ComponentTableSession<SdtaComponent>;
template class ComponentTableSession<AsrComponent>;

} // namespace partwright
