#include "tablecheck/group_library_check.h"

#include "core/regular_expression.h"
#include "core/regular_expression_inspection.h"
#include "core/text.h"
#include "tablecheck/expression_check.h"

#include <algorithm>
#include <map>
#include <set>

namespace partwright {

namespace {

/// More codes than this at one field are taken for an open set.
constexpr std::size_t maximumCodes = 200000;
/// Rows of a rule's table, from 0.
constexpr std::size_t methodRow = 2;
constexpr std::size_t firstCodeRow = 3;
constexpr std::size_t lettersRow = 4;

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

std::set<std::int32_t> numbersOf(const Section& section, std::wstring_view column,
                                 Findings& findings) {
    std::set<std::int32_t> numbers;
    for (const Line& line : section.rows)
        if (!numbers.insert(toInteger(cell(line, column))).second)
            findings.add(line.number, column, L"the number stands twice");
    return numbers;
}

std::vector<std::wstring> codesOf(const GroupLibraryColumn& column) {
    std::vector<std::wstring> codes;
    for (std::size_t row = firstCodeRow; row < column.size(); ++row)
        if (!column[row].empty())
            codes.push_back(column[row]);
    return codes;
}

std::wstring_view at(const GroupLibraryColumn& column, std::size_t row) {
    return row < column.size() ? std::wstring_view(column[row]) : std::wstring_view();
}

/// Can the engine read a code by a parsing method: digits with one of the letters at most?
bool parses(std::wstring_view code, std::wstring_view letters) {
    std::size_t seen = 0;
    for (const wchar_t c : code) {
        if (isDigit(c))
            continue;
        if (letters.find(c) == std::wstring_view::npos || c == L'|' || ++seen > 1)
            return false;
    }
    return code.size() > seen;
}

class RuleCheck {
public:
    RuleCheck(const GroupLibraryRule& rule, std::size_t line, Findings& findings)
        : rule_(rule), line_(line), findings_(findings) {}

    void run() {
        if (rule_.keyColumns.empty() || rule_.valueColumns.empty()) {
            findings_.add(line_, L"Rules_ID", L"the rule has no table");
            return;
        }
        if (!rule_.indexFault.empty())
            findings_.add(line_, L"KEY_PN", rule_.indexFault);
        for (std::size_t i = 0; i < rule_.keyColumns.size(); ++i)
            checkKey(i);
        for (const GroupLibraryColumn& column : rule_.valueColumns)
            checkValue(column);
    }

private:
    void checkKey(std::size_t index) {
        const GroupLibraryColumn& column = rule_.keyColumns[index];
        const std::wstring_view method = at(column, methodRow);
        if (method == L"NU")
            return;
        const bool parsing = method.starts_with(L"Parsing Func_") && method.size() == 14 &&
                             method.back() >= L'1' && method.back() <= L'5';
        const bool listed = method == L"FIX" || method == L"List" || method == L"Optional (List)" ||
                            method == L"Terminator (Fix)" || method == L"Terminator (List)";
        if (!parsing && !listed) {
            tell(column, say({L"\"", method, L"\" is no method"}));
            return;
        }
        const AdmittedCodes admitted =
            index < rule_.positions.size()
                ? admittedCodes(rule_.regExp, rule_.positions[index], maximumCodes)
                : AdmittedCodes{};
        if (!admitted.known) {
            tell(column, L"cannot be proved: the expression lets through too many codes");
            return;
        }
        const std::vector<std::wstring> codes = codesOf(column);
        const bool optional = method == L"Optional (List)";
        for (const std::wstring& code : admitted.codes) {
            const bool good = parsing
                                  ? parses(code, at(column, lettersRow))
                                  : (optional && code.empty()) ||
                                        std::find(codes.begin(), codes.end(), code) != codes.end();
            if (!good) {
                tell(column, say({L"the expression lets through \"", code,
                                  parsing ? L"\", which is no coded number"
                                          : L"\", which the list lacks"}));
                return;
            }
        }
    }

    void checkValue(const GroupLibraryColumn& column) {
        const std::wstring_view method = at(column, methodRow);
        if (method == L"Description")
            return;
        const std::int32_t key = method.starts_with(L"Par") ? toInteger(method.substr(3)) : 0;
        if (key < 1 || static_cast<std::size_t>(key) > rule_.keyColumns.size())
            tell(column, say({L"\"", method, L"\" names no key column"}));
    }

    void tell(const GroupLibraryColumn& column, std::wstring text) {
        findings_.add(line_, at(column, 1),
                      say({L"rule ", std::to_wstring(rule_.id), L": ", text}));
    }

    const GroupLibraryRule& rule_;
    std::size_t line_;
    Findings& findings_;
};

bool hasValue(const FilledPart& part) {
    return std::any_of(part.cells.begin(), part.cells.end(),
                       [](const std::wstring& value) { return !value.empty(); });
}

void checkExample(const GroupLibraryRule& rule, std::size_t line, const GroupLibraryTable& table,
                  FillEngine& engine, Findings& findings) {
    const std::wstring id = std::to_wstring(rule.id);
    if (rule.example.empty() || !RegularExpression(rule.regExp).fullMatch(rule.example)) {
        findings.add(line, L"Example", say({L"rule ", id, L": does not match its own expression"}));
        return;
    }
    const PartDescription part = engine.describe(rule.example);
    if (part.description.empty()) {
        findings.add(line, L"Example", say({L"rule ", id, L": yields no description"}));
        return;
    }
    if (part.rule != rule.id) {
        const auto own = std::find_if(table.begin(), table.end(),
                                      [&](const auto& other) { return other.id == rule.id; });
        if (describeBy(*own, rule.example, L'.') != part.description)
            findings.add(line, L"Example",
                         say({L"rule ", id, L": is decoded otherwise by rule ",
                              std::to_wstring(part.rule)}));
    }
    // A description earns its place when it settles the type, or gives a value in either library.
    const FilledPart sdta = engine.fillByWords<SdtaComponent>({}, part.description);
    const FilledPart analyses = engine.fillByWords<AsrComponent>({}, part.description);
    if (sdta.found.group == 0)
        findings.add(line, L"Example",
                     say({L"rule ", id, L": no group is found for \"", part.description, L"\""}));
    else if (sdta.found.type == 0 && !hasValue(sdta) && !hasValue(analyses))
        findings.add(line, L"Example",
                     say({L"rule ", id, L": neither type nor value comes from \"", part.description,
                          L"\""}));
}

} // namespace

void checkGroupLibrary(const CPartwrightPlugInApp& app, FillEngine& engine,
                       std::vector<TableFinding>& all) {
    static constexpr std::wstring_view families[] = {L"Family_ID", L"Family"};
    static constexpr std::wstring_view makers[] = {L"Manufacturer_ID", L"ShortName"};
    static constexpr std::wstring_view rules[] = {L"Rules_ID",        L"Example", L"Family_ID",
                                                  L"Manufacturer_ID", L"RegExp",  L"Completed"};
    static constexpr std::wstring_view tables[] = {L"Rule_ID"};
    Findings findings(all, app.groupLibraryPath);
    const TextFile file = readTextFile(app.groupLibraryPath);
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
    for (const Line& line : section(3, tables).rows)
        if (!ruleIds.contains(toInteger(cell(line, L"Rule_ID"))))
            findings.add(line.number, L"Rule_ID", L"no such rule; the row is dropped");

    const GroupLibraryTable table = parseGroupLibrary(file.bytes, file.form.codePage);
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
        RuleCheck(*rule->second, line.number, findings).run();
        checkExample(*rule->second, line.number, table, engine, findings);
    }
}

} // namespace partwright
