#pragma once

// Many words as one tree over their characters: walking it along a text finds every word that
// begins at a place of the text in one go.
//
//   CharacterTrie trie;
//   trie.insert(L"RES", 7);
//   auto node = trie.step(CharacterTrie::root, L'R');   // and so on; trie.value(node) is 7 at the
//   S

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

class CharacterTrie {
public:
    using Node = std::uint32_t;
    static constexpr Node root = 0;
    /// No node leads back to the root, so it says "nothing there".
    static constexpr Node nowhere = 0;
    static constexpr std::uint32_t noValue = 0xFFFFFFFF;

    CharacterTrie();

    /// The first value given to a word stays; the value that counts is handed back.
    std::uint32_t insert(std::wstring_view word, std::uint32_t value);

    [[nodiscard]] Node step(Node node, wchar_t c) const {
        if (node == root && static_cast<char32_t>(c) < first_.size())
            return first_[static_cast<char32_t>(c)];
        for (const auto& [character, child] : nodes_[node].children)
            if (character == c)
                return child;
        return nowhere;
    }
    [[nodiscard]] std::uint32_t value(Node node) const { return nodes_[node].value; }

private:
    struct Branches {
        std::vector<std::pair<wchar_t, Node>> children;
        std::uint32_t value = noValue;
    };
    std::vector<Branches> nodes_;
    /// The children of the root that are ASCII, where nearly every walk ends.
    std::array<Node, 128> first_{};
};

} // namespace partwright
