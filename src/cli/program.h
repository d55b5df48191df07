#pragma once

// partwright-cli: the engine on real files, without a window.
//
// Exit codes: 0 fine; 1 findings, or something was refused; 2 usage, or input that is there and
// cannot be read. A file whose absence is silent in the window is no error here.

#include <iosfwd>
#include <string>
#include <vector>

namespace partwright::cli {

/// Runs one command; `arguments` are those behind the program's name.
int run(std::vector<std::string> arguments, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace partwright::cli
