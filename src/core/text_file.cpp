#include "core/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cerrno>
#include <cstring>
#include <system_error>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace partwright {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr char32_t escapedByte = 0xDC00;

// The few calls below are those that the C++ streams do not offer: to reserve space, to flush to
// the device, and to open without emptying.
#ifdef _WIN32
int openFile(std::wstring_view path, bool write) {
    const int flags = write ? _O_RDWR | _O_CREAT | _O_BINARY : _O_RDONLY | _O_BINARY;
    return _wopen(nativePath(path).c_str(), flags, _S_IREAD | _S_IWRITE);
}
std::ptrdiff_t readSome(int file, char* data, std::size_t size) {
    return _read(file, data, static_cast<unsigned>(std::min<std::size_t>(size, 1U << 30)));
}
std::ptrdiff_t writeSome(int file, const char* data, std::size_t size) {
    return _write(file, data, static_cast<unsigned>(std::min<std::size_t>(size, 1U << 30)));
}
bool reserveSpace(int, std::size_t) {
    return true;
}
bool cutTo(int file, std::size_t size) {
    return _chsize_s(file, static_cast<__int64>(size)) == 0;
}
bool rewindFile(int file) {
    return _lseeki64(file, 0, SEEK_SET) == 0;
}
bool flushFile(int file) {
    return _commit(file) == 0;
}
void closeFile(int file) {
    _close(file);
}
#else
int openFile(std::wstring_view path, bool write) {
    // A pipe must be refused, not waited for.
    const int flags = (write ? O_RDWR | O_CREAT : O_RDONLY) | O_CLOEXEC | O_NONBLOCK;
    return ::open(nativePath(path).c_str(), flags, 0666);
}
std::ptrdiff_t readSome(int file, char* data, std::size_t size) {
    return ::read(file, data, size);
}
std::ptrdiff_t writeSome(int file, const char* data, std::size_t size) {
    return ::write(file, data, size);
}
bool reserveSpace(int file, std::size_t size) {
    if (size == 0)
        return true;
    const int error = ::posix_fallocate(file, 0, static_cast<off_t>(size));
    if (error == 0 || error == EINVAL || error == EOPNOTSUPP || error == ENODEV || error == ESPIPE)
        return true; // a device or a file system that cannot reserve is left to the write
    errno = error;
    return false;
}
bool cutTo(int file, std::size_t size) {
    struct stat state {};
    if (::fstat(file, &state) != 0)
        return false;
    return !S_ISREG(state.st_mode) || ::ftruncate(file, static_cast<off_t>(size)) == 0;
}
bool rewindFile(int file) {
    return ::lseek(file, 0, SEEK_SET) == 0 || errno == ESPIPE;
}
bool flushFile(int file) {
    return ::fsync(file) == 0 || errno == EINVAL || errno == EROFS;
}
void closeFile(int file) {
    ::close(file);
}
#endif

/// Closes on every way out.
class File {
public:
    File(std::wstring_view path, bool write) : handle_(openFile(path, write)) {}
    ~File() {
        if (handle_ >= 0)
            closeFile(handle_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    [[nodiscard]] bool isOpen() const { return handle_ >= 0; }
    [[nodiscard]] int handle() const { return handle_; }

private:
    int handle_;
};

bool isRegular(int file) {
    struct stat state {};
    return ::fstat(file, &state) == 0 && (state.st_mode & S_IFMT) == S_IFREG;
}

/// False for what is no regular file: a folder has no bytes, and a device may never end.
bool readAll(int file, std::string& bytes) {
    struct stat state {};
    if (!isRegular(file) || ::fstat(file, &state) != 0)
        return false;
    std::size_t filled = 0;
    bytes.resize(static_cast<std::size_t>(state.st_size) + 1);
    for (;;) {
        const std::ptrdiff_t count = readSome(file, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
        if (filled == bytes.size())
            bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return true;
}

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::ptrdiff_t count = writeSome(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

WriteResult failure(WriteStatus status, int error) {
    return {status, decodeLossy(std::generic_category().message(error))};
}

/// The line end of the first line counts.
LineEnd lineEndOf(std::string_view bytes) {
    const auto end = bytes.find('\n');
    if (end == std::string_view::npos)
        return bytes.find('\r') == std::string_view::npos ? LineEnd::Lf : LineEnd::Cr;
    return end > 0 && bytes[end - 1] == '\r' ? LineEnd::CrLf : LineEnd::Lf;
}

TextForm formOf(std::string_view bytes) {
    return {detectCodePage(bytes), lineEndOf(bytes)};
}

} // namespace

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
    const File file(path, false);
    if (!file.isOpen()) {
        result.status =
            errno == ENOENT || errno == ENOTDIR ? FileStatus::Absent : FileStatus::OpenFailed;
        return result;
    }
    // Two-byte text would read as rows of nobody; taking it for an empty table would lose it.
    const auto isTwoByteText = [](std::string_view bytes) {
        return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    };
    if (!readAll(file.handle(), result.bytes) || isTwoByteText(result.bytes)) {
        result.bytes.clear();
        result.status = FileStatus::OpenFailed;
        return result;
    }
    result.form = formOf(result.bytes);
    if (std::string_view(result.bytes).starts_with(byteOrderMark))
        result.bytes.erase(0, byteOrderMark.size());
    result.status = FileStatus::Ok;
    return result;
}

WriteResult writeTextFile(std::wstring_view path, std::string_view bytes) {
    const File file(path, true);
    std::string before;
    if (!file.isOpen() || (isRegular(file.handle()) && !readAll(file.handle(), before)))
        return failure(WriteStatus::OpenFailed, errno);
    if (!reserveSpace(file.handle(), bytes.size())) {
        const WriteResult result = failure(WriteStatus::WriteFailed, errno);
        static_cast<void>(cutTo(file.handle(), before.size()));
        return result;
    }
    if (rewindFile(file.handle()) && writeAll(file.handle(), bytes) &&
        cutTo(file.handle(), bytes.size()) && flushFile(file.handle()))
        return {};
    const WriteResult result = failure(WriteStatus::WriteFailed, errno);
    if (rewindFile(file.handle()) && writeAll(file.handle(), before))
        static_cast<void>(cutTo(file.handle(), before.size()));
    return result;
}

TextForm formOnDisk(std::wstring_view path) {
    const TextFile file = readTextFile(path);
    return file.status == FileStatus::Ok && !file.bytes.empty() ? file.form : newFileForm();
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
