#pragma once

// Texts between the sessions, which speak std::wstring, and the widgets.

#include <QString>
#include <string_view>

namespace partwright {

[[nodiscard]] inline QString shownText(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace partwright
