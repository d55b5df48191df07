// How the columns of a group library rule turn a part number into a text.

#include "autofill/group_library.h"
#include "core/number.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace partwright {

namespace {

// Rows of a column, from 0.
constexpr std::size_t methodRow = 2;
constexpr std::size_t firstCodeRow = 3;
constexpr std::size_t lettersRow = 4;
constexpr std::size_t scalesRow = 5;

constexpr std::wstring_view undefined = L"NoDef";
constexpr std::wstring_view parsingMethod = L"Parsing Func_";

std::wstring_view cellOf(const GroupLibraryColumn& column, std::size_t row) {
    return row < column.size() ? std::wstring_view(column[row]) : std::wstring_view();
}

/// The characters of the part number at a field's positions.
std::wstring cut(std::wstring_view partNumber, const std::vector<std::int32_t>& positions) {
    std::wstring code;
    for (const std::int32_t position : positions)
        if (position >= 1 && static_cast<std::size_t>(position) <= partNumber.size())
            code.push_back(partNumber[static_cast<std::size_t>(position) - 1]);
    return code;
}

/// The row of a code; nothing for the empty code and an unknown one.
std::optional<std::size_t> rowOf(const GroupLibraryColumn& column, std::wstring_view code) {
    for (std::size_t row = firstCodeRow; row < column.size() && !code.empty(); ++row)
        if (column[row] == code)
            return row;
    return std::nullopt;
}

std::size_t lastCodeRow(const GroupLibraryColumn& column) {
    std::size_t row = column.size();
    while (row > firstCodeRow + 1 && column[row - 1].empty())
        --row;
    return std::max(row, firstCodeRow + 1) - 1;
}

/// "10 kOhm"; a value without a unit stands alone.
std::wstring withUnit(std::wstring value, std::wstring_view prefix, std::wstring_view unit) {
    if (!unit.empty())
        value.append(L" ").append(prefix).append(unit);
    return value;
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

bool allDigits(std::wstring_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

double wholeValue(std::wstring_view digits) {
    return readNumber(digits, L'.').value;
}

/// A field that is a number in the notation of part numbers: "103", "4K7", "1002".
class CodedNumber {
public:
    CodedNumber(const GroupLibraryColumn& key, const GroupLibraryColumn& value, wchar_t mark)
        : function_(toInteger(cellOf(key, methodRow).substr(parsingMethod.size()))),
          decimals_(std::clamp(toInteger(cellOf(key, firstCodeRow)), 0, 12)),
          letters_(split(cellOf(key, lettersRow), L'|')),
          scales_(split(cellOf(key, scalesRow), L'|')), unit_(cellOf(value, firstCodeRow)),
          prefix_(cellOf(value, firstCodeRow + 1)), mark_(mark) {}

    [[nodiscard]] std::wstring text(std::wstring code) const {
        constexpr std::wstring_view gaps = L" _-";
        if (const auto gap = code.find_first_of(gaps); gap != std::wstring::npos)
            std::erase(code, wchar_t{code[gap]});
        if (code.empty())
            return {};
        for (std::size_t at = 0; at < code.size(); ++at)
            for (std::size_t letter = 0; letter < letters_.size(); ++letter)
                if (letters_[letter] == std::wstring_view(code).substr(at, 1))
                    return withLetter(std::move(code), at, letter);
        return fromDigits(code);
    }

private:
    [[nodiscard]] std::wstring fromDigits(std::wstring_view code) const {
        if (!allDigits(code))
            return std::wstring(undefined);
        if (function_ == 4)
            return withUnit(plainNumber(wholeValue(code), decimals_, mark_), prefix_, unit_);
        if (code.size() == 1 && code != L"0") // a power without a number
            return std::wstring(undefined);
        int power = code.back() - L'0';
        if (power == 9 && (function_ == 2 || function_ == 5))
            power = -1;
        const double digits = wholeValue(code.substr(0, code.size() - 1));
        const double value = power < 0 ? digits / 10 : digits * std::pow(10.0, power);
        std::wstring number = power < 0 && value <= 1 ? formatFixed(value, mark_, 12)
                                                      : plainNumber(value, decimals_, mark_);
        return withUnit(std::move(number), prefix_, unit_);
    }

    [[nodiscard]] std::wstring withLetter(std::wstring code, std::size_t at,
                                          std::size_t letter) const {
        const wchar_t sign = code[at];
        const bool last = at + 1 == code.size();
        code.erase(at, 1);
        if (!allDigits(code))
            return std::wstring(undefined);
        if (!last)
            code.insert(at, at == 0 ? std::wstring(L"0") + mark_ : std::wstring(1, mark_));
        if (function_ != 3 && function_ != 4) {
            const bool plain = sign == L'R' || sign == L'r';
            return withUnit(std::move(code), plain ? L"" : std::wstring(1, sign), unit_);
        }
        if (letter >= scales_.size() || scales_[letter].empty())
            return std::wstring(undefined);
        const std::wstring_view scale = scales_[letter];
        if (function_ == 3)
            return withUnit(std::move(code), scale == L"_" ? L"" : scale, unit_);
        const NumberPrefix factor = readNumber(scale, L'.');
        if (factor.consumed != scale.size())
            return std::wstring(undefined);
        const double value = readNumber(code, mark_).value * factor.value;
        return withUnit(plainNumber(value, decimals_, mark_), prefix_, unit_);
    }

    std::int32_t function_;
    int decimals_;
    std::vector<std::wstring_view> letters_;
    std::vector<std::wstring_view> scales_;
    std::wstring_view unit_;
    std::wstring_view prefix_;
    wchar_t mark_;
};

/// A text that stands in the rule itself.
std::wstring fixedText(const GroupLibraryColumn& column, wchar_t mark) {
    const std::wstring_view value = cellOf(column, firstCodeRow);
    if (value.empty() || value.front() == L'(')
        return std::wstring(value);
    const std::optional<double> number = wholeNumber(value, L'.');
    return withUnit(number ? formatGeneral(*number, mark) : std::wstring(value),
                    cellOf(column, firstCodeRow + 2), cellOf(column, firstCodeRow + 1));
}

/// The text of a value column that names a key column.
std::wstring codedText(const GroupLibraryColumn& key, const GroupLibraryColumn& value,
                       std::wstring code, wchar_t mark) {
    const std::wstring_view method = cellOf(key, methodRow);
    if (method.starts_with(parsingMethod))
        return CodedNumber(key, value, mark).text(std::move(code));
    if (method != L"List" && method != L"Optional (List)" && method != L"FIX")
        return {};
    const auto row = rowOf(key, code);
    const std::wstring_view cell = row ? cellOf(value, *row) : std::wstring_view();
    if (cell.empty())
        return {};
    const std::size_t unitRow = lastCodeRow(key) + 1;
    return withUnit(cell == L"*" ? std::move(code) : std::wstring(cell), cellOf(value, unitRow + 1),
                    cellOf(value, unitRow));
}

/// Fixed and closing fields of the part number have the codes that the rule names.
bool keepsTo(const GroupLibraryColumn& key, std::wstring_view code) {
    const std::wstring_view method = cellOf(key, methodRow);
    if (method == L"FIX" || method == L"Terminator (Fix)")
        return code == cellOf(key, firstCodeRow);
    return method != L"Terminator (List)" || rowOf(key, code).has_value();
}

/// The key column that "Par3" names, from 0; nothing when there is none.
std::optional<std::size_t> keyColumnOf(const GroupLibraryRule& rule, std::wstring_view method) {
    constexpr std::wstring_view reference = L"Par";
    if (method.find(reference) == std::wstring_view::npos)
        return std::nullopt;
    const std::int32_t number = toInteger(method.substr(reference.size()));
    if (number < 1 || static_cast<std::size_t>(number) > rule.keyColumns.size())
        return std::nullopt;
    return static_cast<std::size_t>(number) - 1;
}

} // namespace

std::wstring describeBy(const GroupLibraryRule& rule, std::wstring_view partNumber, wchar_t mark) {
    if (rule.keyColumns.empty() || rule.positions.size() != rule.keyColumns.size())
        return {};
    for (std::size_t i = 0; i < rule.keyColumns.size(); ++i)
        if (!keepsTo(rule.keyColumns[i], cut(partNumber, rule.positions[i])))
            return {};
    std::wstring fields;
    for (const GroupLibraryColumn& column : rule.valueColumns) {
        if (column.size() <= firstCodeRow)
            continue;
        const std::wstring_view method = cellOf(column, methodRow);
        std::wstring text;
        if (method == L"Description")
            text = fixedText(column, mark);
        else if (const auto key = keyColumnOf(rule, method))
            text = codedText(rule.keyColumns[*key], column, cut(partNumber, rule.positions[*key]),
                             mark);
        if (!text.empty())
            fields.append(fields.empty() ? L"" : L", ").append(text);
    }
    if (fields.empty() || rule.familyName.empty())
        return fields;
    return rule.familyName + L" " + fields;
}

} // namespace partwright
