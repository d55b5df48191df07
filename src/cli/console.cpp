#include "cli/console.h"

#include "core/encoding.h"

#include <ostream>
#include <thread>

namespace partwright::cli {

PromptAnswer ConsolePrompt::show(std::wstring_view /*title*/, std::wstring_view text,
                                 PromptIcon /*icon*/, PromptButtons buttons) {
    ++shown_;
    err_ << encodeUtf8(text) << '\n';
    return buttons == PromptButtons::YesNo ? PromptAnswer::No : PromptAnswer::Ok;
}

void SystemClock::pause(std::chrono::milliseconds duration) {
    std::this_thread::sleep_for(duration);
}

} // namespace partwright::cli
