#pragma once

// Texts on their way between the engine and the widgets.

#include <QString>
#include <string>
#include <string_view>

namespace partwright {

[[nodiscard]] inline QString qtText(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline std::wstring engineText(const QString& text) {
    return text.toStdWString();
}

} // namespace partwright
