#pragma once

// Opens files and addresses with the programs that the desktop keeps for them.

#include "core/ports/opener.h"

namespace partwright {

class DesktopOpener final : public Opener {
public:
    [[nodiscard]] bool open(std::wstring_view target) override;
};

} // namespace partwright
