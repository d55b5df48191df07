#include "editing/clean_text.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

bool takesDecimals(const ComponentTable& table, const ValidationRules& rules, CellAt at) {
    const TableSetup& setup = table.setup();
    const PropertyView* property = setup.property(table.type(at.row));
    const std::size_t parameter = setup.columns[at.column].parameter;
    if (property == nullptr || parameter == 0 || parameter >= property->valid.size())
        return false;
    const auto rule = rules.find(property->valid[parameter]);
    return rule != rules.end() && rule->second.checkType.size() > 1 &&
           rule->second.checkType[1] == L'F';
}

void replaceFileHyphens(CleanText& clean, std::wstring_view header) {
    if (clean.text.find(cell::fileHyphen) == std::wstring::npos)
        return;
    std::replace(clean.text.begin(), clean.text.end(), cell::fileHyphen, L'-');
    clean.complaint = message::backslashBecomesHyphen(header);
}

std::wstring longText(const TableColumn& column) {
    switch (column.kind) {
    case ColumnKind::CatalogNumber:
        return std::wstring(message::longCatalogNumber);
    case ColumnKind::Description:
        return std::wstring(message::longDescription);
    default:
        return message::longCell(column.header);
    }
}

} // namespace

CleanText cleanText(const TableColumn& column, std::wstring_view text) {
    CleanText result{onOneLine(text), std::nullopt};
    std::wstring& clean = result.text;
    const bool isCatalog = column.kind == ColumnKind::CatalogNumber;
    const bool isFreeText = isCatalog || column.kind == ColumnKind::Description;
    if (isCatalog)
        clean = upperCase(clean);
    // A link is a path: its table is another file, which keeps what separates folders.
    if (column.kind != ColumnKind::Datasheet)
        replaceFileHyphens(result, column.header);
    if (!isFreeText && trim(clean).starts_with(L'<')) {
        clean.erase(0, clean.find_first_not_of(L" <"));
        result.complaint = message::cellBeginsWithRowEnd(column.header);
    }
    const std::size_t limit = isCatalog ? maximumCatalogNumber : cell::maximumLength;
    if (clean.size() > limit) {
        clean.resize(limit);
        result.complaint = longText(column);
    }
    return result;
}

CleanText cleanPartNumber(std::wstring_view text) {
    CleanText result{onOneLine(text), std::nullopt};
    replaceFileHyphens(result, L"Part Number");
    return result;
}

std::wstring keptText(const ComponentTable& table, const ValidationRules& rules, CellAt at,
                      std::wstring_view text) {
    const std::wstring_view number = trim(text);
    const bool isReserved = number == cell::noValue || number == cell::storedNotApplicable;
    if (!isReserved || !takesDecimals(table, rules, at))
        return std::wstring(text);
    return std::wstring(number) + table.setup().decimalMark + L'0';
}

} // namespace partwright
