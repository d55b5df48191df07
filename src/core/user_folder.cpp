#include "core/user_folder.h"

#include "core/text_file.h"

#include <cstdlib>

namespace partwright {

namespace {

#ifdef _WIN32
std::wstring userFolder(const char* variable, const char* systemVariable, const wchar_t*) {
    const std::wstring configured = environmentPath(variable);
    return configured.empty() ? environmentPath(systemVariable) : configured;
}
#else
std::wstring userFolder(const char* variable, const char*, const wchar_t* belowHome) {
    const std::wstring configured = environmentPath(variable);
    if (!configured.empty())
        return configured;
    const std::wstring home = environmentPath("HOME");
    return home.empty() ? std::wstring() : home + belowHome;
}
#endif

} // namespace

std::wstring environmentPath(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? std::wstring() : pathText(std::filesystem::path(value));
}

std::wstring userConfigFolder() {
    return userFolder("XDG_CONFIG_HOME", "APPDATA", L"/.config");
}

std::wstring userStateFolder() {
    return userFolder("XDG_STATE_HOME", "LOCALAPPDATA", L"/.local/state");
}

} // namespace partwright
