// How the columns of a group library rule turn a part number into a text.

#include "autofill/group_library.h"
#include "core/number.h"
#include "core/text.h"

#include <optional>

namespace partwright {

namespace {

using namespace group_library;

/// "10 kOhm"; a value without a unit stands alone.
std::wstring withUnit(std::wstring value, std::wstring_view prefix, std::wstring_view unit) {
    if (!unit.empty())
        value.append(L" ").append(prefix).append(unit);
    return value;
}

/// A text that stands in the rule itself.
std::wstring fixedText(const GroupLibraryColumn& column, wchar_t mark) {
    const std::wstring_view value = cellOf(column, firstCodeRow);
    if (value.empty() || value.front() == L'(')
        return std::wstring(value);
    const std::optional<double> number = wholeNumber(value, L'.');
    return withUnit(number ? formatGeneral(*number, mark) : std::wstring(value),
                    cellOf(column, firstCodeRow + 2), cellOf(column, firstCodeRow + 1));
}

std::wstring numberText(const GroupLibraryColumn& key, const GroupLibraryColumn& value,
                        std::wstring code, wchar_t mark) {
    if (code.find_first_not_of(L" _-") == std::wstring::npos)
        return {};
    CodedNumber::Reading number = CodedNumber(key).read(std::move(code), mark);
    if (number.text.empty())
        return std::wstring(undefinedNumber);
    return withUnit(std::move(number.text),
                    number.ownPrefix ? std::wstring_view(number.prefix)
                                     : cellOf(value, firstCodeRow + 1),
                    cellOf(value, firstCodeRow));
}

/// The text of a value column that names a key column.
std::wstring codedText(const GroupLibraryColumn& key, const KeyCodes& codes,
                       const GroupLibraryColumn& value, const std::wstring& code, wchar_t mark) {
    const KeyMethod method = codes.method();
    if (method == KeyMethod::Parsing)
        return numberText(key, value, code, mark);
    if (method != KeyMethod::Listed && method != KeyMethod::Optional && method != KeyMethod::Fixed)
        return {};
    const auto row = codes.rowOf(key, code);
    const std::wstring_view cell = row ? cellOf(value, *row) : std::wstring_view();
    if (cell.empty())
        return {};
    const std::size_t unitRow = codes.lastRow() + 1;
    return withUnit(std::wstring(cell == codeItself ? std::wstring_view(code) : cell),
                    cellOf(value, unitRow + 1), cellOf(value, unitRow));
}

/// Fixed and closing fields of the part number have the codes that the rule names, and coded
/// numbers lie in the range of the series.
bool keepsTo(const GroupLibraryColumn& key, const KeyCodes& codes, const std::wstring& code) {
    switch (codes.method()) {
    case KeyMethod::Fixed:
    case KeyMethod::FixedEnd:
        return code == cellOf(key, firstCodeRow);
    case KeyMethod::ListedEnd:
        return codes.rowOf(key, code).has_value();
    case KeyMethod::Parsing: {
        const CodedNumber number(key);
        return number.admits(number.read(code, L'.'));
    }
    default:
        return true;
    }
}

/// The key column that "Par3" names, from 0; nothing when there is none.
std::optional<std::size_t> keyColumnOf(const GroupLibraryRule& rule, std::wstring_view method) {
    if (method.find(reference) == std::wstring_view::npos)
        return std::nullopt;
    const std::int32_t number = toInteger(method.substr(reference.size()));
    if (number < 1 || static_cast<std::size_t>(number) > rule.keyColumns.size())
        return std::nullopt;
    return static_cast<std::size_t>(number) - 1;
}

} // namespace

std::wstring describeBy(const GroupLibraryRule& rule, std::wstring_view partNumber, wchar_t mark) {
    if (rule.keyColumns.empty() || rule.keys.size() != rule.keyColumns.size())
        return {};
    const auto codes = rule.byColumns() ? divide(rule.keyColumns, rule.keys, partNumber)
                                        : std::optional(cut(rule.keys, partNumber));
    if (!codes)
        return {};
    for (std::size_t i = 0; i < rule.keyColumns.size(); ++i)
        if (!keepsTo(rule.keyColumns[i], rule.keys[i], (*codes)[i]))
            return {};
    std::wstring fields;
    for (const GroupLibraryColumn& column : rule.valueColumns) {
        if (column.size() <= firstCodeRow)
            continue;
        const std::wstring_view method = cellOf(column, methodRow);
        std::wstring text;
        if (method == descriptionMethod)
            text = fixedText(column, mark);
        else if (const auto key = keyColumnOf(rule, method))
            text = codedText(rule.keyColumns[*key], rule.keys[*key], column, (*codes)[*key], mark);
        if (!text.empty())
            fields.append(fields.empty() ? L"" : L", ").append(text);
    }
    if (fields.empty() || rule.familyName.empty())
        return fields;
    return rule.familyName + L" " + fields;
}

} // namespace partwright
