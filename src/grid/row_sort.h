#pragma once

// The order of rows by the texts of one column. Every text is turned into a key once, and only keys
// are compared; the order among equal keys stays as it was.
//
// Text order is the one people expect of part numbers: without regard to case, and with runs of
// digits compared by their value, so that "R9" comes before "R10". In number order the numbers come
// first, by value, then all other texts in text order. Empty texts come last. A descending sort is
// the exact reverse of these rules.

#include <QString>
#include <vector>

namespace partwright::grid {

enum class SortMode {
    Text,
    Number,
    /// Number when every text that holds a digit is a number, else Text.
    Automatic,
};

enum class SortOrder { Ascending, Descending };

struct SortRule {
    SortMode mode = SortMode::Automatic;
    SortOrder order = SortOrder::Ascending;
    char16_t decimalPoint = u'.';
};

/// Positions of `texts` in their new order.
[[nodiscard]] std::vector<quint32> sortedOrder(const std::vector<QString>& texts,
                                               const SortRule& rule);

} // namespace partwright::grid
