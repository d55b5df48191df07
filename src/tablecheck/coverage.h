#pragma once

// What the tables beside the program and the compiled ones cover, as Markdown: the groups of both
// libraries with their types and how many keywords, rules and checks serve them, and the series of
// the group library. docs/tables.md ends in this text, and a test keeps the two equal.

#include "autofill/param_rules.h"
#include "core/application.h"

#include <string>

namespace partwright {

/// `app` has its property tables, group names and direct keys loaded; the other files are read.
[[nodiscard]] std::wstring coverageText(const CPartwrightPlugInApp& app, const FillTables& tables);

} // namespace partwright
