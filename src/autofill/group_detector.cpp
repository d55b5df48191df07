#include "autofill/group_detector.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

/// An expression that ends in this takes every text.
constexpr std::wstring_view catchAll = L"|.*";

std::wstring withoutCatchAll(const std::wstring& rules) {
    if (rules == catchAll.substr(1))
        return {};
    return rules.ends_with(catchAll) ? rules.substr(0, rules.size() - catchAll.size()) : rules;
}

/// `matching` is ascending.
bool describes(std::size_t rules, std::size_t excluding, const std::vector<std::size_t>& matching) {
    return std::binary_search(matching.begin(), matching.end(), rules) &&
           !std::binary_search(matching.begin(), matching.end(), excluding);
}

} // namespace

std::wstring designatorPrefix(std::wstring_view designator) {
    const auto digit = std::find_if(designator.begin(), designator.end(), isDigit);
    if (digit == designator.end())
        return {};
    const auto length = static_cast<std::size_t>(digit - designator.begin());
    return upperCase(trim(designator.substr(0, length)));
}

GroupDetector::GroupDetector(const CPartwrightPlugInApp& app) {
    std::vector<std::wstring> expressions;
    // Valid as written is what counts; the text that runs is in capitals like the description.
    const auto prepare = [&expressions](const std::wstring& text) {
        if (text.empty() || !ValidateRegularExpression(text))
            return noExpression;
        expressions.push_back(upperCase(text));
        return expressions.size() - 1;
    };
    std::map<std::int32_t, Group> byCode;
    for (const auto& [code, rule] : app.GroupRuleTable) {
        Group& group = byCode[code];
        group.rules = prepare(rule.rules);
        group.excluding = prepare(rule.excluding);
        group.words = prepare(withoutCatchAll(rule.rules));
        if (const auto name = app.groupNamesByCode.find(code); name != app.groupNamesByCode.end())
            group.name = name->second;
    }
    for (const auto& [code, prefixes] : app.GroupRefDesTable)
        byCode.try_emplace(code);
    for (auto& [code, group] : byCode) {
        group.code = code;
        groups_.push_back(std::move(group));
        const auto typical = app.GroupRefDesTable.find(code);
        if (typical == app.GroupRefDesTable.end())
            continue;
        for (const auto piece : split(typical->second, L',')) {
            const std::wstring prefix = upperCase(trim(piece));
            auto& indices = byPrefix_[prefix];
            if (!prefix.empty() && (indices.empty() || indices.back() != groups_.size() - 1))
                indices.push_back(groups_.size() - 1);
        }
    }
    expressions_ = RegularExpressionSet(expressions);
}

std::vector<std::size_t> GroupDetector::candidates(std::wstring_view refDesList,
                                                   bool byName) const {
    std::vector<std::size_t> result;
    std::wstring last;
    for (const auto designator : split(refDesList, L',')) {
        std::wstring prefix = designatorPrefix(designator);
        if (prefix.empty() || prefix == last)
            continue;
        last = std::move(prefix);
        if (const auto found = byPrefix_.find(last); found != byPrefix_.end())
            result.insert(result.end(), found->second.begin(), found->second.end());
    }
    if (byName) {
        const auto first = trim(split(refDesList, L',').front());
        for (std::size_t i = 0; i < groups_.size(); ++i)
            if (groups_[i].name == first)
                result.push_back(i);
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

std::int32_t GroupDetector::DetectGroup(std::wstring_view refDesList, std::wstring_view description,
                                        bool byName) const {
    const auto spokenFor = candidates(refDesList, byName);
    if (spokenFor.empty())
        return 0;
    const auto matching = expressions_.matches(upperCase(description));
    for (const std::size_t index : spokenFor)
        if (describes(groups_[index].rules, groups_[index].excluding, matching))
            return groups_[index].code;
    return byName ? 0 : groups_[spokenFor.front()].code;
}

std::int32_t GroupDetector::DetectGroupByWords(std::wstring_view description) const {
    const auto matching = expressions_.matches(upperCase(description));
    for (const Group& group : groups_)
        if (describes(group.words, group.excluding, matching))
            return group.code;
    return 0;
}

} // namespace partwright
