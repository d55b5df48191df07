#include "core/settings.h"

#include "core/text.h"
#include "core/text_file.h"
#include "core/user_folder.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

namespace partwright {

namespace {

/// Longest value that a read gives and a write takes, in characters.
constexpr std::size_t maximumRead = 2048;
constexpr std::size_t maximumWrite = 1024;

std::vector<std::wstring> machineFolders() {
    std::wstring configured = environmentPath("XDG_CONFIG_DIRS");
#ifdef _WIN32
    return {configured.empty() ? environmentPath("PROGRAMDATA") : configured};
#else
    if (configured.empty())
        configured = L"/etc/xdg";
    std::vector<std::wstring> folders;
    for (const std::wstring_view folder : split(configured, L':'))
        if (!folder.empty())
            folders.emplace_back(folder);
    return folders;
#endif
}

std::wstring fileIn(const std::wstring& folder, std::wstring_view base, std::wstring_view section) {
    return folder + L"/" + std::wstring(base) + L"/" + std::wstring(section) + L".ini";
}

struct Place {
    std::wstring path;
    std::vector<std::wstring> lines;
    TextForm form = newFileForm();
    /// Index of the line behind the section's head; none when the file has no such section.
    std::optional<std::size_t> section;
    bool readable = true;
};

Place openPlace(const std::wstring& path, std::wstring_view section) {
    Place place;
    place.path = path;
    const TextFile file = readTextFile(path);
    place.readable = file.status != FileStatus::OpenFailed;
    if (file.status != FileStatus::Ok)
        return place;
    place.form = file.form;
    LineReader reader(file.bytes);
    for (std::string_view line; reader.next(line);) {
        place.lines.push_back(decode(line, file.form.codePage));
        const std::wstring head = L"[" + std::wstring(section) + L"]";
        if (!place.section && trim(place.lines.back()) == head)
            place.section = place.lines.size();
    }
    return place;
}

/// Index of the value's line inside the section.
std::optional<std::size_t> findValue(const Place& place, std::wstring_view name) {
    if (!place.section)
        return std::nullopt;
    for (std::size_t i = *place.section; i < place.lines.size(); ++i) {
        const std::wstring_view line = place.lines[i];
        if (!line.empty() && line.front() == L'[')
            return std::nullopt;
        const auto equals = line.find(L'=');
        if (equals != std::wstring_view::npos && trim(line.substr(0, equals)) == name)
            return i;
    }
    return std::nullopt;
}

RegistryStatus readOnce(std::wstring_view base, std::wstring& value, std::wstring_view section,
                        std::wstring_view name) {
    Place place = openPlace(fileIn(userConfigFolder(), base, section), section);
    if (!place.readable)
        return RegistryStatus::NoPlace;
    for (const std::wstring& folder : machineFolders()) {
        if (place.section)
            break;
        place = openPlace(fileIn(folder, base, section), section);
    }
    if (!place.readable)
        return RegistryStatus::NoPlace;
    const auto line = findValue(place, name);
    if (!line)
        return RegistryStatus::NoValue;
    const std::wstring& text = place.lines[*line];
    value = text.substr(text.find(L'=') + 1, maximumRead);
    return RegistryStatus::Ok;
}

RegistryStatus writeValue(std::wstring_view base, std::wstring_view value,
                          std::wstring_view section, std::wstring_view name) {
    const std::wstring folder = userConfigFolder();
    std::error_code error;
    std::filesystem::create_directories(nativePath(folder + L"/" + std::wstring(base)), error);
    Place place = openPlace(fileIn(folder, base, section), section);
    if (error || folder.empty() || !place.readable)
        return RegistryStatus::NoPlace;
    const std::wstring line =
        std::wstring(name) + L"=" + removeAll(value.substr(0, maximumWrite), L"\r\n");
    if (!place.section) {
        place.lines.push_back(L"[" + std::wstring(section) + L"]");
        place.section = place.lines.size();
    }
    if (const auto existing = findValue(place, name))
        place.lines[*existing] = line;
    else
        place.lines.insert(place.lines.begin() + static_cast<std::ptrdiff_t>(*place.section), line);
    std::string bytes;
    for (const std::wstring& text : place.lines) {
        if (!encodeInto(bytes, text, place.form.codePage))
            return RegistryStatus::WriteFailed;
        bytes += place.form.lineEndBytes();
    }
    return writeTextFile(place.path, bytes).status == WriteStatus::Ok ? RegistryStatus::Ok
                                                                      : RegistryStatus::WriteFailed;
}

} // namespace

std::wstring_view registryBase(std::int32_t hostTool, bool useSetupKey) {
    switch (hostTool) {
    case 2:
        return useSetupKey ? L"Varnel_OrCAD_Setup" : L"Varnel_OrCAD";
    case 3:
        return useSetupKey ? L"Varnel_Mentor_Setup" : L"Varnel_Mentor";
    default:
        return L"Varnel_Altium";
    }
}

RegistryStatus ReadRegistryValue(std::int32_t hostTool, RegistryOperation operation,
                                 std::wstring& value, std::wstring_view section,
                                 std::wstring_view name, bool useSetupKey) {
    const std::wstring_view base = registryBase(hostTool, useSetupKey);
    if (operation == RegistryOperation::Write)
        return writeValue(base, value, section, name);
    value.clear();
    RegistryStatus status = readOnce(base, value, section, name);
    if (status != RegistryStatus::Ok)
        status = readOnce(base, value, section, name);
    return status;
}

} // namespace partwright
