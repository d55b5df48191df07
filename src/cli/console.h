#pragma once

// The command line's way of speaking: boxes become lines on the error stream, a question is
// answered with what the command was told to do.

#include "core/ports/prompt.h"

#include <iosfwd>

namespace partwright::cli {

class ConsolePrompt final : public Prompt {
public:
    explicit ConsolePrompt(std::ostream& err) : err_(err) {}

    PromptAnswer show(std::wstring_view title, std::wstring_view text, PromptIcon icon,
                      PromptButtons buttons) override;

    /// Number of warnings shown so far.
    [[nodiscard]] int shown() const { return shown_; }

private:
    std::ostream& err_;
    int shown_ = 0;
};

} // namespace partwright::cli
