#pragma once

// Folders and files of the source tree and of the build that tests read. They are constants of one
// source file, so that a test's compilation does not depend on where the tree lies and a compiler
// cache serves every checkout.

namespace partwright::places {

/// The tables that are installed beside the program.
extern const char* const tables;
extern const char* const testData;
extern const char* const samples;
extern const char* const source;
extern const char* const coveragePage;
/// The command-line program of this build; a test that starts it depends on its target.
extern const char* const commandLineProgram;

} // namespace partwright::places
