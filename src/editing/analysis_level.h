#pragma once

// How deep an analysis goes, which decides the columns of the Analyses library that must be filled.

namespace partwright {

/// In the order of the radios: "Schematic Review (ASR)", "Auto Stress Calculation (Rapid )",
/// "Tessara (Full)".
enum class AnalysisLevel { SchematicReview, Rapid, Full };

} // namespace partwright
