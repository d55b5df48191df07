#pragma once

// The checks of the tables that are compiled into the program. They have no file and no line: a
// finding names the table for the file, the parameter for the column, and the row in its text.

#include "autofill/param_rules.h"
#include "tablecheck/finding.h"

#include <vector>

namespace partwright {

/// Unit lists whose names or factors cannot be read; parameter rules whose terms are dropped, name
/// no known function or key, or stand under no column of the vocabulary.
void checkCompiledRules(const FillTables& tables, std::vector<TableFinding>& all);

} // namespace partwright
