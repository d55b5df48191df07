#include "support/places.h"

namespace partwright::places {

const char* const tables = PARTWRIGHT_ROOT "/data";
const char* const testData = PARTWRIGHT_ROOT "/tests/data";
const char* const samples = PARTWRIGHT_ROOT "/samples";
const char* const source = PARTWRIGHT_ROOT "/src";
const char* const coveragePage = PARTWRIGHT_ROOT "/docs/coverage.md";
const char* const commandLineProgram = PARTWRIGHT_PROGRAMS "/partwright-cli";

} // namespace partwright::places
