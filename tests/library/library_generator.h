#pragma once

// Libraries and damaged library files by seed.

#include "core/application.h"
#include "core/completion.h"
#include "core/text.h"
#include "support/dice.h"

#include <array>
#include <string>
#include <type_traits>

namespace partwright::test {

/// A text that a cell in three quotes gives back: no line end, backslash or edge blank.
inline std::wstring generatedText(Dice& dice, std::size_t longest) {
    static constexpr std::wstring_view pool =
        L"ABCXYZ0123456789 abc,.:\"'%()<>*#-/\u00B5\u2126\u00E9";
    std::wstring text;
    for (std::size_t n = dice.roll(longest + 1); n > 0; --n)
        text += pool[dice.roll(pool.size())];
    return text;
}

/// A value as the reader leaves it, so that it comes back unchanged.
template <class Record>
std::wstring generatedValue(Dice& dice, std::wstring_view column, wchar_t mark) {
    static constexpr std::array<std::wstring_view, 10> words = {
        L"", L"-1", L"N/A", L"TO-220", L"A,b", L"x;y", L"5\" x", L"<3", L"-55", L"NPN"};
    static constexpr std::array<std::wstring_view, 6> pins = {L"A", L"7",  L"1-2-C",
                                                              L"",  L"ZZ", L"-1"};
    if (std::is_same_v<Record, AsrComponent> && column.find(L"Pin") != std::wstring_view::npos)
        return std::wstring(dice.pick(pins));
    if (dice.roll(2) == 0)
        return std::wstring(dice.pick(words));
    return std::to_wstring(dice.roll(500)) + mark + std::to_wstring(dice.roll(1000));
}

/// `count` records of all groups, every text as a reader would leave it.
template <class Record>
typename Kind<Record>::Library generatedLibrary(const CPartwrightPlugInApp& app, std::size_t count,
                                                std::uint64_t seed) {
    Dice dice(seed);
    typename Kind<Record>::Library library;
    for (std::size_t i = 0; i < count; ++i) {
        Record record;
        record.PartNum = trim(upperCase(generatedText(dice, 12)) + std::to_wstring(i));
        record.CatNum = generatedText(dice, 8);
        record.Description = generatedText(dice, 40);
        // Round brackets of an Analyses cell can come back as curly ones.
        record.Manufacturer = trim(removeAll(generatedText(dice, 10), L"()"));
        record.Notes = trim(removeAll(generatedText(dice, 10), L"()"));
        do
            record.group = static_cast<std::int32_t>(1 + dice.roll(Kind<Record>::lastGroup));
        while (app.asr.GroupAndTypeNames(record.group, 0).first == L"PCB" ||
               app.of<Record>().GroupAndTypeNames(record.group, 0).first == notApplicableGroup);
        record.family = FamilyNumber(Kind<Record>::family(record.group));
        const std::size_t types = app.of<Record>().typesOf(record.group).size();
        if (types > 1)
            record.type = static_cast<std::int32_t>(1 + dice.roll(types - 1));
        const Names columns = Kind<Record>::columns(record.group);
        for (std::size_t c = 0; c < columns.size(); ++c)
            record.LPar[c] = generatedValue<Record>(dice, columns[c], app.decimalMark());
        UpdateCompletion(app.of<Record>(), record);
        library[record.PartNum] = record;
    }
    return library;
}

/// The file with a few bytes, cells or lines damaged in ways that matter to a reader.
inline std::string damaged(std::string bytes, Dice& dice) {
    static const std::array<std::string, 22> pieces = {"\"",
                                                       "\"\"",
                                                       "\"\"\"",
                                                       ",",
                                                       ";",
                                                       "<",
                                                       ">",
                                                       "\n",
                                                       "\r",
                                                       "\r\n",
                                                       "\\",
                                                       "sep=",
                                                       "sep=;x",
                                                       "*",
                                                       "-",
                                                       std::string(1, '\0'),
                                                       "\xC2\xB5",
                                                       "\xE9",
                                                       " ",
                                                       "4,7",
                                                       std::string(300, 'x'),
                                                       std::string(400, ',')};
    for (std::size_t n = 1 + dice.roll(6); n > 0; --n) {
        const std::size_t at = dice.roll(bytes.size() + 1);
        if (dice.roll(3) == 0)
            bytes.erase(at, dice.roll(40));
        else
            bytes.insert(at, dice.pick(pieces));
    }
    return bytes;
}

} // namespace partwright::test
