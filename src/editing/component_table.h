#pragma once

// The cells of a Change Component dialog: texts by row and column, the flag "Full" of each row,
// what a judge said of it, and the way back. It knows no verbs and no rules; TableSession is made
// of it.
//
// Full says "+" when every visible cell from Type to the last parameter is filled. A write only
// marks its row; refreshFlags() then looks at the marked rows and leaves the table as a pass over
// all rows would, so that moving through a table costs the same whatever its size.
//
// Which cells break their rule is found by others, row by row, and kept here until the row changes;
// so a count over the whole table costs what changed.
//
// Undo: a verb opens a step, writes cells or moves rows, closes the step. Undo and redo exchange
// what the step keeps with what the table holds. A step keeps the cells that were written, and at
// most so many of them that undo takes less memory than a large table; beyond that the oldest steps
// go.

#include "editing/kept_cells.h"
#include "editing/table_setup.h"

#include <bitset>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

/// A set of columns.
using ColumnSet = std::bitset<64>;

/// One component.
struct TableRow {
    /// Key of the record that the row is stored to, where it is not the part number as shown.
    std::optional<std::wstring> ownKey;
    /// Of a copied part, the key of the record it started from.
    std::wstring source;
    /// The record does not exist before OK.
    bool isNew = false;
    /// Full must be looked at again.
    bool isMarked = false;
    /// Columns whose text breaks its rule; nothing until the row was judged.
    std::optional<ColumnSet> broken;
    /// By column; column 0 is not used.
    std::vector<std::wstring> cells;

    [[nodiscard]] const std::wstring& part() const {
        return ownKey ? *ownKey : cells[partNumberColumn];
    }
};

/// A part that left the table with its record's group.
struct DepartedPart {
    TableRow row;
    std::int32_t group = 0;
    std::int32_t family = 0;
    /// It stood in the table before; a part that was added to another group never did.
    bool wasHere = false;
};

class ComponentTable {
public:
    using IndexedRows = std::vector<std::pair<std::size_t, TableRow>>;

    explicit ComponentTable(TableSetup setup) : setup_(std::move(setup)) {}

    [[nodiscard]] const TableSetup& setup() const { return setup_; }
    [[nodiscard]] std::size_t rowCount() const { return rows_.size(); }
    [[nodiscard]] const TableRow& row(std::size_t row) const { return rows_[row]; }
    [[nodiscard]] const std::wstring& text(std::size_t row, std::size_t column) const {
        return rows_[row].cells[column];
    }
    [[nodiscard]] const std::wstring& type(std::size_t row) const { return text(row, typeColumn); }
    [[nodiscard]] const std::vector<DepartedPart>& departed() const { return departed_; }

    void reserve(std::size_t rows) { rows_.reserve(rows); }
    /// Outside of any step: a row as it is opened.
    void load(TableRow row);

    /// Writes a cell and marks its row.
    void write(std::size_t row, std::size_t column, std::wstring_view text);
    /// Marks a row whose Full flag may be wrong.
    void mark(std::size_t row);
    /// Says for now that a row is full or not; the next refresh judges it again.
    void flag(std::size_t row, bool isFull);

    [[nodiscard]] bool isComplete(std::size_t row) const;
    /// The rows whose flag changed.
    std::vector<std::size_t> refreshFlags();

    /// What a judge said of a row.
    void judge(std::size_t row, ColumnSet broken);
    /// Over the rows that are judged.
    [[nodiscard]] std::size_t brokenCells() const { return brokenCells_; }
    /// A row that was not judged since it changed; none when all are.
    std::optional<std::size_t> takeUnjudged();

    /// Opens a step; it must not be open already.
    void beginStep();
    /// A row at the end.
    std::size_t append(TableRow row);
    /// `rows` ascending. No row is removed in a step that writes cells.
    void remove(const std::vector<std::size_t>& rows);
    void depart(DepartedPart part);
    void endStep();
    /// Drops an open step and takes back what it did.
    void cancelStep();

    [[nodiscard]] bool canUndo() const { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const { return !redo_.empty(); }
    /// What the closed steps keep.
    [[nodiscard]] std::size_t keptBytes() const { return keptBytes_; }
    /// What the table's rows went through; row numbers of `removed` are those before it, of
    /// `inserted` and `changed` those after it.
    struct Change {
        std::vector<std::size_t> changed;
        std::vector<std::size_t> removed;
        std::vector<std::size_t> inserted;
    };
    Change undo();
    Change redo();

private:
    struct Step {
        KeptCells cells;
        IndexedRows out;
        std::vector<std::size_t> in;
        /// Parts that are in the list of the departed by this step, or, once it is undone, the
        /// parts themselves.
        std::size_t departed = 0;
        std::vector<DepartedPart> back;
        [[nodiscard]] bool isEmpty() const {
            return cells.empty() && out.empty() && in.empty() && departed == 0;
        }
    };
    Change exchange(Step& step);
    std::vector<std::size_t> exchangeCells(KeptCells& cells);
    void exchangeDeparted(Step& step);
    Change move(std::vector<Step>& from, std::vector<Step>& to);
    /// Makes room by dropping the oldest steps.
    void trim();
    void drop(std::vector<Step>& steps);
    void unjudge(std::size_t row);
    IndexedRows takeOut(const std::vector<std::size_t>& rows);
    void putIn(IndexedRows&& rows);
    /// Row numbers changed: the marks are gathered anew.
    void regatherMarks();

    TableSetup setup_;
    std::vector<TableRow> rows_;
    std::vector<DepartedPart> departed_;
    std::vector<std::size_t> marked_;
    std::vector<std::size_t> unjudged_;
    std::size_t brokenCells_ = 0;
    std::size_t keptBytes_ = 0;
    std::optional<Step> open_;
    std::vector<Step> undo_;
    std::vector<Step> redo_;
};

} // namespace partwright
