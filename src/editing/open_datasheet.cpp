#include "editing/open_datasheet.h"

#include "core/messages.h"
#include "core/paths.h"
#include "core/text_file.h"

#include <algorithm>
#include <filesystem>
#include <string>

namespace partwright {

namespace {

std::wstring pathOfLink(std::wstring_view folder, std::wstring_view fileName) {
    std::wstring path(fileName);
    std::replace_if(path.begin(), path.end(), isPathSeparator, pathSeparator);
    return withSeparator(folder) + path;
}

/// A link table travels with a project, so what it names is looked for in the folder alone.
bool staysInFolder(std::wstring_view fileName) {
    int depth = 0;
    while (!fileName.empty()) {
        const auto end = std::find_if(fileName.begin(), fileName.end(), isPathSeparator);
        const auto length = static_cast<std::size_t>(end - fileName.begin());
        const std::wstring_view step = fileName.substr(0, length);
        fileName.remove_prefix(std::min(length + 1, fileName.size()));
        if (step == L"..")
            --depth;
        else if (!step.empty() && step != L".")
            ++depth;
        if (depth < 0)
            return false;
    }
    return true;
}

} // namespace

void OpenDatasheet(const ProjectPaths& paths, std::wstring_view fileName, Prompt& prompt,
                   Opener& opener) {
    if (fileName.empty())
        return;
    std::error_code none;
    if (paths.datasheetFolder.empty()) {
        prompt.tell(message::datasheetFolderNotDefined, PromptIcon::Warning);
        return;
    }
    if (!std::filesystem::is_directory(nativePath(paths.datasheetFolder), none)) {
        prompt.tell(message::datasheetFolderMissing(paths.datasheetFolder), PromptIcon::Warning);
        return;
    }
    if (!staysInFolder(fileName)) {
        prompt.tell(message::linkLeavesFolder(fileName), PromptIcon::Warning);
        return;
    }
    const std::wstring path = pathOfLink(paths.datasheetFolder, fileName);
    if (!std::filesystem::is_regular_file(nativePath(path), none))
        prompt.tell(message::fileMissing(path), PromptIcon::Warning);
    else if (!opener.open(path))
        prompt.tell(message::noProgramToOpen(path), PromptIcon::Warning);
}

} // namespace partwright
