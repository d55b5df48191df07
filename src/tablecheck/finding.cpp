#include "tablecheck/finding.h"

#include "core/paths.h"
#include "core/text.h"

namespace partwright {

Findings::Findings(std::vector<TableFinding>& all, std::wstring_view path) : all_(all) {
    std::size_t start = path.size();
    while (start > 0 && !isPathSeparator(path[start - 1]))
        --start;
    file_ = path.substr(start);
}

void Findings::add(std::size_t line, std::wstring_view column, std::wstring_view text) {
    all_.push_back({file_, std::wstring(column), refusal(text)});
    if (line != 0)
        all_.back().finding.rows = {line};
}

RuleTable openForCheck(std::wstring_view path, const RuleTableForm& form, Findings& findings,
                       Rows rows) {
    RuleTable table = readRuleTable(path, form);
    if (table.status != FileStatus::Ok) {
        findings.add(0, {},
                     table.status == FileStatus::Absent ? L"the file is missing"
                                                        : L"the file cannot be opened");
        return table;
    }
    bool complete = true;
    for (const std::wstring_view column : form.columns)
        if (!table.header.contains(column)) {
            findings.add(1, column, L"the column is missing");
            complete = false;
        }
    if (!complete)
        table.rows.clear();
    else if (table.rows.empty() && rows == Rows::MustBe)
        findings.add(0, {}, L"the table has no rows");
    return table;
}

std::optional<std::int32_t> integerCell(const RuleRow& row, std::wstring_view column,
                                        Findings& findings) {
    const std::wstring text = row.text(column);
    const IntegerPrefix number = readInteger(text);
    if (number.consumed == 0 || number.consumed != text.size() || number.clamped) {
        findings.add(row.line, column, say({L"\"", text, L"\" is no number"}));
        return std::nullopt;
    }
    return number.value;
}

std::wstring say(std::initializer_list<std::wstring_view> pieces) {
    std::wstring text;
    for (const std::wstring_view piece : pieces)
        text += piece;
    return text;
}

} // namespace partwright
