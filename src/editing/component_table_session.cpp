#include "editing/component_table_session.h"

#include "core/cell_text.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "editing/component_rows.h"
#include "editing/new_component_session.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

std::wstring_view toStored(std::wstring_view text) {
    if (text == cell::shownNoValue)
        return cell::noValue;
    return text == cell::notApplicable ? cell::storedNotApplicable : text;
}

void assign(std::wstring& target, std::wstring_view text) {
    if (target != text)
        target = text;
}

} // namespace

template <class Record>
ComponentTableSession<Record>::ComponentTableSession(const CPartwrightPlugInApp& app,
                                                     std::int32_t group, AnalysisLevel level,
                                                     Library records, const ValidationTables& rules,
                                                     TablePlace place)
    : TableSession(makeTableSetup<Record>(app, group, level), rules, std::move(place)), app_(app),
      records_(std::move(records)) {
    openedParts_ = records_.size();
    table_.reserve(records_.size());
    for (const auto& [key, record] : records_)
        table_.load(rowOfRecord(setup(), key, record, app.libraries.datasheetLinks));
}

template <class Record>
bool ComponentTableSession<Record>::isOpened(std::wstring_view part) const {
    return records_.find(part) != records_.end();
}

template <class Record>
std::size_t ComponentTableSession<Record>::changedComponents() const {
    std::size_t changed = table_.departed().size();
    std::size_t still = 0; // records that have not been deleted
    for (const DepartedPart& part : table_.departed())
        still += part.row.isNew ? 0 : 1;
    auto next = records_.begin();
    for (std::size_t at = 0; at < table_.rowCount(); ++at) {
        const TableRow& row = table_.row(at);
        if (row.isNew) {
            ++changed;
            continue;
        }
        ++still;
        const bool isNext = next != records_.end() && next->first == row.part();
        const auto record = isNext ? next : records_.find(row.part());
        next = std::next(record);
        TableRow before =
            rowOfRecord(setup(), record->first, record->second, app_.libraries.datasheetLinks);
        before.cells[fullColumn] = row.cells[fullColumn]; // follows from the others
        changed += before.cells == row.cells ? 0 : 1;
    }
    return changed + records_.size() - still;
}

template <class Record>
FamilyGroups ComponentTableSession<Record>::familyGroups() const {
    return partwright::familyGroups(app_.of<Record>());
}

template <class Record>
TableOutcome ComponentTableSession<Record>::ok(RowOrder order, DatasheetLinks& links,
                                               Consent consent) {
    TableOutcome outcome = checkAllRowsForOk(order, consent);
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
    record.type = defaultTypeOf(app_.of<Record>(), part.group);
    for (std::wstring& value : record.LPar)
        value.clear();
    if (setup().group == setup().kind->processGroup && part.wasHere)
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
