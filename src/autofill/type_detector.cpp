#include "autofill/type_detector.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view defaultMark = L"*D";

bool isSeparator(wchar_t c) {
    return c == L',' || c == L' ';
}

} // namespace

TypeDetector::TypeDetector(const ClassifierTables& tables, const TypeKeywords& keywords,
                           const UnitTable& units) {
    for (const auto& [family, rows] : tables.DirectKeyTable) {
        DirectKeys& keys = directKeys_[family];
        keys.rows = rows;
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (!rows[i].text.empty())
                keys.trie.insert(upperCase(rows[i].text), static_cast<std::uint32_t>(i));
    }
    for (const auto& [family, groups] : keywords.TypeKeywordTable)
        for (const auto& [group, types] : groups)
            prepareKeywords(groups_[{family, group}], types, keywords.typeKeywordMaxLength);
    for (const auto& [family, groups] : keywords.TypeExclusionTable)
        for (const auto& [group, entries] : groups)
            prepareTests(groups_[{family, group}], entries, units);
}

void TypeDetector::prepareKeywords(Group& group,
                                   const std::map<std::int32_t, std::vector<std::wstring>>& types,
                                   std::size_t maximumLength) {
    struct Keyword {
        std::wstring_view text;
        std::int32_t type;
    };
    std::vector<Keyword> ordered;
    for (const auto& [type, list] : types)
        for (const std::wstring& text : list)
            if (!text.empty())
                ordered.push_back({text, type});
    // The trial starts at the maximum length, so longer ones have no precedence among each other.
    const auto length = [maximumLength](const Keyword& keyword) {
        return std::min(keyword.text.size(), maximumLength);
    };
    std::stable_sort(ordered.begin(), ordered.end(),
                     [&](const Keyword& a, const Keyword& b) { return length(a) > length(b); });
    for (const Keyword& keyword : ordered) {
        const auto fresh = static_cast<std::uint32_t>(group.words.size());
        const auto word = group.forward.insert(keyword.text, fresh);
        const std::wstring reversed(keyword.text.rbegin(), keyword.text.rend());
        group.backward.insert(reversed, fresh);
        if (word == fresh)
            group.words.emplace_back();
        group.words[word].push_back(static_cast<std::uint32_t>(group.typeOfRank.size()));
        group.typeOfRank.push_back(keyword.type);
    }
}

void TypeDetector::prepareTests(Group& group, const std::vector<TypeExclusion>& entries,
                                const UnitTable& units) {
    const auto listAt = [](const Term& term, std::size_t index) {
        return index < term.lists.size() ? TextList(term.lists[index]) : TextList();
    };
    for (const TypeExclusion& entry : entries) {
        if (group.defaultType == 0 && entry.text.find(defaultMark) != std::wstring::npos)
            group.defaultType = entry.type;
        // The last test of a type decides, so the earlier ones need not be kept.
        for (const Term& term : ParseRuleString(entry.text, units)) {
            Test test;
            if (term.name == L"FUNC5" && term.lists.size() > 1) {
                test.polarityKind = term.lists[0].front();
                test.polarity = term.lists[1].front();
            } else if (term.name == L"FUNC6" && !term.lists.empty()) {
                const TextList logic = listAt(term, 3);
                test.value.emplace(term.lists[0].front(), listAt(term, 1), listAt(term, 2),
                                   logic.empty() ? std::wstring_view() : logic.front());
            } else if (term.name != L"FUNC5" && term.name != L"FUNC6") {
                continue;
            }
            group.tests.insert_or_assign(entry.type, std::move(test));
        }
    }
}

bool TypeDetector::Test::holds(const ScannedText& text, std::int32_t family,
                               std::int32_t group) const {
    return value ? value->holds(text, family, group)
                 : CheckPolarity(text.text(), polarityKind, polarity);
}

const DirectKey* TypeDetector::directKey(std::int32_t family, std::wstring_view text) const {
    const auto keys = directKeys_.find(family);
    if (keys == directKeys_.end())
        return nullptr;
    const CharacterTrie& trie = keys->second.trie;
    std::uint32_t best = CharacterTrie::noValue;
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        if (begin > 0 && !isSeparator(text[begin - 1]))
            continue;
        auto node = CharacterTrie::root;
        for (std::size_t at = begin; at < text.size(); ++at) {
            node = trie.step(node, text[at]);
            if (node == CharacterTrie::nowhere)
                break;
            if (trie.value(node) < best && (at + 1 == text.size() || isSeparator(text[at + 1])))
                best = trie.value(node);
        }
    }
    return best == CharacterTrie::noValue ? nullptr : &keys->second.rows[best];
}

std::vector<std::uint32_t> TypeDetector::ranksIn(const Group& group, std::wstring_view text) {
    std::vector<std::uint32_t> ranks;
    const auto take = [&](std::uint32_t word) {
        if (word != CharacterTrie::noValue)
            ranks.insert(ranks.end(), group.words[word].begin(), group.words[word].end());
    };
    for (std::size_t separator = 0; separator < text.size(); ++separator) {
        if (!isSeparator(text[separator]))
            continue;
        auto node = CharacterTrie::root;
        for (std::size_t at = separator + 1; at < text.size(); ++at) {
            node = group.forward.step(node, text[at]);
            if (node == CharacterTrie::nowhere)
                break;
            take(group.forward.value(node));
        }
        node = CharacterTrie::root;
        for (std::size_t at = separator; at-- > 0;) {
            node = group.backward.step(node, text[at]);
            if (node == CharacterTrie::nowhere)
                break;
            take(group.backward.value(node));
        }
    }
    std::sort(ranks.begin(), ranks.end());
    ranks.erase(std::unique(ranks.begin(), ranks.end()), ranks.end());
    return ranks;
}

std::int32_t TypeDetector::typeByKeyword(const Group& group, const GroupKey& key,
                                         std::wstring_view text) {
    std::optional<ScannedText> scanned;
    std::vector<std::int32_t> refused;
    for (const std::uint32_t rank : ranksIn(group, text)) {
        const std::int32_t type = group.typeOfRank[rank];
        const auto test = group.tests.find(type);
        if (test == group.tests.end())
            return type;
        if (std::find(refused.begin(), refused.end(), type) != refused.end())
            continue;
        if (!scanned)
            scanned.emplace(text);
        if (test->second.holds(*scanned, key.first, key.second))
            return type;
        refused.push_back(type);
    }
    return group.defaultType;
}

void TypeDetector::DetectType(std::int32_t family, std::int32_t& group,
                              std::wstring_view description, std::int32_t& type) const {
    type = 0;
    if (description.empty() || description == L"-")
        return;
    const std::wstring text = upperCase(description);
    if (const DirectKey* key = directKey(family, text)) {
        group = key->group;
        type = key->type;
        return;
    }
    if (const auto found = groups_.find({family, group}); found != groups_.end())
        type = typeByKeyword(found->second, found->first, text);
}

} // namespace partwright
