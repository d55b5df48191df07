// The two ways to run a program over a text. Without back-references all threads advance together,
// one character at a time (no recursion but into a look-ahead, no exponential time). With them the
// program is tried path by path in the order of the standard library, whose treatment of groups is
// followed closely: they keep their text when a loop enters them again, a group without a text
// fails, and a loop may pass twice without moving on.

#include "core/regular_expression_program.h"

#include <algorithm>

namespace partwright::regex {

namespace {

/// Enough for a text of a million characters under an ordinary expression: about half a second.
constexpr std::int64_t simulationLimit = 100'000'000;
constexpr std::int64_t backtrackingLimit = 5'000'000;

/// Conditions at a place between two characters. What a look-ahead looks at begins where it stands,
/// so `begin` differs from the text's begin there.
bool holds(Operation operation, std::wstring_view text, std::size_t begin, std::size_t at) {
    if (operation == Operation::LineBegin)
        return at == begin;
    if (operation == Operation::LineEnd)
        return at == text.size();
    const bool left = at > begin && isWordCharacter(text[at - 1]);
    const bool right = at < text.size() && isWordCharacter(text[at]);
    return (left != right) == (operation == Operation::WordBoundary);
}

class Simulation {
public:
    Simulation(const Program& program, std::wstring_view text, std::int64_t& budget)
        : program_(program), text_(text), budget_(budget), seen_(program.code.size(), 0) {}

    /// `whole`: up to the end of the text, otherwise any length will do.
    bool run(std::uint32_t start, std::size_t begin, bool whole) {
        // Clearing the table of this run is work as well.
        budget_ -= static_cast<std::int64_t>(seen_.size());
        begin_ = begin;
        std::vector<std::uint32_t> now;
        std::vector<std::uint32_t> next;
        bool accepted = false;
        follow(start, begin, now, accepted);
        for (std::size_t at = begin;; ++at) {
            if (accepted && (!whole || at == text_.size()))
                return true;
            if (now.empty() || at == text_.size() || budget_ < 0)
                return false;
            accepted = false;
            ++generation_;
            next.clear();
            for (const std::uint32_t place : now) {
                --budget_;
                if (program_.sets[program_.code[place].index].contains(text_[at]))
                    follow(place + 1, at + 1, next, accepted);
            }
            now.swap(next);
        }
    }

private:
    void enter(std::uint32_t place) {
        if (seen_[place] != generation_) {
            seen_[place] = generation_;
            open_.push_back(place);
        }
    }

    /// Puts all places that wait for a character and can be reached from `place` into `waiting`.
    void follow(std::uint32_t place, std::size_t at, std::vector<std::uint32_t>& waiting,
                bool& accepted) {
        enter(place);
        while (!open_.empty()) {
            --budget_;
            const std::uint32_t here = open_.back();
            open_.pop_back();
            const Instruction& it = program_.code[here];
            switch (it.operation) {
            case Operation::Set:
                waiting.push_back(here);
                break;
            case Operation::Accept:
                accepted = true;
                break;
            case Operation::Jump:
                enter(it.x);
                break;
            case Operation::Split:
            case Operation::Repeat:
                enter(it.x);
                enter(it.y);
                break;
            case Operation::LookAhead:
            case Operation::NegativeLookAhead: {
                Simulation inner(program_, text_, budget_);
                if (inner.run(here + 1, at, false) == (it.operation == Operation::LookAhead))
                    enter(it.y);
                break;
            }
            case Operation::GroupBegin:
            case Operation::GroupEnd:
            case Operation::BackReference:
                enter(here + 1);
                break;
            default:
                if (holds(it.operation, text_, begin_, at))
                    enter(here + 1);
            }
        }
    }

    const Program& program_;
    std::wstring_view text_;
    std::int64_t& budget_;
    std::size_t begin_ = 0;
    std::vector<std::size_t> seen_;
    std::size_t generation_ = 1;
    std::vector<std::uint32_t> open_;
};

struct Capture {
    std::size_t first = 0;
    std::size_t last = 0;
    bool matched = false;
};

class Backtracking {
public:
    Backtracking(const Program& program, std::wstring_view text, std::int64_t& budget,
                 std::vector<Capture>& captures)
        : program_(program), text_(text), budget_(budget), captures_(captures),
          passes_(program.code.size()) {}

    /// On success the captures are those of the path found; otherwise they are as before, but for
    /// what look-aheads found on the way.
    bool run(std::uint32_t start, std::size_t begin, bool whole) {
        begin_ = begin;
        place_ = start;
        at_ = begin;
        for (;;) {
            if (--budget_ < 0)
                return false;
            const Operation operation = program_.code[place_].operation;
            if (operation == Operation::Accept && (!whole || at_ == text_.size()))
                return true;
            if (!step(program_.code[place_]) && !goBack())
                return false;
        }
    }

private:
    enum class Undo { Choice, OnceMore, Capture, Passes };
    struct Entry {
        Undo undo = Undo::Choice;
        std::uint32_t index = 0;
        std::size_t at = 0;
        Capture capture;
        /// How often a loop was entered at one place of the text.
        int count = 0;
    };
    struct Passes {
        std::size_t at = 0;
        int count = 0;
    };

    void remember(Undo undo, std::uint32_t index, std::size_t at) {
        Entry entry;
        entry.undo = undo;
        entry.index = index;
        entry.at = at;
        trail_.push_back(entry);
    }
    void rememberCapture(std::uint32_t group) {
        remember(Undo::Capture, group, 0);
        trail_.back().capture = captures_[group];
    }

    /// False when this path ends here.
    bool step(const Instruction& it) {
        switch (it.operation) {
        case Operation::Set:
            if (at_ == text_.size() || !program_.sets[it.index].contains(text_[at_]))
                return false;
            ++at_;
            ++place_;
            return true;
        case Operation::Accept:
            return false;
        case Operation::Jump:
            place_ = it.x;
            return true;
        case Operation::Split:
            remember(Undo::Choice, it.y, at_);
            place_ = it.x;
            return true;
        case Operation::Repeat:
            return repeat(it);
        case Operation::GroupBegin:
            rememberCapture(it.index);
            captures_[it.index].first = at_;
            ++place_;
            return true;
        case Operation::GroupEnd:
            rememberCapture(it.index);
            captures_[it.index].last = at_;
            captures_[it.index].matched = true;
            ++place_;
            return true;
        case Operation::LookAhead:
        case Operation::NegativeLookAhead:
            if (lookAhead() != (it.operation == Operation::LookAhead))
                return false;
            place_ = it.y;
            return true;
        case Operation::BackReference:
            return backReference(captures_[it.index]);
        default:
            if (!holds(it.operation, text_, begin_, at_))
                return false;
            ++place_;
            return true;
        }
    }

    bool repeat(const Instruction& it) {
        const std::uint32_t loop = place_;
        if (it.lazy) {
            remember(Undo::OnceMore, loop, at_);
            place_ = it.y;
            return true;
        }
        remember(Undo::Choice, it.y, at_);
        return onceMore(loop);
    }

    /// A loop that was entered twice at this place of the text is not entered again.
    bool onceMore(std::uint32_t loop) {
        Passes& passes = passes_[loop];
        const bool fresh = passes.count == 0 || passes.at != at_;
        if (!fresh && passes.count >= 2)
            return false;
        remember(Undo::Passes, loop, passes.at);
        trail_.back().count = passes.count;
        passes = {at_, fresh ? 1 : passes.count + 1};
        place_ = program_.code[loop].x;
        return true;
    }

    bool lookAhead() {
        std::vector<Capture> found = captures_;
        Backtracking inner(program_, text_, budget_, found);
        if (!inner.run(place_ + 1, at_, false))
            return false;
        for (std::size_t i = 0; i < found.size(); ++i)
            if (found[i].matched)
                captures_[i] = found[i];
        return true;
    }

    bool backReference(const Capture& group) {
        if (!group.matched || group.last < group.first)
            return false;
        const std::size_t length = group.last - group.first;
        if (length > text_.size() - at_ ||
            text_.substr(group.first, length) != text_.substr(at_, length))
            return false;
        budget_ -= static_cast<std::int64_t>(length);
        at_ += length;
        ++place_;
        return true;
    }

    /// To the last choice that is still open.
    bool goBack() {
        while (!trail_.empty()) {
            const Entry entry = trail_.back();
            trail_.pop_back();
            switch (entry.undo) {
            case Undo::Capture:
                captures_[entry.index] = entry.capture;
                break;
            case Undo::Passes:
                passes_[entry.index] = {entry.at, entry.count};
                break;
            case Undo::Choice:
                place_ = entry.index;
                at_ = entry.at;
                return true;
            case Undo::OnceMore:
                at_ = entry.at;
                if (onceMore(entry.index))
                    return true;
                break;
            }
        }
        return false;
    }

    const Program& program_;
    std::wstring_view text_;
    std::int64_t& budget_;
    std::vector<Capture>& captures_;
    std::vector<Passes> passes_;
    std::vector<Entry> trail_;
    std::uint32_t place_ = 0;
    std::size_t at_ = 0;
    std::size_t begin_ = 0;
};

} // namespace

bool fullMatch(const Program& program, std::wstring_view text) {
    if (program.code.empty())
        return false;
    if (!program.hasBackReference) {
        std::int64_t budget = simulationLimit;
        return Simulation(program, text, budget).run(0, 0, true) && budget >= 0;
    }
    std::int64_t budget = backtrackingLimit;
    std::vector<Capture> captures(program.groups + 1);
    return Backtracking(program, text, budget, captures).run(0, 0, true) && budget >= 0;
}

} // namespace partwright::regex
