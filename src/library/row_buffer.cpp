#include "library/row_buffer.h"

#include "core/cell_text.h"
#include "core/text.h"

namespace partwright {

bool RowBuffer::narrowed(std::wstring_view text) {
    char* to = room(text.size());
    unsigned found = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<char32_t>(text[i]);
        found |= c < 0x80 ? special_[c] : 1U;
        to[i] = static_cast<char>(c);
    }
    if (found != 0)
        return false;
    used_ += text.size();
    return true;
}

bool RowBuffer::encoded(std::wstring_view text) {
    std::string bytes;
    const bool complete = encodeInto(bytes, text, codePage_);
    raw(bytes);
    return complete;
}

bool RowBuffer::plain(std::wstring_view text) {
    return narrowed(text) || encoded(removeAll(text, L"\r\n"));
}

bool RowBuffer::quoted(std::wstring_view text) {
    constexpr std::string_view quotes = "\"\"\"";
    text = text.substr(0, cell::maximumLength);
    raw(quotes);
    if (!narrowed(text) && !encoded(replaceAll(removeAll(text, L"\r\n"), L"\"", L"\"\"")))
        return false;
    raw(quotes);
    return true;
}

bool RowBuffer::bareOrQuoted(std::wstring_view text) {
    text = text.substr(0, cell::maximumLength);
    const bool ends = endsRow(text);
    if (!ends && narrowed(text))
        return true;
    const auto separator = static_cast<wchar_t>(separator_);
    if (ends || text.find(L'"') != std::wstring_view::npos ||
        text.find(separator) != std::wstring_view::npos)
        return quoted(text);
    return plain(text);
}

} // namespace partwright
