#pragma once

// The checks over a component table that only one kind of library has. A session asks them at the
// verbs named here and does itself what both kinds share. A report asks the same checks of every
// row (library_check.h). Findings count rows as the table does.

#include "editing/component_table.h"
#include "editing/table_outcome.h"
#include "validation/analyses_checks.h"
#include "validation/validation_tables.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace partwright {

/// A kind of library without checks of its own.
class TableChecks {
public:
    TableChecks() = default;
    TableChecks(const TableChecks&) = delete;
    TableChecks& operator=(const TableChecks&) = delete;
    virtual ~TableChecks() = default;

    /// Before the common checks of a committed Type or parameter cell, which follow when the text
    /// is left open. `shownRow` is the row's number on the screen.
    [[nodiscard]] virtual CommitAnswer atCommit(const ComponentTable& table, CellAt at,
                                                std::wstring_view text, std::size_t shownRow) const;
    /// Before a row is copied.
    [[nodiscard]] virtual std::optional<Finding> atCopy(const ComponentTable& table,
                                                        std::span<const std::size_t> order) const;
    /// At OK for each row in turn, behind the question on unfilled columns.
    [[nodiscard]] virtual std::optional<Finding> atOkRow(const ComponentTable& table,
                                                         std::size_t row) const;
    /// At OK over all rows, in the order on the screen.
    [[nodiscard]] virtual std::optional<Finding>
    atOkTable(const ComponentTable& table, std::span<const std::size_t> order) const;
    /// Each step's first finding about one row alone.
    [[nodiscard]] virtual std::vector<Finding> everyStep(const ComponentTable& table,
                                                         std::size_t row) const;
    /// The column lists pins, which no single-value rule fits.
    [[nodiscard]] virtual bool isPinList(const TableColumn& column) const;
};

/// SDTA: the limits of resistor power at commit and at OK, and the combination rules of thermal
/// values at OK.
class StressChecks final : public TableChecks {
public:
    explicit StressChecks(const ValidationTables& tables) : tables_(tables) {}

    [[nodiscard]] CommitAnswer atCommit(const ComponentTable& table, CellAt at,
                                        std::wstring_view text,
                                        std::size_t shownRow) const override;
    [[nodiscard]] std::optional<Finding> atOkRow(const ComponentTable& table,
                                                 std::size_t row) const override;
    [[nodiscard]] std::optional<Finding>
    atOkTable(const ComponentTable& table, std::span<const std::size_t> order) const override;
    [[nodiscard]] std::vector<Finding> everyStep(const ComponentTable& table,
                                                 std::size_t row) const override;

private:
    const ValidationTables& tables_;
};

/// Analyses: units, pins, channels and lists by group, at commit, before a copy and at OK.
class CodedChecks final : public TableChecks {
public:
    explicit CodedChecks(const TableSetup& setup);

    [[nodiscard]] CommitAnswer atCommit(const ComponentTable& table, CellAt at,
                                        std::wstring_view text,
                                        std::size_t shownRow) const override;
    [[nodiscard]] std::optional<Finding> atCopy(const ComponentTable& table,
                                                std::span<const std::size_t> order) const override;
    [[nodiscard]] std::optional<Finding>
    atOkTable(const ComponentTable& table, std::span<const std::size_t> order) const override;
    [[nodiscard]] std::vector<Finding> everyStep(const ComponentTable& table,
                                                 std::size_t row) const override;
    [[nodiscard]] bool isPinList(const TableColumn& column) const override;

private:
    AnalysesChecks checks_;
};

/// The checks that a table of this kind has.
[[nodiscard]] std::unique_ptr<TableChecks> makeTableChecks(const TableSetup& setup,
                                                           const ValidationTables& tables);

} // namespace partwright
