#pragma once

// Wide text and the bytes of files; bytes that were read are always written back as they were.
//
// A file is UTF-8 when it is ASCII or one of its lines is valid UTF-8 with a character beyond
// ASCII. A byte of such a file that is no UTF-8 (some tool appended in another code page) stands in
// the text as U+DC80 + (byte - 0x80), which no valid text holds. A file without such a line is
// Windows-1252, in which every byte has a meaning.

#include <string>
#include <string_view>

namespace partwright {

enum class CodePage { Utf8, Windows1252 };

[[nodiscard]] bool isValidUtf8(std::string_view bytes);
[[nodiscard]] CodePage detectCodePage(std::string_view bytes);

[[nodiscard]] std::wstring decode(std::string_view bytes, CodePage codePage);
/// Appends instead of making a new text: for readers of many cells.
void decodeInto(std::wstring& target, std::string_view bytes, CodePage codePage);

/// A character that stands for a byte of a file that is no UTF-8.
[[nodiscard]] constexpr bool isForeignByte(wchar_t c) {
    return static_cast<char32_t>(c) >= 0xDC80 && static_cast<char32_t>(c) <= 0xDCFF;
}

/// UTF-8 in which each bad byte becomes U+FFFD.
[[nodiscard]] std::wstring decodeLossy(std::string_view bytes);

/// Appends `text`; false at the first character that the code page cannot hold, with the target
/// filled up to it. UTF-8 holds every text, its foreign bytes as the bytes they were.
[[nodiscard]] bool encodeInto(std::string& target, std::wstring_view text, CodePage codePage);
/// Valid UTF-8 for whoever is no file of ours: foreign bytes and broken code points become U+FFFD.
[[nodiscard]] std::string encodeUtf8(std::wstring_view text);

} // namespace partwright
