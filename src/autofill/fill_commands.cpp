#include "autofill/fill_commands.h"

#include "autofill/defaults.h"
#include "autofill/synonyms.h"
#include "core/cell_text.h"
#include "core/completion.h"
#include "core/text.h"
#include "library/small_tables.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

/// The designators of a part that the selection holds; null when it does not.
const std::wstring* designatorsOf(const PartSelection& selection, std::wstring_view partNumber) {
    auto found = selection.find(partNumber);
    if (found == selection.end()) // the Analyses library keeps part numbers as they were written
        found = selection.find(upperCase(partNumber));
    return found == selection.end() ? nullptr : &found->second;
}

template <class Record>
void complete(const Definitions<Record>& definitions, const CompletionRules<Record>& rules,
              Record& record) {
    rules.update(record);
    if (record.completed == 0 && applyDefaults(definitions, record))
        rules.update(record);
}

/// The walk of the group library over one library.
template <class Record>
class GroupLibraryWalk {
public:
    GroupLibraryWalk(const FillTools& tools, const Classifier& classifier,
                     GroupLibrary& groupLibrary, const PartSelection& selection)
        : tools_(tools), classifier_(classifier), groupLibrary_(groupLibrary),
          selection_(selection), completion_(tools.app.of<Record>()) {}

    FillReport<Record> run(typename Kind<Record>::Library& library) {
        for (auto& [key, record] : library)
            if (isWanted(key, record) && identify(trim(key), record))
                report_.changed.push_back(key);
        return std::move(report_);
    }

private:
    static constexpr bool isAnalyses = std::is_same_v<Record, AsrComponent>;

    [[nodiscard]] bool isWanted(std::wstring_view key, const Record& record) const {
        if (record.completed != 0 || key.empty() || equalsNoCase(key, emptyMark))
            return false;
        if (isAnalyses && record.group == 0)
            return false;
        return designatorsOf(selection_, key) != nullptr;
    }

    PartDescription describe(std::wstring_view partNumber) {
        PartDescription part = groupLibrary_.DescribePartNumber(partNumber);
        if (part.description.empty() && partNumber.find(L' ') != std::wstring_view::npos) {
            std::vector<std::wstring> messages = std::move(part.messages);
            part = groupLibrary_.DescribePartNumber(removeAll(partNumber, L" "));
            part.messages.insert(part.messages.begin(), messages.begin(), messages.end());
        }
        report_.messages.insert(report_.messages.end(), part.messages.begin(), part.messages.end());
        return part;
    }

    /// False when the part stays as it is.
    bool identify(std::wstring_view partNumber, Record& record) {
        const std::wstring* designators = designatorsOf(selection_, partNumber);
        if (!designators)
            return false;
        const PartDescription part = describe(partNumber);
        if (part.description.empty())
            return false;
        const std::wstring text = tools_.rewrite(part.description);
        std::int32_t group = classifier_.DetectGroup(*designators, forGroups(text), true);
        if (!tools_.app.classifier.groupNamesByCode.contains(group))
            return false;
        std::int32_t type = 0;
        classifier_.DetectType(Kind<SdtaComponent>::method, group, text, type);
        if (isAnalyses) {
            group = analysesGroupOf(tools_.app.classifier, group);
            classifier_.DetectType(Kind<AsrComponent>::method, group, text, type);
        }
        if (group == 0)
            return false;
        scanned_.assign(text);
        tools_.filler.RefineTypeByRule(Kind<Record>::method, group, type, scanned_);
        take(group, type, part, record);
        return true;
    }

    void take(std::int32_t group, std::int32_t type, const PartDescription& part, Record& record) {
        report_.before.push_back(record);
        record.group = group;
        record.type = type;
        record.family = FamilyNumber(Kind<Record>::family(group));
        tools_.filler.FillParamsFromDescription(group, record.type, cells_, scanned_,
                                                Kind<Record>::method, record.Notes);
        std::copy_n(cells_.begin(), Kind<Record>::takenCells, record.LPar.begin());
        record.Manufacturer = part.manufacturer;
        record.Notes += L"GLib";
        complete(tools_.app.of<Record>(), completion_, record);
    }

    const FillTools& tools_;
    const Classifier& classifier_;
    GroupLibrary& groupLibrary_;
    const PartSelection& selection_;
    CompletionRules<Record> completion_;
    ScannedText scanned_;
    std::array<std::wstring, Kind<Record>::fillCells> cells_;
    FillReport<Record> report_;
};

/// Copies what a description told into the values that are empty and that the type has.
template <class Record>
void takeEmpty(const typename Kind<Record>::Row& row,
               const std::array<std::wstring, Kind<Record>::fillCells>& cells, Record& record) {
    for (std::size_t i = 0; i < Kind<Record>::takenCells && i + 1 < row.names.size(); ++i) {
        const std::wstring& name = row.names[i + 1];
        if (name.empty() || name == cell::labelNotApplicable)
            continue;
        if (record.LPar[i].empty() && !cells[i].empty())
            record.LPar[i] = cells[i];
    }
}

template <class Record>
FillReport<Record> parseDescriptions(const FillTools& tools, const PartSelection& selection,
                                     typename Kind<Record>::Library& library) {
    const CompletionRules<Record> completion(tools.app.of<Record>());
    std::array<std::wstring, Kind<Record>::fillCells> cells;
    ScannedText scanned;
    FillReport<Record> report;
    for (auto& [key, record] : library) {
        if (record.completed != 0 || record.group == 0 || !designatorsOf(selection, key))
            continue;
        const typename Kind<Record>::Row* row = completion.row(record.group, record.type);
        if (!row)
            continue;
        report.before.push_back(record);
        scanned.assign(tools.rewrite(record.Description));
        tools.filler.FillParamsFromDescription(record.group, record.type, cells, scanned,
                                               Kind<Record>::method, record.Notes);
        takeEmpty(*row, cells, record);
        record.Notes += L"Descr";
        complete(tools.app.of<Record>(), completion, record);
        report.changed.push_back(key);
    }
    return report;
}

} // namespace

std::int32_t analysesGroupOf(const ClassifierTables& tables, std::int32_t sdtaGroup) {
    constexpr std::int32_t unknownGroup = 1;
    constexpr std::int32_t movedGroup = 4;
    constexpr std::int32_t movedTo = 9;
    std::int32_t ignored = 0;
    const std::int32_t code = ConvertBiCode(tables, sdtaGroup, ignored);
    if (code == noBiCode)
        return unknownGroup;
    if (code == movedGroup)
        return movedTo;
    return std::max(code, 0);
}

FillReport<SdtaComponent> RunGroupLibrary(const FillTools& tools, const Classifier& classifier,
                                          GroupLibrary& groupLibrary,
                                          const PartSelection& selection, SdtaLibrary& library) {
    return GroupLibraryWalk<SdtaComponent>(tools, classifier, groupLibrary, selection).run(library);
}

FillReport<AsrComponent> RunAsrGroupLibrary(const FillTools& tools, const Classifier& classifier,
                                            GroupLibrary& groupLibrary,
                                            const PartSelection& selection, AsrLibrary& library) {
    return GroupLibraryWalk<AsrComponent>(tools, classifier, groupLibrary, selection).run(library);
}

FillReport<SdtaComponent> ParseDescriptionsForSelection(const FillTools& tools,
                                                        const PartSelection& selection,
                                                        SdtaLibrary& library) {
    return parseDescriptions<SdtaComponent>(tools, selection, library);
}

FillReport<AsrComponent> ParseAsrDescriptionsForSelection(const FillTools& tools,
                                                          const PartSelection& selection,
                                                          AsrLibrary& library) {
    return parseDescriptions<AsrComponent>(tools, selection, library);
}

} // namespace partwright
