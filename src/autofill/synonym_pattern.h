#pragma once

// One entry of the synonym table, read and ready to be matched; synonyms.h tells the language.

#include <bitset>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// Capitals of ASCII letters, and one form for signs that are written in several: what matching
/// reads. The length stays.
[[nodiscard]] wchar_t foldSign(wchar_t c);

/// A description as it is matched, with what the entries ask about the whole of it.
struct SynonymText {
    explicit SynonymText(std::wstring_view original);
    SynonymText(const SynonymText&) = delete;
    SynonymText& operator=(const SynonymText&) = delete;

    /// Any of these words stands in the text; ascending, folded.
    [[nodiscard]] bool holdsAny(const std::vector<std::wstring>& words) const;

    std::wstring_view raw;
    std::wstring folded;

private:
    /// Collected at the first question.
    mutable std::optional<std::vector<std::wstring_view>> words_;
    mutable std::vector<std::wstring_view> marks_;
};

/// Which characters can stand at a place: ASCII ones each, all others together.
class CharacterMask {
public:
    void add(wchar_t c) { bits_.set(bitOf(c)); }
    void addAll() { bits_.set(); }
    void add(const CharacterMask& other) { bits_ |= other.bits_; }
    [[nodiscard]] bool holds(wchar_t c) const { return bits_[bitOf(c)]; }

private:
    static std::size_t bitOf(wchar_t c) {
        return static_cast<char32_t>(c) < 128 ? static_cast<std::size_t>(c) : 128;
    }
    std::bitset<129> bits_;
};

/// A number at a place of a text: where it ends, and its digits with "." as the only mark.
struct SynonymNumber {
    std::size_t end = 0;
    std::wstring digits;
};
[[nodiscard]] std::optional<SynonymNumber> readSynonymNumber(std::wstring_view text,
                                                             std::size_t at);

struct SynonymMatch {
    std::size_t end = 0;
    std::vector<std::wstring> captures;
};

class SynonymPattern {
public:
    /// Nothing when the text is no pattern, or one that could match without a character.
    static std::optional<SynonymPattern> read(std::wstring_view find, std::wstring_view replace);

    /// Does the entry match at `at`? `number` is the number that stands there, if any.
    [[nodiscard]] bool match(const SynonymText& text, std::size_t at,
                             const std::optional<SynonymNumber>& number,
                             SynonymMatch& result) const;
    /// Appends the replacement of what was matched from `begin` on.
    void appendReplacement(const SynonymText& text, std::size_t begin, const SynonymMatch& match,
                           std::wstring& target) const;

    /// Texts that the entry was written for, at most `limit`: its choices and some numbers in all
    /// combinations, or a selection of these. Guards and the surroundings are not looked at.
    [[nodiscard]] std::vector<std::wstring> samples(std::size_t limit) const;
    /// What the guards ask for or forbid, word by word.
    [[nodiscard]] std::vector<std::vector<std::wstring>> wantedWords() const;
    [[nodiscard]] std::vector<std::wstring> forbiddenWords() const;

    /// The characters a match can begin with, and for each what can follow: the next character, or
    /// behind a leading number or integer the next one that is no blank.
    struct Opening {
        CharacterMask first;
        CharacterMask next;
    };
    [[nodiscard]] const std::vector<Opening>& openings() const { return openings_; }
    enum class Lead { Number, Integer, Other };
    [[nodiscard]] Lead lead() const;

private:
    enum class Kind { Sign, Exact, Blanks, SomeBlanks, Number, Integer, Digit, Choice, Rest };
    struct Element {
        Kind kind = Kind::Sign;
        wchar_t sign = L'\0';
        std::vector<std::vector<Element>> choices;
    };
    struct Guard {
        bool inverted = false;
        std::vector<std::wstring> words;
    };
    struct Piece {
        static constexpr int nothing = -1;
        static constexpr int foldedMatch = -2;
        std::wstring text;
        /// Behind the text: 0 the whole match, n the n-th capture, or one of the two below.
        int capture = nothing;
    };

    [[nodiscard]] bool readGuards(std::wstring_view& find);
    [[nodiscard]] bool readElements(std::wstring_view find);
    [[nodiscard]] bool readChoice(std::wstring_view inside);
    [[nodiscard]] bool readReplacement(std::wstring_view replace);
    [[nodiscard]] bool prepareOpenings();
    /// What can stand where the elements from `index` on begin; true when they can match nothing.
    bool addFirst(std::size_t index, CharacterMask& mask) const;

    /// What can stand at an element, each in one form or two.
    [[nodiscard]] static std::vector<std::wstring> samplesOf(const Element& element);
    [[nodiscard]] bool guardsHold(const SynonymText& text) const;
    [[nodiscard]] bool matchElement(const Element& element, const SynonymText& text,
                                    std::size_t& at, SynonymMatch& result) const;
    [[nodiscard]] bool endsWell(std::wstring_view folded, std::size_t begin, std::size_t end) const;

    std::vector<Guard> guards_;
    std::vector<Element> elements_;
    std::vector<Piece> pieces_;
    std::vector<Opening> openings_;
};

/// Letters, digits and the signs of units: what makes a word.
[[nodiscard]] bool isSynonymWord(wchar_t c);

/// Where a part number that begins at a place ends: before a blank or one of , ; ( ) [ ]. The
/// place itself when it would be too long for a part number.
[[nodiscard]] std::size_t endOfPartNumber(std::wstring_view folded, std::size_t begin);

} // namespace partwright
