#include "autofill/fill_engine.h"

#include "library/property_tables.h"
#include "library/small_tables.h"

#include <utility>

namespace partwright {

namespace {

template <class Record>
FillReport<Record> withMessages(std::vector<std::wstring> messages, FillReport<Record> report) {
    report.messages.insert(report.messages.begin(), messages.begin(), messages.end());
    return report;
}

} // namespace

FillEngine::FillEngine(CPartwrightPlugInApp& app) : app_(app) {}

FillEngine::Work::Work(const FillEngine& engine)
    : tables(compiledFillTables()),
      filler(tables, engine.app_), tools{engine.app_, filler, [&engine](std::wstring_view text) {
                                             return engine.rewritten(text);
                                         }} {}

const FillEngine::Work& FillEngine::work() const {
    if (!work_)
        work_ = std::make_unique<const Work>(*this);
    return *work_;
}

std::vector<LoadResult> FillEngine::load() {
    std::vector<LoadResult> results;
    if (keywordFile_.bytes.empty()) {
        keywordFile_ = readTextFile(app_.paths.descrRulesSdtaTypesPath);
        results.push_back(resultOf(keywordFile_.status, app_.paths.descrRulesSdtaTypesPath));
        keywords_.reset();
        classifier_.reset();
    }
    if (synonymFile_.bytes.empty()) {
        synonymFile_ = readTextFile(synonymPath(app_.paths));
        results.push_back(resultOf(synonymFile_.status, synonymPath(app_.paths)));
        synonyms_.reset();
    }
    if (prefixFile_.bytes.empty()) {
        prefixFile_ = readTextFile(partPrefixPath(app_.paths));
        results.push_back(resultOf(prefixFile_.status, partPrefixPath(app_.paths)));
        synonyms_.reset();
    }
    if (app_.classifier.DirectKeyTable.empty())
        results.push_back(LoadManagementTable(app_.paths, app_.classifier));
    if (app_.sdta.defaultLPar.empty())
        results.push_back(LoadSdtaDefaultLPar(app_.paths, app_.sdta));
    if (app_.classifier.GroupRuleTable != preparedRules_) {
        classifier_.reset();
        preparedRules_ = app_.classifier.GroupRuleTable;
        known_.clear();
        knownForAnalyses_.clear();
    }
    return results;
}

std::vector<std::wstring> FillEngine::missingTables() {
    std::vector<std::wstring> missing;
    const auto need = [&missing](bool isThere, const std::wstring& path) {
        if (!isThere)
            missing.push_back(path);
    };
    static_cast<void>(classifier()); // reads the keywords
    need(!app_.classifier.groupNamesByCode.empty(), app_.paths.descrRulesPath);
    need(!keywords_->TypeKeywordTable.empty(), app_.paths.descrRulesSdtaTypesPath);
    need(!app_.classifier.convBiCode.empty(), biCodePath(app_.paths));
    need(!app_.sdta.properties.empty(), app_.paths.sdtaPropertyLibraryPath);
    need(!app_.asr.properties.empty(), app_.paths.asrPropertyLibraryPath);
    need(!app_.asr.columnsForRapid.empty() || !app_.asr.columnsForAsr.empty(),
         columnVisibilityPath(app_.paths));
    // These may stand without rows.
    const auto needHeader = [&need](const std::wstring& path, std::wstring_view column) {
        need(hasHeader(path, column), path);
    };
    needHeader(synonymPath(app_.paths), synonymForm().columns.front());
    needHeader(app_.paths.managementTablePath, L"MethodID");
    needHeader(app_.paths.sdtaDefaultLParPath, L"ID_Family");
    needHeader(app_.paths.asrDefaultLParPath, L"ID_Family");
    need(hasGroupLibrary(), app_.paths.groupLibraryPath);
    return missing;
}

bool FillEngine::hasGroupLibrary() {
    static_cast<void>(needGroupLibrary());
    return !groupLibrary_.empty();
}

const SynonymTable& FillEngine::synonyms() const {
    if (!synonyms_)
        synonyms_.emplace(ruleTableOf(synonymFile_, synonymForm()),
                          PartPrefixes(ruleTableOf(prefixFile_, partPrefixForm())));
    return *synonyms_;
}

std::wstring FillEngine::rewritten(std::wstring_view text) const {
    if (progress_ != nullptr)
        progress_->step();
    return synonyms().rewrite(text);
}

void FillEngine::finishWork() {
    if (progress_ != nullptr)
        progress_->finish();
}

const Classifier& FillEngine::classifier() const {
    if (!keywords_)
        keywords_ = typeKeywordsOf(ruleTableOf(keywordFile_, typeKeywordForm()));
    if (!classifier_)
        classifier_.emplace(app_.classifier, *keywords_, tables().units);
    return *classifier_;
}

Classification FillEngine::classify(std::wstring_view designators, std::wstring_view description) {
    std::wstring key(designators);
    key += L'\0';
    key += description;
    const auto [known, isNew] = known_.try_emplace(std::move(key));
    if (isNew) {
        ++workedOut_;
        const std::wstring text = rewritten(description);
        known->second =
            classified(classifier().DetectGroup(designators, forGroups(text), false), text);
    }
    return known->second;
}

Classification FillEngine::classifyForAnalyses(std::int32_t sdtaGroup,
                                               std::wstring_view description) {
    std::wstring key = std::to_wstring(sdtaGroup);
    key += L'\0';
    key += description;
    const auto [known, isNew] = knownForAnalyses_.try_emplace(std::move(key));
    if (isNew) {
        ++workedOut_;
        known->second = convertedToAnalyses(sdtaGroup, rewritten(description));
    }
    return known->second;
}

Classification FillEngine::classified(std::int32_t group, std::wstring_view text) const {
    Classification found{group, 0};
    classifier().DetectType(Kind<SdtaComponent>::method, found.group, text, found.type);
    return found;
}

Classification FillEngine::convertedToAnalyses(std::int32_t sdtaGroup,
                                               std::wstring_view text) const {
    Classification found{analysesGroupOf(app_.classifier, sdtaGroup), 0};
    classifier().DetectType(Kind<AsrComponent>::method, found.group, text, found.type);
    return found;
}

template <class Record>
FilledPart FillEngine::filled(std::int32_t group, std::wstring_view text) const {
    constexpr std::int32_t method = Kind<Record>::method;
    FilledPart part;
    part.cells.resize(Kind<Record>::fillCells);
    part.found = classified(group, text);
    if constexpr (method == Kind<AsrComponent>::method)
        part.found = convertedToAnalyses(part.found.group, text);
    const ScannedText scanned(text);
    work().filler.RefineTypeByRule(method, part.found.group, part.found.type, scanned);
    work().filler.FillParamsFromDescription(part.found.group, part.found.type, part.cells, scanned,
                                            method, part.notes);
    return part;
}

template <class Record>
FilledPart FillEngine::fill(std::wstring_view designators, std::wstring_view description) const {
    const std::wstring text = rewritten(description);
    return filled<Record>(classifier().DetectGroup(designators, forGroups(text), false), text);
}

template <class Record>
FilledPart FillEngine::fillByWords(std::wstring_view designators,
                                   std::wstring_view description) const {
    if (description.empty())
        return {};
    const std::wstring text = rewritten(description);
    const std::int32_t group = designators.empty()
                                   ? classifier().DetectGroupByWords(forGroups(text))
                                   : classifier().DetectGroup(designators, forGroups(text), true);
    return filled<Record>(group, text);
}

std::vector<std::wstring> FillEngine::needGroupLibrary() {
    if (std::exchange(groupLibraryLoaded_, true))
        return {};
    LoadResult result =
        LoadGroupLibrary(app_.paths.groupLibraryPath, app_.decimalMark(), groupLibrary_);
    if (result.message.empty())
        return {};
    return {std::move(result.message)};
}

PartDescription FillEngine::describe(std::wstring_view partNumber) {
    std::vector<std::wstring> messages = needGroupLibrary();
    PartDescription part = groupLibrary_.DescribePartNumber(partNumber);
    part.messages.insert(part.messages.begin(), messages.begin(), messages.end());
    return part;
}

FillReport<SdtaComponent> FillEngine::runGroupLibrary(const PartSelection& selection,
                                                      SdtaLibrary& library) {
    auto messages = needGroupLibrary();
    return withMessages(std::move(messages), RunGroupLibrary(work().tools, classifier(),
                                                             groupLibrary_, selection, library));
}

FillReport<AsrComponent> FillEngine::runGroupLibrary(const PartSelection& selection,
                                                     AsrLibrary& library) {
    auto messages = needGroupLibrary();
    return withMessages(std::move(messages), RunAsrGroupLibrary(work().tools, classifier(),
                                                                groupLibrary_, selection, library));
}

FillReport<SdtaComponent> FillEngine::parseDescriptions(const PartSelection& selection,
                                                        SdtaLibrary& library) {
    return ParseDescriptionsForSelection(work().tools, selection, library);
}

FillReport<AsrComponent> FillEngine::parseDescriptions(const PartSelection& selection,
                                                       AsrLibrary& library) {
    return ParseAsrDescriptionsForSelection(work().tools, selection, library);
}

template FilledPart FillEngine::fill<SdtaComponent>(std::wstring_view, std::wstring_view) const;
template FilledPart FillEngine::fill<AsrComponent>(std::wstring_view, std::wstring_view) const;
template FilledPart FillEngine::fillByWords<SdtaComponent>(std::wstring_view,
                                                           std::wstring_view) const;
template FilledPart FillEngine::fillByWords<AsrComponent>(std::wstring_view,
                                                          std::wstring_view) const;

template FilledPart FillEngine::filled<SdtaComponent>(std::int32_t, std::wstring_view) const;
template FilledPart FillEngine::filled<AsrComponent>(std::int32_t, std::wstring_view) const;

} // namespace partwright
