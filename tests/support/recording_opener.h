#pragma once

// An opener that opens nothing and remembers what it was asked for.

#include "core/ports/opener.h"

#include <string>
#include <vector>

namespace partwright::test {

class RecordingOpener final : public Opener {
public:
    [[nodiscard]] bool open(std::wstring_view target) override {
        opened.emplace_back(target);
        return answer;
    }

    std::vector<std::wstring> opened;
    /// False: the desktop knows no program.
    bool answer = true;
};

} // namespace partwright::test
