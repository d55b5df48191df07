#include "core/regular_expression_set.h"

#include "core/regular_expression_re2.h"
#include "core/text.h"

#include <re2/set.h>

#include <algorithm>
#include <optional>

namespace partwright {

namespace {

/// For the states of the common automaton: when it is used up they are dropped and built anew.
constexpr std::int64_t maximumMemory = std::int64_t{64} << 20;

} // namespace

struct RegularExpressionSet::Prepared {
    Reading reading = Reading::AsItStands;
    std::vector<std::wstring> expressions;
    std::vector<bool> valid;
    /// Null when it could not be made. `common` are the indices of its members, `others` of those
    /// that are asked one by one.
    std::unique_ptr<re2::RE2::Set> set;
    std::vector<std::size_t> common;
    std::vector<std::size_t> others;
    /// Made when they are asked.
    std::vector<std::optional<RegularExpression>> single;
    /// Of the last text.
    std::string buffer;
    std::vector<int> members;
    std::vector<std::size_t> indices;

    void prepareCommon() {
        re2::RE2::Options options = regex::re2Options();
        options.set_max_mem(maximumMemory);
        set = std::make_unique<re2::RE2::Set>(options, re2::RE2::ANCHOR_BOTH);
        for (std::size_t i = 0; i < expressions.size(); ++i) {
            if (!valid[i])
                continue;
            const auto pattern = regex::re2Pattern(regex::readTree(expressions[i]));
            const bool serves = pattern && set->Add(*pattern, nullptr) >= 0;
            (serves ? common : others).push_back(i);
        }
        if (common.empty() || !set->Compile())
            set.reset();
    }

    /// False when the automaton would need too much memory.
    bool matchCommon(std::wstring_view text) {
        if (set == nullptr)
            return false;
        const auto letters = reading == Reading::InCapitals ? regex::Letters::InCapitals
                                                            : regex::Letters::AsTheyStand;
        re2::RE2::Set::ErrorInfo error{};
        if (!set->Match(regex::narrow(text, letters, buffer), &members, &error))
            return error.kind == re2::RE2::Set::kNoError;
        for (const int member : members)
            indices.push_back(common[static_cast<std::size_t>(member)]);
        return true;
    }

    void matchEach(const std::vector<std::size_t>& candidates, std::wstring_view text) {
        const std::wstring capitals =
            reading == Reading::InCapitals ? upperCase(text) : std::wstring();
        for (const std::size_t index : candidates) {
            if (!single[index])
                single[index].emplace(expressions[index]);
            if (single[index]->fullMatch(reading == Reading::InCapitals ? capitals : text))
                indices.push_back(index);
        }
    }
};

RegularExpressionSet::RegularExpressionSet() : RegularExpressionSet(std::vector<std::wstring>{}) {}

RegularExpressionSet::RegularExpressionSet(const std::vector<std::wstring>& expressions,
                                           Reading reading)
    : prepared_(std::make_shared<Prepared>()) {
    prepared_->reading = reading;
    prepared_->expressions = expressions;
    prepared_->single.resize(expressions.size());
    for (const std::wstring& text : expressions)
        prepared_->valid.push_back(ValidateRegularExpression(text));
    prepared_->prepareCommon();
}

std::size_t RegularExpressionSet::size() const {
    return prepared_->expressions.size();
}

bool RegularExpressionSet::valid(std::size_t index) const {
    return prepared_->valid[index];
}

const std::vector<std::size_t>& RegularExpressionSet::matches(std::wstring_view text) const {
    std::vector<std::size_t>& indices = prepared_->indices;
    indices.clear();
    if (!prepared_->matchCommon(text))
        prepared_->matchEach(prepared_->common, text);
    if (!prepared_->others.empty())
        prepared_->matchEach(prepared_->others, text);
    std::sort(indices.begin(), indices.end());
    return indices;
}

} // namespace partwright
