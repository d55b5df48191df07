#pragma once

// The cells of a Change Component dialog: texts by row and column, the flag "Full" of each row, and
// the way back. It knows no verbs and no rules; TableSession is made of it.
//
// Full says "+" when every visible cell from Type to the last parameter is filled. A write only
// marks its row; refreshFlags() then looks at the marked rows and leaves the table as a pass over
// all rows would, so that moving through a table costs the same whatever its size.
//
// Undo: a verb opens a step, changes rows, closes the step. Undo and redo exchange what the step
// keeps with what the table holds.

#include "editing/table_setup.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

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

    /// Opens a step; it must not be open already.
    void beginStep();
    /// The row is about to change; a step goes through its rows one after the other. No row is
    /// removed in a step that changes rows.
    void keep(std::size_t row);
    /// A row at the end.
    std::size_t append(TableRow row);
    /// `rows` ascending.
    void remove(const std::vector<std::size_t>& rows);
    void depart(DepartedPart part);
    void endStep();
    /// Drops an open step and takes back what it kept.
    void cancelStep();
    [[nodiscard]] bool isStepOpen() const { return open_.has_value(); }

    [[nodiscard]] bool canUndo() const { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const { return !redo_.empty(); }
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
        IndexedRows changed;
        IndexedRows out;
        std::vector<std::size_t> in;
        std::optional<std::vector<DepartedPart>> departed;
        [[nodiscard]] bool isEmpty() const {
            return changed.empty() && out.empty() && in.empty() && !departed;
        }
    };
    Change exchange(Step& step);
    IndexedRows takeOut(const std::vector<std::size_t>& rows);
    void putIn(IndexedRows&& rows);
    /// Row numbers changed: the marks are gathered anew.
    void regatherMarks();

    TableSetup setup_;
    std::vector<TableRow> rows_;
    std::vector<DepartedPart> departed_;
    std::vector<std::size_t> marked_;
    std::optional<Step> open_;
    std::vector<Step> undo_;
    std::vector<Step> redo_;
};

} // namespace partwright
