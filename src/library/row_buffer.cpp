#include "library/row_buffer.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

RowBuffer::RowBuffer(CodePage codePage, char separator, std::size_t expected)
    : codePage_(codePage), separator_(separator) {
    for (std::size_t c = 0; c <= ' '; ++c)
        classes_[c] = blank;
    for (std::size_t c = '0'; c <= '9'; ++c)
        classes_[c] = digit;
    for (const char c : {'\r', '\n'})
        classes_[static_cast<std::size_t>(c)] |= lineEnd;
    for (const char c : {'%', '(', ')'})
        classes_[static_cast<std::size_t>(c)] |= ruled;
    for (const char c : {separator, '<'})
        classes_[static_cast<std::size_t>(c)] |= ending;
    classes_['"'] |= quote;
    classes_['-'] |= hyphen;
    bytes_.reserve(expected);
}

/// The buffer's size runs ahead of its use by small steps: each step is filled with zeros first,
/// which is cheap as long as the step stays in the processor's cache.
void RowBuffer::grow(std::size_t size) {
    constexpr std::size_t step = 65536;
    bytes_.resize(used_ + std::max(size, step));
}

std::string RowBuffer::take() {
    bytes_.resize(used_);
    used_ = 0;
    return std::move(bytes_);
}

bool RowBuffer::needsQuotes(std::wstring_view text) {
    const auto start = dropLeadingBlanks(text);
    return (!start.empty() && start.front() == L'<') || text.find(L'"') != std::wstring_view::npos;
}

bool RowBuffer::encoded(std::wstring_view text) {
    std::string bytes;
    const bool complete = encodeInto(bytes, text, codePage_);
    raw(bytes);
    foreignBytes_ = foreignBytes_ || std::any_of(text.begin(), text.end(), isForeignByte);
    return complete;
}

bool RowBuffer::plainCell(std::wstring_view text) {
    const bool complete = encoded(removeAll(text, L"\r\n"));
    separator();
    return complete;
}

bool RowBuffer::quotedSlowly(std::wstring_view text) {
    raw("\"\"\"");
    const bool complete = encoded(replaceAll(removeAll(text, L"\r\n"), L"\"", L"\"\""));
    raw("\"\"\"");
    separator();
    return complete;
}

bool RowBuffer::bareOrQuotedSlowly(std::wstring_view text) {
    const auto separator = static_cast<wchar_t>(separator_);
    if (needsQuotes(text) || text.find(separator) != std::wstring_view::npos)
        return quotedCell(text);
    return plainCell(text);
}

} // namespace partwright
