#pragma once

// An expression as a program of small steps: what regular_expression_matcher runs and
// regular_expression_inspection walks. Inside of core/ only.

#include "core/regular_expression_tree.h"

#include <cstdint>
#include <vector>

namespace partwright::regex {

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
    /// Set, group; of Split, Repeat and look-aheads which one of their sort it is.
    std::uint32_t index = 0;
    std::uint32_t x = 0;
    std::uint32_t y = 0;
};

struct Program {
    std::vector<Instruction> code;
    std::vector<CharacterSet> sets;
    std::uint32_t groups = 0;
    /// How many Splits and Repeats there are, and how many look-aheads.
    std::uint32_t choices = 0;
    std::uint32_t lookAheads = 0;
    bool hasBackReference = false;
};

[[nodiscard]] Program compile(const Tree& tree);

} // namespace partwright::regex
