#include "autofill/type_keywords.h"

#include "core/library_kind.h"
#include "core/regular_expression.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view columns[] = {L"BiCod", L"ParamID", L"Rules", L"RulesExcluding"};
constexpr std::wstring_view switchedOff = L"*NU";
constexpr std::size_t maximumKeyword = 255;

} // namespace

std::vector<std::wstring> splitKeywords(std::wstring_view list) {
    const std::wstring upper = upperCase(list);
    std::vector<std::wstring> keywords;
    for (std::size_t at = 0; at < upper.size();) {
        const bool quoted = upper[at] == L'"';
        const std::size_t begin = quoted ? at + 1 : at;
        const std::size_t end = std::min(upper.find(quoted ? L'"' : L',', begin), upper.size());
        const auto keyword = trim(std::wstring_view(upper).substr(begin, end - begin));
        if (!keyword.empty())
            keywords.emplace_back(keyword.substr(0, maximumKeyword));
        // What stands between a closing quote and the next separator belongs to no keyword.
        const std::size_t separator = std::min(upper.find(L',', end), upper.size());
        at = separator + 1;
    }
    return keywords;
}

RuleTableForm typeKeywordForm() {
    return {.columns = columns};
}

TypeKeywords typeKeywordsOf(const RuleTable& table) {
    constexpr std::int32_t family = Kind<SdtaComponent>::method;
    TypeKeywords result;
    for (const RuleRow& row : table.rows) {
        const auto group = row.code(L"BiCod");
        const auto type = row.number(L"ParamID").value_or(0);
        const std::wstring rules = row.text(L"Rules");
        std::wstring excluding = row.text(L"RulesExcluding");
        if (!group || type < 1 || rules.empty() || excluding == switchedOff ||
            !ValidateRegularExpression(rules))
            continue;
        auto& keywords = result.TypeKeywordTable[family][*group][type];
        for (std::wstring& keyword : splitKeywords(rules)) {
            result.typeKeywordMaxLength = std::max(result.typeKeywordMaxLength, keyword.size());
            keywords.push_back(std::move(keyword));
        }
        if (!excluding.empty())
            result.TypeExclusionTable[family][*group].push_back({type, std::move(excluding)});
    }
    return result;
}

LoadResult LoadTypeKeywords(const ProjectPaths& paths, TypeKeywords& keywords) {
    const RuleTable table = readRuleTable(paths.descrRulesSdtaTypesPath, typeKeywordForm());
    keywords = typeKeywordsOf(table);
    return resultOf(table, paths.descrRulesSdtaTypesPath);
}

} // namespace partwright
