#include "validation/analyses_options.h"

#include "core/text.h"
#include "core/vocabulary.h"

#include <algorithm>

namespace partwright {

namespace {

const OptionColumn* optionOf(std::int32_t group, std::size_t position) {
    const auto options = optionColumnsOfAsr();
    const auto found = std::find_if(options.begin(), options.end(), [&](const OptionColumn& row) {
        return row.group == group && row.parameter == position;
    });
    return found == options.end() ? nullptr : &*found;
}

} // namespace

bool isOptionColumn(std::int32_t group, std::size_t position) {
    return optionOf(group, position) != nullptr;
}

std::size_t optionPlace(std::int32_t group, std::size_t position, std::wstring_view text) {
    const OptionColumn* option = optionOf(group, position);
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
