#pragma once

// The bytes of a file in the making, cell by cell. Wide text is narrowed straight into one growing
// buffer; a cell of plain characters, as nearly all are, costs one pass. Each cell is followed by
// the separator.

#include "core/cell_text.h"
#include "core/encoding.h"
#include "library/field_scanner.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>

namespace partwright {

class RowBuffer {
public:
    /// Classes of characters that need a second look, by the kind of cell they stand in.
    enum Class : unsigned char {
        lineEnd = 1,
        quote = 2,
        /// What ends a bare cell or a row: the separator and "<".
        ending = 4,
        /// What the rules of an Analyses cell are about: percent signs and brackets.
        ruled = 8,
        hyphen = 16,
        digit = 32,
        blank = 64,
    };

    /// `expected` bytes are set aside at once.
    RowBuffer(CodePage codePage, char separator, std::size_t expected);

    /// The cell, if it is ASCII without any character of the classes; else nothing, and false.
    [[nodiscard]] bool simpleCell(std::wstring_view text, unsigned classes) {
        char* const to = room(text.size() + 1);
        if (!narrow(to, text, classes))
            return false;
        to[text.size()] = separator_;
        used_ += text.size() + 1;
        return true;
    }

    /// The text without line ends, whatever else it holds; false when the code page cannot hold it.
    [[nodiscard]] bool plainCell(std::wstring_view text);

    /// The text in three quotes, inner quotes doubled, without line ends. Here as below, what is
    /// longer than the reader takes is cut, since it would drop the whole row.
    [[nodiscard]] bool quotedCell(std::wstring_view text) {
        constexpr std::string_view quotes = "\"\"\"";
        text = text.substr(0, cell::maximumLength);
        char* const to = room(text.size() + 2 * quotes.size() + 1);
        if (!narrow(to + quotes.size(), text, lineEnd | quote))
            return quotedSlowly(text);
        std::memcpy(to, quotes.data(), quotes.size());
        char* const behind = to + quotes.size() + text.size();
        std::memcpy(behind, quotes.data(), quotes.size());
        behind[quotes.size()] = separator_;
        used_ += text.size() + 2 * quotes.size() + 1;
        return true;
    }

    /// A cell that stands bare where that reads back, and in three quotes otherwise.
    [[nodiscard]] bool bareOrQuotedCell(std::wstring_view text) {
        text = text.substr(0, cell::maximumLength);
        return simpleCell(text, lineEnd | quote | ending) || bareOrQuotedSlowly(text);
    }

    /// True for a text that cannot stand bare as a cell whatever the separator: a quote would break
    /// it, and "<" in front would be taken for the mark at a row's end.
    [[nodiscard]] static bool needsQuotes(std::wstring_view text);

    void raw(std::string_view bytes) {
        std::memcpy(room(bytes.size()), bytes.data(), bytes.size());
        used_ += bytes.size();
    }
    void separator() { raw({&separator_, 1}); }
    /// Bytes of another file, in whatever code page.
    void foreign(std::string_view bytes) {
        foreignBytes_ = foreignBytes_ || !isValidUtf8(bytes);
        raw(bytes);
    }
    /// Bytes that are no UTF-8 stand in a file that is.
    [[nodiscard]] bool hasForeignBytes() const {
        return foreignBytes_ && codePage_ == CodePage::Utf8;
    }

    [[nodiscard]] std::string take();

private:
    [[nodiscard]] char* room(std::size_t size) {
        if (bytes_.size() - used_ < size)
            grow(size);
        return bytes_.data() + used_;
    }
    void grow(std::size_t size);

    /// Narrows into `to`; false when that met a character of the classes or none of ASCII.
    [[nodiscard]] bool narrow(char* to, std::wstring_view text, unsigned classes) const {
        unsigned found = 0;
        char32_t all = 0;
        for (const wchar_t c : text) {
            const auto code = static_cast<char32_t>(c);
            all |= code;
            found |= classes_[code & 0x7F];
            *to++ = static_cast<char>(c);
        }
        return (found & classes) == 0 && all < 0x80;
    }
    [[nodiscard]] bool encoded(std::wstring_view text);
    [[nodiscard]] bool quotedSlowly(std::wstring_view text);
    [[nodiscard]] bool bareOrQuotedSlowly(std::wstring_view text);

    CodePage codePage_;
    char separator_;
    std::array<unsigned char, 128> classes_{};
    std::string bytes_;
    std::size_t used_ = 0;
    bool foreignBytes_ = false;
};

} // namespace partwright
