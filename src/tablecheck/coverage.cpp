#include "tablecheck/coverage.h"

#include "autofill/group_library.h"
#include "autofill/synonyms.h"
#include "autofill/type_keywords.h"
#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "tablecheck/finding.h"
#include "validation/validation_tables.h"

#include <map>
#include <set>
#include <tuple>

namespace partwright {

namespace {

/// A table row; a bar in a cell would end it.
std::wstring tableRow(const std::vector<std::wstring>& cells) {
    std::wstring row = L"|";
    for (const std::wstring& cell : cells)
        row += L" " + replaceAll(cell, L"|", L"\\|") + L" |";
    return row + L"\n";
}

std::wstring tableHead(const std::vector<std::wstring>& names) {
    return tableRow(names) + tableRow(std::vector<std::wstring>(names.size(), L"---"));
}

/// "a, b, c"; "-" for nothing.
template <class List>
std::wstring joined(const List& items) {
    std::wstring text;
    for (const std::wstring& item : items)
        text += (text.empty() ? L"" : L", ") + item;
    return text.empty() ? std::wstring(L"-") : text;
}

/// What serves one group.
struct GroupCounts {
    std::int32_t code = 0;
    std::wstring name;
    std::vector<std::wstring> types;
    std::size_t keywords = 0;
    std::size_t directKeys = 0;
    /// Parameters with a rule, added up over the types.
    std::size_t rules = 0;
    std::set<std::int32_t> references;
};

template <class Record>
std::set<std::int32_t> referencesOf(const CPartwrightPlugInApp& app, std::int32_t group,
                                    const std::wstring& name) {
    std::set<std::int32_t> references;
    const std::size_t columns = Kind<Record>::columns(group).size();
    for (const auto& [pair, row] : app.of<Record>().properties)
        for (std::size_t n = 1; row.group == name && n <= columns; ++n)
            if (row.valid[n] >= 0 && row.names[n] != cell::labelNotApplicable)
                references.insert(row.valid[n]);
    return references;
}

std::size_t keywordsOf(const TypeKeywords& keywords, std::int32_t method, std::int32_t group) {
    std::size_t count = 0;
    const auto groups = keywords.TypeKeywordTable.find(method);
    if (groups == keywords.TypeKeywordTable.end())
        return 0;
    if (const auto types = groups->second.find(group); types != groups->second.end())
        for (const auto& [type, words] : types->second)
            count += words.size();
    return count;
}

std::size_t rulesOf(const ParamRuleTable& table, std::int32_t method, std::int32_t group) {
    std::size_t count = 0;
    for (const auto& [key, row] : table.rows())
        if (key.family == method && key.group == group)
            for (const auto& rule : row.rules)
                count += rule != nullptr ? 1 : 0;
    return count;
}

template <class Record>
std::vector<GroupCounts> groupsOf(const CPartwrightPlugInApp& app, const FillTables& tables,
                                  const TypeKeywords& keywords) {
    constexpr std::int32_t method = Kind<Record>::method;
    std::vector<GroupCounts> groups;
    for (std::int32_t code = 1; code <= Kind<Record>::lastGroup; ++code) {
        const std::wstring name(app.of<Record>().GroupAndTypeNames(code, 0).first);
        if (name == notDefinedName || name == notApplicableGroup)
            continue;
        GroupCounts counts{code, name, {}, 0, 0, 0, {}};
        const auto types = app.of<Record>().typesOf(code);
        for (std::size_t i = 1; i < types.size(); ++i)
            counts.types.push_back(L"`" + types[i].name + L"`");
        counts.keywords = keywordsOf(keywords, method, code);
        if (const auto keys = app.classifier.DirectKeyTable.find(method);
            keys != app.classifier.DirectKeyTable.end())
            for (const DirectKey& key : keys->second)
                counts.directKeys += key.group == code ? 1 : 0;
        counts.rules = rulesOf(tables.rules, method, code);
        counts.references = referencesOf<Record>(app, code, name);
        groups.push_back(std::move(counts));
    }
    return groups;
}

std::wstring groupTable(const std::vector<GroupCounts>& groups, bool withKeywords) {
    std::vector<std::wstring> head = {L"Group", L"Name", L"Types"};
    if (withKeywords)
        head.emplace_back(L"Keywords");
    head.insert(head.end(), {L"Direct keys", L"Parameter rules", L"Validation codes"});
    std::wstring text = tableHead(head);
    for (const GroupCounts& group : groups) {
        std::vector<std::wstring> codes;
        for (const std::int32_t reference : group.references)
            codes.push_back(number(reference));
        std::vector<std::wstring> cells = {number(group.code), group.name, joined(group.types)};
        if (withKeywords)
            cells.push_back(number(group.keywords));
        cells.insert(cells.end(), {number(group.directKeys), number(group.rules), joined(codes)});
        text += tableRow(cells);
    }
    return text;
}

/// The rules of one series, and the part number that its first rule shows.
struct Series {
    std::size_t rules = 0;
    std::wstring example;
};
using SeriesByMaker = std::map<std::pair<std::wstring, std::wstring>, Series>;

std::map<std::wstring, SeriesByMaker> seriesOf(const GroupLibraryTable& table) {
    std::map<std::wstring, SeriesByMaker> families;
    for (const GroupLibraryRule& rule : table) {
        Series& series = families[rule.familyName][{rule.manufacturer, rule.description}];
        if (series.rules++ == 0)
            series.example = rule.example;
    }
    return families;
}

std::wstring seriesTables(const std::map<std::wstring, SeriesByMaker>& families) {
    std::wstring text = tableHead({L"Family", L"Makers", L"Series", L"Rules"});
    for (const auto& [family, series] : families) {
        std::set<std::wstring> makers;
        std::size_t rules = 0;
        for (const auto& [key, one] : series) {
            makers.insert(key.first);
            rules += one.rules;
        }
        makers.erase(std::wstring());
        text += tableRow({family, joined(makers), number(series.size()), number(rules)});
    }
    text += L"\nA series without a maker is built under one number by several.\n\n";
    text += tableHead({L"Family", L"Maker", L"Series", L"Rules", L"Example"});
    for (const auto& [family, series] : families)
        for (const auto& [key, one] : series)
            text += tableRow({family, key.first.empty() ? L"-" : key.first, key.second,
                              number(one.rules), L"`" + one.example + L"`"});
    return text;
}

GroupLibraryTable readGroupLibrary(const CPartwrightPlugInApp& app) {
    const TextFile file = readTextFile(app.paths.groupLibraryPath);
    return file.status == FileStatus::Ok ? parseGroupLibrary(file.bytes, file.form.codePage)
                                         : GroupLibraryTable();
}

/// Sums over the groups of one library.
std::vector<std::wstring> sumRow(std::wstring_view name, const std::vector<GroupCounts>& groups) {
    GroupCounts sum;
    std::size_t types = 0;
    for (const GroupCounts& group : groups) {
        types += group.types.size();
        sum.keywords += group.keywords;
        sum.directKeys += group.directKeys;
        sum.rules += group.rules;
    }
    return {std::wstring(name),   number(groups.size()),  number(types),
            number(sum.keywords), number(sum.directKeys), number(sum.rules)};
}

} // namespace

std::wstring coverageText(const CPartwrightPlugInApp& app, const FillTables& tables) {
    TypeKeywords keywords;
    SynonymTable synonyms;
    ValidationTables validation;
    // A table that cannot be read counts as empty here; the table check tells of it.
    static_cast<void>(LoadTypeKeywords(app.paths, keywords));
    static_cast<void>(LoadSynonyms(app.paths, synonyms));
    static_cast<void>(LoadValidationRules(app.paths.sdtaValidationRulesPath, validation.rules));
    static_cast<void>(
        LoadThermalValidationRules(app.paths.sdtaThermalValidationPath, validation.thermal));
    const GroupLibraryTable library = readGroupLibrary(app);

    const auto stress = groupsOf<SdtaComponent>(app, tables, keywords);
    const auto analyses = groupsOf<AsrComponent>(app, tables, keywords);
    const auto families = seriesOf(library);
    std::size_t series = 0;
    for (const auto& [family, list] : families)
        series += list.size();
    std::size_t words = 0;
    for (const auto& [key, list] : tables.units.lists())
        words += list.names.size();
    std::size_t thermal = 0;
    for (const auto& [group, rules] : validation.thermal)
        thermal += rules.size();

    std::wstring text = L"# What the tables cover\n\nMade by `partwright-cli tables --coverage`; a "
                        L"change of the tables changes this page.\n\n";
    text += tableHead(
        {L"Library", L"Groups", L"Types", L"Keywords", L"Direct keys", L"Parameter rules"});
    text += tableRow(sumRow(Kind<SdtaComponent>::name, stress));
    text += tableRow(sumRow(Kind<AsrComponent>::name, analyses));
    text += L"\n" + tableHead({L"Table", L"Entries"});
    text += tableRow({L"Unit table", say({number(words), L" words under ",
                                          number(tables.units.lists().size()), L" keys"})});
    text += tableRow({L"Validation rules", number(validation.rules.size())});
    text += tableRow({L"Combination rules", number(thermal)});
    text += tableRow({L"Synonyms", number(synonyms.size())});
    text += tableRow({L"Part-number prefixes", number(synonyms.prefixes().size())});
    text +=
        tableRow({L"Group library", say({number(library.size()), L" rules for ", number(series),
                                         L" series in ", number(families.size()), L" families"})});
    text += L"\n## SDTA groups\n\n" + groupTable(stress, true);
    text += L"\n## Analyses groups\n\n" + groupTable(analyses, false);
    text += L"\n## Series of the group library\n\n" + seriesTables(families);
    return text;
}

} // namespace partwright
