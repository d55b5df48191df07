#include "cli/console.h"

#include "core/encoding.h"
#include "core/messages.h"

#include <ostream>

namespace partwright::cli {

PromptAnswer ConsolePrompt::show(std::wstring_view /*title*/, std::wstring_view text,
                                 PromptIcon /*icon*/, PromptButtons buttons) {
    unreadable_ = unreadable_ || text.starts_with(message::failedToOpenStart);
    err_ << encodeUtf8(text) << '\n';
    return buttons == PromptButtons::YesNo ? PromptAnswer::No : PromptAnswer::Ok;
}

} // namespace partwright::cli
