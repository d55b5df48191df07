// The windings of a transformer: one or two sections, each with lists of pin pairs, resistances and
// ratios, and for radio frequency the levels at the pins.

#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/row_lists.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace partwright {

namespace {

using PinPair = std::pair<std::wstring_view, std::wstring_view>;

struct Section {
    std::size_t number;
    /// Rcoil, both ends of the windings, N.
    std::array<std::size_t, 4> parameters;
    std::size_t levels;
    std::wstring_view unequalPins;

    [[nodiscard]] std::size_t pins() const { return parameters[1]; }
    [[nodiscard]] std::size_t otherPins() const { return parameters[2]; }
};

constexpr Section sections[] = {
    {1, {1, 2, 3, 5}, 6, check_text::firstSectionPins},
    {2, {8, 9, 10, 11}, 12, check_text::secondSectionPins},
};

struct Windings {
    std::wstring_view type;
    std::size_t sections;
    /// The pairs of pins are compared with each other.
    bool comparesPairs;
    bool hasLevels;
};

constexpr Windings windings[] = {
    {L"Transformer", 2, true, false},
    {L"RF.Transformer", 2, true, true},
    {L"Flyback.Transformer", 1, false, false},
};

bool isUnfilled(const ItemRow& row) {
    for (std::size_t position = 1; position <= maximumAnalysesColumns; ++position)
        if (row.takesPart(position))
            return false;
    return true;
}

/// The first cell of a section for which nothing at all was entered, though the level shows it;
/// 0 when something was.
std::size_t missingCell(const ItemRow& row, const Section& section) {
    std::size_t first = 0;
    for (const std::size_t position : section.parameters) {
        if (!row.isEmpty(position))
            return 0;
        if (first == 0 && !row.isHidden(position))
            first = position;
    }
    return first;
}

std::optional<Finding> levelFault(const ItemRow& row, const Section& section, wchar_t decimalMark) {
    if (!row.takesPart(section.levels) || !row.takesPart(section.pins()))
        return std::nullopt;
    const ListItems levels = row.items(section.levels);
    if (levels.empty())
        return std::nullopt;
    if (levels.size() != row.items(section.pins()).size() + 1)
        return refusal(check_text::sectionDbQuantity(section.number, row.type()), section.levels);
    if (exceedsWhole(powerSum(levels, decimalMark)))
        return refusal(check_text::sectionDbSum(section.number), section.levels);
    return std::nullopt;
}

/// Pairs without direction: a winding between 1 and 2 is one between 2 and 1.
std::vector<PinPair> pinPairs(const ItemRow& row, const Section& section) {
    std::vector<PinPair> pairs;
    if (!row.takesPart(section.pins()) || !row.takesPart(section.otherPins()))
        return pairs;
    const ListItems a = row.items(section.pins());
    const ListItems b = row.items(section.otherPins());
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        pairs.emplace_back(std::min(a[i], b[i]), std::max(a[i], b[i]));
    return pairs;
}

bool hasUnequalPins(const ItemRow& row, const Section& section) {
    return row.takesPart(section.pins()) && row.takesPart(section.otherPins()) &&
           row.items(section.pins()).size() != row.items(section.otherPins()).size();
}

std::wstring pairText(const PinPair& pair) {
    std::wstring text(pair.first);
    text += L'-';
    text += pair.second;
    return text;
}

std::wstring repeatedPinFault(const std::vector<PinPair>& pairs) {
    // Each pin with the index of its pair; equal pins come together, the earlier pair first.
    std::vector<std::pair<std::wstring_view, std::size_t>> pins;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pins.emplace_back(pairs[i].first, i);
        pins.emplace_back(pairs[i].second, i);
    }
    std::sort(pins.begin(), pins.end());
    const auto repeated =
        std::adjacent_find(pins.begin(), pins.end(), [](const auto& a, const auto& b) {
            return a.first == b.first && !a.first.empty();
        });
    if (repeated == pins.end())
        return {};
    return check_text::repeatedPins(pairText(pairs[repeated->second]),
                                    pairText(pairs[std::next(repeated)->second]));
}

std::optional<Finding> pairFault(const ItemRow& row) {
    for (const Section& section : sections)
        if (hasUnequalPins(row, section))
            return refusal(section.unequalPins, section.otherPins());
    std::vector<PinPair> first = pinPairs(row, sections[0]);
    const std::vector<PinPair> second = pinPairs(row, sections[1]);
    for (const PinPair& pair : second)
        if (std::find(first.begin(), first.end(), pair) != first.end())
            return refusal(check_text::pairInBothSections);
    first.insert(first.end(), second.begin(), second.end());
    return refusalUnless(repeatedPinFault(first));
}

} // namespace

std::optional<Finding> transformerFault(const ItemRow& row, wchar_t decimalMark) {
    const auto* kind = std::find_if(std::begin(windings), std::end(windings),
                                    [&](const Windings& w) { return w.type == row.type(); });
    if (kind == std::end(windings) || isUnfilled(row))
        return std::nullopt;
    for (std::size_t i = 0; i < kind->sections; ++i) {
        if (const std::size_t position = missingCell(row, sections[i]))
            return refusal(check_text::transformerParameters, position);
        if (!kind->hasLevels)
            continue;
        if (auto found = levelFault(row, sections[i], decimalMark))
            return found;
    }
    return kind->comparesPairs ? pairFault(row) : std::nullopt;
}

} // namespace partwright
