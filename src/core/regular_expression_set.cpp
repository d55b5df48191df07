#include "core/regular_expression_set.h"

#include "core/regular_expression_automaton.h"
#include "core/regular_expression_program.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

/// The automaton may visit every instruction of every expression for a character that it has not
/// met in that place, so large expressions stay out of it.
constexpr std::size_t maximumSize = 2000;

} // namespace

struct RegularExpressionSet::Prepared {
    bool readsCapitals = false;
    std::vector<std::optional<regex::Program>> programs;
    std::unique_ptr<regex::Automaton> automaton;
    /// Indices that the automaton serves, and those that it does not.
    std::vector<std::size_t> plain;
    std::vector<std::size_t> others;

    void matchEach(const std::vector<std::size_t>& candidates, std::wstring_view text,
                   std::vector<std::size_t>& indices) const {
        const std::wstring capitals = readsCapitals ? upperCase(text) : std::wstring();
        for (const std::size_t index : candidates)
            if (regex::fullMatch(*programs[index], readsCapitals ? capitals : text))
                indices.push_back(index);
    }
};

RegularExpressionSet::RegularExpressionSet() : RegularExpressionSet(std::vector<std::wstring>{}) {}

RegularExpressionSet::RegularExpressionSet(const std::vector<std::wstring>& expressions,
                                           Reading reading) {
    auto made = std::make_shared<Prepared>();
    made->readsCapitals = reading == Reading::InCapitals;
    made->programs.resize(expressions.size());
    std::vector<regex::Automaton::Member> members;
    for (std::size_t i = 0; i < expressions.size(); ++i) {
        if (!ValidateRegularExpression(expressions[i]))
            continue;
        const auto& program =
            made->programs[i].emplace(regex::compile(regex::readTree(expressions[i])));
        if (program.code.size() > maximumSize || !regex::isPlain(program)) {
            made->others.push_back(i);
        } else {
            made->plain.push_back(i);
            members.push_back({&program, i});
        }
    }
    made->automaton = std::make_unique<regex::Automaton>(members, made->readsCapitals);
    prepared_ = std::move(made);
}

std::size_t RegularExpressionSet::size() const {
    return prepared_->programs.size();
}

bool RegularExpressionSet::valid(std::size_t index) const {
    return prepared_->programs[index].has_value();
}

std::vector<std::size_t> RegularExpressionSet::matches(std::wstring_view text) const {
    std::vector<std::size_t> indices;
    matches(text, indices);
    return indices;
}

void RegularExpressionSet::matches(std::wstring_view text,
                                   std::vector<std::size_t>& indices) const {
    indices.clear();
    if (!prepared_->automaton->match(text, indices))
        prepared_->matchEach(prepared_->plain, text, indices);
    if (prepared_->others.empty())
        return;
    prepared_->matchEach(prepared_->others, text, indices);
    std::sort(indices.begin(), indices.end());
}

} // namespace partwright
