#include "autofill/group_library_codes.h"

#include "core/number.h"
#include "core/text.h"
#include "library/text_table.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <set>

namespace partwright::group_library {

namespace {

/// No part number is longer; texts that are could make the work long.
constexpr std::size_t longestPartNumber = 255;

constexpr wchar_t formDigit = L'9';
constexpr wchar_t formLetter = L'.';

bool allDigits(std::wstring_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

/// Digits alone, or with a letter at any place.
std::vector<std::wstring> formsOfWidth(std::size_t width, bool withLetters) {
    const std::wstring digits(width, formDigit);
    std::vector<std::wstring> forms = {digits};
    for (std::size_t at = 0; at < width && withLetters; ++at) {
        forms.push_back(digits);
        forms.back()[at] = formLetter;
    }
    return forms;
}

/// With the decimals of the column, and with more where these would change the value.
std::wstring plainNumber(double value, int decimals, wchar_t mark) {
    constexpr int most = 12;
    constexpr double largest = std::numeric_limits<double>::max();
    value = std::min(value, largest);
    std::wstring text = formatFixed(value, mark, most);
    std::size_t kept = text.size();
    for (int place = most; place > decimals && text[kept - 1] == L'0'; --place)
        --kept;
    if (text[kept - 1] == mark)
        --kept;
    return text.substr(0, kept);
}

/// What a prefix multiplies by.
double factorOf(std::wstring_view prefix) {
    static constexpr std::pair<wchar_t, double> factors[] = {
        {L'p', 1e-12}, {L'n', 1e-9}, {L'u', 1e-6}, {L'm', 1e-3},
        {L'k', 1e3},   {L'K', 1e3},  {L'M', 1e6},  {L'G', 1e9}};
    for (const auto& [letter, factor] : factors)
        if (prefix == std::wstring_view(&letter, 1))
            return factor;
    return 1;
}

std::optional<double> limitOf(const GroupLibraryColumn& column, std::size_t row) {
    return wholeNumber(cellOf(column, row), L'.');
}

/// One way through the columns, tried from left to right.
class Division {
public:
    Division(const std::vector<GroupLibraryColumn>& columns, const std::vector<KeyCodes>& keys,
             std::wstring_view partNumber)
        : columns_(columns), keys_(keys), partNumber_(partNumber), codes_(columns.size()) {}

    bool run() { return from(0, 0); }
    [[nodiscard]] std::vector<std::wstring> codes() const { return {codes_.begin(), codes_.end()}; }

private:
    bool from(std::size_t column, std::size_t begin) {
        if (column == columns_.size())
            return begin == partNumber_.size();
        if (failed_.contains({column, begin}))
            return false;
        const std::wstring_view rest = partNumber_.substr(begin);
        std::vector<std::size_t> lengths;
        keys_[column].lengthsAt(columns_[column], rest, column + 1 == columns_.size(), lengths);
        for (const std::size_t length : lengths)
            if (from(column + 1, begin + length)) {
                codes_[column] = rest.substr(0, length);
                return true;
            }
        failed_.insert({column, begin});
        return false;
    }

    const std::vector<GroupLibraryColumn>& columns_;
    const std::vector<KeyCodes>& keys_;
    std::wstring_view partNumber_;
    std::vector<std::wstring_view> codes_;
    /// Columns and places from which no way leads to the end.
    std::set<std::pair<std::size_t, std::size_t>> failed_;
};

} // namespace

KeyMethod methodOf(std::wstring_view name) {
    static constexpr std::pair<std::wstring_view, KeyMethod> methods[] = {
        {L"NU", KeyMethod::NotUsed},
        {L"FIX", KeyMethod::Fixed},
        {L"List", KeyMethod::Listed},
        {L"Optional (List)", KeyMethod::Optional},
        {L"Terminator (Fix)", KeyMethod::FixedEnd},
        {L"Terminator (List)", KeyMethod::ListedEnd}};
    for (const auto& [text, method] : methods)
        if (text == name)
            return method;
    return name.starts_with(parsingMethod) ? KeyMethod::Parsing : KeyMethod::Unknown;
}

const std::array<std::wstring, tableColumns>& tableColumnNames() {
    static const auto list = [] {
        std::array<std::wstring, tableColumns> result;
        for (std::size_t i = 0; i < tableColumns; ++i)
            result[i] = L"LPar" + std::to_wstring(i + 1);
        return result;
    }();
    return list;
}

KeyCodes::KeyCodes(const GroupLibraryColumn& column)
    : method_(methodOf(cellOf(column, methodRow))),
      positions_(ParseIndexList(cellOf(column, positionRow))), lastRow_(firstCodeRow) {
    if (method_ == KeyMethod::Parsing) {
        letters_ = removeAll(cellOf(column, lettersRow), L"|");
        for (const std::wstring_view form : split(cellOf(column, formsRow), L'|'))
            forms_.emplace_back(form);
        if (cellOf(column, formsRow).empty())
            forms_ = formsOfWidth(positions_.size(), !letters_.empty());
        std::stable_sort(forms_.begin(), forms_.end(),
                         [](const auto& a, const auto& b) { return a.size() > b.size(); });
        return;
    }
    const bool fixed = method_ == KeyMethod::Fixed || method_ == KeyMethod::FixedEnd;
    const std::size_t end = fixed ? std::min(firstCodeRow + 1, column.size()) : column.size();
    for (std::size_t row = firstCodeRow; row < end; ++row)
        if (!column[row].empty()) {
            byCode_.push_back(static_cast<std::uint32_t>(row));
            lengths_.push_back(column[row].size());
            lastRow_ = row;
        }
    // Of equal codes the first one counts.
    std::stable_sort(byCode_.begin(), byCode_.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return column[a] < column[b]; });
    std::sort(lengths_.begin(), lengths_.end(), std::greater<>());
    lengths_.erase(std::unique(lengths_.begin(), lengths_.end()), lengths_.end());
}

std::vector<std::wstring_view> KeyCodes::codes(const GroupLibraryColumn& column) const {
    std::vector<std::wstring_view> codes;
    for (const std::uint32_t row : byCode_)
        if (method_ != KeyMethod::Optional && method_ != KeyMethod::NotUsed &&
            (codes.empty() || codes.back() != column[row]))
            codes.emplace_back(column[row]);
    return codes;
}

std::optional<std::size_t> KeyCodes::rowOf(const GroupLibraryColumn& column,
                                           std::wstring_view code) const {
    const auto found = std::lower_bound(
        byCode_.begin(), byCode_.end(), code,
        [&](std::uint32_t row, std::wstring_view text) { return column[row] < text; });
    if (found == byCode_.end() || column[*found] != code)
        return std::nullopt;
    return *found;
}

bool KeyCodes::fits(std::wstring_view form, std::wstring_view text) const {
    if (form.empty() || text.size() < form.size())
        return false;
    for (std::size_t at = 0; at < form.size(); ++at) {
        const wchar_t c = text[at];
        const bool good = form[at] == formDigit    ? isDigit(c) && (at > 0 || c != L'0')
                          : form[at] == formLetter ? letters_.find(c) != std::wstring::npos
                                                   : form[at] == c;
        if (!good)
            return false;
    }
    return true;
}

void KeyCodes::lengthsAt(const GroupLibraryColumn& column, std::wstring_view text, bool last,
                         std::vector<std::size_t>& lengths) const {
    if (method_ == KeyMethod::Parsing) {
        for (const std::wstring& form : forms_)
            if (fits(form, text) && (lengths.empty() || lengths.back() != form.size()))
                lengths.push_back(form.size());
        return;
    }
    if (method_ == KeyMethod::NotUsed) {
        const auto end = std::find_if_not(text.begin(), text.end(), isAsciiAlnum);
        const auto most = std::min(static_cast<std::size_t>(end - text.begin()), positions_.size());
        const std::size_t least = last ? 0 : positions_.size();
        for (std::size_t length = most + 1; length-- > least;)
            lengths.push_back(length);
        return;
    }
    for (const std::size_t length : lengths_)
        if (length <= text.size() && rowOf(column, text.substr(0, length)))
            lengths.push_back(length);
    if (method_ == KeyMethod::Optional)
        lengths.push_back(0);
}

std::optional<std::vector<std::wstring>> divide(const std::vector<GroupLibraryColumn>& columns,
                                                const std::vector<KeyCodes>& keys,
                                                std::wstring_view partNumber) {
    if (partNumber.size() > longestPartNumber)
        return std::nullopt;
    Division division(columns, keys, partNumber);
    if (!division.run())
        return std::nullopt;
    return division.codes();
}

std::vector<std::wstring> cut(const std::vector<KeyCodes>& keys, std::wstring_view partNumber) {
    std::vector<std::wstring> codes(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i)
        for (const std::int32_t position : keys[i].positions())
            if (position >= 1 && static_cast<std::size_t>(position) <= partNumber.size())
                codes[i].push_back(partNumber[static_cast<std::size_t>(position) - 1]);
    return codes;
}

CodedNumber::CodedNumber(const GroupLibraryColumn& key)
    : function_(toInteger(cellOf(key, methodRow).substr(parsingMethod.size()))),
      decimals_(std::clamp(toInteger(cellOf(key, decimalsRow)), 0, 12)),
      letters_(split(cellOf(key, lettersRow), L'|')), scales_(split(cellOf(key, scalesRow), L'|')),
      least_(limitOf(key, leastRow)), greatest_(limitOf(key, greatestRow)) {}

CodedNumber::Reading CodedNumber::read(std::wstring code, wchar_t mark) const {
    constexpr std::wstring_view gaps = L" _-";
    if (const auto gap = code.find_first_of(gaps); gap != std::wstring::npos)
        std::erase(code, wchar_t{code[gap]});
    for (std::size_t at = 0; at < code.size(); ++at)
        for (std::size_t letter = 0; letter < letters_.size(); ++letter)
            if (letters_[letter] == std::wstring_view(code).substr(at, 1))
                return withLetter(std::move(code), at, letter, mark);
    return fromDigits(code, mark);
}

bool CodedNumber::admits(const Reading& reading) const {
    return (!least_ && !greatest_) ||
           (!reading.text.empty() && reading.value >= least_.value_or(reading.value) &&
            reading.value <= greatest_.value_or(reading.value));
}

CodedNumber::Reading CodedNumber::fromDigits(std::wstring_view code, wchar_t mark) const {
    if (!allDigits(code))
        return {};
    const double whole = readNumber(code, L'.').value;
    if (function_ == 4)
        return {plainNumber(whole, decimals_, mark), {}, whole, false};
    if (code.size() == 1 && code != L"0") // a power without a number
        return {};
    int power = code.back() - L'0';
    if (power == 9 && (function_ == 2 || function_ == 5))
        power = -1;
    const double digits = readNumber(code.substr(0, code.size() - 1), L'.').value;
    const double value = power < 0 ? digits / 10 : digits * std::pow(10.0, power);
    return {power < 0 && value <= 1 ? formatFixed(value, mark, 12)
                                    : plainNumber(value, decimals_, mark),
            {},
            value,
            false};
}

CodedNumber::Reading CodedNumber::withLetter(std::wstring code, std::size_t at, std::size_t letter,
                                             wchar_t mark) const {
    const wchar_t sign = code[at];
    const bool last = at + 1 == code.size();
    code.erase(at, 1);
    if (!allDigits(code))
        return {};
    if (!last)
        code.insert(at, at == 0 ? std::wstring(L"0") + mark : std::wstring(1, mark));
    const double number = readNumber(code, mark).value;
    if (function_ != 3 && function_ != 4) {
        const bool plain = sign == L'R' || sign == L'r';
        const std::wstring prefix = plain ? std::wstring() : std::wstring(1, sign);
        return {std::move(code), prefix, number * factorOf(prefix), true};
    }
    if (letter >= scales_.size() || scales_[letter].empty())
        return {};
    const std::wstring_view scale = scales_[letter];
    if (function_ == 3) {
        const std::wstring prefix(scale == L"_" ? L"" : scale);
        return {std::move(code), prefix, number * factorOf(prefix), true};
    }
    const NumberPrefix factor = readNumber(scale, L'.');
    if (factor.consumed != scale.size())
        return {};
    const double value = number * factor.value;
    return {plainNumber(value, decimals_, mark), {}, value, false};
}

} // namespace partwright::group_library
