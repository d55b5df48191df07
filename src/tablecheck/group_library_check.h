#pragma once

// The checks of the group library.

#include "autofill/fill_engine.h"
#include "core/application.h"
#include "tablecheck/finding.h"

#include <vector>

namespace partwright {

/// Sections and numbers, expressions, index rows, methods; that each expression admits only codes
/// which the rule's lists hold; that each example is decoded by its own rule, or by an earlier one
/// to the same text, and fills values.
void checkGroupLibrary(const CPartwrightPlugInApp& app, FillEngine& engine,
                       std::vector<TableFinding>& all);

} // namespace partwright
