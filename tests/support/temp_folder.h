#pragma once

// A folder of its own for each test, gone when the test ends. It stands in memory where the system
// has such a place, so that flushing to the device costs nothing. The program's own state goes
// there as well.

#include "core/text_file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace partwright::test {

class TempFolder {
public:
    TempFolder() {
        std::error_code none;
        const std::filesystem::path memory = "/dev/shm";
        const bool hasMemory = std::filesystem::is_directory(memory, none);
        std::string name = ((hasMemory ? memory : std::filesystem::temp_directory_path()) /
                            "partwright-test-XXXXXX")
                               .string();
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        path_ = name;
        setenv("XDG_STATE_HOME", (path_ / "state").c_str(), 1);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// Full path text of a file in the folder.
    [[nodiscard]] std::wstring operator/(std::wstring_view file) const {
        return pathText(path_) + L"/" + std::wstring(file);
    }
    /// Puts a file there, with the folders above it.
    std::wstring put(std::wstring_view file, std::string_view bytes) const {
        const std::wstring full = *this / file;
        std::filesystem::create_directories(nativePath(full).parent_path());
        std::ofstream(nativePath(full), std::ios::binary) << bytes;
        return full;
    }
    [[nodiscard]] std::string bytesOf(std::wstring_view file) const {
        std::ifstream in(nativePath(*this / file), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    std::filesystem::path path_;
};

} // namespace partwright::test
