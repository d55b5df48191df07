#pragma once

// The group of a part from its reference designators and its description. A group wants its
// expression to match the whole description, its excluding expression not to match, and one of its
// typical designators to stand among the part's. The lowest group number that has all of this wins.
//
//   GroupDetector detector(app.classifier);
//   detector.DetectGroup(L"R1,R2", L"RES SMD 4.7K OHM 1% 0603", false)  ->  10
//
// The rules of the application are prepared when the detector is made; it holds no reference.

#include "core/classifier_tables.h"
#include "core/regular_expression_set.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace partwright {

/// The prefix of a reference designator, in capitals: "r12" -> "R". A designator without a digit
/// has none.
[[nodiscard]] std::wstring designatorPrefix(std::wstring_view designator);

class GroupDetector {
public:
    explicit GroupDetector(const ClassifierTables& tables);

    /// 0 when there is none. With `byName` a group also wins when the first designator is its name;
    /// without it, a second search falls back on the designators alone.
    [[nodiscard]] std::int32_t DetectGroup(std::wstring_view refDesList,
                                           std::wstring_view description, bool byName) const;

    /// By the words alone, as if every designator were typical. A group that takes whatever its
    /// designators bring has an expression that ends in "|.*"; here only what stands before counts.
    [[nodiscard]] std::int32_t DetectGroupByWords(std::wstring_view description) const;

private:
    static constexpr std::size_t noExpression = static_cast<std::size_t>(-1);
    struct Group {
        std::int32_t code = 0;
        std::wstring name;
        /// Indices into the set; a group without rules counts in the second search only.
        std::size_t rules = noExpression;
        std::size_t excluding = noExpression;
        /// The rules without their catch-all.
        std::size_t words = noExpression;
    };
    using Indices = std::vector<std::size_t>;
    /// The groups that one designator speaks for, ascending; null when there are none.
    [[nodiscard]] const Indices* spokenForBy(std::wstring_view designator) const;
    /// Ascending indices of the groups that the designators, or the name, speak for; one can stand
    /// there twice.
    [[nodiscard]] Indices spokenForByAll(std::wstring_view refDesList, bool byName) const;
    [[nodiscard]] std::int32_t firstDescribed(const Indices& candidates,
                                              std::wstring_view description, bool byName) const;

    std::vector<Group> groups_;
    /// Prefix to indices of groups.
    std::unordered_map<std::wstring, Indices> byPrefix_;
    RegularExpressionSet expressions_;
};

} // namespace partwright
