#include "core/regular_expression_automaton.h"

#include "core/text.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <unordered_map>

namespace partwright::regex {

namespace {

/// Words of 32 bits that the states may take together: 32 MB.
constexpr std::size_t maximumMemory = std::size_t{8} << 20;
/// Places visited to build states for one text.
constexpr std::int64_t maximumWork = 20'000'000;

/// Numbers of states are kept small, since reading waits for the memory that holds them.
using StateNumber = std::uint16_t;
constexpr StateNumber unknown = 0xFFFF;

struct PlacesHash {
    std::size_t operator()(const std::vector<std::uint32_t>& places) const {
        std::size_t hash = 14695981039346656037U;
        for (const std::uint32_t place : places)
            hash = (hash ^ place) * 1099511628211U;
        return hash;
    }
};

} // namespace

/// The states known so far.
struct Automaton::Cache {
    struct State {
        const std::vector<std::uint32_t>* places = nullptr;
        /// Indices that match a text which ends here.
        std::optional<std::vector<std::size_t>> accepted;
    };
    /// Nothing can match any more.
    static constexpr StateNumber dead = 0;

    explicit Cache(const Automaton& owner) : owner_(owner), seen_(owner.code_.size(), 0) {}

    std::mutex mutex;
    std::int64_t work = 0;

    StateNumber start() {
        if (states_.empty()) {
            begin();
            intern();
            for (const std::uint32_t place : owner_.starts_)
                follow(place, true, false);
            start_ = intern();
        }
        return start_;
    }

    StateNumber next(StateNumber state, std::uint32_t characterClass) {
        const std::size_t slot = state * owner_.classes_ + characterClass;
        const StateNumber known = transitions_[slot];
        return known != unknown ? known : build(state, characterClass);
    }

    const std::vector<std::size_t>& accepted(StateNumber number, bool emptyText) {
        auto& known = emptyText ? acceptedEmpty_ : states_[number].accepted;
        if (!known) {
            begin();
            for (const std::uint32_t place : *states_[number].places)
                follow(place, emptyText, true);
            known.emplace();
            for (const std::uint32_t place : found_)
                if (owner_.code_[place].operation == Operation::Accept)
                    known->push_back(owner_.code_[place].index);
            std::sort(known->begin(), known->end());
        }
        return *known;
    }

private:
    void begin() {
        found_.clear();
        if (++generation_ == 0) {
            std::fill(seen_.begin(), seen_.end(), 0);
            generation_ = 1;
        }
    }

    void enter(std::uint32_t place) {
        if (seen_[place] != generation_) {
            seen_[place] = generation_;
            open_.push_back(place);
        }
    }

    /// Puts the places that wait for a character, for the end of the text or that accept into
    /// `found_`.
    void follow(std::uint32_t from, bool atBegin, bool atEnd) {
        enter(from);
        while (!open_.empty()) {
            ++work;
            const std::uint32_t place = open_.back();
            open_.pop_back();
            const Instruction& it = owner_.code_[place];
            switch (it.operation) {
            case Operation::Jump:
                enter(it.x);
                break;
            case Operation::Split:
            case Operation::Repeat:
                enter(it.x);
                enter(it.y);
                break;
            case Operation::LineBegin:
                if (atBegin)
                    enter(place + 1);
                break;
            case Operation::LineEnd:
                if (atEnd)
                    enter(place + 1);
                else
                    found_.push_back(place);
                break;
            default:
                found_.push_back(place);
            }
        }
    }

    StateNumber intern() {
        std::sort(found_.begin(), found_.end());
        const auto [known, fresh] = numbers_.try_emplace(found_, 0);
        if (!fresh)
            return known->second;
        known->second = static_cast<StateNumber>(states_.size());
        states_.push_back({&known->first, std::nullopt});
        transitions_.resize(transitions_.size() + owner_.classes_, unknown);
        memory_ += owner_.classes_ + found_.size() + 32;
        return known->second;
    }

    StateNumber build(StateNumber state, std::uint32_t characterClass) {
        begin();
        const auto& places = *states_[state].places;
        work += static_cast<std::int64_t>(places.size());
        for (const std::uint32_t place : places) {
            const Instruction& it = owner_.code_[place];
            if (it.operation == Operation::Set && owner_.holds_[it.index][characterClass])
                follow(place + 1, false, false);
        }
        if (memory_ > maximumMemory || states_.size() == unknown) {
            forget();
            return intern();
        }
        const StateNumber built = intern();
        transitions_[state * owner_.classes_ + characterClass] = built;
        return built;
    }

    void forget() {
        states_.clear();
        transitions_.clear();
        numbers_.clear();
        memory_ = 0;
        // The start is found again from nothing; `found_` holds what is to be kept.
        const std::vector<std::uint32_t> kept = found_;
        start();
        found_ = kept;
    }

    const Automaton& owner_;
    std::vector<State> states_;
    std::vector<StateNumber> transitions_;
    std::unordered_map<std::vector<std::uint32_t>, StateNumber, PlacesHash> numbers_;
    StateNumber start_ = dead;
    /// The empty text ends where it begins, which no other text does.
    std::optional<std::vector<std::size_t>> acceptedEmpty_;
    std::size_t memory_ = 0;
    std::vector<std::uint32_t> seen_;
    std::uint32_t generation_ = 0;
    std::vector<std::uint32_t> open_;
    std::vector<std::uint32_t> found_;
};

bool isPlain(const Program& program) {
    return std::all_of(program.code.begin(), program.code.end(), [](const Instruction& it) {
        switch (it.operation) {
        case Operation::Set:
        case Operation::Jump:
        case Operation::Split:
        case Operation::Repeat:
        case Operation::LineBegin:
        case Operation::LineEnd:
        case Operation::Accept:
            return true;
        default:
            return false;
        }
    });
}

Automaton::Automaton(const std::vector<Member>& members, bool readsCapitals)
    : readsCapitals_(readsCapitals) {
    std::vector<CharacterSet> sets;
    for (const Member& member : members)
        append(member, sets);
    divideCharacters(sets);
    cache_ = std::make_unique<Cache>(*this);
}

Automaton::~Automaton() = default;

void Automaton::append(const Member& member, std::vector<CharacterSet>& sets) {
    const auto offset = static_cast<std::uint32_t>(code_.size());
    const auto setOffset = static_cast<std::uint32_t>(sets.size());
    starts_.push_back(offset);
    sets.insert(sets.end(), member.program->sets.begin(), member.program->sets.end());
    for (Instruction it : member.program->code) {
        it.x += offset;
        it.y += offset;
        if (it.operation == Operation::Set)
            it.index += setOffset;
        else if (it.operation == Operation::Accept)
            it.index = static_cast<std::uint32_t>(member.index);
        code_.push_back(it);
    }
}

void Automaton::divideCharacters(const std::vector<CharacterSet>& sets) {
    // The same few sets occur again and again.
    std::map<std::vector<std::pair<char32_t, char32_t>>, std::uint32_t> numbers;
    std::vector<const CharacterSet*> distinct;
    std::vector<std::uint32_t> numberOf;
    runs_ = {0};
    for (const CharacterSet& set : sets) {
        const auto number = static_cast<std::uint32_t>(distinct.size());
        const auto [known, fresh] = numbers.try_emplace(set.ranges(), number);
        numberOf.push_back(known->second);
        if (!fresh)
            continue;
        distinct.push_back(&set);
        for (const auto& [first, last] : set.ranges()) {
            runs_.push_back(first);
            runs_.push_back(last + 1); // 0 behind the last character of all
        }
    }
    for (Instruction& it : code_)
        if (it.operation == Operation::Set)
            it.index = numberOf[it.index];
    std::sort(runs_.begin(), runs_.end());
    runs_.erase(std::unique(runs_.begin(), runs_.end()), runs_.end());

    std::map<std::vector<bool>, std::uint32_t> classes;
    holds_.resize(distinct.size());
    for (const char32_t first : runs_) {
        std::vector<bool> members;
        for (const CharacterSet* set : distinct)
            members.push_back(set->contains(static_cast<wchar_t>(first)));
        const auto [known, fresh] = classes.try_emplace(members, classes_);
        runClasses_.push_back(known->second);
        if (!fresh)
            continue;
        ++classes_;
        for (std::size_t i = 0; i < members.size(); ++i)
            holds_[i].push_back(members[i]);
    }
    for (std::uint32_t c = 0; c < asciiClasses_.size(); ++c)
        asciiClasses_[c] = runClass(static_cast<wchar_t>(c));
}

std::uint32_t Automaton::runClass(wchar_t c) const {
    const auto code = static_cast<char32_t>(readsCapitals_ ? upperCase(c) : c);
    const auto above = std::upper_bound(runs_.begin(), runs_.end(), code);
    return runClasses_[static_cast<std::size_t>(above - runs_.begin() - 1)];
}

std::uint32_t Automaton::classOf(wchar_t c) const {
    const auto code = static_cast<char32_t>(c);
    return code < asciiClasses_.size() ? asciiClasses_[code] : runClass(c);
}

bool Automaton::match(std::wstring_view text, std::vector<std::size_t>& indices) const {
    const std::lock_guard lock(cache_->mutex);
    cache_->work = 0;
    StateNumber state = cache_->start();
    for (const wchar_t c : text) {
        if (state == Cache::dead)
            return true;
        state = cache_->next(state, classOf(c));
        if (cache_->work > maximumWork)
            return false;
    }
    const auto& accepted = cache_->accepted(state, text.empty());
    indices.insert(indices.end(), accepted.begin(), accepted.end());
    return true;
}

} // namespace partwright::regex
