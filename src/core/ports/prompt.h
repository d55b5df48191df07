#pragma once

// The one way in which the program speaks to a person: message boxes. The window shows them, the
// command line prints them, a test scripts the answers.

#include <string_view>

namespace partwright {

enum class PromptIcon { None, Information, Warning, Question };
enum class PromptButtons { Ok, YesNo };
enum class PromptAnswer { Ok, Yes, No };

class Prompt {
public:
    Prompt() = default;
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;
    virtual ~Prompt() = default;

    /// Closing a box without a button counts as Ok, or No where Yes and No are offered.
    virtual PromptAnswer show(std::wstring_view title, std::wstring_view text, PromptIcon icon,
                              PromptButtons buttons) = 0;

    void tell(std::wstring_view text, PromptIcon icon);
    [[nodiscard]] bool ask(std::wstring_view title, std::wstring_view text);
};

} // namespace partwright
