#pragma once

// The five fields with which the host starts the program:
//
//   "1" "/projects/board/lib" "/projects/board/" "0" "1"
//    |    library folder       input folder, with  |   analysis level: 0 schematic review,
//    |                         its separator, or   |   anything else rapid stress
//    design tool: 1, 2, 3      empty               page shown first: 0 SDTA, 1 Analyses
//
// A field is the text between the n-th pair of double quotes; there is no escape. What stands
// outside of the quotes, and behind the tenth, is not read.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct CommandLine {
    /// False: the start ends with a message.
    bool valid = false;
    std::int32_t hostTool = 0;
    std::wstring libraryFolder;
    std::wstring projectInputFolder;
    std::int32_t startPage = 0;
    std::int32_t analysisLevel = 0;
};

/// A number outside of 32 bits is an error where it would be judged: the design tool, the page.
[[nodiscard]] CommandLine parseCommandLine(std::wstring_view text);

/// One text from the arguments of a shell: joined by blanks when any holds a double quote,
/// otherwise each argument is a field of its own.
[[nodiscard]] std::wstring commandLineText(const std::vector<std::wstring>& arguments);

} // namespace partwright
