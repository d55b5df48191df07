#pragma once

// How deep an analysis goes, which decides the columns of the Analyses library that must be filled.

#include <string_view>

namespace partwright {

/// In the order of the radios.
enum class AnalysisLevel { SchematicReview, Rapid, Full };

/// Text of the level's radio, which messages name.
[[nodiscard]] constexpr std::wstring_view levelText(AnalysisLevel level) {
    switch (level) {
    case AnalysisLevel::SchematicReview:
        return L"Schematic Review (ASR)";
    case AnalysisLevel::Rapid:
        return L"Auto Stress Calculation (Rapid )";
    case AnalysisLevel::Full:
        break;
    }
    return L"Tessara (Full)";
}

} // namespace partwright
