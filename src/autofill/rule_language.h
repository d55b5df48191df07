#pragma once

// The rule language: how the value of a parameter is derived from a description.
//
//   "FUNC1{[#Pw]},FUNC3{[#CASE_RES_W]}"
//
// is two terms; the first that yields a text gives the value. A rule is a flat list of terms: each
// "FUNC" starts one, what stands between terms is ignored, and so is all nesting. An outer function
// therefore disappears and leaves its inner terms behind. An argument list of one item "#KEY"
// stands for the names and values of that key of the unit table.
//
// A rule is parsed and prepared once, and evaluated for as many texts as wanted.

#include "autofill/unit_table.h"
#include "autofill/value_normaliser.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace partwright {

struct Term {
    std::wstring name;
    std::vector<std::vector<std::wstring>> lists;
    friend bool operator==(const Term&, const Term&) = default;
};

[[nodiscard]] std::vector<Term> ParseRuleString(std::wstring_view rule, const UnitTable& units);

/// A package with its thermal resistances, by range of pin counts.
struct PackageRow {
    std::int32_t pinsFrom = 0;
    std::int32_t pinsTo = 0;
    double thetaJa = 0;
    double thetaJc = 0;
};
using PackageTable = std::map<std::wstring, std::vector<PackageRow>, std::less<>>;

/// (family, group, type) to the quality factors: without a value, above both thresholds, above the
/// first one only, and up to the first one.
using PiqTable =
    std::map<std::tuple<std::int32_t, std::int32_t, std::int32_t>, std::array<std::int32_t, 4>>;

namespace ruleFamily {
inline constexpr std::int32_t sdta = 14;
inline constexpr std::int32_t analyses = 20;
} // namespace ruleFamily

/// Where a term is evaluated. The resistor rules may change `type`; sentences are put in front of
/// `note`.
struct TermContext {
    const ScannedText& text;
    wchar_t mark;
    std::int32_t family;
    std::int32_t group;
    /// The cell that the value is for, from 0.
    std::int32_t cellIndex;
    std::int32_t& type;
    std::wstring& note;
    const PackageTable& packageTable;
    const PiqTable& piqTable;
};

/// The type that a resistor without resistance is.
inline constexpr std::int32_t jumperType = 32;

class PreparedTerm {
public:
    PreparedTerm(Term term, const UnitTable& units);

    [[nodiscard]] const Term& term() const { return term_; }
    [[nodiscard]] std::wstring evaluate(const TermContext& context) const;
    /// FUNC1 without the resistor rules, FUNC4; the empty text for all others.
    [[nodiscard]] std::wstring evaluatePlain(const ScannedText& text, wchar_t mark) const;

private:
    enum class Function {
        Unit,
        Keyword,
        Literal,
        CodeLetter,
        Pin,
        Tetha,
        Power,
        PiQ,
        SubComponent,
        Other
    };
    struct SubName {
        std::wstring text;
        std::wstring upper;
    };
    [[nodiscard]] static Function functionOf(std::wstring_view name);
    void prepareQuality(const UnitTable& units);
    [[nodiscard]] std::wstring_view item(std::size_t list, std::size_t index) const;
    [[nodiscard]] std::wstring unitValue(const TermContext& context) const;
    [[nodiscard]] std::wstring codeLetter(const TermContext& context) const;
    [[nodiscard]] std::wstring power(const TermContext& context) const;
    [[nodiscard]] std::wstring quality(const TermContext& context) const;
    [[nodiscard]] std::wstring subComponent(const TermContext& context) const;

    Function function_;
    Term term_;
    PreparedUnits units_;
    PreparedKeywords keywords_;
    std::vector<SubName> names_;
    /// The term that a quality factor is worked out from.
    std::unique_ptr<PreparedTerm> inner_;
};

/// Prepares the term and evaluates it once.
[[nodiscard]] std::wstring EvaluateTerm(const Term& term, const UnitTable& units,
                                        const TermContext& context);

/// How the terms of a rule make one value.
enum class RuleForm {
    /// The first term with a value.
    First,
    Smallest,
    Largest,
    /// Two terms compared; the third or the fourth is the value.
    Condition,
    /// The value at the first step at or above the first term; the steps' values are the first list
    /// of the second term, or the second list of the first term.
    StepsOfSecondTerm,
    StepsOfFirstTerm,
    /// A table of steps whose values stand nowhere.
    StepsWithoutValues,
};

class PreparedRule {
public:
    PreparedRule(std::wstring_view text, const UnitTable& units);

    [[nodiscard]] RuleForm form() const { return form_; }
    [[nodiscard]] const std::vector<PreparedTerm>& terms() const { return terms_; }
    [[nodiscard]] std::wstring evaluate(const TermContext& context) const;
    /// The value that FUNC2 terms make of other cells: the square root of the product.
    [[nodiscard]] std::wstring evaluateSecondPass(std::span<const std::wstring> cells,
                                                  wchar_t mark) const;
    /// A condition over plain terms: the number picked, or nothing when it cannot be judged.
    [[nodiscard]] std::optional<double> pick(const ScannedText& text, wchar_t mark) const;

private:
    enum class Comparison { None, Greater, GreaterEqual, Less, LessEqual, NotEqual, Equal };
    [[nodiscard]] static Comparison comparisonIn(std::wstring_view rule);
    [[nodiscard]] bool compare(double a, double b) const;
    [[nodiscard]] std::wstring firstValue(const TermContext& context) const;
    [[nodiscard]] std::wstring extremeValue(const TermContext& context) const;
    [[nodiscard]] std::wstring conditionValue(const TermContext& context) const;
    [[nodiscard]] std::wstring stepValue(const TermContext& context) const;
    [[nodiscard]] std::optional<double> pickFrom(const std::array<std::wstring, 4>& values) const;

    RuleForm form_ = RuleForm::First;
    Comparison comparison_ = Comparison::None;
    std::vector<PreparedTerm> terms_;
    /// Terms equal to an earlier one, which gave nothing when they are reached in turn.
    std::vector<bool> repeated_;
};

} // namespace partwright
