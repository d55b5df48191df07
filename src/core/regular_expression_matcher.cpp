#include "core/regular_expression_matcher.h"

#include <vector>

namespace partwright::regex {

namespace {

/// What the notes about one run may take: 100 MB for the way back, 8 MB for choices and answers.
constexpr std::size_t maximumTrail = 4'000'000;
constexpr std::size_t maximumNotes = std::size_t{1} << 26;

bool isWordCharacter(wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') ||
           c == L'_';
}

struct Capture {
    std::size_t first = 0;
    std::size_t last = 0;
    bool matched = false;
};

/// What all runs over one text share.
struct Search {
    const Program& program;
    std::wstring_view text;
    std::int64_t& budget;

    enum class Answer : std::uint8_t { Unknown, No, Yes };
    /// By look-ahead and character, when there are no captures that an answer could depend on.
    std::vector<Answer> answers;

    Answer* answer(std::uint32_t lookAhead, std::size_t at) {
        const std::size_t columns = text.size() + 1;
        const std::size_t size = program.lookAheads * columns;
        if (program.hasBackReference || size > maximumNotes / 8)
            return nullptr;
        if (answers.empty()) {
            budget -= static_cast<std::int64_t>(size / 64);
            answers.resize(size, Answer::Unknown);
        }
        return &answers[lookAhead * columns + at];
    }
};

/// From one instruction and one character on: the whole expression, or the inside of a look-ahead,
/// for which the text begins where it looks.
class Run {
public:
    Run(Search& search, std::size_t begin, std::vector<Capture>& captures)
        : search_(search), program_(search.program), text_(search.text), captures_(captures),
          begin_(begin), at_(begin) {
        const std::size_t notes = program_.choices * (text_.size() - begin + 1);
        if (program_.hasBackReference) {
            passes_.resize(program_.choices);
        } else if (notes <= maximumNotes) {
            search_.budget -= static_cast<std::int64_t>(notes / 64);
            tried_.resize(notes);
        }
    }

    /// `whole`: up to the end of the text, otherwise any length will do. On success the captures
    /// are those of the path found; otherwise they are as before, but for what look-aheads found on
    /// the way.
    bool from(std::uint32_t start, bool whole) {
        here_ = start;
        for (;;) {
            if (--search_.budget < 0)
                return false;
            const Instruction& it = program_.code[here_];
            if (it.operation == Operation::Accept && (!whole || at_ == text_.size()))
                return true;
            if (trail_.size() > maximumTrail)
                search_.budget = -1;
            else if (!step(it) && !goBack())
                return false;
        }
    }

private:
    enum class Undo : std::uint8_t { Choice, OnceMore, Matched, Unmatched, Passes };
    /// The two numbers are those of what is restored.
    struct Entry {
        Undo undo = Undo::Choice;
        std::uint32_t index = 0;
        std::size_t first = 0;
        std::size_t second = 0;
    };
    /// How often a loop was entered at one character.
    struct Passes {
        std::size_t at = 0;
        std::size_t count = 0;
    };

    void remember(Undo undo, std::uint32_t index, std::size_t first, std::size_t second = 0) {
        trail_.push_back({undo, index, first, second});
    }
    Capture& rememberCapture(std::uint32_t group) {
        Capture& it = captures_[group];
        remember(it.matched ? Undo::Matched : Undo::Unmatched, group, it.first, it.last);
        return it;
    }

    /// False when this path ends here.
    bool step(const Instruction& it) {
        switch (it.operation) {
        case Operation::Set:
            return at_ < text_.size() && program_.sets[it.index].contains(text_[at_++]) && next();
        case Operation::Accept:
            return false;
        case Operation::Jump:
            here_ = it.x;
            return true;
        case Operation::Split:
            return choose(it, it.x, it.y);
        case Operation::Repeat:
            return program_.hasBackReference ? repeat(it)
                   : it.lazy                 ? choose(it, it.y, it.x)
                                             : choose(it, it.x, it.y);
        case Operation::GroupBegin:
            rememberCapture(it.index).first = at_;
            return next();
        case Operation::GroupEnd: {
            Capture& capture = rememberCapture(it.index);
            capture.last = at_;
            capture.matched = true;
            return next();
        }
        case Operation::LookAhead:
        case Operation::NegativeLookAhead:
            if (lookAhead(it) != (it.operation == Operation::LookAhead))
                return false;
            here_ = it.y;
            return true;
        case Operation::BackReference:
            return backReference(captures_[it.index]) && next();
        case Operation::LineBegin:
            return at_ == begin_ && next();
        case Operation::LineEnd:
            return at_ == text_.size() && next();
        case Operation::WordBoundary:
            return atWordBoundary() && next();
        case Operation::NoWordBoundary:
            return !atWordBoundary() && next();
        }
        return false;
    }

    bool next() {
        ++here_;
        return true;
    }

    bool choose(const Instruction& it, std::uint32_t first, std::uint32_t second) {
        if (!tried_.empty()) {
            const std::size_t note = (at_ - begin_) * program_.choices + it.index;
            if (tried_[note])
                return false;
            tried_[note] = true;
        }
        remember(Undo::Choice, second, at_);
        here_ = first;
        return true;
    }

    bool repeat(const Instruction& it) {
        const std::uint32_t loop = here_;
        if (it.lazy) {
            remember(Undo::OnceMore, loop, at_);
            here_ = it.y;
            return true;
        }
        remember(Undo::Choice, it.y, at_);
        return onceMore(loop);
    }

    /// A loop that was entered twice at this character is not entered again.
    bool onceMore(std::uint32_t loop) {
        const Instruction& it = program_.code[loop];
        Passes& passes = passes_[it.index];
        const bool fresh = passes.count == 0 || passes.at != at_;
        if (!fresh && passes.count >= 2)
            return false;
        remember(Undo::Passes, it.index, passes.at, passes.count);
        passes = {at_, fresh ? 1 : passes.count + 1};
        here_ = it.x;
        return true;
    }

    [[nodiscard]] bool atWordBoundary() const {
        const bool left = at_ > begin_ && isWordCharacter(text_[at_ - 1]);
        const bool right = at_ < text_.size() && isWordCharacter(text_[at_]);
        return left != right;
    }

    bool lookAhead(const Instruction& it) {
        Search::Answer* known = search_.answer(it.index, at_);
        if (known != nullptr && *known != Search::Answer::Unknown)
            return *known == Search::Answer::Yes;
        std::vector<Capture> found = captures_;
        const bool success = Run(search_, at_, found).from(here_ + 1, false);
        if (known != nullptr)
            *known = success ? Search::Answer::Yes : Search::Answer::No;
        if (success)
            for (std::size_t i = 0; i < found.size(); ++i)
                if (found[i].matched)
                    captures_[i] = found[i];
        return success;
    }

    bool backReference(const Capture& group) {
        if (!group.matched || group.last < group.first)
            return false;
        const std::size_t length = group.last - group.first;
        if (length > text_.size() - at_ ||
            text_.substr(group.first, length) != text_.substr(at_, length))
            return false;
        search_.budget -= static_cast<std::int64_t>(length);
        at_ += length;
        return true;
    }

    /// To the last choice that is still open.
    bool goBack() {
        while (!trail_.empty()) {
            const Entry entry = trail_.back();
            trail_.pop_back();
            switch (entry.undo) {
            case Undo::Matched:
            case Undo::Unmatched:
                captures_[entry.index] = {entry.first, entry.second, entry.undo == Undo::Matched};
                break;
            case Undo::Passes:
                passes_[entry.index] = {entry.first, entry.second};
                break;
            case Undo::Choice:
                here_ = entry.index;
                at_ = entry.first;
                return true;
            case Undo::OnceMore:
                at_ = entry.first;
                if (onceMore(entry.index))
                    return true;
                break;
            }
        }
        return false;
    }

    Search& search_;
    const Program& program_;
    std::wstring_view text_;
    std::vector<Capture>& captures_;
    std::size_t begin_;
    std::size_t at_;
    std::uint32_t here_ = 0;
    std::vector<Entry> trail_;
    /// With back-references: by loop.
    std::vector<Passes> passes_;
    /// Without: choices that were met, by character.
    std::vector<bool> tried_;
};

} // namespace

bool fullMatch(const Program& program, std::wstring_view text, std::int64_t& budget) {
    Search search{program, text, budget, {}};
    std::vector<Capture> captures(program.groups + 1);
    return Run(search, 0, captures).from(0, true) && budget >= 0;
}

} // namespace partwright::regex
