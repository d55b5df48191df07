#include "core/regular_expression_inspection.h"

#include "core/regular_expression.h"
#include "core/regular_expression_program.h"

#include <algorithm>
#include <map>
#include <optional>

namespace partwright {

namespace {

using regex::Operation;
using States = std::set<std::uint32_t>;

/// Walks all texts of a program at once, position by position.
class Walk {
public:
    explicit Walk(const regex::Program& program) : program_(program) {}

    /// The instructions that wait for a character, or accept, after steps that read nothing.
    [[nodiscard]] std::optional<States> closure(const States& from) const {
        States result;
        std::vector<std::uint32_t> open(from.begin(), from.end());
        States seen(from);
        while (!open.empty()) {
            const std::uint32_t at = open.back();
            open.pop_back();
            const regex::Instruction& step = program_.code[at];
            const auto follow = [&](std::uint32_t next) {
                if (seen.insert(next).second)
                    open.push_back(next);
            };
            switch (step.operation) {
            case Operation::Set:
            case Operation::Accept:
                result.insert(at);
                break;
            case Operation::Jump:
                follow(step.x);
                break;
            case Operation::Split:
            case Operation::Repeat:
                follow(step.x);
                follow(step.y);
                break;
            case Operation::GroupBegin:
            case Operation::GroupEnd:
                follow(at + 1);
                break;
            default:
                return std::nullopt; // looks at its surroundings
            }
        }
        return result;
    }

    [[nodiscard]] bool accepts(const States& states) const {
        return std::any_of(states.begin(), states.end(), [this](std::uint32_t at) {
            return program_.code[at].operation == Operation::Accept;
        });
    }

    /// Where one character leads, whichever it is.
    [[nodiscard]] States step(const States& states) const {
        States next;
        for (const std::uint32_t at : states)
            if (const regex::Instruction& one = program_.code[at];
                one.operation == Operation::Set && !program_.sets[one.index].ranges().empty())
                next.insert(at + 1);
        return next;
    }

    /// Where each single character leads; none when there are more than `limit`.
    [[nodiscard]] std::optional<std::map<wchar_t, States>> steps(const States& states,
                                                                 std::size_t limit) const {
        std::map<wchar_t, States> next;
        for (const std::uint32_t at : states) {
            const regex::Instruction& one = program_.code[at];
            if (one.operation != Operation::Set)
                continue;
            for (const auto& [first, last] : program_.sets[one.index].ranges()) {
                if (last - first >= limit)
                    return std::nullopt;
                for (char32_t c = first; c <= last; ++c)
                    next[static_cast<wchar_t>(c)].insert(at + 1);
            }
        }
        return next;
    }

private:
    const regex::Program& program_;
};

/// Does something of this sort stand inside of another one, at or below `at`?
template <class Predicate>
bool nests(const regex::Tree& tree, Predicate countOf, std::int32_t at, int outside = 0) {
    const regex::Node& node = tree.at(at);
    const int inside = outside + countOf(node);
    if (inside > 1)
        return true;
    return std::any_of(node.children.begin(), node.children.end(),
                       [&](std::int32_t child) { return nests(tree, countOf, child, inside); });
}

int endlessRepeats(const regex::Node& node) {
    return static_cast<int>(
        std::count_if(node.quantifiers.begin(), node.quantifiers.end(),
                      [](const regex::Quantifier& it) { return it.optional < 0; }));
}

int lookAheads(const regex::Node& node) {
    return node.kind == regex::NodeKind::LookAhead ||
                   node.kind == regex::NodeKind::NegativeLookAhead
               ? 1
               : 0;
}

bool letterEscape(std::wstring_view text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == L'\\' &&
            std::wstring_view(L"dDwWsSbB").find(text[++i]) != std::wstring_view::npos)
            return true;
    return false;
}

} // namespace

ExpressionTraits traitsOf(std::wstring_view expression) {
    ExpressionTraits traits;
    traits.valid = ValidateRegularExpression(expression);
    if (!traits.valid)
        return traits;
    const regex::Tree tree = regex::readTree(std::wstring(expression));
    traits.hasBackReference = tree.hasBackReference;
    traits.nestsEndlessRepeats = nests(tree, endlessRepeats, tree.root);
    traits.nestsLookAheads = nests(tree, lookAheads, tree.root);
    traits.hasLetterEscape = letterEscape(expression);
    return traits;
}

AdmittedCodes admittedCodes(std::wstring_view expression,
                            const std::vector<std::int32_t>& positions, std::size_t limit) {
    if (!ValidateRegularExpression(expression))
        return {};
    const regex::Tree tree = regex::readTree(std::wstring(expression));
    if (tree.hasLookAhead || tree.hasBackReference)
        return {};
    const regex::Program program = regex::compile(tree);
    const Walk walk(program);
    AdmittedCodes result;
    std::map<std::wstring, States> open = {{L"", {0}}};
    std::int32_t at = 1;
    for (const std::int32_t position : positions) {
        for (; at <= position; ++at) {
            std::map<std::wstring, States> next;
            for (const auto& [code, from] : open) {
                const auto states = walk.closure(from);
                if (!states)
                    return {};
                if (walk.accepts(*states))
                    result.codes.insert(code); // the text may end here
                if (at < position) {
                    if (States merged = walk.step(*states); !merged.empty())
                        next[code].merge(merged);
                    continue;
                }
                auto steps = walk.steps(*states, limit);
                if (!steps)
                    return {};
                for (auto& [character, to] : *steps)
                    next[code + character].merge(to);
            }
            open = std::move(next);
            if (open.size() + result.codes.size() > limit)
                return {};
        }
    }
    for (const auto& [code, states] : open)
        result.codes.insert(code);
    result.known = true;
    return result;
}

} // namespace partwright
