#pragma once

// Ranges of cells as tab-separated text, the form in which spreadsheets exchange them: a tab
// between cells, a line feed behind each row. A text that itself holds a tab or a line break, or
// starts with a quotation mark, stands in quotation marks with its own ones doubled.

#include <QString>
#include <vector>

namespace partwright::grid {

using TextTable = std::vector<std::vector<QString>>;

[[nodiscard]] QString toTabText(const TextTable& table);

/// Rows may differ in length. A line end at the very end opens no row of its own.
[[nodiscard]] TextTable fromTabText(const QString& text);

} // namespace partwright::grid
