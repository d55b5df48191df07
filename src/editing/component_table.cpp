#include "editing/component_table.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace partwright {

namespace {

constexpr std::size_t maximumSteps = 200;
constexpr std::size_t maximumKeptBytes = std::size_t{160} << 20;

} // namespace

void ComponentTable::load(TableRow row) {
    rows_.push_back(std::move(row));
    const std::size_t last = rows_.size() - 1;
    unjudged_.push_back(last);
    if ((text(last, fullColumn) == fullMark) != isComplete(last))
        mark(last);
}

void ComponentTable::write(std::size_t row, std::size_t column, std::wstring_view text) {
    std::wstring& cell = rows_[row].cells[column];
    mark(row);
    if (cell == text)
        return;
    // The flag follows from the other cells, and a row that came with the step goes with it.
    const bool isOwn = open_ && !open_->in.empty() && open_->in.back() == row;
    if (open_ && !isOwn && column != fullColumn)
        open_->cells.keep({row, column}, cell);
    cell = text;
    if (column != fullColumn)
        unjudge(row);
}

void ComponentTable::mark(std::size_t row) {
    if (!std::exchange(rows_[row].isMarked, true))
        marked_.push_back(row);
}

void ComponentTable::flag(std::size_t row, bool isFull) {
    write(row, fullColumn, isFull ? fullMark : notFullMark);
}

bool ComponentTable::isComplete(std::size_t row) const {
    const auto& cells = rows_[row].cells;
    for (std::size_t column = typeColumn; column <= setup_.lastParameter; ++column)
        if (cells[column].empty() && !setup_.columns[column].hidden)
            return false;
    return true;
}

std::vector<std::size_t> ComponentTable::refreshFlags() {
    std::vector<std::size_t> changed;
    for (const std::size_t row : std::exchange(marked_, {})) {
        rows_[row].isMarked = false;
        std::wstring& full = rows_[row].cells[fullColumn];
        const std::wstring_view mark = isComplete(row) ? fullMark : notFullMark;
        if (full != mark) {
            full = mark;
            changed.push_back(row);
        }
    }
    return changed;
}

void ComponentTable::judge(std::size_t row, ColumnSet broken) {
    brokenCells_ += broken.count();
    if (rows_[row].broken)
        brokenCells_ -= rows_[row].broken->count();
    rows_[row].broken = broken;
}

void ComponentTable::unjudge(std::size_t row) {
    if (!rows_[row].broken)
        return; // it waits already
    brokenCells_ -= rows_[row].broken->count();
    rows_[row].broken.reset();
    unjudged_.push_back(row);
}

std::optional<std::size_t> ComponentTable::takeUnjudged() {
    while (!unjudged_.empty()) {
        const std::size_t row = unjudged_.back();
        unjudged_.pop_back();
        if (!rows_[row].broken)
            return row;
    }
    return std::nullopt;
}

void ComponentTable::beginStep() {
    open_.emplace();
}

std::size_t ComponentTable::append(TableRow row) {
    rows_.push_back(std::move(row));
    const std::size_t last = rows_.size() - 1;
    rows_[last].isMarked = false;
    rows_[last].broken.reset();
    mark(last);
    unjudged_.push_back(last);
    open_->in.push_back(last);
    return last;
}

void ComponentTable::remove(const std::vector<std::size_t>& rows) {
    open_->out = takeOut(rows);
    regatherMarks();
}

void ComponentTable::depart(DepartedPart part) {
    departed_.push_back(std::move(part));
    ++open_->departed;
}

void ComponentTable::endStep() {
    if (!open_->isEmpty()) {
        open_->cells.close();
        keptBytes_ += open_->cells.bytes();
        undo_.push_back(std::move(*open_));
        while (!redo_.empty())
            drop(redo_);
        trim();
    }
    open_.reset();
}

void ComponentTable::drop(std::vector<Step>& steps) {
    keptBytes_ -= steps.front().cells.bytes();
    steps.erase(steps.begin());
}

void ComponentTable::trim() {
    while (undo_.size() > maximumSteps || (undo_.size() > 1 && keptBytes_ > maximumKeptBytes))
        drop(undo_);
}

void ComponentTable::cancelStep() {
    exchange(*open_);
    open_.reset();
}

ComponentTable::Change ComponentTable::undo() {
    return move(undo_, redo_);
}

ComponentTable::Change ComponentTable::redo() {
    return move(redo_, undo_);
}

ComponentTable::Change ComponentTable::move(std::vector<Step>& from, std::vector<Step>& to) {
    Step step = std::move(from.back());
    from.pop_back();
    keptBytes_ -= step.cells.bytes();
    Change change = exchange(step);
    keptBytes_ += step.cells.bytes();
    to.push_back(std::move(step));
    return change;
}

ComponentTable::Change ComponentTable::exchange(Step& step) {
    Change change;
    change.changed = exchangeCells(step.cells);
    change.removed = std::move(step.in);
    for (auto& [at, row] : step.out) {
        row.isMarked = true;
        change.inserted.push_back(at);
    }
    IndexedRows taken = takeOut(change.removed);
    putIn(std::move(step.out));
    step.out = std::move(taken);
    step.in = change.inserted;
    exchangeDeparted(step);
    regatherMarks();
    return change;
}

/// What is kept now is in the other order, so the next exchange goes the right way by itself.
std::vector<std::size_t> ComponentTable::exchangeCells(KeptCells& cells) {
    std::vector<std::size_t> changed;
    KeptCells now;
    for (std::size_t place = cells.size(); place-- > 0;) {
        const CellAt at = cells.at(place);
        std::wstring& cell = rows_[at.row].cells[at.column];
        now.keep(at, cell);
        cell = cells.text(place);
        rows_[at.row].isMarked = true;
        unjudge(at.row);
        if (changed.empty() || changed.back() != at.row)
            changed.push_back(at.row);
    }
    now.close();
    cells = std::move(now);
    std::sort(changed.begin(), changed.end());
    changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
    return changed;
}

void ComponentTable::exchangeDeparted(Step& step) {
    if (!step.back.empty()) {
        for (DepartedPart& part : step.back)
            departed_.push_back(std::move(part));
        step.back.clear();
    } else if (step.departed != 0) {
        const auto first = departed_.end() - static_cast<std::ptrdiff_t>(step.departed);
        step.back.assign(std::make_move_iterator(first), std::make_move_iterator(departed_.end()));
        departed_.erase(first, departed_.end());
    }
}

ComponentTable::IndexedRows ComponentTable::takeOut(const std::vector<std::size_t>& rows) {
    IndexedRows taken;
    if (rows.empty())
        return taken;
    std::size_t to = rows.front();
    std::size_t next = 0;
    for (std::size_t from = to; from < rows_.size(); ++from) {
        if (next < rows.size() && rows[next] == from) {
            unjudge(from);
            taken.emplace_back(from, std::move(rows_[from]));
            ++next;
        } else {
            rows_[to++] = std::move(rows_[from]);
        }
    }
    rows_.resize(to);
    return taken;
}

void ComponentTable::putIn(IndexedRows&& rows) {
    if (rows.empty())
        return;
    std::vector<TableRow> merged;
    merged.reserve(rows_.size() + rows.size());
    std::size_t old = 0;
    for (auto& [at, row] : rows) {
        while (merged.size() < at && old < rows_.size())
            merged.push_back(std::move(rows_[old++]));
        merged.push_back(std::move(row));
    }
    while (old < rows_.size())
        merged.push_back(std::move(rows_[old++]));
    rows_ = std::move(merged);
}

void ComponentTable::regatherMarks() {
    marked_.clear();
    unjudged_.clear();
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].isMarked)
            marked_.push_back(row);
        if (!rows_[row].broken)
            unjudged_.push_back(row);
    }
}

} // namespace partwright
