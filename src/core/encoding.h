#pragma once

// Wide text and the bytes of files. A file is UTF-8 when all of it is valid UTF-8, otherwise
// Windows-1252, in which every byte has a meaning; so bytes that were read are always written back
// as they were.

#include <string>
#include <string_view>

namespace partwright {

enum class CodePage { Utf8, Windows1252 };

[[nodiscard]] bool isValidUtf8(std::string_view bytes);
[[nodiscard]] CodePage detectCodePage(std::string_view bytes);

[[nodiscard]] std::wstring decode(std::string_view bytes, CodePage codePage);
/// Appends instead of making a new text: for readers of many cells.
void decodeInto(std::wstring& target, std::string_view bytes, CodePage codePage);

/// UTF-8 in which each bad byte becomes U+FFFD.
[[nodiscard]] std::wstring decodeLossy(std::string_view bytes);

/// Appends `text`; false at the first character that the code page cannot hold, with the target
/// filled up to it.
[[nodiscard]] bool encodeInto(std::string& target, std::wstring_view text, CodePage codePage);
/// UTF-8 always holds all of a text; a broken code point becomes U+FFFD.
[[nodiscard]] std::string encodeUtf8(std::wstring_view text);

} // namespace partwright
