#pragma once

// Many programs as one automaton that is built while it reads: a state is the set of places of all
// programs that wait for the next character, and a transition is worked out when a text needs it
// for the first time. A text that leads through known states costs one table look-up a character.
// Inside of core/ only.
//
// The states take a bounded amount of memory: when it is used up they are dropped and built anew.

#include "core/regular_expression_program.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace partwright::regex {

/// True for a program without look-ahead, back-reference and word boundary.
[[nodiscard]] bool isPlain(const Program& program);

class Automaton {
public:
    struct Member {
        const Program* program = nullptr;
        /// What a match is reported as.
        std::size_t index = 0;
    };
    /// `readsCapitals`: a text is matched as if it were written in capitals.
    Automaton(const std::vector<Member>& members, bool readsCapitals);
    ~Automaton();
    Automaton(const Automaton&) = delete;
    Automaton& operator=(const Automaton&) = delete;

    /// Appends the indices of the programs that match all of the text. False, with nothing
    /// appended, when the text leads through more new states than is sensible. Safe to be called
    /// from several threads.
    [[nodiscard]] bool match(std::wstring_view text, std::vector<std::size_t>& indices) const;

private:
    struct Cache;

    void append(const Member& member, std::vector<CharacterSet>& sets);
    void divideCharacters(const std::vector<CharacterSet>& sets);
    [[nodiscard]] std::uint32_t runClass(wchar_t c) const;
    [[nodiscard]] std::uint32_t classOf(wchar_t c) const;

    bool readsCapitals_;
    std::vector<Instruction> code_;
    std::vector<std::uint32_t> starts_;
    /// Characters that no set tells apart are one class: by ASCII character, and by the first of
    /// each run of characters.
    std::array<std::uint32_t, 128> asciiClasses_{};
    std::vector<char32_t> runs_;
    std::vector<std::uint32_t> runClasses_;
    std::uint32_t classes_ = 0;
    /// By set and class.
    std::vector<std::vector<bool>> holds_;
    std::unique_ptr<Cache> cache_;
};

} // namespace partwright::regex
