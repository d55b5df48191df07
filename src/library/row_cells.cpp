#include "library/row_cells.h"

#include "core/cell_text.h"
#include "library/field_scanner.h"
#include "library/library_dialect.h"

#include <algorithm>

namespace partwright {

using namespace library_file;

namespace {

constexpr std::string_view threeQuotes = "\"\"\"";
constexpr auto nowhere = std::string_view::npos;

} // namespace

RowCells::End RowCells::read(std::string_view row) {
    const End end = scan(row);
    for (std::size_t i = count_; i < filled_; ++i)
        cells_[i] = {};
    filled_ = count_;
    return end;
}

RowCells::End RowCells::scan(std::string_view cursor) {
    lastClosing_ = cursor.data();
    for (count_ = 0; count_ < maximumCells; ++count_) {
        cursor = dropLeadingBlanks(cursor);
        starts_[count_] = cursor.data();
        if (cursor.empty())
            return End::Line;
        const std::string_view from = cursor;
        auto field = NextField(cursor, separator_, scratch_);
        if (!field && !(field = mended(from, cursor)))
            return End::Refused;
        if (!field->empty() && field->front() == rowEnd)
            return End::Mark;
        if (isTooLong(*field))
            return End::TooLong;
        store(*field);
        if (count_ == rowKind && cells_[rowKind] != rowKind_)
            return End::OtherKind;
    }
    starts_[maximumCells] = cursor.data();
    return End::Line;
}

void RowCells::store(std::string_view field) {
    if (field.data() == scratch_.data())
        cells_[count_] = copies_[count_].assign(field);
    else
        cells_[count_] = field;
    filled_ = std::max(filled_, count_ + 1);
}

/// The field at `from`, which the scanner refused, and the cursor moved behind it. Where it is the
/// rest of an earlier cell, that cell is the one at work again.
std::optional<std::string_view> RowCells::mended(std::string_view from, std::string_view& cursor) {
    const std::size_t end = std::min(from.find(separator_), from.size());
    cursor = from.substr(std::min(end + 1, from.size()));
    const auto open = from.starts_with(threeQuotes) ? std::optional(count_) : openCell();
    if (open) {
        const char* const start = starts_[*open];
        const std::string_view rest(start,
                                    static_cast<std::size_t>(from.data() - start) + from.size());
        const std::size_t limit = *open == count_ ? rest.size() : rest.size() - from.size() + end;
        const auto closing = closingQuotes(rest.substr(0, limit));
        // Quotes end one cell only, so that going back to an earlier cell comes to an end.
        if (closing != nowhere && start + closing > lastClosing_) {
            lastClosing_ = start + closing;
            const std::size_t behind = rest.find(separator_, closing);
            cursor = rest.substr(behind == nowhere ? rest.size() : behind + 1);
            count_ = *open;
            return rest.substr(2, closing - 1);
        }
    }
    if (from.front() == '"')
        return std::nullopt;
    const std::string_view field = dropTrailingBlanks(from.substr(0, end));
    if (field.back() != '"')
        return field;
    // One quote a side is taken off a cell; this one belongs to the text.
    scratch_.assign(1, '"').append(field) += '"';
    return scratch_;
}

/// The last cell so far that began with three quotes and did not end with any.
std::optional<std::size_t> RowCells::openCell() const {
    for (std::size_t i = count_; i-- > 0;) {
        const std::string_view text(starts_[i],
                                    static_cast<std::size_t>(starts_[i + 1] - starts_[i]));
        if (text.starts_with(threeQuotes) && !cells_[i].ends_with('"'))
            return i;
    }
    return std::nullopt;
}

/// Where the three quotes stand that end a cell, which begins with three.
std::size_t RowCells::closingQuotes(std::string_view text) const {
    for (auto at = text.find(threeQuotes, threeQuotes.size()); at != nowhere;
         at = text.find(threeQuotes, at + 1)) {
        const auto behind = dropLeadingBlanks(text.substr(at + threeQuotes.size()));
        if (behind.empty() || behind.front() == separator_)
            return at;
    }
    return nowhere;
}

bool RowCells::isTooLong(std::string_view field) const {
    constexpr std::size_t longestCharacter = 4; // bytes, in UTF-8
    if (field.size() <= cell::maximumLength)
        return false;
    if (field.size() > (cell::maximumLength + 2) * longestCharacter)
        return true;
    return decode(trimQuotes(field), codePage_).size() > cell::maximumLength;
}

void RowCells::readOn(std::string_view cursor, std::size_t wanted) {
    lastClosing_ = cursor.data();
    for (count_ = 0; count_ <= wanted; ++count_) {
        cursor = dropLeadingBlanks(cursor);
        starts_[count_] = cursor.data();
        const std::string_view from = cursor;
        auto field = NextField(cursor, separator_, scratch_);
        if (from.empty() || (!field && !(field = mended(from, cursor))))
            return;
        store(*field);
    }
}

} // namespace partwright
