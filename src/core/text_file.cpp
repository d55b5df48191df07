#include "core/text_file.h"

#include "core/file_calls.h"
#include "core/in_place_file.h"
#include "core/signal_guard.h"

#include <cerrno>
#include <system_error>

namespace partwright {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr char32_t escapedByte = 0xDC00;

/// The line end of the first line counts.
LineEnd lineEndOf(std::string_view bytes) {
    const auto end = bytes.find('\n');
    if (end == std::string_view::npos)
        return bytes.find('\r') == std::string_view::npos ? LineEnd::Lf : LineEnd::Cr;
    return end > 0 && bytes[end - 1] == '\r' ? LineEnd::CrLf : LineEnd::Lf;
}

} // namespace

TextForm textForm(std::string_view bytes) {
    return {detectCodePage(bytes), lineEndOf(bytes)};
}

TextForm newFileForm() {
#ifdef _WIN32
    return {CodePage::Utf8, LineEnd::CrLf};
#else
    return {CodePage::Utf8, LineEnd::Lf};
#endif
}

std::string_view TextForm::lineEndBytes() const {
    switch (lineEnd) {
    case LineEnd::CrLf:
        return "\r\n";
    case LineEnd::Cr:
        return "\r";
    case LineEnd::Lf:
        break;
    }
    return "\n";
}

std::filesystem::path nativePath(std::wstring_view path) {
#ifdef _WIN32
    return std::filesystem::path(path);
#else
    std::string bytes;
    for (const wchar_t c : path) {
        const auto code = static_cast<char32_t>(c);
        if (code >= escapedByte + 0x80 && code <= escapedByte + 0xFF)
            bytes.push_back(static_cast<char>(code - escapedByte));
        else
            static_cast<void>(encodeInto(bytes, std::wstring_view(&c, 1), CodePage::Utf8));
    }
    return std::filesystem::path(bytes);
#endif
}

std::wstring pathText(const std::filesystem::path& path) {
#ifdef _WIN32
    return path.wstring();
#else
    const std::string& bytes = path.native();
    if (isValidUtf8(bytes))
        return decode(bytes, CodePage::Utf8);
    std::wstring text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text.push_back(static_cast<wchar_t>(byte < 0x80 ? byte : escapedByte + byte));
    }
    return text;
#endif
}

bool fileExists(std::wstring_view path) {
    std::error_code error;
    return std::filesystem::exists(nativePath(path), error);
}

TextFile readTextFile(std::wstring_view path) {
    TextFile result;
    const FileHandle file(nativePath(path), FileAccess::Read);
    if (!file.isOpen()) {
        result.status =
            errno == ENOENT || errno == ENOTDIR ? FileStatus::Absent : FileStatus::OpenFailed;
        return result;
    }
    // Two-byte text would read as rows of nobody; taking it for an empty table would lose it.
    const auto isTwoByteText = [](std::string_view bytes) {
        return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    };
    if (!file.readAll(result.bytes) || isTwoByteText(result.bytes)) {
        result.bytes.clear();
        result.status = FileStatus::OpenFailed;
        return result;
    }
    result.mark = markOf(result.bytes);
    result.form = textForm(result.bytes);
    if (std::string_view(result.bytes).starts_with(byteOrderMark))
        result.bytes.erase(0, byteOrderMark.size());
    result.status = FileStatus::Ok;
    return result;
}

WriteResult writeTextFile(std::wstring_view path, std::string_view bytes) {
    const SignalGuard guard;
    InPlaceFile file(path);
    return file.write(std::string(bytes));
}

LineReader::LineReader(std::string_view bytes)
    : rest_(bytes), mark_(lineEndOf(bytes) == LineEnd::Cr ? '\r' : '\n') {}

bool LineReader::next(std::string_view& line) {
    if (rest_.empty())
        return false;
    const auto end = rest_.find(mark_);
    line = rest_.substr(0, end);
    if (mark_ == '\n' && !line.empty() && line.back() == '\r' && end != std::string_view::npos)
        line.remove_suffix(1);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    return true;
}

} // namespace partwright
