#include "cli/console.h"

#include "core/encoding.h"
#include "core/messages.h"

#include <algorithm>
#include <ostream>

namespace partwright::cli {

PromptAnswer ConsolePrompt::show(std::wstring_view /*title*/, std::wstring_view text,
                                 PromptIcon /*icon*/, PromptButtons buttons) {
    if (text.starts_with(message::failedToOpenStart))
        unreadable_.emplace_back(text);
    err_ << encodeUtf8(text) << '\n';
    return buttons == PromptButtons::YesNo ? PromptAnswer::No : PromptAnswer::Ok;
}

bool ConsolePrompt::unreadableTable(const Libraries& libraries) const {
    const auto isLibrary = [&libraries](const std::wstring& text) {
        return std::any_of(
            libraries.faults.begin(), libraries.faults.end(),
            [&text](const auto& fault) { return text == message::failedToOpen(fault.first); });
    };
    return !std::all_of(unreadable_.begin(), unreadable_.end(), isLibrary);
}

} // namespace partwright::cli
