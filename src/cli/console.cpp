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
            libraries.loadReports.begin(), libraries.loadReports.end(),
            [&text](const auto& report) { return text == message::failedToOpen(report.first); });
    };
    return !std::all_of(unreadable_.begin(), unreadable_.end(), isLibrary);
}

} // namespace partwright::cli
