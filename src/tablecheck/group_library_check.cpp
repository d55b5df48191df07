#include "tablecheck/group_library_check.h"

#include "core/number.h"
#include "core/regular_expression_inspection.h"
#include "core/regular_expression_set.h"
#include "core/text.h"
#include "tablecheck/expression_check.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace partwright {

namespace {

/// More codes than this at one field are taken for an open set.
constexpr std::size_t maximumCodes = 200000;
/// Rows of a rule's table, from 0.
constexpr std::size_t positionRow = 0;
constexpr std::size_t methodRow = 2;
constexpr std::size_t firstCodeRow = 3;
constexpr std::size_t lettersRow = 4;
constexpr std::size_t scalesRow = 5;
constexpr std::size_t tableColumns = 28;

constexpr std::wstring_view parsingMethod = L"Parsing Func_";
/// What the engine writes for a code that is no number.
constexpr std::wstring_view undefinedNumber = L"NoDef";

constexpr std::wstring_view sectionNames[] = {L"Family Section", L"Manufacturer Section",
                                              L"Rules List Section", L"Description Rules Section"};
constexpr std::wstring_view sectionEnd = L"End of Section";

struct Line {
    std::size_t number = 0;
    RowValues values;
};

/// The rows of one section with the columns that the check wants.
struct Section {
    bool found = false;
    std::vector<Line> rows;
};

Section readSection(std::string_view bytes, CodePage codePage, std::wstring_view name,
                    std::span<const std::wstring_view> columns) {
    Section section;
    HeaderColumns header;
    LineReader reader(bytes);
    std::size_t number = 0;
    for (std::string_view line; reader.next(line);) {
        ++number;
        const std::wstring text = decode(line, codePage);
        if (!section.found) {
            section.found = text.find(name) != std::wstring::npos;
        } else if (text.find(sectionEnd) != std::wstring::npos) {
            break;
        } else if (header.empty()) {
            header = SplitHeader(text, L",");
        } else if (!trim(text).empty() && text.front() != L'#') {
            section.rows.push_back({number, SplitRow(text, L",", columns, header)});
        }
    }
    return section;
}

std::wstring cell(const Line& line, std::wstring_view column) {
    const auto found = line.values.find(column);
    return found == line.values.end() ? std::wstring() : found->second;
}

/// The numbers of a section; each must be a number and stand once.
std::set<std::int32_t> numbersOf(const Section& section, std::wstring_view column,
                                 Findings& findings) {
    std::set<std::int32_t> numbers;
    for (const Line& line : section.rows) {
        const std::wstring text = cell(line, column);
        const IntegerPrefix number = readInteger(text);
        if (number.consumed == 0 || number.consumed != text.size())
            findings.add(line.number, column, say({L"\"", text, L"\" is no number"}));
        else if (!numbers.insert(number.value).second)
            findings.add(line.number, column, L"the number stands twice");
    }
    return numbers;
}

/// The rows of each rule's table, in file order.
using TablesById = std::map<std::int32_t, std::vector<Line>>;

TablesById tablesOf(const Section& section, const std::set<std::int32_t>& ruleIds,
                    Findings& findings) {
    TablesById tables;
    std::optional<std::int32_t> current;
    for (const Line& line : section.rows) {
        const std::int32_t id = toInteger(cell(line, L"Rule_ID"));
        if (!ruleIds.contains(id)) {
            findings.add(line.number, L"Rule_ID", L"no such rule; the row is dropped");
            continue;
        }
        std::vector<Line>& rows = tables[id];
        if (id != current && !rows.empty())
            findings.add(line.number, L"Rule_ID",
                         L"the rows of the rule stand apart; those above are lost");
        else if (toInteger(cell(line, L"SubRul_ID")) != static_cast<std::int64_t>(rows.size()) + 1)
            findings.add(line.number, L"SubRul_ID",
                         say({L"row ", std::to_wstring(rows.size() + 1), L" belongs here"}));
        current = id;
        rows.push_back(line);
    }
    return tables;
}

std::wstring_view at(const GroupLibraryColumn& column, std::size_t row) {
    return row < column.size() ? std::wstring_view(column[row]) : std::wstring_view();
}

/// Codes that the engine takes by a method: the first one alone for a fixed field.
std::vector<std::wstring> codesOf(const GroupLibraryColumn& column, bool fixed) {
    std::vector<std::wstring> codes;
    for (std::size_t row = firstCodeRow; row < column.size(); ++row)
        if (!column[row].empty() && (row == firstCodeRow || !fixed))
            codes.push_back(column[row]);
    return codes;
}

enum class KeyMethod { Unknown, NotUsed, Fixed, Listed, Optional, FixedEnd, ListedEnd, Parsing };

KeyMethod methodOf(std::wstring_view name) {
    static constexpr std::pair<std::wstring_view, KeyMethod> methods[] = {
        {L"NU", KeyMethod::NotUsed},
        {L"FIX", KeyMethod::Fixed},
        {L"List", KeyMethod::Listed},
        {L"Optional (List)", KeyMethod::Optional},
        {L"Terminator (Fix)", KeyMethod::FixedEnd},
        {L"Terminator (List)", KeyMethod::ListedEnd}};
    for (const auto& [text, method] : methods)
        if (text == name)
            return method;
    const bool parsing = name.starts_with(parsingMethod) &&
                         name.size() == parsingMethod.size() + 1 && name.back() >= L'1' &&
                         name.back() <= L'5';
    return parsing ? KeyMethod::Parsing : KeyMethod::Unknown;
}

/// The letters or scales of a coded number.
std::vector<std::wstring> piecesOf(std::wstring_view cell) {
    std::vector<std::wstring> pieces;
    for (const std::wstring_view piece : split(cell, L'|'))
        pieces.emplace_back(piece);
    return pieces;
}

/// Does the engine read a number from a code? Digits with one of the letters at most, and a gap.
bool parses(std::wstring_view code, const GroupLibraryColumn& column) {
    constexpr std::wstring_view gaps = L" _-";
    const std::vector<std::wstring> letters = piecesOf(at(column, lettersRow));
    std::size_t digits = 0;
    std::size_t seen = 0;
    wchar_t gap = L'\0';
    for (const wchar_t c : code) {
        if (isDigit(c))
            ++digits;
        else if ((gap == L'\0' || gap == c) && gaps.find(c) != std::wstring_view::npos)
            gap = c;
        else if (std::find(letters.begin(), letters.end(), std::wstring(1, c)) == letters.end() ||
                 ++seen > 1)
            return false;
    }
    // Without a letter the last digit is a power of ten, and something must stand before it.
    const bool plain = at(column, methodRow).back() == L'4';
    return digits > 1 || (digits == 1 && (seen == 1 || plain || code == L"0"));
}

/// One rule: its key columns against its expression, its value columns against its key columns.
class RuleCheck {
public:
    RuleCheck(const GroupLibraryRule& rule, std::size_t line, const std::vector<Line>& rows,
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
        for (std::size_t i = 0; i < rule_.positions.size(); ++i) {
            for (const std::int32_t position : rule_.positions[i])
                if (position != expected++) {
                    tell(positionRow, i,
                         say({L"position ", std::to_wstring(expected - 1), L" belongs here"}));
                    return false;
                }
            if (rule_.positions[i].empty())
                tell(positionRow, i, L"names no position");
        }
        const AdmittedCodes behind = admittedCodes(rule_.regExp, {expected}, maximumCodes);
        if (!behind.known || behind.codes != std::set<std::wstring>{L""})
            findings_.add(line_, L"RegExp",
                          say({L"lets through characters behind position ",
                               std::to_wstring(expected - 1), L", which no field looks at"}));
        return true;
    }

    void checkKey(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const KeyMethod method = methodOf(at(column, methodRow));
        if (method == KeyMethod::NotUsed)
            return;
        if (method == KeyMethod::Unknown) {
            tell(methodRow, index, say({L"\"", at(column, methodRow), L"\" is no method"}));
            return;
        }
        if (method == KeyMethod::Parsing)
            checkScales(index);
        else
            checkCodes(index);
        const AdmittedCodes admitted =
            admittedCodes(rule_.regExp, rule_.positions[index], maximumCodes);
        if (!admitted.known) {
            tell(positionRow, index,
                 L"cannot be proved: the expression lets through too many codes");
            return;
        }
        const bool fixed = method == KeyMethod::Fixed || method == KeyMethod::FixedEnd;
        const std::vector<std::wstring> codes = codesOf(column, fixed);
        const std::set<std::wstring> known(codes.begin(), codes.end());
        const auto refused =
            std::find_if(admitted.codes.begin(), admitted.codes.end(), [&](const auto& code) {
                if (method == KeyMethod::Parsing)
                    return !parses(code, column);
                return !known.contains(code) && !(method == KeyMethod::Optional && code.empty());
            });
        if (refused != admitted.codes.end())
            tell(firstCodeRow, index,
                 say({L"the expression lets through \"", *refused,
                      method == KeyMethod::Parsing ? L"\", which is no coded number"
                                                   : L"\", which the list lacks"}));
    }

    void checkCodes(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        std::set<std::wstring> seen;
        for (std::size_t row = firstCodeRow; row < column.size(); ++row)
            if (!column[row].empty() && !seen.insert(column[row]).second)
                tell(row, index, say({L"\"", column[row], L"\" stands in the list already"}));
    }

    void checkScales(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        if (!wholeNumber(at(column, firstCodeRow), L'.'))
            tell(firstCodeRow, index, L"the number of decimals is missing");
        const std::vector<std::wstring> letters = piecesOf(at(column, lettersRow));
        const std::vector<std::wstring> scales = piecesOf(at(column, scalesRow));
        for (const std::wstring& letter : letters)
            if (letter.size() > 1)
                tell(lettersRow, index, say({L"\"", letter, L"\" is no single letter"}));
        const wchar_t function = at(column, methodRow).back();
        if (at(column, lettersRow).empty() || (function != L'3' && function != L'4'))
            return;
        const bool good =
            scales.size() == letters.size() &&
            std::all_of(scales.begin(), scales.end(), [&](const auto& scale) {
                return function == L'3' ? !scale.empty() : wholeNumber(scale, L'.').has_value();
            });
        if (!good)
            tell(scalesRow, index, L"each letter needs its prefix or factor");
    }

    void checkValue(std::size_t index) {
        GroupLibraryColumn column;
        for (const Line& row : rows_)
            column.push_back(cell(row, columnName(index)));
        if (std::all_of(column.begin(), column.end(),
                        [](const auto& text) { return text.empty(); }))
            return;
        if (!places_.insert(toInteger(column.front())).second || toInteger(column.front()) < 1)
            tell(positionRow, index, L"the place in the description is missing or stands twice");
        const std::wstring_view method = at(column, methodRow);
        if (method == L"Description")
            return;
        const std::int32_t key = method.starts_with(L"Par") ? toInteger(method.substr(3)) : 0;
        if (key < 1 || static_cast<std::size_t>(key) > rule_.keyColumns.size()) {
            tell(methodRow, index, say({L"\"", method, L"\" names no key column"}));
            return;
        }
        const GroupLibraryColumn& source = rule_.keyColumns[static_cast<std::size_t>(key) - 1];
        const KeyMethod keyMethod = methodOf(at(source, methodRow));
        if (keyMethod == KeyMethod::NotUsed || keyMethod == KeyMethod::FixedEnd ||
            keyMethod == KeyMethod::ListedEnd)
            tell(methodRow, index, L"names a field that never gives a text");
        else if (keyMethod != KeyMethod::Parsing)
            checkValueRows(index, column, source);
    }

    /// Behind the last code only the unit and its prefix may stand.
    void checkValueRows(std::size_t index, const GroupLibraryColumn& column,
                        const GroupLibraryColumn& source) {
        std::size_t last = firstCodeRow;
        for (std::size_t row = firstCodeRow; row < source.size(); ++row)
            if (!source[row].empty())
                last = row;
        for (std::size_t row = firstCodeRow; row < column.size(); ++row)
            if (!column[row].empty() && at(source, row).empty() && row != last + 1 &&
                row != last + 2)
                tell(row, index, say({L"\"", column[row], L"\" stands on the row of no code"}));
    }

    static std::wstring columnName(std::size_t index) {
        return L"LPar" + std::to_wstring(index + 1);
    }

    void tell(std::size_t row, std::size_t index, std::wstring text) {
        findings_.add(row < rows_.size() ? rows_[row].number : line_, columnName(index),
                      say({L"rule ", std::to_wstring(rule_.id), L": ", text}));
    }

    const GroupLibraryRule& rule_;
    std::size_t line_;
    const std::vector<Line>& rows_;
    Findings& findings_;
    std::set<std::int32_t> places_;
};

bool hasValue(const FilledPart& part) {
    return std::any_of(part.cells.begin(), part.cells.end(),
                       [](const std::wstring& value) { return !value.empty(); });
}

/// The rules of the library with all of their expressions, for asking who else knows an example.
class ExampleCheck {
public:
    ExampleCheck(const GroupLibraryTable& table, FillEngine& engine, Findings& findings)
        : table_(table), engine_(engine), findings_(findings) {
        std::vector<std::wstring> expressions;
        for (const GroupLibraryRule& rule : table)
            expressions.push_back(rule.regExp);
        expressions_ = RegularExpressionSet(expressions);
    }

    void run(const GroupLibraryRule& rule, std::size_t line) {
        const std::vector<std::size_t> known = expressions_.matches(rule.example);
        const auto isOwn = [&](std::size_t index) { return table_[index].id == rule.id; };
        const auto tell = [&](std::wstring text) {
            findings_.add(line, L"Example", say({L"rule ", std::to_wstring(rule.id), L": ", text}));
        };
        if (rule.example.empty() || std::none_of(known.begin(), known.end(), isOwn)) {
            tell(L"does not match its own expression");
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
            const std::wstring other = describeBy(table_[index], rule.example, L'.');
            if (table_[index].indexFault.empty() && !other.empty() && other != own)
                tell(say({L"rule ", std::to_wstring(table_[index].id), L" decodes it as \"", other,
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
    const GroupLibraryTable& table_;
    FillEngine& engine_;
    Findings& findings_;
    RegularExpressionSet expressions_;
};

} // namespace

void checkGroupLibrary(const CPartwrightPlugInApp& app, FillEngine& engine,
                       std::vector<TableFinding>& all) {
    static constexpr std::wstring_view families[] = {L"Family_ID", L"Family"};
    static constexpr std::wstring_view makers[] = {L"Manufacturer_ID", L"ShortName"};
    static constexpr std::wstring_view rules[] = {L"Rules_ID",        L"Example", L"Family_ID",
                                                  L"Manufacturer_ID", L"RegExp",  L"Completed"};
    std::vector<std::wstring> tableNames = {L"Rule_ID", L"SubRul_ID"};
    for (std::size_t i = 1; i <= tableColumns; ++i)
        tableNames.push_back(L"LPar" + std::to_wstring(i));
    const std::vector<std::wstring_view> tables(tableNames.begin(), tableNames.end());
    Findings findings(all, app.paths.groupLibraryPath);
    const TextFile file = readTextFile(app.paths.groupLibraryPath);
    if (file.status != FileStatus::Ok) {
        findings.add(0, {}, L"the file is missing or cannot be opened");
        return;
    }
    const auto section = [&](std::size_t index, std::span<const std::wstring_view> columns) {
        Section result = readSection(file.bytes, file.form.codePage, sectionNames[index], columns);
        if (!result.found || result.rows.empty())
            findings.add(0, {}, say({L"no rows in \"", sectionNames[index], L"\""}));
        return result;
    };
    const auto familyIds = numbersOf(section(0, families), L"Family_ID", findings);
    const auto makerIds = numbersOf(section(1, makers), L"Manufacturer_ID", findings);
    const Section list = section(2, rules);
    const auto ruleIds = numbersOf(list, L"Rules_ID", findings);
    TablesById rows = tablesOf(section(3, tables), ruleIds, findings);

    const GroupLibraryTable table = parseGroupLibrary(file.bytes, file.form.codePage);
    ExampleCheck examples(table, engine, findings);
    std::map<std::int32_t, const GroupLibraryRule*> byId;
    for (const GroupLibraryRule& rule : table)
        byId[rule.id] = &rule;
    for (const Line& line : list.rows) {
        if (!familyIds.contains(toInteger(cell(line, L"Family_ID"))))
            findings.add(line.number, L"Family_ID", L"no such family");
        if (!makerIds.contains(toInteger(cell(line, L"Manufacturer_ID"))))
            findings.add(line.number, L"Manufacturer_ID", L"no such manufacturer");
        checkExpression(cell(line, L"RegExp"), false, line.number, L"RegExp", findings);
        const auto rule = byId.find(toInteger(cell(line, L"Rules_ID")));
        if (rule == byId.end())
            continue; // not completed
        RuleCheck(*rule->second, line.number, rows[rule->first], findings).run();
        examples.run(*rule->second, line.number);
    }
}

} // namespace partwright
