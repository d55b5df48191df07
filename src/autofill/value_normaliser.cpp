#include "autofill/value_normaliser.h"

#include "core/cell_text.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace partwright {

namespace {

constexpr std::wstring_view defaultKeyword = L"DEFAULT";

constexpr bool separates(wchar_t c) {
    return c == L' ' || c == L',';
}

/// The number text that stands before a unit at `at`; nothing when what stands there is no number
/// of its own, such as the end of a range or of a name. The walk goes back to `lowest` at most.
std::optional<std::wstring_view> numberBefore(std::wstring_view text, std::size_t at,
                                              std::size_t lowest) {
    std::size_t end = at;
    while (end > 0 && text[end - 1] == L' ')
        --end;
    bool digit = false;
    bool point = false;
    std::size_t first = end; // the character at first - 1 is looked at next
    for (; first > lowest; --first) {
        const wchar_t c = text[first - 1];
        if (isDigit(c))
            digit = true;
        else if (point)
            break;
        else if (c == L'.' || c == L'/')
            point = true;
        else if (c != L',')
            break;
    }
    const std::size_t stop = first == 0 ? 0 : first - 1;
    if (!digit || text[stop] == L'-' || (stop != 0 && !separates(text[stop])))
        return std::nullopt;
    const std::size_t from = stop == 0 ? 0 : stop + 1;
    return text.substr(from, at - from);
}

/// The value of a number text, fractions included; nothing for a fraction without a value.
std::optional<double> valueOf(std::wstring_view number) {
    if (number.starts_with(L'/'))
        number.remove_prefix(1);
    const auto slash = number.find(L'/');
    if (slash == std::wstring_view::npos)
        return readFreeNumber(number).value;
    const double divisor = readFreeNumber(number.substr(slash + 1)).value;
    if (divisor == 0)
        return std::nullopt;
    const double quotient = readFreeNumber(number.substr(0, slash)).value / divisor;
    return readFreeNumber(formatGeneral(quotient, L'.')).value;
}

/// Walks the occurrences of one unit: those before a blank first, then those before a ",", then
/// the one that ends the text.
class UnitWalk {
public:
    UnitWalk(std::wstring_view text, std::wstring_view unit) : text_(text), unit_(unit) {}

    /// Nothing when no number stands before the unit.
    std::optional<std::wstring_view> number() {
        while (start_ + 1 < text_.size()) {
            const std::size_t at = next();
            if (at == std::wstring_view::npos)
                break;
            const std::size_t lowest = start_ == 0 ? 0 : start_ + 1;
            start_ = at;
            if (step_ == Step::AtEnd && at + unit_.size() != text_.size())
                continue;
            if (const auto number = numberBefore(text_, at, lowest))
                return number;
        }
        return std::nullopt;
    }

private:
    enum class Step { BeforeBlank, BeforeComma, AtEnd };

    /// A step that found nothing once finds nothing further on either, so it is not tried again.
    std::size_t next() {
        if (step_ == Step::BeforeBlank) {
            if (const auto at = followedBy(L' '); at != std::wstring_view::npos)
                return at;
            step_ = Step::BeforeComma;
        }
        if (step_ == Step::BeforeComma) {
            if (const auto at = followedBy(L','); at != std::wstring_view::npos)
                return at;
            step_ = Step::AtEnd;
        }
        return text_.find(unit_, start_ + 1);
    }

    [[nodiscard]] std::size_t followedBy(wchar_t follower) const {
        auto at = text_.find(unit_, start_ + 1);
        while (at != std::wstring_view::npos &&
               (at + unit_.size() == text_.size() || text_[at + unit_.size()] != follower))
            at = text_.find(unit_, at + 1);
        return at;
    }

    std::wstring_view text_;
    std::wstring_view unit_;
    std::size_t start_ = 0;
    Step step_ = Step::BeforeBlank;
};

double finite(double value) {
    constexpr double largest = std::numeric_limits<double>::max();
    return std::clamp(value, -largest, largest);
}

PreparedUnits
unitsFrom(std::initializer_list<std::pair<std::wstring_view, std::wstring_view>> rows) {
    std::vector<std::wstring> units;
    std::vector<std::wstring> factors;
    for (const auto& [unit, factor] : rows) {
        units.emplace_back(unit);
        factors.emplace_back(factor);
    }
    return {units, factors};
}

PreparedKeywords
keywordsFrom(std::initializer_list<std::pair<std::wstring_view, std::wstring_view>> rows) {
    std::vector<std::wstring> keywords;
    std::vector<std::wstring> values;
    for (const auto& [keyword, value] : rows) {
        keywords.emplace_back(keyword);
        values.emplace_back(value);
    }
    return {keywords, values};
}

/// Rated temperatures of dielectric codes. A capacitor without a capacitance in its text is judged
/// by its temperature.
const PreparedKeywords& dielectrics() {
    static const PreparedKeywords list = keywordsFrom({{L"X5", L"85"},
                                                       {L"X6", L"105"},
                                                       {L"X7", L"125"},
                                                       {L"X8", L"150"},
                                                       {L"X9", L"200"},
                                                       {L"Y5", L"85"},
                                                       {L"Z5", L"85"},
                                                       {L"COG", L"125"},
                                                       {L"NPO", L"125"},
                                                       {L"C0G", L"125"},
                                                       {L"NP0", L"125"}});
    return list;
}

const PreparedKeywords& zeroWords() {
    static const PreparedKeywords list = keywordsFrom({{L"ZERO", L"0.05"}, {L"zero", L"0.05"}});
    return list;
}

} // namespace

NumberPrefix readFreeNumber(std::wstring_view text) {
    if (text.find(L',') == std::wstring_view::npos)
        return readNumber(text, L'.');
    std::wstring copy(text);
    std::replace(copy.begin(), copy.end(), L',', L'.');
    return readNumber(copy, L'.');
}

void ScannedText::assign(std::wstring_view text) {
    text_.assign(text);
    cleaned_.assign(text);
    wordEnds_.clear();
    lasts_ = 0;
    pairs_.fill(0);
    const std::size_t size = text.size();
    for (std::size_t i = 0; i < size; ++i) {
        const wchar_t c = text[i];
        if (c == L'\\')
            cleaned_[i] = L' ';
        else if (c == L'/' && i != 0 && i + 1 != size &&
                 !(isDigit(text[i - 1]) && isDigit(text[i + 1])))
            cleaned_[i] = L' ';
        if (i == 0)
            continue;
        const std::uint16_t pair = pairOf(text[i - 1], c);
        pairs_[pair / 64] |= std::uint64_t{1} << (pair % 64);
        if (separates(cleaned_[i])) {
            wordEnds_.push_back(i);
            lasts_ |= bit(cleaned_[i - 1]);
        }
    }
    if (size != 0) {
        wordEnds_.push_back(size);
        lasts_ |= bit(cleaned_[size - 1]);
    }
}

bool ScannedText::hasWordEnding(std::wstring_view unit) const {
    const std::wstring_view cleaned = cleaned_;
    return std::any_of(wordEnds_.begin(), wordEnds_.end(), [&](std::size_t end) {
        return end > unit.size() && cleaned[end - 1] == unit.back() &&
               cleaned.substr(end - unit.size(), unit.size()) == unit;
    });
}

PreparedUnits::PreparedUnits(TextList units, TextList factors) {
    const std::size_t count = std::min(units.size(), factors.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (units[i].empty())
            continue;
        units_.push_back({units[i], readFreeNumber(factors[i]).value});
        lasts_ |= ScannedText::bit(units[i].back());
    }
}

std::wstring PreparedUnits::extract(const ScannedText& text, wchar_t mark) const {
    if (!text.mayEndInOneOf(lasts_))
        return {};
    for (const Unit& unit : units_) {
        if (!text.mayEndIn(unit.text.back()) || !text.hasWordEnding(unit.text))
            continue;
        if (const auto number = UnitWalk(text.cleaned(), unit.text).number()) {
            const auto value = valueOf(*number);
            return value ? formatGeneral(finite(unit.factor * *value), mark) : std::wstring();
        }
    }
    return {};
}

PreparedKeywords::PreparedKeywords(TextList keywords, TextList values) {
    const std::size_t count = std::min(keywords.size(), values.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::wstring_view text =
            std::wstring_view(keywords[i]).substr(0, cell::maximumLength);
        endsInDefault_ = text == defaultKeyword;
        if (text.empty())
            continue;
        Keyword keyword{std::wstring(text), values[i]};
        if (text.size() > 1) {
            keyword.firstPair = ScannedText::pairOf(text[0], text[1]);
            keyword.lastPair = ScannedText::pairOf(text[text.size() - 2], text.back());
        }
        keywords_.push_back(std::move(keyword));
    }
}

std::wstring_view PreparedKeywords::lookUp(const ScannedText& text) const {
    for (const Keyword& keyword : keywords_) {
        const bool possible = keyword.text.size() == 1 ||
                              (text.mayHold(keyword.firstPair) && text.mayHold(keyword.lastPair));
        if (possible && text.text().find(keyword.text) != std::wstring_view::npos)
            return keyword.value;
    }
    return endsInDefault_ ? std::wstring_view(keywords_.back().value) : std::wstring_view();
}

ValueCondition::ValueCondition(std::wstring_view key, TextList thresholds, TextList operators,
                               std::wstring_view logic)
    : key_(keyOf(key)), both_(logic == L"AND") {
    const std::size_t count = std::min(thresholds.size(), operators.size());
    for (std::size_t i = 0; i < count && i < 2; ++i)
        comparisons_.push_back({operators[i], readFreeNumber(thresholds[i]).value});
}

ValueCondition::Key ValueCondition::keyOf(std::wstring_view name) {
    constexpr std::pair<std::wstring_view, Key> keys[] = {
        {L"V", Key::V},     {L"I", Key::I},     {L"Pw", Key::Pw},
        {L"Cap", Key::Cap}, {L"Res", Key::Res}, {L"T_CAP", Key::CapTemperature}};
    for (const auto& [text, key] : keys)
        if (text == name)
            return key;
    return Key::Unknown;
}

const PreparedUnits& ValueCondition::unitsOf(Key key) {
    // In the order of Key; the units of a condition are fewer than those of the unit table.
    static const std::array<PreparedUnits, 7> lists = {
        unitsFrom({{L"V", L"1"},
                   {L"kV", L"1000"},
                   {L"mV", L"0.001"},
                   {L"uV", L"0.000001"},
                   {L"MV", L"1000000"}}),
        unitsFrom({{L"A", L"1"},
                   {L"mA", L"0.001"},
                   {L"uA", L"0.000001"},
                   {L"kA", L"1000"},
                   {L"nA", L"0.000000001"}}),
        unitsFrom({{L"W", L"1"}, {L"mW", L"0.001"}}),
        unitsFrom({{L"F", L"1000000"},
                   {L"mF", L"1000"},
                   {L"uF", L"1"},
                   {L"UF", L"1"},
                   {L"\u00B5F", L"1"},
                   {L"nF", L"0.001"},
                   {L"NF", L"0.001"},
                   {L"pF", L"0.000001"},
                   {L"PF", L"0.000001"}}),
        unitsFrom({{L"Ohm", L"1"},
                   {L"ohm", L"1"},
                   {L"OHM", L"1"},
                   {L"kOhm", L"1000"},
                   {L"kohm", L"1000"},
                   {L"kOHM", L"1000"},
                   {L"KOhm", L"1000"},
                   {L"Kohm", L"1000"},
                   {L"KOHM", L"1000"},
                   {L"k", L"1000"},
                   {L"K", L"1000"},
                   {L"M", L"1000000"},
                   {L"G", L"1000000000"},
                   {L"mOhm", L"0.001"},
                   {L"mohm", L"0.001"},
                   {L"mOHM", L"0.001"}}),
        unitsFrom({{L"C", L"1"}, {L"\u00B0C", L"1"}, {L"'C", L"1"}}),
        PreparedUnits()};
    return lists[static_cast<std::size_t>(key)];
}

bool ValueCondition::compare(double value, const Comparison& comparison) {
    if (comparison.sign == L">")
        return value > comparison.threshold;
    if (comparison.sign == L"<")
        return value < comparison.threshold;
    if (comparison.sign == L">=")
        return value >= comparison.threshold;
    return comparison.sign == L"<=" && value <= comparison.threshold;
}

bool ValueCondition::holds(const ScannedText& text, std::int32_t family, std::int32_t group) const {
    if (key_ == Key::Unknown || comparisons_.empty())
        return false;
    std::wstring value = unitsOf(key_).extract(text, L'.');
    if (value == L"0")
        value = family == 14 && group == 10 && key_ == Key::Res ? L"0.05" : L"";
    if (value.empty() && key_ == Key::Cap)
        value = dielectrics().lookUp(text);
    if (value.empty() && key_ == Key::Res)
        value = zeroWords().lookUp(text);
    if (value.empty())
        return false;
    const double number = readFreeNumber(value).value;
    const bool first = compare(number, comparisons_.front());
    if (comparisons_.size() == 1)
        return first;
    const bool second = compare(number, comparisons_.back());
    return both_ ? first && second : first || second;
}

std::wstring ExtractValueByUnits(std::wstring_view text, TextList units, TextList factors,
                                 wchar_t mark) {
    return PreparedUnits(units, factors).extract(ScannedText(text), mark);
}

std::wstring LookupByKeyword(std::wstring_view text, TextList keywords, TextList values) {
    return std::wstring(PreparedKeywords(keywords, values).lookUp(ScannedText(text)));
}

std::wstring ExtractCodeLetterValue(std::wstring_view text, wchar_t letter) {
    if (isDigit(letter) || separates(letter) || text.empty())
        return {};
    const std::size_t limit = text.size() - 1;
    for (auto at = text.find(letter, 1); at < limit; at = text.find(letter, at + 1)) {
        std::size_t first = at;
        while (first > 1 && isDigit(text[first - 1]))
            --first;
        const bool opens = first == 1 || separates(text[first - 1]);
        if (at == 1 || !opens)
            continue;
        std::size_t end = at + 1;
        while (end < text.size() && isDigit(text[end]))
            ++end;
        if (end == at + 1 || (end < limit && !separates(text[end])))
            continue;
        std::wstring value(text.substr(first, end - first));
        value[at - first] = L'.';
        return value;
    }
    return {};
}

bool CheckPolarity(std::wstring_view text, std::wstring_view kind, std::wstring_view expected) {
    static const PreparedKeywords polarities = keywordsFrom({{L"NPN", L"NPN"}, {L"PNP", L"PNP"}});
    return kind == L"BIP" && polarities.lookUp(ScannedText(text)) == expected;
}

bool CheckValueCondition(std::wstring_view text, std::wstring_view key, TextList thresholds,
                         TextList operators, std::wstring_view logic, std::int32_t family,
                         std::int32_t group) {
    return ValueCondition(key, thresholds, operators, logic)
        .holds(ScannedText(text), family, group);
}

} // namespace partwright
