#include "core/regular_expression_set.h"

#include "core/regular_expression_program.h"

#include <re2/re2.h>
#include <re2/set.h>

#include <algorithm>
#include <array>
#include <numeric>

namespace partwright {

namespace {

/// An upper limit for one search automaton; it grows only as texts lead into new states.
constexpr std::int64_t memoryBudget = std::int64_t{64} << 20;
/// The set search may visit every instruction of every expression for a character that it has not
/// met in that place, so large expressions stay out of it.
constexpr std::size_t maximumSize = 2000;

RE2::Options options() {
    RE2::Options result;
    result.set_max_mem(memoryBudget);
    result.set_log_errors(false);
    return result;
}

struct Search {
    RE2::Set set;
    /// From the search's numbers to our indices.
    std::vector<std::size_t> indices;
};

/// UTF-8 of a text; on the stack as long as it is short, as nearly all are.
class Utf8 {
public:
    explicit Utf8(std::wstring_view text) {
        if (text.size() > short_.size()) {
            long_.resize(text.size());
            data_ = long_.data();
        }
        for (; size_ < text.size(); ++size_) {
            const auto c = static_cast<char32_t>(text[size_]);
            if (c >= 0x80)
                break;
            data_[size_] = static_cast<char>(c);
        }
        if (size_ < text.size())
            encode(text);
    }
    Utf8(const Utf8&) = delete;
    Utf8& operator=(const Utf8&) = delete;

    /// False when the text holds something that is no character.
    [[nodiscard]] bool valid() const { return valid_; }
    [[nodiscard]] re2::StringPiece piece() const { return {data_, size_}; }

private:
    void encode(std::wstring_view text) {
        std::string whole(data_, size_);
        for (const wchar_t wide : text.substr(size_)) {
            const auto c = static_cast<char32_t>(wide);
            valid_ = valid_ && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
            const auto tail = [&whole](char32_t bits) {
                whole += static_cast<char>(0x80 | (bits & 0x3F));
            };
            if (c < 0x80) {
                whole += static_cast<char>(c);
            } else if (c < 0x800) {
                whole += static_cast<char>(0xC0 | (c >> 6));
                tail(c);
            } else if (c < 0x10000) {
                whole += static_cast<char>(0xE0 | (c >> 12));
                tail(c >> 6);
                tail(c);
            } else {
                whole += static_cast<char>(0xF0 | (c >> 18 & 7));
                tail(c >> 12);
                tail(c >> 6);
                tail(c);
            }
        }
        long_ = std::move(whole);
        data_ = long_.data();
        size_ = long_.size();
    }

    std::array<char, 256> short_;
    std::string long_;
    char* data_ = short_.data();
    std::size_t size_ = 0;
    bool valid_ = true;
};

} // namespace

struct RegularExpressionSet::Prepared {
    std::vector<std::optional<regex::Program>> programs;
    std::vector<Search> searches;
    /// Indices that no search serves.
    std::vector<std::size_t> others;

    /// Searches over the expressions; where one has no room for all, two with half of them each.
    void search(const std::vector<std::string>& expressions,
                const std::vector<std::size_t>& indices) {
        Search made{RE2::Set(options(), RE2::ANCHOR_BOTH), {}};
        for (const std::size_t index : indices) {
            if (made.set.Add(expressions[index], nullptr) < 0)
                others.push_back(index);
            else
                made.indices.push_back(index);
        }
        if (made.indices.empty())
            return;
        if (made.set.Compile()) {
            searches.push_back(std::move(made));
        } else if (made.indices.size() == 1) {
            others.push_back(made.indices.front());
        } else {
            const auto middle =
                made.indices.begin() + static_cast<std::ptrdiff_t>(made.indices.size() / 2);
            search(expressions, {made.indices.begin(), middle});
            search(expressions, {middle, made.indices.end()});
        }
    }

    void matchOne(std::size_t index, std::wstring_view text,
                  std::vector<std::size_t>& indices) const {
        if (programs[index] && regex::fullMatch(*programs[index], text))
            indices.push_back(index);
    }
};

RegularExpressionSet::RegularExpressionSet() : RegularExpressionSet(std::vector<std::wstring>{}) {}

RegularExpressionSet::RegularExpressionSet(const std::vector<std::wstring>& expressions) {
    auto made = std::make_shared<Prepared>();
    made->programs.resize(expressions.size());
    std::vector<std::string> plain(expressions.size());
    std::vector<std::size_t> plainIndices;
    for (std::size_t i = 0; i < expressions.size(); ++i) {
        if (!ValidateRegularExpression(expressions[i]))
            continue;
        const regex::Tree tree = regex::readTree(expressions[i]);
        made->programs[i] = regex::compile(tree);
        if (tree.hasLookAhead || tree.hasBackReference ||
            made->programs[i]->code.size() > maximumSize) {
            made->others.push_back(i);
        } else {
            plain[i] = regex::re2Syntax(tree);
            plainIndices.push_back(i);
        }
    }
    made->search(plain, plainIndices);
    std::sort(made->others.begin(), made->others.end());
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
    const Utf8 utf8(text);
    std::vector<int> found;
    for (const Search& search : prepared_->searches) {
        RE2::Set::ErrorInfo error{};
        if (utf8.valid() && search.set.Match(utf8.piece(), &found, &error)) {
            for (const int number : found)
                indices.push_back(search.indices[static_cast<std::size_t>(number)]);
        } else if (!utf8.valid() || error.kind != RE2::Set::kNoError) {
            for (const std::size_t index : search.indices)
                prepared_->matchOne(index, text, indices);
        }
    }
    for (const std::size_t index : prepared_->others)
        prepared_->matchOne(index, text, indices);
    std::sort(indices.begin(), indices.end());
}

} // namespace partwright
