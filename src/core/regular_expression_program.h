#pragma once

// A regular expression taken apart and compiled for our own matcher. Inside of core/ only: others
// use regular_expression.h and regular_expression_set.h.
//
// The reading follows what the standard library's default syntax does, oddities included: "\cX" is
// the letter X, "\0" the NUL character, a count of more than 32 bits wraps around, "[]" matches
// nothing and "[^]" everything. Character classes are those of the classic locale, so no answer
// depends on where the program runs. Only a text that the standard library compiles may be read.

#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
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
    /// Repeat: copies that must be there, and further ones that may be, below 0 without end.
    std::int64_t required = 0;
    std::int64_t optional = 0;
    bool lazy = false;
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
};

/// `text` must be valid.
[[nodiscard]] Tree readTree(const std::wstring& text);

enum class Operation : std::uint8_t {
    Set,
    Jump,
    /// First `x`, then `y`.
    Split,
    /// Once more at `x`, leave at `y`; lazy ones leave first.
    Repeat,
    GroupBegin,
    GroupEnd,
    LineBegin,
    LineEnd,
    WordBoundary,
    NoWordBoundary,
    /// The part to look for begins behind this instruction; the rest of the program is at `y`.
    LookAhead,
    NegativeLookAhead,
    BackReference,
    Accept,
};

struct Instruction {
    Operation operation = Operation::Accept;
    bool lazy = false;
    /// Set, group.
    std::uint32_t index = 0;
    std::uint32_t x = 0;
    std::uint32_t y = 0;
};

struct Program {
    std::vector<Instruction> code;
    std::vector<CharacterSet> sets;
    std::uint32_t groups = 0;
    bool hasBackReference = false;
};

[[nodiscard]] Program compile(const Tree& tree);

/// Does all of the text match? Work is limited: a text that needs more does not match.
[[nodiscard]] bool fullMatch(const Program& program, std::wstring_view text);

[[nodiscard]] constexpr bool isWordCharacter(wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') ||
           c == L'_';
}

} // namespace partwright::regex
