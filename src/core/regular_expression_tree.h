#pragma once

// A regular expression taken apart. Inside of core/ only: others use regular_expression.h,
// regular_expression_set.h and regular_expression_inspection.h.
//
// The reading follows what the standard library's default syntax does, oddities included: "\cX" is
// the letter X, "\0" the NUL character, a count of more than 32 bits wraps around, "[]" matches
// nothing and "[^]" everything. Character classes are those of the classic locale, so no answer
// depends on where the program runs. Only a text that the standard library compiles may be read.

#include <bitset>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace partwright::regex {

/// A set of characters as ascending ranges that do not touch, with a table for ASCII.
class CharacterSet {
public:
    void add(char32_t first, char32_t last);
    /// Brings the ranges in order; to be called once, before the first question.
    void finish(bool inverted);

    [[nodiscard]] bool contains(wchar_t character) const;
    [[nodiscard]] const std::vector<std::pair<char32_t, char32_t>>& ranges() const {
        return ranges_;
    }

private:
    std::vector<std::pair<char32_t, char32_t>> ranges_;
    std::bitset<128> ascii_;
};

/// Copies that must be there, and further ones that may be, below 0 without end.
struct Quantifier {
    std::int64_t required = 0;
    std::int64_t optional = 0;
    bool lazy = false;

    bool operator==(const Quantifier&) const = default;
};

enum class NodeKind {
    Set,
    Sequence,
    Alternatives,
    Group,
    Repeat,
    LineBegin,
    LineEnd,
    WordBoundary,
    NoWordBoundary,
    LookAhead,
    NegativeLookAhead,
    BackReference,
};

struct Node {
    NodeKind kind = NodeKind::Sequence;
    /// Index of a set, of a capturing group (0: not capturing) or of the group referred to.
    std::int32_t index = 0;
    /// Of a Repeat, the innermost first: "a+?{2}" is one node with two. So the depth of the tree is
    /// that of its groups, however many quantifiers stand in a row.
    std::vector<Quantifier> quantifiers;
    /// Indices of nodes.
    std::vector<std::int32_t> children;
};

/// The tree; nodes refer to each other by index, so that no destructor recurses.
struct Tree {
    std::vector<Node> nodes;
    std::vector<CharacterSet> sets;
    std::int32_t root = 0;
    std::int32_t groups = 0;
    bool hasLookAhead = false;
    bool hasBackReference = false;

    [[nodiscard]] const Node& at(std::int32_t index) const {
        return nodes[static_cast<std::size_t>(index)];
    }
};

/// `text` must be valid.
[[nodiscard]] Tree readTree(const std::wstring& text);

} // namespace partwright::regex
