#pragma once

// The command line's way of speaking: boxes become lines on the error stream, a question is
// answered with what the command was told to do.

#include "core/libraries.h"
#include "core/ports/prompt.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace partwright::cli {

class ConsolePrompt final : public Prompt {
public:
    explicit ConsolePrompt(std::ostream& err) : err_(err) {}

    PromptAnswer show(std::wstring_view title, std::wstring_view text, PromptIcon icon,
                      PromptButtons buttons) override;

    /// A file that is there could not be opened for reading.
    [[nodiscard]] bool unreadable() const { return !unreadable_.empty(); }
    /// The same for a file that is no library: a rule table, the project input.
    [[nodiscard]] bool unreadableTable(const Libraries& libraries) const;

private:
    std::ostream& err_;
    /// The boxes that told so.
    std::vector<std::wstring> unreadable_;
};

} // namespace partwright::cli
