#pragma once

// The checks over a component table that only one kind of library has. A session asks them at the
// places named here and does itself what both kinds share; a stop says what to show and select.

#include "editing/component_table.h"
#include "editing/table_outcome.h"
#include "validation/validation_tables.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct TableStop {
    /// The rows at fault.
    std::vector<std::size_t> rows;
    std::optional<std::wstring> line;
    std::vector<Box> boxes;
};

/// A kind of library without checks of its own.
class TableChecks {
public:
    TableChecks() = default;
    TableChecks(const TableChecks&) = delete;
    TableChecks& operator=(const TableChecks&) = delete;
    virtual ~TableChecks() = default;

    /// Before the common checks of a committed Type or parameter cell; a stop refuses the text.
    [[nodiscard]] virtual std::optional<TableStop> atCommit(const ComponentTable& table, CellAt at,
                                                            std::wstring_view text) const;
    /// At OK for each row in turn, behind the question on unfilled columns.
    [[nodiscard]] virtual std::optional<TableStop> atOkRow(const ComponentTable& table,
                                                           std::size_t row) const;
    /// At OK over all rows, in the order on the screen.
    [[nodiscard]] virtual std::optional<TableStop>
    atOkTable(const ComponentTable& table, std::span<const std::size_t> order) const;
};

/// SDTA: the limits of resistor power at commit and at OK, and the combination rules of thermal
/// values at OK.
class StressChecks final : public TableChecks {
public:
    explicit StressChecks(const ValidationTables& tables) : tables_(tables) {}

    [[nodiscard]] std::optional<TableStop> atCommit(const ComponentTable& table, CellAt at,
                                                    std::wstring_view text) const override;
    [[nodiscard]] std::optional<TableStop> atOkRow(const ComponentTable& table,
                                                   std::size_t row) const override;
    [[nodiscard]] std::optional<TableStop>
    atOkTable(const ComponentTable& table, std::span<const std::size_t> order) const override;

private:
    const ValidationTables& tables_;
};

} // namespace partwright
