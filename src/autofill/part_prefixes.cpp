#include "autofill/part_prefixes.h"

#include "autofill/synonym_pattern.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view columns[] = {L"Prefix", L"Says"};
constexpr std::wstring_view fileName = L"PartPrefixes.csv";

/// The value of the longest prefix that a text begins with, at `length` characters; one whose digit
/// is written out goes before one that takes any.
struct Longest {
    std::size_t length = 0;
    std::uint32_t value = CharacterTrie::noValue;
};

void walk(const CharacterTrie& trie, std::wstring_view text, CharacterTrie::Node node,
          std::size_t length, Longest& longest) {
    if (trie.value(node) != CharacterTrie::noValue && length > longest.length)
        longest = {length, trie.value(node)};
    if (length == text.size())
        return;
    const auto follow = [&](wchar_t c) {
        if (const auto next = trie.step(node, c); next != CharacterTrie::nowhere)
            walk(trie, text, next, length + 1, longest);
    };
    follow(text[length]);
    if (isDigit(text[length]))
        follow(anyDigit);
}

} // namespace

PartPrefixes::PartPrefixes(const RuleTable& table) {
    for (const RuleRow& row : table.rows) {
        std::wstring prefix = row.text(L"Prefix");
        std::wstring says = row.text(L"Says");
        if (prefix.empty() || says.empty())
            continue;
        std::transform(prefix.begin(), prefix.end(), prefix.begin(), foldSign);
        const auto number = static_cast<std::uint32_t>(says_.size());
        if (trie_.insert(prefix, number) == number)
            says_.push_back(std::move(says));
    }
}

PartPrefixes::Match PartPrefixes::at(std::wstring_view folded, std::size_t begin) const {
    const std::size_t end = endOfPartNumber(folded, begin);
    const std::wstring_view word = folded.substr(begin, end - begin);
    Longest longest;
    walk(trie_, word, CharacterTrie::root, 0, longest);
    if (longest.value == CharacterTrie::noValue || std::none_of(word.begin(), word.end(), isDigit))
        return {};
    return {end, says_[longest.value]};
}

RuleTableForm partPrefixForm() {
    return {.columns = columns, .comments = true};
}

std::wstring partPrefixPath(const ProjectPaths& paths) {
    return paths.programFolder + std::wstring(fileName);
}

} // namespace partwright
