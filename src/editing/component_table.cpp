#include "editing/component_table.h"

#include <algorithm>

namespace partwright {

namespace {

/// Each step keeps whole rows; so many changes can be taken back.
constexpr std::size_t maximumSteps = 200;

} // namespace

void ComponentTable::load(TableRow row) {
    rows_.push_back(std::move(row));
    const std::size_t last = rows_.size() - 1;
    if ((text(last, fullColumn) == fullMark) != isComplete(last))
        mark(last);
}

void ComponentTable::write(std::size_t row, std::size_t column, std::wstring_view text) {
    rows_[row].cells[column] = text;
    mark(row);
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

void ComponentTable::beginStep() {
    open_.emplace();
}

void ComponentTable::keep(std::size_t row) {
    if (open_->changed.empty() || open_->changed.back().first != row)
        open_->changed.emplace_back(row, rows_[row]);
}

std::size_t ComponentTable::append(TableRow row) {
    rows_.push_back(std::move(row));
    rows_.back().isMarked = false;
    mark(rows_.size() - 1);
    open_->in.push_back(rows_.size() - 1);
    return rows_.size() - 1;
}

void ComponentTable::remove(const std::vector<std::size_t>& rows) {
    open_->out = takeOut(rows);
    regatherMarks();
}

void ComponentTable::depart(DepartedPart part) {
    if (!open_->departed)
        open_->departed = departed_;
    departed_.push_back(std::move(part));
}

void ComponentTable::endStep() {
    if (!open_->isEmpty()) {
        undo_.push_back(std::move(*open_));
        redo_.clear();
        if (undo_.size() > maximumSteps)
            undo_.erase(undo_.begin());
    }
    open_.reset();
}

void ComponentTable::cancelStep() {
    exchange(*open_);
    open_.reset();
}

ComponentTable::Change ComponentTable::undo() {
    Step step = std::move(undo_.back());
    undo_.pop_back();
    Change change = exchange(step);
    redo_.push_back(std::move(step));
    return change;
}

ComponentTable::Change ComponentTable::redo() {
    Step step = std::move(redo_.back());
    redo_.pop_back();
    Change change = exchange(step);
    undo_.push_back(std::move(step));
    return change;
}

ComponentTable::Change ComponentTable::exchange(Step& step) {
    Change change;
    for (auto& [at, kept] : step.changed) {
        std::swap(rows_[at], kept);
        rows_[at].isMarked = true;
        change.changed.push_back(at);
    }
    change.removed = std::move(step.in);
    for (auto& [at, row] : step.out) {
        row.isMarked = true;
        change.inserted.push_back(at);
    }
    IndexedRows taken = takeOut(change.removed);
    putIn(std::move(step.out));
    step.out = std::move(taken);
    step.in = change.inserted;
    if (step.departed)
        std::swap(*step.departed, departed_);
    regatherMarks();
    return change;
}

ComponentTable::IndexedRows ComponentTable::takeOut(const std::vector<std::size_t>& rows) {
    IndexedRows taken;
    if (rows.empty())
        return taken;
    std::size_t to = rows.front();
    std::size_t next = 0;
    for (std::size_t from = to; from < rows_.size(); ++from) {
        if (next < rows.size() && rows[next] == from) {
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
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (rows_[row].isMarked)
            marked_.push_back(row);
}

} // namespace partwright
