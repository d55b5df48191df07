#pragma once

// The bytes of a file in the making. Wide text is narrowed straight into one growing buffer; texts
// of plain characters, which are nearly all, cost one pass.

#include "core/encoding.h"
#include "library/field_scanner.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>

namespace partwright {

class RowBuffer {
public:
    RowBuffer(CodePage codePage, char separator) : codePage_(codePage), separator_(separator) {
        for (const char c : {'"', '\r', '\n', separator})
            special_[static_cast<unsigned char>(c)] = 1;
    }

    /// What the code page holds of the text; false when that is not all of it.
    [[nodiscard]] bool plain(std::wstring_view text);
    /// The text in three quotes, inner quotes doubled, without line ends. Here as below, what is
    /// longer than the reader takes is cut, since it would drop the whole row.
    [[nodiscard]] bool quoted(std::wstring_view text);
    /// A cell that stands bare where that reads back, and in three quotes otherwise.
    [[nodiscard]] bool bareOrQuoted(std::wstring_view text);

    /// A bare cell with "<" in front would be taken for the mark at a row's end.
    [[nodiscard]] static bool endsRow(std::wstring_view text) {
        text = dropLeadingBlanks(text);
        return !text.empty() && text.front() == L'<';
    }

    void raw(std::string_view bytes) {
        std::memcpy(room(bytes.size()), bytes.data(), bytes.size());
        used_ += bytes.size();
    }
    void separator() { raw({&separator_, 1}); }

    [[nodiscard]] std::string take() {
        bytes_.resize(used_);
        used_ = 0;
        return std::move(bytes_);
    }

private:
    [[nodiscard]] char* room(std::size_t size) {
        if (bytes_.size() - used_ < size)
            bytes_.resize((used_ + size) * 2);
        return bytes_.data() + used_;
    }
    /// Puts the text down if it needs no second look: ASCII without quotes, line ends, separators.
    [[nodiscard]] bool narrowed(std::wstring_view text);
    [[nodiscard]] bool encoded(std::wstring_view text);

    CodePage codePage_;
    char separator_;
    std::array<unsigned char, 128> special_{};
    std::string bytes_;
    std::size_t used_ = 0;
};

} // namespace partwright
