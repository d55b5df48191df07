#include "core/ports/prompt.h"

#include "core/messages.h"

namespace partwright {

void Prompt::tell(std::wstring_view text, PromptIcon icon) {
    show(message::caption, text, icon, PromptButtons::Ok);
}

bool Prompt::ask(std::wstring_view title, std::wstring_view text) {
    return show(title, text, PromptIcon::Warning, PromptButtons::YesNo) == PromptAnswer::Yes;
}

} // namespace partwright
