#pragma once

// Settings of the program, kept per design tool. A place is a base key and a section: the section
// "Settings" of the base key "Varnel_Altium" is the file Varnel_Altium/Settings.ini below the
// user's configuration folder ($XDG_CONFIG_HOME, ~/.config), and of the same name below each system
// configuration folder ($XDG_CONFIG_DIRS, /etc/xdg) for the machine.
//
//   [Settings]
//   PLibPath=/srv/parts/public
//
// Values are raw: everything behind the first "=" of a line counts, commas and backslashes
// included. The machine's file serves when the user has none with that section. A read creates
// nothing.

#include <cstdint>
#include <string>
#include <string_view>

namespace partwright {

enum class RegistryOperation : std::int32_t { Read = 0, Write = 1 };

/// Status of a registry operation; the numbers are those that the host tools know.
enum class RegistryStatus : std::int32_t {
    Ok = 0,
    /// The place cannot be opened.
    NoPlace = 2,
    /// The value cannot be written.
    WriteFailed = 3,
    /// There is no such value.
    NoValue = 4,
};

/// Base key of a design tool, as a folder name; the setup variant where the tool has one.
[[nodiscard]] std::wstring_view registryBase(std::int32_t hostTool, bool useSetupKey);

/// Reads into `value`, which is emptied first, or writes it. A read that failed is tried twice.
RegistryStatus ReadRegistryValue(std::int32_t hostTool, RegistryOperation operation,
                                 std::wstring& value, std::wstring_view section,
                                 std::wstring_view name, bool useSetupKey = false);

} // namespace partwright
