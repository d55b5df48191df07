#pragma once

// Message boxes for real.

#include "core/ports/prompt.h"

#include <QPointer>
#include <QWidget>

namespace partwright {

class MessagePrompt final : public Prompt {
public:
    PromptAnswer show(std::wstring_view title, std::wstring_view text, PromptIcon icon,
                      PromptButtons buttons) override;
};

} // namespace partwright
