#pragma once

// The unit table and the parameter rules that are compiled into the program, prepared for use. This
// parses some hundred rules: do it once and pass the tables on.

#include "autofill/param_rules.h"

namespace partwright {

[[nodiscard]] FillTables compiledFillTables();

} // namespace partwright
