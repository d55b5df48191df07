#include "editing/library_check.h"

#include "core/messages.h"
#include "core/text.h"
#include "editing/cell_question.h"
#include "editing/component_rows.h"
#include "editing/component_table.h"
#include "editing/table_checks.h"
#include "library/library_reader.h"
#include "library/library_writer.h"
#include "maintenance/record_changes.h"

#include <map>
#include <utility>

namespace partwright {

namespace {

constexpr std::wstring_view valueRule = L"single value";
constexpr std::wstring_view completenessRule = L"completeness";
constexpr std::wstring_view loadRule = L"load";
constexpr std::wstring_view saveRule = L"save";

/// The rows of one group, and what is found in them.
class GroupCheck {
public:
    GroupCheck(std::wstring_view library, TableSetup setup, const ValidationTables& rules,
               std::vector<LibraryFinding>& findings)
        : library_(library), table_(std::move(setup)), rules_(rules),
          checks_(makeTableChecks(table_.setup(), rules)), findings_(findings) {}

    ComponentTable& table() { return table_; }

    void checkRow(std::size_t row) {
        // Without a group there is no table to open, and no column to look at.
        if (setup().groupName == notDefinedName) {
            report(row, completenessRule, refusal(message::groupNotChosen));
            return;
        }
        for (std::size_t column = typeColumn; column <= setup().lastParameter; ++column)
            if (!setup().columns[column].hidden)
                checkValue({row, column});
        for (Finding& found : checks_->everyStep(table_, row))
            report(row, found.rule, std::move(found));
        checkCompleteness(row);
    }

private:
    [[nodiscard]] const TableSetup& setup() const { return table_.setup(); }

    LibraryFinding& report(std::size_t row, std::wstring_view rule, Finding found) {
        LibraryFinding finding;
        finding.library = library_;
        finding.part = table_.row(row).part();
        finding.group = setup().groupName;
        finding.type = table_.type(row);
        found.rule = rule;
        if (found.leadsToCell())
            name(finding, {row, typeColumn + found.position});
        finding.finding = std::move(found);
        findings_.push_back(std::move(finding));
        return findings_.back();
    }

    void name(LibraryFinding& finding, CellAt at) const {
        finding.parameter = setup().columns[at.column].header;
        finding.value = table_.text(at.row, at.column);
    }

    void checkValue(CellAt at) {
        auto found = CheckCellQuiet(
            cellQuestion(table_, *checks_, at, table_.text(at.row, at.column), false), rules_.rules,
            setup().decimalMark);
        // A finding without a line is an empty cell.
        if (!found || !found->line)
            return;
        if (found->summary().empty())
            found->line = message::valueTypeOrRangeError;
        found->position = at.column - typeColumn;
        name(report(at.row, valueRule, std::move(*found)), at);
    }

    void checkCompleteness(std::size_t row) {
        if (table_.isComplete(row))
            return;
        std::wstring& empty =
            report(row, completenessRule, refusal(message::columnsNotFilledIn)).parameter;
        for (std::size_t column = typeColumn; column <= setup().lastParameter; ++column) {
            if (setup().columns[column].hidden || !table_.text(row, column).empty())
                continue;
            if (!empty.empty())
                empty += L", ";
            empty += setup().columns[column].header;
        }
    }

    std::wstring_view library_;
    ComponentTable table_;
    const ValidationTables& rules_;
    std::unique_ptr<TableChecks> checks_;
    std::vector<LibraryFinding>& findings_;
};

} // namespace

template <class Record>
std::vector<LibraryFinding> checkLibrary(const CPartwrightPlugInApp& app,
                                         const typename Kind<Record>::Library& library,
                                         const ValidationTables& rules, AnalysisLevel level) {
    using Entry = typename Kind<Record>::Library::value_type;
    std::map<std::int32_t, std::vector<const Entry*>> groups;
    for (const Entry& entry : library) {
        const std::int32_t group = entry.second.group;
        groups[app.of<Record>().isInUse(group) ? group : 0].push_back(&entry);
    }
    std::vector<LibraryFinding> findings;
    for (const auto& [group, entries] : groups) {
        GroupCheck check(Kind<Record>::name, makeTableSetup<Record>(app, group, level), rules,
                         findings);
        check.table().reserve(entries.size());
        for (const Entry* entry : entries)
            check.table().load(rowOfRecord(check.table().setup(), entry->first, entry->second, {}));
        for (std::size_t row = 0; row < entries.size(); ++row)
            check.checkRow(row);
    }
    return findings;
}

template std::vector<LibraryFinding> checkLibrary<SdtaComponent>(const CPartwrightPlugInApp&,
                                                                 const SdtaLibrary&,
                                                                 const ValidationTables&,
                                                                 AnalysisLevel);
template std::vector<LibraryFinding> checkLibrary<AsrComponent>(const CPartwrightPlugInApp&,
                                                                const AsrLibrary&,
                                                                const ValidationTables&,
                                                                AnalysisLevel);

std::vector<LibraryFinding> loadFindings(std::wstring_view library, std::wstring_view path,
                                         const LoadReport& report) {
    std::vector<LibraryFinding> findings;
    const auto add = [&](std::wstring_view part, std::wstring_view text) {
        LibraryFinding& finding = findings.emplace_back();
        finding.library = library;
        finding.part = part;
        finding.finding = refusal(std::wstring(path).append(L": ").append(text));
        finding.finding.rule = loadRule;
    };
    if (report.fault != LibraryFault::None)
        add({}, report.faultText);
    for (const LoadEntry& entry : report.entries())
        add(entry.part,
            message::entryText({entry.line, entry.cause, {}, entry.name, entry.otherLine}));
    if (report.count() > report.entries().size())
        add({}, message::furtherLines(report.count() - report.entries().size()));
    return findings;
}

template <class Record>
std::vector<LibraryFinding> saveFindings(const CPartwrightPlugInApp& app,
                                         const typename Kind<Record>::Library& library) {
    const Definitions<Record>& definitions = app.of<Record>();
    const FormattedLibrary saved = formatLibrary<Record>(app, recordsByGroup(library), {}, {});
    const auto read = parseLibrary(definitions, app.decimalMark(), saved.bytes, CodePage::Utf8);
    std::vector<LibraryFinding> findings;
    for (const auto& [key, record] : library) {
        const auto back = read.records.find(upperCase(record.PartNum));
        if (back == read.records.end())
            continue;
        const auto [group, type] = definitions.GroupAndTypeNames(record.group, record.type);
        for (const FieldChange& field : changeBetween(definitions, record, back->second).fields) {
            if (field.before.empty()) // reading says of what does not apply that it is "N/A"
                continue;
            findings.push_back({Kind<Record>::name, key, std::wstring(group), std::wstring(type),
                                field.name, field.before,
                                refusal(message::saveChanges(field.after))});
            findings.back().finding.rule = saveRule;
        }
    }
    return findings;
}

template std::vector<LibraryFinding> saveFindings<SdtaComponent>(const CPartwrightPlugInApp&,
                                                                 const SdtaLibrary&);
template std::vector<LibraryFinding> saveFindings<AsrComponent>(const CPartwrightPlugInApp&,
                                                                const AsrLibrary&);

} // namespace partwright
