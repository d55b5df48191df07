#include "editing/page_session.h"

#include "core/cell_text.h"
#include "core/completion.h"
#include "core/messages.h"
#include "core/text.h"
#include "editing/component_table_session.h"
#include "editing/library_save.h"
#include "editing/new_component_session.h"
#include "editing/startup.h"
#include "library/property_tables.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

/// A text that the library's reader takes back whole.
std::wstring cut(std::wstring text) {
    if (text.size() > cell::maximumLength)
        text.resize(cell::maximumLength);
    return text;
}

/// The first value of the placements of a part, in key order, that is not empty.
std::wstring projectText(const PartList& list, std::wstring_view designators,
                         std::wstring_view column) {
    for (const std::wstring_view designator : split(designators, L',')) {
        std::wstring value = list.ProjectValue(designator, column);
        if (!value.empty())
            return cut(std::move(value));
    }
    return {};
}

/// Copy of a master with keys and part numbers in capitals; of records that differ only in case
/// the last one wins.
template <class Library>
Library inCapitals(const Library& master) {
    Library result;
    for (const auto& [key, record] : master) {
        const auto copy = result.insert_or_assign(result.end(), upperCase(key), record);
        for (wchar_t& c : copy->second.PartNum)
            c = upperCase(c);
    }
    return result;
}

/// True when the library has the part with a group and a type.
template <class Library>
bool isUsable(const Library& library, std::wstring_view partNumber) {
    const auto found = library.find(partNumber);
    return found != library.end() && found->second.group > 0 && found->second.type >= 0;
}

template <class Record>
void add(GroupCount& count, const Record& record) {
    ++count.quantity;
    count.uncompleted += record.completed == 0 ? 1 : 0;
    if constexpr (std::is_same_v<Record, AsrComponent>) {
        count.uncompletedForAsr += record.completedForAsr == 0 ? 1 : 0;
        count.uncompletedForRapid += record.completedForRapid == 0 ? 1 : 0;
    } else {
        count.uncompletedForAsr = count.uncompletedForRapid = count.uncompleted;
    }
}

} // namespace

const PartSelection& PageSession::filterSet() const {
    return this->*setOf(filter_, isDesign_);
}

PartSelection PageSession::*PageSession::setOf(PageFilter filter, bool isDesign) {
    switch (filter) {
    case PageFilter::SelectedOnly:
        return &PageSession::selectedParts;
    case PageFilter::AllProject:
        return &PageSession::projectParts;
    case PageFilter::FullLibrary:
        break;
    }
    return isDesign ? &PageSession::designParts : &PageSession::publicParts;
}

void PageSession::tellAll(const std::vector<LoadResult>& results) {
    for (const LoadResult& result : results)
        tell(prompt_, result);
}

const LoadReport& PageSession::loadReport() const {
    static const LoadReport nothing;
    const auto found = app_.libraries.loadReports.find(libraryPath());
    return found == app_.libraries.loadReports.end() ? nothing : found->second;
}

template <class Record>
void LibraryPageSession<Record>::refresh() {
    if (isDesign_ && addMissingParts())
        RebuildKeySets();
    engine_.finishWork();
}

template <class Record>
typename LibraryPageSession<Record>::Library& LibraryPageSession<Record>::workingLibrary() {
    return isDesign_ ? designLibrary : publicLibrary;
}

template <class Record>
const typename LibraryPageSession<Record>::Library&
LibraryPageSession<Record>::workingLibrary() const {
    return isDesign_ ? designLibrary : publicLibrary;
}

template <class Record>
const std::wstring& LibraryPageSession<Record>::libraryPath() const {
    return isDesign_ ? app_.paths.designPath<Record>() : app_.paths.publicPath<Record>();
}

template <class Record>
void LibraryPageSession<Record>::RebuildKeySets() {
    const auto keysOf = [this](const Library& library) {
        PartSelection keys;
        for (const auto& [key, record] : library) {
            const auto inProject = projectParts.find(key);
            keys.emplace_hint(keys.end(), key,
                              inProject == projectParts.end() ? std::wstring() : inProject->second);
        }
        return keys;
    };
    designParts = keysOf(designLibrary);
    publicParts = keysOf(publicLibrary);
}

template <class Record>
std::vector<std::wstring> LibraryPageSession<Record>::runGroupLibrary() {
    return finishFill(fillCommand::groupLibrary,
                      engine_.runGroupLibrary(filterSet(), workingLibrary()));
}

template <class Record>
std::vector<std::wstring> LibraryPageSession<Record>::parseDescriptions() {
    return finishFill(fillCommand::descriptionParsing,
                      engine_.parseDescriptions(filterSet(), workingLibrary()));
}

template <class Record>
std::vector<std::wstring> LibraryPageSession<Record>::finishFill(std::wstring_view command,
                                                                 FillReport<Record> report) {
    engine_.finishWork();
    for (const std::wstring& text : report.messages)
        prompt_.tell(text, PromptIcon::None);
    std::vector<std::wstring> changed = report.changed;
    if (!changed.empty())
        markModified(isDesign_);
    const FillSummary done =
        fills_.add(app_.of<Record>(), command, std::move(report), workingLibrary());
    fillLine_ = message::fillDone(command, done.parts, done.texts.filled, done.texts.replaced,
                                  done.texts.emptied);
    refresh();
    return changed;
}

template <class Record>
bool LibraryPageSession<Record>::canTakeBackFill() const {
    return isDesign_ && fills_.last() != nullptr; // the public library is never filled
}

template <class Record>
std::wstring_view LibraryPageSession<Record>::filledBy() const {
    return fills_.last() == nullptr ? std::wstring_view() : fills_.last()->command;
}

template <class Record>
std::vector<FilledRecord> LibraryPageSession<Record>::filledRecords() const {
    return fills_.changes(app_.of<Record>(), designLibrary);
}

template <class Record>
void LibraryPageSession<Record>::takeBackFill() {
    if (!canTakeBackFill())
        return;
    const TakenBack back = fills_.takeBack(designLibrary);
    fillLine_ = message::fillTakenBack(back.command, back.restored, back.kept);
    if (const FillSummary* before = fills_.last())
        fillLine_ += L" " + message::fillDone(before->command, before->parts, before->texts.filled,
                                              before->texts.replaced, before->texts.emptied);
    markModified(isDesign_);
    RebuildKeySets();
    refresh();
}

template <class Record>
std::unique_ptr<TableSession> LibraryPageSession<Record>::openGroup(std::int32_t group) {
    Library records;
    handedOut_.clear();
    for (const auto& [key, record] : workingLibrary()) {
        if (record.group != group || !isCounted(key))
            continue;
        records.emplace_hint(records.end(), key, record);
        handedOut_.push_back(key);
    }
    TablePlace place{&projectRows_, &shownParts(), isDesign_ ? &designParts : &publicParts,
                     [this](std::wstring_view part) { return workingLibrary().contains(part); }};
    return std::make_unique<ComponentTableSession<Record>>(app_, group, level(), std::move(records),
                                                           rules(), std::move(place));
}

template <class Record>
void LibraryPageSession<Record>::storeGroup(TableSession& session) {
    Library returned = static_cast<ComponentTableSession<Record>&>(session).takeRecords();
    Library& library = workingLibrary();
    for (const std::wstring& key : handedOut_) {
        if (returned.contains(key))
            continue;
        library.erase(key);
        if (projectRows_.contains(key))
            continue;
        projectParts.erase(key); // it was there because somebody had added it by hand
        selectedParts.erase(key);
    }
    for (auto& [key, record] : returned) {
        if (std::is_same_v<Record, SdtaComponent> && record.group < 0)
            library.erase(key); // no group of its own is how a stress record is given up
        else
            library.insert_or_assign(key, std::move(record));
    }
    handedOut_.clear();
    markModified(isDesign_);
    RebuildKeySets();
    refresh();
}

template <class Record>
std::unique_ptr<NewComponentTable> LibraryPageSession<Record>::openNewComponents() {
    Library records;
    for (const auto& [key, record] : workingLibrary())
        if (!app_.of<Record>().isInUse(record.group) && isCounted(key))
            records.emplace_hint(records.end(), key, record);
    return std::make_unique<NewComponentSession<Record>>(app_, std::move(records), projectRows_,
                                                         prompt_);
}

template <class Record>
void LibraryPageSession<Record>::storeNewComponents(NewComponentTable& table) {
    Library records = static_cast<NewComponentSession<Record>&>(table).takeRecords();
    if (records.empty() && table.removedParts().empty())
        return;
    for (auto& [key, record] : records)
        workingLibrary().insert_or_assign(key, std::move(record));
    markModified(isDesign_);
    RebuildKeySets();
    refresh();
}

template <class Record>
bool LibraryPageSession<Record>::saveType(bool isDesign, bool announce) {
    MasterCopy<Record>& master =
        isDesign ? app_.libraries.designLibrary<Record>() : app_.libraries.publicLibrary<Record>();
    master.replace(isDesign ? designLibrary : publicLibrary);
    modified_ = true;
    const std::wstring& path =
        isDesign ? app_.paths.designPath<Record>() : app_.paths.publicPath<Record>();
    const bool isSaved = saveLibraryFile<Record>(app_, master.records(), path, announce, prompt_);
    saveFailed_[isDesign ? 1 : 0] = !isSaved;
    return isSaved;
}

template <class Record>
bool LibraryPageSession<Record>::hasUnsaved(bool isDesign) const {
    const std::size_t type = isDesign ? 1 : 0;
    if (!touched_[type])
        return saveFailed_[type];
    const Library& working = isDesign ? designLibrary : publicLibrary;
    const MasterCopy<Record>& master =
        isDesign ? app_.libraries.designLibrary<Record>() : app_.libraries.publicLibrary<Record>();
    return saveFailed_[type] || working != inCapitals(master.records());
}

template <class Record>
std::int32_t LibraryPageSession<Record>::reveal(std::wstring_view part) {
    if (!isCounted(std::wstring(part))) {
        setFilter(PageFilter::FullLibrary);
        refresh();
    }
    const auto record = workingLibrary().find(part);
    const std::int32_t group = record == workingLibrary().end() ? 0 : record->second.group;
    return app_.of<Record>().isInUse(group) ? group : 0;
}

template <class Record>
void LibraryPageSession<Record>::takeMasters() {
    designLibrary = inCapitals(app_.libraries.designLibrary<Record>().records());
    publicLibrary = inCapitals(app_.libraries.publicLibrary<Record>().records());
}

template <class Record>
Record LibraryPageSession<Record>::newRecord(std::wstring_view partNumber,
                                             std::wstring_view designators) const {
    Record record;
    record.PartNum = partNumber;
    record.CatNum = projectText(app_.partList, designators, app_.partList.columnCatalogNumber);
    record.Description = projectText(app_.partList, designators, app_.partList.columnDescription);
    return record;
}

template <class Record>
void LibraryPageSession<Record>::keepTexts(Record& record) const {
    const auto old = designLibrary.find(record.PartNum);
    if (old == designLibrary.end())
        return;
    record.Manufacturer = old->second.Manufacturer;
    record.Notes = old->second.Notes;
    if (record.CatNum.empty())
        record.CatNum = old->second.CatNum;
    if (record.Description.empty())
        record.Description = old->second.Description;
}

template <class Record>
std::vector<GroupCount> LibraryPageSession<Record>::countsByGroup() const {
    std::vector<GroupCount> counts;
    const auto& names = app_.of<Record>().groupNames;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto group = static_cast<std::int32_t>(i);
        GroupCount& count = counts.emplace_back();
        count.group = group;
        count.shownNumber = group;
        count.name = names[i];
        count.family = Kind<Record>::family(group);
    }
    if (counts.empty())
        return counts;
    for (const auto& [key, record] : workingLibrary()) {
        const bool inUse = app_.of<Record>().isInUse(record.group);
        if (isCounted(key)) // every part is reached by some line
            add(counts[inUse ? static_cast<std::size_t>(record.group) : 0], record);
    }
    return counts;
}

template class LibraryPageSession<SdtaComponent>;
template class LibraryPageSession<AsrComponent>;

void SdtaPageSession::start() {
    takeMasters();
    selectedParts = partsOfProject(app_.partList, true);
    projectParts = projectRows_ = partsOfProject(app_.partList, false);
    RebuildKeySets();
    filter_ = app_.partList.selectedCount > 0 ? PageFilter::SelectedOnly : PageFilter::AllProject;
    loadRules();
    // The classification is prepared for the groups as they are read now.
    const LoadResult groups = LoadGroupNames(app_.paths, app_.classifier, app_.sdta);
    tellAll(engine_.load());
    tell(prompt_, groups);
    refresh();
}

void SdtaPageSession::loadRules() {
    if (rules_.rules.empty())
        tell(prompt_, LoadValidationRules(app_.paths.sdtaValidationRulesPath, rules_.rules));
    if (rules_.thermal.empty())
        tell(prompt_,
             LoadThermalValidationRules(app_.paths.sdtaThermalValidationPath, rules_.thermal));
}

std::vector<PageFilter> SdtaPageSession::filters() const {
    return {PageFilter::SelectedOnly, PageFilter::AllProject, PageFilter::FullLibrary};
}

std::vector<GroupCount> SdtaPageSession::counts() const {
    return countsByGroup();
}

bool SdtaPageSession::addMissingParts() {
    bool added = false;
    const PartSelection& wanted =
        filter_ == PageFilter::SelectedOnly ? selectedParts : projectParts;
    for (const auto& [partNumber, designators] : wanted) {
        if (isUsable(designLibrary, partNumber) || !projectRows_.contains(partNumber))
            continue;
        SdtaComponent record = newRecord(partNumber, designators);
        const Classification found = engine_.classify(designators, record.Description);
        record.group = found.group;
        record.type = found.type;
        record.family = FamilyNumber(FamilyOfSdtaGroup(record.group));
        keepTexts(record);
        UpdateCompletion(app_.sdta, record); // as the next reading would
        designLibrary.insert_or_assign(record.PartNum, std::move(record));
        added = true;
    }
    return added;
}

void AsrPageSession::start() {
    loadAnalysesTables(app_, prompt_);
    loadAnalysesLibraries(app_, prompt_);
    takeMasters();
    rebuildSdtaGroups(app_.classifier, app_.sdta);
    tellAll(engine_.load());
    reloadSdtaLibraries(app_, prompt_);
    filter_ = PageFilter::AllProject;
    level_ = app_.analysisLevel != 0 ? AnalysisLevel::Rapid : AnalysisLevel::SchematicReview;
    projectParts = projectRows_ = partsOfProject(app_.partList, false);
    RebuildKeySets();
    refresh();
}

std::vector<PageFilter> AsrPageSession::filters() const {
    return {PageFilter::AllProject, PageFilter::FullLibrary};
}

std::vector<GroupCount> AsrPageSession::counts() const {
    std::vector<GroupCount> all = countsByGroup();
    std::erase_if(all, [](const GroupCount& count) {
        return count.name.find(notApplicableGroup) != std::wstring::npos;
    });
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i].shownNumber = static_cast<std::int32_t>(i);
    std::vector<GroupCount> ordered;
    ordered.reserve(all.size());
    std::vector<std::wstring> families;
    for (const GroupCount& count : all)
        if (std::find(families.begin(), families.end(), count.family) == families.end())
            families.push_back(count.family);
    for (const std::wstring& family : families)
        for (const GroupCount& count : all)
            if (count.family == family)
                ordered.push_back(count);
    return ordered;
}

std::int32_t AsrPageSession::uncompletedOf(const GroupCount& line) const {
    switch (level_) {
    case AnalysisLevel::SchematicReview:
        return line.uncompletedForAsr;
    case AnalysisLevel::Rapid:
        return line.uncompletedForRapid;
    case AnalysisLevel::Full:
        break;
    }
    return line.uncompleted;
}

bool AsrPageSession::addMissingParts() {
    bool added = false;
    for (const auto& [partNumber, designators] : filterSet()) {
        if (!projectRows_.contains(partNumber))
            continue;
        const auto& twins = app_.libraries.sdtaDesignLibrary.records();
        const auto twin = isUsable(twins, partNumber) ? twins.find(partNumber) : twins.end();
        // A code that is not in use is given up as soon as the stress record knows better.
        const auto old = designLibrary.find(partNumber);
        const bool isClassified = isUsable(designLibrary, partNumber);
        if (isClassified && (twin == twins.end() || app_.asr.isInUse(old->second.group)))
            continue;
        AsrComponent record = newRecord(partNumber, designators);
        std::int32_t sdtaGroup = 0;
        if (twin != twins.end()) {
            record.CatNum = twin->second.CatNum;
            record.Description = twin->second.Description;
            sdtaGroup = twin->second.group;
        } else {
            sdtaGroup = engine_.classify(designators, record.Description).group;
        }
        const Classification found = engine_.classifyForAnalyses(sdtaGroup, record.Description);
        if (isClassified && !app_.asr.isInUse(found.group))
            continue;
        record.group = found.group;
        record.type = found.type;
        record.family = FamilyNumber(FamilyOfAsrGroup(record.group));
        keepTexts(record);
        engine_.applyDefaults(record);
        UpdateCompletion(app_.asr, record);
        designLibrary.insert_or_assign(record.PartNum, std::move(record));
        added = true;
    }
    return added;
}

} // namespace partwright
