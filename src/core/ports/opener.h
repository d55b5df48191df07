#pragma once

// Handing a file or an address to the desktop, which opens it with the program of its kind.

#include <string_view>

namespace partwright {

class Opener {
public:
    Opener() = default;
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;
    virtual ~Opener() = default;

    /// `target` is the full path of a file, or an address that begins with "http://" or "https://".
    /// False when the desktop knows no program for it.
    [[nodiscard]] virtual bool open(std::wstring_view target) = 0;
};

} // namespace partwright
