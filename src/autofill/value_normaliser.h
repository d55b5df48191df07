#pragma once

// From free text to library values: the lowest layer of the auto-fill engine.
//
//   ExtractValueByUnits(L"100nF 50V", {L"V"}, {L"1"}, L'.')  ->  L"50"
//   LookupByKeyword(L"RES 0603 1%", {L"0603"}, {L"0.1"})     ->  L"0.1"
//   ExtractCodeLetterValue(L"R 4R7 1%", L'R')                ->  L"4.7"
//
// A value is text in the unit of the library, and the empty text means "no value". Numbers are read
// with "," and "." both taken for the decimal mark, and written with six significant digits and the
// mark that the caller gives.
//
// A description is asked hundreds of questions, and the lists asked for never change. So both sides
// have a prepared form: ScannedText is made once for a text, PreparedUnits and PreparedKeywords
// once for a list. The functions with plain lists prepare both and ask once. Every operation takes
// time in proportion to the length of the text, whatever the text holds.

#include "core/number.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

using TextList = std::span<const std::wstring>;

/// A number at the start of a free text, "," and "." alike its decimal mark.
[[nodiscard]] NumberPrefix readFreeNumber(std::wstring_view text);

/// A text with what the searches want to know about it.
class ScannedText {
public:
    ScannedText() = default;
    explicit ScannedText(std::wstring_view text) { assign(text); }
    /// Takes a new text and keeps the memory of the old one.
    void assign(std::wstring_view text);

    [[nodiscard]] std::wstring_view text() const { return text_; }
    /// Backslashes are blanks here, and so are slashes that make no fraction.
    [[nodiscard]] std::wstring_view cleaned() const { return cleaned_; }
    /// Some word of the cleaned text may end in this character; false is certain.
    [[nodiscard]] bool mayEndIn(wchar_t last) const { return (lasts_ & bit(last)) != 0; }
    /// The same for a set of characters, made of bit() of each.
    [[nodiscard]] bool mayEndInOneOf(std::uint64_t set) const { return (lasts_ & set) != 0; }
    /// A word of the cleaned text, with a character before it, ends in `unit`.
    [[nodiscard]] bool hasWordEnding(std::wstring_view unit) const;
    /// The text may hold the two characters of this pair side by side; false is certain.
    [[nodiscard]] bool mayHold(std::uint16_t pair) const {
        return (pairs_[pair / 64] >> (pair % 64) & 1) != 0;
    }
    [[nodiscard]] static constexpr std::uint16_t pairOf(wchar_t first, wchar_t second) {
        const std::uint32_t mixed = static_cast<std::uint32_t>(first) * 0x9E3779B1U ^
                                    static_cast<std::uint32_t>(second) * 0x85EBCA6BU;
        return static_cast<std::uint16_t>(mixed >> 22);
    }
    [[nodiscard]] static constexpr std::uint64_t bit(wchar_t c) {
        return std::uint64_t{1} << (static_cast<std::uint32_t>(c) & 63);
    }

private:
    std::wstring text_;
    std::wstring cleaned_;
    /// Where a blank, a "," or the end of the text follows a character.
    std::vector<std::size_t> wordEnds_;
    std::uint64_t lasts_ = 0;
    std::array<std::uint64_t, 16> pairs_{};
};

/// Units with the factors that take a number to the unit of the library. The order of the list is
/// the priority of the units.
class PreparedUnits {
public:
    PreparedUnits() = default;
    PreparedUnits(TextList units, TextList factors);
    [[nodiscard]] std::wstring extract(const ScannedText& text, wchar_t mark) const;

private:
    struct Unit {
        std::wstring text;
        double factor = 0;
    };
    std::vector<Unit> units_;
    std::uint64_t lasts_ = 0;
};

/// Keywords bound to values. A last keyword "DEFAULT" gives the value of a text without any.
class PreparedKeywords {
public:
    PreparedKeywords() = default;
    PreparedKeywords(TextList keywords, TextList values);
    [[nodiscard]] std::wstring_view lookUp(const ScannedText& text) const;

private:
    struct Keyword {
        std::wstring text;
        std::wstring value;
        std::uint16_t firstPair = 0;
        std::uint16_t lastPair = 0;
    };
    std::vector<Keyword> keywords_;
    bool endsInDefault_ = false;
};

/// The test of a value in a text against one or two thresholds. `key` is one of V, I, Pw, Cap, Res
/// and T_CAP; `operators` are ">", "<", ">=" and "<=". Two comparisons are joined by `logic`: "AND"
/// wants both, everything else either.
class ValueCondition {
public:
    ValueCondition(std::wstring_view key, TextList thresholds, TextList operators,
                   std::wstring_view logic);
    [[nodiscard]] bool holds(const ScannedText& text, std::int32_t family,
                             std::int32_t group) const;

private:
    enum class Key { V, I, Pw, Cap, Res, CapTemperature, Unknown };
    struct Comparison {
        std::wstring sign;
        double threshold = 0;
    };
    [[nodiscard]] static Key keyOf(std::wstring_view name);
    [[nodiscard]] static const PreparedUnits& unitsOf(Key key);
    [[nodiscard]] static bool compare(double value, const Comparison& comparison);

    Key key_;
    bool both_ = false;
    std::vector<Comparison> comparisons_;
};

[[nodiscard]] std::wstring ExtractValueByUnits(std::wstring_view text, TextList units,
                                               TextList factors, wchar_t mark);
[[nodiscard]] std::wstring LookupByKeyword(std::wstring_view text, TextList keywords,
                                           TextList values);
/// The value of a code with `letter` in place of its decimal point. The first character of the text
/// is never part of a value.
[[nodiscard]] std::wstring ExtractCodeLetterValue(std::wstring_view text, wchar_t letter);
/// True when `kind` is "BIP" and the text names the polarity `expected`, NPN or PNP.
[[nodiscard]] bool CheckPolarity(std::wstring_view text, std::wstring_view kind,
                                 std::wstring_view expected);
[[nodiscard]] bool CheckValueCondition(std::wstring_view text, std::wstring_view key,
                                       TextList thresholds, TextList operators,
                                       std::wstring_view logic, std::int32_t family,
                                       std::int32_t group);

} // namespace partwright
