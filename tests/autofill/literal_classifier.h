#pragma once

// Group and type detection word for word: every expression tried in turn, every keyword searched in
// its eight patterns for every length. Slow, and the measure of what the prepared form answers.

#include "autofill/rule_language.h"
#include "autofill/type_keywords.h"
#include "autofill/value_normaliser.h"
#include "core/application.h"
#include "core/regular_expression.h"
#include "core/text.h"

#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

namespace partwright::test {

class LiteralClassifier {
public:
    LiteralClassifier(const CPartwrightPlugInApp& app, const TypeKeywords& keywords,
                      const UnitTable& units)
        : app_(app), keywords_(keywords), units_(units) {}

    std::int32_t DetectGroup(const std::wstring& refDesList, const std::wstring& description,
                             bool byName) {
        const std::wstring upper = upperCase(description);
        for (const auto& [code, rule] : app_.classifier.GroupRuleTable) {
            if (!matches(rule.rules, upper))
                continue;
            if (!rule.excluding.empty() && matches(rule.excluding, upper))
                continue;
            const auto name = app_.classifier.groupNamesByCode.find(code);
            if (byName && name != app_.classifier.groupNamesByCode.end() &&
                name->second == trim(split(refDesList, L',').front()))
                return code;
            if (prefixMatches(refDesList, code))
                return code;
        }
        if (!byName)
            for (const auto& [code, prefixes] : app_.classifier.GroupRefDesTable)
                if (prefixMatches(refDesList, code))
                    return code;
        return 0;
    }

    void DetectType(std::int32_t family, std::int32_t& group, const std::wstring& description,
                    std::int32_t& type) {
        type = 0;
        if (description.empty() || description == L"-")
            return;
        const std::wstring text = upperCase(description);
        if (directKey(family, text, group, type))
            return;
        for (std::size_t length = keywords_.typeKeywordMaxLength; length >= 1 && type == 0;
             --length)
            type = typeOfLength(family, group, text, length);
        if (type != 0)
            return;
        for (const TypeExclusion& entry : exclusions(family, group))
            if (entry.text.find(L"*D") != std::wstring::npos) {
                type = entry.type;
                return;
            }
    }

private:
    bool matches(const std::wstring& expression, const std::wstring& text) {
        auto& cached = cache_[expression];
        if (!cached) {
            cached.emplace();
            try {
                const std::wregex asWritten(expression);
                cached->assign(upperCase(expression));
            } catch (const std::regex_error&) {
                cached->assign(L"[]"); // matches nothing
            }
        }
        return std::regex_match(text, *cached);
    }

    bool prefixMatches(const std::wstring& refDesList, std::int32_t code) const {
        const auto typical = app_.classifier.GroupRefDesTable.find(code);
        if (typical == app_.classifier.GroupRefDesTable.end())
            return false;
        for (const auto designator : split(refDesList, L',')) {
            const auto digit = designator.find_first_of(L"0123456789");
            if (digit == std::wstring_view::npos)
                continue;
            const std::wstring prefix = upperCase(trim(designator.substr(0, digit)));
            for (const auto piece : split(typical->second, L','))
                if (!prefix.empty() && upperCase(trim(piece)) == prefix)
                    return true;
        }
        return false;
    }

    static bool separator(wchar_t c) { return c == L',' || c == L' '; }

    bool directKey(std::int32_t family, const std::wstring& text, std::int32_t& group,
                   std::int32_t& type) const {
        const auto rows = app_.classifier.DirectKeyTable.find(family);
        if (rows == app_.classifier.DirectKeyTable.end())
            return false;
        for (const DirectKey& row : rows->second) {
            const std::wstring key = upperCase(row.text);
            if (key.empty())
                continue;
            for (auto at = text.find(key); at != std::wstring::npos; at = text.find(key, at + 1)) {
                const auto end = at + key.size();
                if ((at == 0 || separator(text[at - 1])) &&
                    (end == text.size() || separator(text[end]))) {
                    group = row.group;
                    type = row.type;
                    return true;
                }
            }
        }
        return false;
    }

    std::int32_t typeOfLength(std::int32_t family, std::int32_t group, const std::wstring& text,
                              std::size_t length) const {
        const auto groups = keywords_.TypeKeywordTable.find(family);
        if (groups == keywords_.TypeKeywordTable.end())
            return 0;
        const auto types = groups->second.find(group);
        if (types == groups->second.end())
            return 0;
        for (const auto& [type, list] : types->second)
            for (const std::wstring& keyword : list)
                if (keyword.size() >= length && hits(keyword, text) &&
                    accepted(family, group, type, text))
                    return type;
        return 0;
    }

    static bool hits(const std::wstring& keyword, const std::wstring& text) {
        if (keyword.empty())
            return false;
        for (const wchar_t* prefix : {L"", L",", L" "})
            for (const wchar_t* suffix : {L"", L",", L" "})
                if ((*prefix != L'\0' || *suffix != L'\0') &&
                    text.find(prefix + keyword + suffix) != std::wstring::npos)
                    return true;
        return false;
    }

    std::vector<TypeExclusion> exclusions(std::int32_t family, std::int32_t group) const {
        const auto groups = keywords_.TypeExclusionTable.find(family);
        if (groups == keywords_.TypeExclusionTable.end())
            return {};
        const auto entries = groups->second.find(group);
        return entries == groups->second.end() ? std::vector<TypeExclusion>() : entries->second;
    }

    bool accepted(std::int32_t family, std::int32_t group, std::int32_t type,
                  const std::wstring& text) const {
        bool result = true;
        for (const TypeExclusion& entry : exclusions(family, group)) {
            if (entry.type != type)
                continue;
            for (const Term& term : ParseRuleString(entry.text, units_)) {
                const auto& lists = term.lists;
                if (term.name == L"FUNC5")
                    result =
                        lists.size() > 1 && CheckPolarity(text, lists[0].front(), lists[1].front());
                else if (term.name == L"FUNC6")
                    result =
                        lists.size() > 2 &&
                        CheckValueCondition(text, lists[0].front(), lists[1], lists[2],
                                            lists.size() > 3 ? lists[3].front() : std::wstring(),
                                            family, group);
            }
        }
        return result;
    }

    const CPartwrightPlugInApp& app_;
    const TypeKeywords& keywords_;
    const UnitTable& units_;
    std::map<std::wstring, std::optional<std::wregex>> cache_;
};

} // namespace partwright::test
