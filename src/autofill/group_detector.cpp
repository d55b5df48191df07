#include "autofill/group_detector.h"

#include "core/text.h"

#include <algorithm>
#include <map>

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

GroupDetector::GroupDetector(const ClassifierTables& tables) {
    std::vector<std::wstring> expressions;
    std::map<std::wstring, std::size_t> known;
    // Valid as written is what counts; the text that runs is in capitals like the description.
    const auto prepare = [&](const std::wstring& text) {
        if (text.empty() || !ValidateRegularExpression(text))
            return noExpression;
        const auto [place, fresh] = known.try_emplace(upperCase(text), expressions.size());
        if (fresh)
            expressions.push_back(place->first);
        return place->second;
    };
    std::map<std::int32_t, Group> byCode;
    for (const auto& [code, rule] : tables.GroupRuleTable) {
        Group& group = byCode[code];
        group.rules = prepare(rule.rules);
        group.excluding = prepare(rule.excluding);
        group.words = prepare(withoutCatchAll(rule.rules));
        if (const auto name = tables.groupNamesByCode.find(code);
            name != tables.groupNamesByCode.end())
            group.name = name->second;
    }
    for (const auto& [code, prefixes] : tables.GroupRefDesTable)
        byCode.try_emplace(code);
    for (auto& [code, group] : byCode) {
        group.code = code;
        groups_.push_back(std::move(group));
        const auto typical = tables.GroupRefDesTable.find(code);
        if (typical == tables.GroupRefDesTable.end())
            continue;
        for (const auto piece : split(typical->second, L',')) {
            const std::wstring prefix = upperCase(trim(piece));
            if (prefix.empty())
                continue;
            auto& indices = byPrefix_[prefix];
            if (indices.empty() || indices.back() != groups_.size() - 1)
                indices.push_back(groups_.size() - 1);
        }
    }
    expressions_ = RegularExpressionSet(expressions, RegularExpressionSet::Reading::InCapitals);
}

const GroupDetector::Indices* GroupDetector::spokenForBy(std::wstring_view designator) const {
    const auto found = byPrefix_.find(designatorPrefix(designator));
    return found == byPrefix_.end() ? nullptr : &found->second;
}

GroupDetector::Indices GroupDetector::spokenForByAll(std::wstring_view refDesList,
                                                     bool byName) const {
    Indices result;
    const Indices* last = nullptr;
    for (std::wstring_view rest = refDesList; !rest.empty();) {
        const std::size_t end = std::min(rest.find(L','), rest.size());
        const Indices* groups = spokenForBy(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        // A part's designators mostly have one prefix.
        if (groups != nullptr && groups != last)
            result.insert(result.end(), groups->begin(), groups->end());
        last = groups;
    }
    if (byName) {
        const auto first = trim(refDesList.substr(0, refDesList.find(L',')));
        for (std::size_t i = 0; i < groups_.size(); ++i)
            if (groups_[i].name == first)
                result.push_back(i);
    }
    std::sort(result.begin(), result.end());
    return result;
}

std::int32_t GroupDetector::firstDescribed(const Indices& candidates, std::wstring_view description,
                                           bool byName) const {
    // What the description says cannot change the answer.
    if (!byName && candidates.size() == 1)
        return groups_[candidates.front()].code;
    const Indices& matching = expressions_.matches(description);
    for (const std::size_t index : candidates)
        if (describes(groups_[index].rules, groups_[index].excluding, matching))
            return groups_[index].code;
    return byName ? 0 : groups_[candidates.front()].code;
}

std::int32_t GroupDetector::DetectGroup(std::wstring_view refDesList, std::wstring_view description,
                                        bool byName) const {
    if (!byName && refDesList.find(L',') == std::wstring_view::npos) {
        const Indices* candidates = spokenForBy(refDesList);
        return candidates == nullptr ? 0 : firstDescribed(*candidates, description, byName);
    }
    const Indices candidates = spokenForByAll(refDesList, byName);
    return candidates.empty() ? 0 : firstDescribed(candidates, description, byName);
}

std::int32_t GroupDetector::DetectGroupByWords(std::wstring_view description) const {
    const Indices& matching = expressions_.matches(description);
    for (const Group& group : groups_)
        if (describes(group.words, group.excluding, matching))
            return group.code;
    return 0;
}

} // namespace partwright
