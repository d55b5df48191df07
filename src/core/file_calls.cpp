#include "core/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#ifdef _WIN32
#include <io.h>
#include <sys/locking.h>
#else
#include <unistd.h>
#endif

namespace partwright {

namespace {

/// A signal that comes again and again must not hold the program for ever.
constexpr int maximumAttempts = 100;

/// Makes a call again while a signal interrupts it.
template <class Call>
auto again(Call call) {
    auto result = call();
    for (int attempt = 1; result < 0 && errno == EINTR && attempt < maximumAttempts; ++attempt)
        result = call();
    return result;
}

#ifdef _WIN32
constexpr std::size_t onePiece = std::size_t{1} << 30;

int openFile(const std::filesystem::path& path, FileAccess access) {
    int flags = _O_BINARY | (access == FileAccess::Read ? _O_RDONLY : _O_RDWR);
    if (access == FileAccess::Create || access == FileAccess::Private)
        flags |= _O_CREAT;
    if (access == FileAccess::Private)
        flags |= _O_TRUNC;
    return _wopen(path.c_str(), flags, _S_IREAD | _S_IWRITE);
}
std::ptrdiff_t readSome(int file, char* data, std::size_t size) {
    return _read(file, data, static_cast<unsigned>(std::min(size, onePiece)));
}
std::ptrdiff_t writeSome(int file, const char* data, std::size_t size) {
    return _write(file, data, static_cast<unsigned>(std::min(size, onePiece)));
}
int rewindFile(int file) {
    return _lseeki64(file, 0, SEEK_SET) == 0 ? 0 : -1;
}
int cutFile(int file, std::size_t size) {
    return _chsize_s(file, static_cast<__int64>(size)) == 0 ? 0 : -1;
}
int reserveSpace(int, std::size_t) {
    return 0;
}
int flushFile(int file) {
    return _commit(file);
}
int lockFile(int file) {
    return _locking(file, _LK_NBLCK, 1);
}
void closeFile(int file) {
    _close(file);
}
#else
int openFile(const std::filesystem::path& path, FileAccess access) {
    // A pipe must be refused, not waited for.
    int flags = O_CLOEXEC | O_NONBLOCK | (access == FileAccess::Read ? O_RDONLY : O_RDWR);
    if (access == FileAccess::Create || access == FileAccess::Private)
        flags |= O_CREAT;
    if (access == FileAccess::Private)
        flags |= O_TRUNC | O_NOFOLLOW;
    const mode_t mode = access == FileAccess::Private ? 0600 : 0666;
    return again([&] { return ::open(path.c_str(), flags, mode); });
}
std::ptrdiff_t readSome(int file, char* data, std::size_t size) {
    return ::read(file, data, size);
}
std::ptrdiff_t writeSome(int file, const char* data, std::size_t size) {
    return ::write(file, data, size);
}
int rewindFile(int file) {
    return ::lseek(file, 0, SEEK_SET) == 0 || errno == ESPIPE ? 0 : -1;
}
int cutFile(int file, std::size_t size) {
    return ::ftruncate(file, static_cast<off_t>(size));
}
/// A device or a file system that cannot reserve is left to the write.
int reserveSpace(int file, std::size_t size) {
    errno = ::posix_fallocate(file, 0, static_cast<off_t>(size));
    return errno == 0 || errno == EINVAL || errno == EOPNOTSUPP || errno == ENODEV ||
                   errno == ESPIPE
               ? 0
               : -1;
}
int flushFile(int file) {
    return ::fsync(file) == 0 || errno == EINVAL || errno == EROFS ? 0 : -1;
}
/// Belongs to the open file, not to the process, so that no other close gives it up.
int lockFile(int file) {
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
#ifdef F_OFD_SETLK
    return ::fcntl(file, F_OFD_SETLK, &whole);
#else
    return ::fcntl(file, F_SETLK, &whole);
#endif
}
void closeFile(int file) {
    ::close(file);
}
#endif

} // namespace

FileHandle::FileHandle(const std::filesystem::path& path, FileAccess access)
    : handle_(openFile(path, access)) {}

FileHandle::~FileHandle() {
    if (handle_ >= 0)
        closeFile(handle_);
}

FileHandle::Kind FileHandle::kind() const {
    struct stat state {};
    if (::fstat(handle_, &state) != 0)
        return Kind::Unknown;
    return (state.st_mode & S_IFMT) == S_IFREG ? Kind::Regular : Kind::Other;
}

FileHandle::Lock FileHandle::lock() const {
    return lockFile(handle_) == 0 || (errno != EAGAIN && errno != EACCES) ? Lock::Taken
                                                                          : Lock::Held;
}

bool FileHandle::readAll(std::string& bytes) const {
    struct stat state {};
    if (::fstat(handle_, &state) != 0)
        return false;
    if ((state.st_mode & S_IFMT) != S_IFREG) {
        errno = (state.st_mode & S_IFMT) == S_IFDIR ? EISDIR : EINVAL;
        return false;
    }
    std::size_t filled = 0;
    bytes.resize(static_cast<std::size_t>(state.st_size) + 1);
    for (;;) {
        const std::ptrdiff_t count =
            again([&] { return readSome(handle_, bytes.data() + filled, bytes.size() - filled); });
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

bool FileHandle::reserve(std::size_t size) const {
    return size == 0 || again([&] { return reserveSpace(handle_, size); }) == 0;
}

bool FileHandle::writeAll(std::string_view bytes) const {
    if (rewindFile(handle_) != 0)
        return false;
    while (!bytes.empty()) {
        const std::ptrdiff_t count =
            again([&] { return writeSome(handle_, bytes.data(), bytes.size()); });
        if (count == 0)
            errno = ENOSPC;
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool FileHandle::cutTo(std::size_t size) const {
    return again([&] { return cutFile(handle_, size); }) == 0;
}

bool FileHandle::flush() const {
    return again([&] { return flushFile(handle_); }) == 0;
}

bool makePrivateFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (std::filesystem::is_directory(folder, error))
        return true;
    if (folder.has_relative_path() && !makePrivateFolder(folder.parent_path()))
        return false;
#ifdef _WIN32
    return std::filesystem::create_directory(folder, error);
#else
    return ::mkdir(folder.c_str(), 0700) == 0 ||
           (errno == EEXIST && std::filesystem::is_directory(folder, error));
#endif
}

bool moveOver(const std::filesystem::path& from, const std::filesystem::path& to) {
#ifdef _WIN32
    std::error_code error;
    std::filesystem::rename(from, to, error);
    return !error;
#else
    if (again([&] { return ::rename(from.c_str(), to.c_str()); }) != 0)
        return false;
    flushFolder(to.parent_path());
    return true;
#endif
}

#ifdef _WIN32
void flushFolder(const std::filesystem::path&) {}
#else
void flushFolder(const std::filesystem::path& folder) {
    const FileHandle opened(folder.empty() ? "." : folder, FileAccess::Read);
    if (opened.isOpen())
        static_cast<void>(opened.flush());
}
#endif

} // namespace partwright
