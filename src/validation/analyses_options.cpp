#include "validation/analyses_options.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

using Text = std::wstring_view;

constexpr Text gateNames[] = {L"Negative", L"Positive"};
constexpr Text gateTexts[] = {L"V-gs(off) negative quantity", L"V-gs(off) positive quantity"};
constexpr Text signNames[] = {L"Positive", L"Negative"};
constexpr Text signTexts[] = {L"Positive Offset", L"Negative Offset"};
constexpr Text shapeNames[] = {L"Rectangular", L"Sinus"};
constexpr Text subTypeNames[] = {L"LowPass", L"HighPass", L"BandPass", L"BandStop"};
constexpr Text subTypeTexts[] = {L"Low Pass Filter", L"High Pass Filter", L"Band Pass Filter",
                                 L"Band Stop Filter"};

constexpr AnalysesOption options[] = {
    {16, 7, L"MOSFET.N", L"Positive", gateNames, gateTexts},
    {17, 7, L"MOSFET.P", L"Negative", gateNames, gateTexts},
    {25, 8, L"Crystal.Oscillator", L"Positive", signNames, signTexts},
    {25, 10, L"Crystal.Oscillator", L"Rectangular", shapeNames, shapeNames},
    {26, 7, L"RF.Filter", L"LowPass", subTypeNames, subTypeTexts},
};

const AnalysesOption* optionOf(std::int32_t group, std::size_t position) {
    const auto found = std::find_if(std::begin(options), std::end(options), [&](const auto& row) {
        return row.group == group && row.position == position;
    });
    return found == std::end(options) ? nullptr : found;
}

} // namespace

std::span<const AnalysesOption> analysesOptions() {
    return options;
}

bool isOptionColumn(std::int32_t group, std::size_t position) {
    return optionOf(group, position) != nullptr;
}

std::size_t optionPlace(std::int32_t group, std::size_t position, std::wstring_view text) {
    const AnalysesOption* option = optionOf(group, position);
    if (option == nullptr)
        return 0;
    const auto word = std::find(option->names.begin(), option->names.end(), text);
    if (word != option->names.end())
        return static_cast<std::size_t>(word - option->names.begin()) + 1;
    const IntegerPrefix number = readInteger(text);
    if (number.consumed != text.size() || number.value < 1)
        return 0;
    const auto place = static_cast<std::size_t>(number.value);
    return place <= option->names.size() ? place : 0;
}

std::wstring_view shownOption(std::int32_t group, std::size_t position, std::wstring_view text) {
    const std::size_t place = optionPlace(group, position, text);
    return place == 0 ? text : optionOf(group, position)->names[place - 1];
}

} // namespace partwright
