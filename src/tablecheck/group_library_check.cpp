#include "tablecheck/group_library_check.h"

#include "autofill/group_library_sections.h"
#include "core/number.h"
#include "core/regular_expression_inspection.h"
#include "core/text.h"
#include "tablecheck/expression_check.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace partwright {

namespace {

using namespace group_library;

/// More codes than this at one field are taken for an open set.
constexpr std::size_t maximumCodes = 200000;
/// More pairs of neighbouring codes than this are not tried.
constexpr std::size_t maximumPairs = 4000;

std::vector<RuleRow> rowsOf(const Section& section, std::span<const std::wstring_view> columns,
                            Findings& findings) {
    if (!section.present || section.lines.empty())
        findings.add(0, {}, say({L"no rows in \"", section.name, L"\""}));
    const SectionRows lines(section, columns);
    std::vector<RuleRow> rows;
    for (std::size_t i = 0; i < lines.size(); ++i)
        rows.push_back(lines[i]);
    return rows;
}

/// The numbers of a section; each must be a number and stand once.
std::set<std::int32_t> numbersOf(const std::vector<RuleRow>& rows, std::wstring_view column,
                                 Findings& findings) {
    std::set<std::int32_t> numbers;
    for (const RuleRow& row : rows)
        if (const auto number = integerCell(row, column, findings);
            number && !numbers.insert(*number).second)
            findings.add(row.line, column, L"the number stands twice");
    return numbers;
}

/// The rows of each rule's table, in file order.
using TablesById = std::map<std::int32_t, std::vector<RuleRow>>;

TablesById tablesOf(std::vector<RuleRow> lines, const std::set<std::int32_t>& ruleIds,
                    Findings& findings) {
    TablesById tables;
    std::optional<std::int32_t> current;
    for (RuleRow& line : lines) {
        const std::int32_t id = line.number(L"Rule_ID").value_or(0);
        if (!ruleIds.contains(id)) {
            findings.add(line.line, L"Rule_ID", L"no such rule; the row is dropped");
            continue;
        }
        std::vector<RuleRow>& rows = tables[id];
        if (id != current && !rows.empty())
            findings.add(line.line, L"Rule_ID",
                         L"the rows of the rule stand apart; those above are lost");
        else if (line.number(L"SubRul_ID") != static_cast<std::int64_t>(rows.size()) + 1)
            findings.add(line.line, L"SubRul_ID",
                         say({L"row ", std::to_wstring(rows.size() + 1), L" belongs here"}));
        current = id;
        rows.push_back(std::move(line));
    }
    return tables;
}

/// The letters or scales of a coded number.
std::vector<std::wstring> piecesOf(std::wstring_view cell) {
    std::vector<std::wstring> pieces;
    for (const std::wstring_view piece : split(cell, L'|'))
        pieces.emplace_back(piece);
    return pieces;
}

/// Does the engine read a number from a code? A gap is dropped.
bool parses(const std::wstring& code, const GroupLibraryColumn& column) {
    return !CodedNumber(column).read(code, L'.').text.empty();
}

/// One rule: its key columns against its expression, its value columns against its key columns.
class RuleCheck {
public:
    RuleCheck(const GroupLibraryRule& rule, std::size_t line, const std::vector<RuleRow>& rows,
              Findings& findings)
        : rule_(rule), line_(line), rows_(rows), findings_(findings) {}

    void run() {
        if (rule_.keyColumns.empty() || rule_.valueColumns.empty()) {
            findings_.add(line_, L"Rules_ID", L"the rule has no table");
            return;
        }
        if (!checkPositions())
            return;
        for (std::size_t i = 0; i < rule_.keyColumns.size(); ++i)
            checkKey(i);
        for (std::size_t i = rule_.keyColumns.size(); i < tableColumns; ++i)
            checkValue(i);
    }

private:
    /// The fields must cover the part number from 1 on without a gap, up to its end.
    bool checkPositions() {
        std::int32_t expected = 1;
        for (std::size_t i = 0; i < rule_.keys.size(); ++i) {
            for (const std::int32_t position : rule_.keys[i].positions())
                if (position != expected++) {
                    tell(positionRow, i,
                         say({L"position ", std::to_wstring(expected - 1), L" belongs here"}));
                    return false;
                }
            if (rule_.keys[i].positions().empty())
                tell(positionRow, i, L"names no position");
        }
        if (rule_.byColumns())
            return true;
        const AdmittedCodes behind = admittedCodes(rule_.regExp, {expected}, maximumCodes);
        if (!behind.known || behind.codes != std::set<std::wstring>{L""})
            findings_.add(line_, L"RegExp",
                          say({L"lets through characters behind position ",
                               std::to_wstring(expected - 1), L", which no field looks at"}));
        return true;
    }

    void checkKey(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const KeyMethod method = rule_.keys[index].method();
        if (method == KeyMethod::NotUsed)
            return;
        const std::wstring_view name = cellOf(column, methodRow);
        if (method == KeyMethod::Unknown ||
            (method == KeyMethod::Parsing && !isParsingFunction(name))) {
            tell(methodRow, index, say({L"\"", name, L"\" is no method"}));
            return;
        }
        if (method == KeyMethod::Parsing)
            checkNumber(index);
        else
            checkCodes(index);
        if (!rule_.byColumns())
            checkAdmitted(index);
    }

    static bool isParsingFunction(std::wstring_view name) {
        return name.size() == parsingMethod.size() + 1 && name.back() >= L'1' &&
               name.back() <= L'5';
    }

    /// What the expression lets through at the column, the column must know.
    void checkAdmitted(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const KeyCodes& codes = rule_.keys[index];
        const AdmittedCodes admitted = admittedCodes(rule_.regExp, codes.positions(), maximumCodes);
        if (!admitted.known) {
            tell(positionRow, index,
                 L"cannot be proved: the expression lets through too many codes");
            return;
        }
        const bool parsing = codes.method() == KeyMethod::Parsing;
        const auto refused =
            std::find_if(admitted.codes.begin(), admitted.codes.end(), [&](const auto& code) {
                if (parsing)
                    return !parses(code, column);
                return !codes.rowOf(column, code) &&
                       !(codes.method() == KeyMethod::Optional && code.empty());
            });
        if (refused != admitted.codes.end())
            tell(firstCodeRow, index,
                 say({L"the expression lets through \"", *refused,
                      parsing ? L"\", which is no coded number" : L"\", which the list lacks"}));
    }

    void checkCodes(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const std::size_t width = rule_.keys[index].positions().size();
        std::set<std::wstring> seen;
        for (std::size_t row = firstCodeRow; row < column.size(); ++row) {
            const std::wstring& code = column[row];
            if (!code.empty() && !seen.insert(code).second)
                tell(row, index, say({L"\"", code, L"\" stands in the list already"}));
            else if (rule_.byColumns() && code.size() > width)
                tell(row, index, say({L"\"", code, L"\" is longer than its positions"}));
        }
        if (rule_.byColumns() && seen.empty())
            tell(firstCodeRow, index, L"has no code");
    }

    void checkNumber(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        if (!wholeNumber(cellOf(column, decimalsRow), L'.'))
            tell(decimalsRow, index, L"the number of decimals is missing");
        for (const std::size_t row : {leastRow, greatestRow})
            if (!cellOf(column, row).empty() && !wholeNumber(cellOf(column, row), L'.'))
                tell(row, index, say({L"\"", cellOf(column, row), L"\" is no number"}));
        checkScales(index);
        if (rule_.byColumns())
            checkForms(index);
    }

    void checkScales(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const std::vector<std::wstring> letters = piecesOf(cellOf(column, lettersRow));
        const std::vector<std::wstring> scales = piecesOf(cellOf(column, scalesRow));
        for (const std::wstring& letter : letters)
            if (letter.size() > 1)
                tell(lettersRow, index, say({L"\"", letter, L"\" is no single letter"}));
        const wchar_t function = column[methodRow].back();
        if (cellOf(column, lettersRow).empty() || (function != L'3' && function != L'4'))
            return;
        const bool good =
            scales.size() == letters.size() &&
            std::all_of(scales.begin(), scales.end(), [&](const auto& scale) {
                return function == L'3' ? !scale.empty() : wholeNumber(scale, L'.').has_value();
            });
        if (!good)
            tell(scalesRow, index, L"each letter needs its prefix or factor");
    }

    /// A number written in each of the forms must be one.
    void checkForms(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const std::wstring_view letters = cellOf(column, lettersRow);
        for (std::wstring form : rule_.keys[index].forms()) {
            std::wstring sample = form;
            std::replace(sample.begin(), sample.end(), L'9', L'1');
            std::replace(sample.begin(), sample.end(), L'.', letters.empty() ? L'.' : letters[0]);
            if (form.size() > rule_.keys[index].positions().size())
                tell(formsRow, index, say({L"\"", form, L"\" is longer than its positions"}));
            else if (!parses(sample, column))
                tell(formsRow, index, say({L"\"", form, L"\" is no form of a number"}));
        }
    }

    void checkValue(std::size_t index) {
        GroupLibraryColumn column;
        for (const RuleRow& row : rows_)
            column.push_back(row.text(tableColumnNames()[index]));
        if (std::all_of(column.begin(), column.end(),
                        [](const auto& text) { return text.empty(); }))
            return;
        if (!places_.insert(toInteger(column.front())).second || toInteger(column.front()) < 1)
            tell(positionRow, index, L"the place in the description is missing or stands twice");
        const std::wstring_view method = cellOf(column, methodRow);
        if (method == descriptionMethod)
            return;
        const std::int32_t key =
            method.starts_with(reference) ? toInteger(method.substr(reference.size())) : 0;
        if (key < 1 || static_cast<std::size_t>(key) > rule_.keyColumns.size()) {
            tell(methodRow, index, say({L"\"", method, L"\" names no key column"}));
            return;
        }
        const std::size_t source = static_cast<std::size_t>(key) - 1;
        const KeyMethod keyMethod = rule_.keys[source].method();
        if (keyMethod == KeyMethod::NotUsed || keyMethod == KeyMethod::FixedEnd ||
            keyMethod == KeyMethod::ListedEnd)
            tell(methodRow, index, L"names a field that never gives a text");
        else if (keyMethod != KeyMethod::Parsing)
            checkValueRows(index, column, source);
    }

    /// Behind the last code only the unit and its prefix may stand.
    void checkValueRows(std::size_t index, const GroupLibraryColumn& column, std::size_t source) {
        const std::size_t last = rule_.keys[source].lastRow();
        for (std::size_t row = firstCodeRow; row < column.size(); ++row)
            if (!column[row].empty() && cellOf(rule_.keyColumns[source], row).empty() &&
                row != last + 1 && row != last + 2)
                tell(row, index, say({L"\"", column[row], L"\" stands on the row of no code"}));
    }

    void tell(std::size_t row, std::size_t index, std::wstring text) {
        findings_.add(row < rows_.size() ? rows_[row].line : line_, tableColumnNames()[index],
                      say({L"rule ", std::to_wstring(rule_.id), L": ", text}));
    }

    const GroupLibraryRule& rule_;
    std::size_t line_;
    const std::vector<RuleRow>& rows_;
    Findings& findings_;
    std::set<std::int32_t> places_;
};

bool hasValue(const FilledPart& part) {
    return std::any_of(part.cells.begin(), part.cells.end(),
                       [](const std::wstring& value) { return !value.empty(); });
}

/// Whether the example of a rule is known by it, and what else knows it.
class ExampleCheck {
public:
    ExampleCheck(const GroupLibrary& library, FillEngine& engine, Findings& findings)
        : library_(library), engine_(engine), findings_(findings) {}

    void run(const GroupLibraryRule& rule, std::size_t line) {
        const GroupLibraryTable& table = library_.table();
        const std::vector<std::size_t> known = library_.candidates(rule.example);
        const auto isOwn = [&](std::size_t index) { return table[index].id == rule.id; };
        const auto tell = [&](std::wstring text) {
            findings_.add(line, L"Example", say({L"rule ", std::to_wstring(rule.id), L": ", text}));
        };
        if (rule.example.empty() || std::none_of(known.begin(), known.end(), isOwn)) {
            tell(rule.byColumns() ? L"is not what the key columns make up"
                                  : L"does not match its own expression");
            return;
        }
        const std::wstring own = describeBy(rule, rule.example, L'.');
        if (own.empty() || !rule.indexFault.empty()) {
            tell(L"yields no description");
            return;
        }
        if (own.find(undefinedNumber) != std::wstring::npos)
            tell(say({L"holds a number that cannot be read: \"", own, L"\""}));
        for (const std::size_t index : known) {
            const std::wstring other = describeBy(table[index], rule.example, L'.');
            if (table[index].indexFault.empty() && !other.empty() && other != own)
                tell(say({L"rule ", std::to_wstring(table[index].id), L" decodes it as \"", other,
                          L"\", not as \"", own, L"\""}));
        }
        // A description earns its place when it settles the type, or gives a value in either
        // library.
        const FilledPart sdta = engine_.fillByWords<SdtaComponent>({}, own);
        if (sdta.found.group == 0)
            tell(say({L"no group is found for \"", own, L"\""}));
        else if (sdta.found.type == 0 && !hasValue(sdta) &&
                 !hasValue(engine_.fillByWords<AsrComponent>({}, own)))
            tell(say({L"neither type nor value comes from \"", own, L"\""}));
    }

private:
    const GroupLibrary& library_;
    FillEngine& engine_;
    Findings& findings_;
};

} // namespace

void checkGroupLibrary(const CPartwrightPlugInApp& app, FillEngine& engine,
                       std::vector<TableFinding>& all) {
    static constexpr std::wstring_view families[] = {L"Family_ID", L"Family"};
    static constexpr std::wstring_view makers[] = {L"Manufacturer_ID", L"ShortName"};
    static constexpr std::wstring_view rules[] = {L"Rules_ID",        L"Example", L"Family_ID",
                                                  L"Manufacturer_ID", L"RegExp",  L"Completed"};
    std::vector<std::wstring_view> tables = {L"Rule_ID", L"SubRul_ID"};
    tables.insert(tables.end(), tableColumnNames().begin(), tableColumnNames().end());
    Findings findings(all, app.paths.groupLibraryPath);
    const TextFile file = readTextFile(app.paths.groupLibraryPath);
    if (file.status != FileStatus::Ok) {
        findings.add(0, {}, L"the file is missing or cannot be opened");
        return;
    }
    const Sections sections = readSections(file.bytes, file.form.codePage);
    const auto familyIds =
        numbersOf(rowsOf(sections.families, families, findings), L"Family_ID", findings);
    const auto makerIds =
        numbersOf(rowsOf(sections.makers, makers, findings), L"Manufacturer_ID", findings);
    const std::vector<RuleRow> list = rowsOf(sections.rules, rules, findings);
    const auto ruleIds = numbersOf(list, L"Rules_ID", findings);
    TablesById rows = tablesOf(rowsOf(sections.tables, tables, findings), ruleIds, findings);

    const GroupLibrary library(parseGroupLibrary(file.bytes, file.form.codePage), L'.');
    ExampleCheck examples(library, engine, findings);
    std::map<std::int32_t, const GroupLibraryRule*> byId;
    for (const GroupLibraryRule& rule : library.table())
        byId[rule.id] = &rule;
    for (const RuleRow& line : list) {
        if (!familyIds.contains(line.number(L"Family_ID").value_or(0)))
            findings.add(line.line, L"Family_ID", L"no such family");
        if (!makerIds.contains(line.number(L"Manufacturer_ID").value_or(0)))
            findings.add(line.line, L"Manufacturer_ID", L"no such manufacturer");
        if (line.text(L"RegExp") != byColumns)
            checkExpression(line.text(L"RegExp"), false, line.line, L"RegExp", findings);
        const auto rule = byId.find(line.number(L"Rules_ID").value_or(0));
        if (rule == byId.end())
            continue; // not completed
        RuleCheck(*rule->second, line.line, rows[rule->first], findings).run();
        examples.run(*rule->second, line.line);
    }
}

} // namespace partwright
