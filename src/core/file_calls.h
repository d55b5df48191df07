#pragma once

// The few calls to the system that the C++ streams do not offer: to open without emptying, to lock,
// to reserve space, to cut, and to flush to the device. Each answers with a value below zero or
// false on failure, and leaves the reason in errno. A call that a signal interrupts is made again,
// a bounded number of times.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace partwright {

enum class FileAccess {
    Read,
    /// Of a file that is there.
    Write,
    /// The file is made when it is not there.
    Create,
    /// Made anew, empty, for the user alone.
    Private,
};

/// A file of the system; closes on every way out.
class FileHandle {
public:
    FileHandle() = default;
    FileHandle(const std::filesystem::path& path, FileAccess access);
    ~FileHandle();
    FileHandle(FileHandle&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    [[nodiscard]] bool isOpen() const { return handle_ >= 0; }
    /// Regular: no folder, pipe or device. Unknown: the system does not tell.
    enum class Kind { Regular, Other, Unknown };
    [[nodiscard]] Kind kind() const;

    enum class Lock { Taken, Held };
    /// Keeps other writers of this program away until the file is closed, where the file system
    /// can; Held: another one has the file.
    [[nodiscard]] Lock lock() const;

    /// All of a regular file. A folder has no bytes, and a device may never end.
    [[nodiscard]] bool readAll(std::string& bytes) const;
    /// Makes sure of the space for that many bytes.
    [[nodiscard]] bool reserve(std::size_t size) const;
    /// From the start of the file.
    [[nodiscard]] bool writeAll(std::string_view bytes) const;
    [[nodiscard]] bool cutTo(std::size_t size) const;
    /// To the device.
    [[nodiscard]] bool flush() const;

private:
    int handle_ = -1;
};

/// Makes the folder and those above it, for the user alone; false when there is none afterwards.
[[nodiscard]] bool makePrivateFolder(const std::filesystem::path& folder);
/// Puts a file in the place of another in one step that outlives the loss of power.
[[nodiscard]] bool moveOver(const std::filesystem::path& from, const std::filesystem::path& to);
/// Makes sure that the names in a folder outlive the loss of power, where the system can.
void flushFolder(const std::filesystem::path& folder);

} // namespace partwright
