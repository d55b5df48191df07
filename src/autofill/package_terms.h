#pragma once

// Pin count and thermal resistance of the package that a text names, as in "TQFP-100". Names of ten
// and more characters are looked for first, then shorter ones down to three; of equally long names
// the first in order wins.

#include "autofill/rule_language.h"

namespace partwright {

/// Without a package in the text, the number before "pin"; empty when there is none either.
[[nodiscard]] std::wstring pinCount(const ScannedText& text, const PackageTable& packages,
                                    wchar_t mark);

/// Junction to ambient, or junction to case; empty unless the package's row is known.
[[nodiscard]] std::wstring thermalResistance(const ScannedText& text, const PackageTable& packages,
                                             bool toAmbient, wchar_t mark);

} // namespace partwright
