#include "autofill/character_trie.h"

namespace partwright {

CharacterTrie::CharacterTrie() : nodes_(1) {}

std::uint32_t CharacterTrie::insert(std::wstring_view word, std::uint32_t value) {
    Node node = root;
    for (const wchar_t c : word) {
        Node next = step(node, c);
        if (next == nowhere) {
            next = static_cast<Node>(nodes_.size());
            nodes_.emplace_back();
            nodes_[node].children.emplace_back(c, next);
            if (node == root && static_cast<char32_t>(c) < first_.size())
                first_[static_cast<char32_t>(c)] = next;
        }
        node = next;
    }
    if (nodes_[node].value == noValue)
        nodes_[node].value = value;
    return nodes_[node].value;
}

} // namespace partwright
