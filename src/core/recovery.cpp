#include "core/recovery.h"

#include "core/signal_guard.h"
#include "core/system_error.h"
#include "core/user_folder.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <optional>

namespace partwright {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view firstLine = "Text of an interrupted save, version 1";
constexpr std::string_view endOfHead = "\n\n";

struct KeptText {
    ContentMark before;
    std::string bytes;
};

/// The one name of a file, whatever way leads to it.
fs::path fullPath(std::wstring_view path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(nativePath(path), error);
    const fs::path canonical = fs::weakly_canonical(absolute, error);
    return error ? absolute.lexically_normal() : canonical;
}

std::string pathBytes(std::wstring_view path) {
    std::string bytes = fullPath(path).string();
    std::replace_if(
        bytes.begin(), bytes.end(), [](char c) { return c == '\n' || c == '\r'; }, '?');
    return bytes;
}

std::string hex(std::uint64_t number) {
    std::string digits(16, '0');
    for (std::size_t i = digits.size(); i-- > 0; number >>= 4)
        digits[i] = "0123456789abcdef"[number & 15];
    return digits;
}

std::string markText(const ContentMark& mark) {
    return mark.present ? std::to_string(mark.size) + ' ' + hex(mark.hash) : "absent";
}

std::optional<ContentMark> parseMark(std::string_view text) {
    ContentMark mark;
    if (text == "absent")
        return mark;
    mark.present = true;
    const char* const end = text.data() + text.size();
    const auto size = std::from_chars(text.data(), end, mark.size);
    if (size.ec != std::errc() || size.ptr == end || *size.ptr != ' ')
        return std::nullopt;
    const auto hash = std::from_chars(size.ptr + 1, end, mark.hash, 16);
    return hash.ec == std::errc() && hash.ptr == end ? std::optional(mark) : std::nullopt;
}

/// Empty when the system names no folder.
fs::path stateFolder() {
    const fs::path folder = nativePath(userStateFolder());
    return folder.is_absolute() ? folder / "partwright" : fs::path();
}

/// Empty when the system names no folder.
fs::path keptPlace(std::wstring_view path) {
    const fs::path folder = stateFolder();
    return folder.empty() ? folder : folder / (hex(hash64(pathBytes(path))) + ".save");
}

fs::path unfinished(fs::path place) {
    return place.replace_extension(".part");
}

std::string headOf(std::wstring_view path, const ContentMark& before, const ContentMark& after) {
    std::string head(firstLine);
    head += "\nfile " + pathBytes(path);
    head += "\nbefore " + markText(before);
    head += "\nafter " + markText(after);
    return head += endOfHead;
}

/// The value of a line "name value".
std::string_view valueOf(std::string_view& head, std::string_view name) {
    const auto end = std::min(head.find('\n'), head.size());
    std::string_view line = head.substr(0, end);
    head.remove_prefix(std::min(end + 1, head.size()));
    return line.starts_with(name) ? line.substr(name.size()) : std::string_view();
}

/// None when nothing is kept for the path, or not all of it.
std::optional<KeptText> readKept(std::wstring_view path, const fs::path& place) {
    std::string content;
    const FileHandle file(place, FileAccess::Read);
    if (!file.isOpen() || !file.readAll(content))
        return std::nullopt;
    const auto end = content.find(endOfHead);
    if (end == std::string::npos)
        return std::nullopt;
    std::string_view head = std::string_view(content).substr(0, end);
    const bool isOurs = head.starts_with(firstLine) && valueOf(head, firstLine).empty() &&
                        valueOf(head, "file ") == pathBytes(path);
    const auto before = parseMark(valueOf(head, "before "));
    const auto after = parseMark(valueOf(head, "after "));
    content.erase(0, end + endOfHead.size());
    if (!isOurs || !before || !after || markOf(content) != *after)
        return std::nullopt;
    return KeptText{*before, std::move(content)};
}

void forget(const fs::path& place) {
    if (place.empty())
        return;
    std::error_code none;
    fs::remove(place, none);
    fs::remove(unfinished(place), none);
}

/// The reason when it cannot be kept.
std::wstring keep(std::wstring_view path, const fs::path& place, const ContentMark& before,
                  const ContentMark& after, std::string_view bytes) {
    if (place.empty())
        return L"The system names no folder for it";
    if (!makePrivateFolder(place.parent_path()))
        return systemErrorText(errno);
    const fs::path part = unfinished(place);
    bool isWritten = false;
    {
        const FileHandle file(part, FileAccess::Private);
        isWritten = file.isOpen() && file.writeAll(headOf(path, before, after).append(bytes)) &&
                    file.flush();
    }
    if (isWritten && moveOver(part, place))
        return {};
    const int error = errno;
    std::error_code none;
    fs::remove(part, none);
    return systemErrorText(error);
}

} // namespace

SecuredWrite writeSecured(std::wstring_view path, InPlaceFile& file, std::string bytes) {
    const SignalGuard guard;
    SecuredWrite done;
    done.mark = markOf(bytes);
    const fs::path place = keptPlace(path);
    if (file.isWritable() && !file.holds(bytes)) {
        const ContentMark before = file.exists() ? markOf(file.before()) : ContentMark{};
        done.notKept = keep(path, place, before, done.mark, bytes);
    }
    done.result = file.write(std::move(bytes));
    if (done.result.status == WriteStatus::Ok || (done.result.oldStands && file.isWritable()))
        forget(place);
    return done;
}

InterruptedSave interruptedSave(std::wstring_view path) {
    using State = InterruptedSave::State;
    const fs::path place = keptPlace(path);
    const auto kept = readKept(path, place);
    std::error_code none;
    if (!kept && !fs::exists(unfinished(place), none))
        return {};
    const InPlaceFile file(path);
    const std::wstring keptAt = pathText(place);
    if (file.state().status == WriteStatus::Locked)
        return {State::Busy, keptAt};
    if (file.state().status != WriteStatus::Ok)
        return {}; // whoever reads the file will tell
    if (!kept) {
        forget(place); // less than a text: its save never began
        return {};
    }
    const ContentMark now = file.exists() ? markOf(file.before()) : ContentMark{};
    if (now == markOf(kept->bytes)) {
        forget(place);
        return {};
    }
    return {now == kept->before ? State::NotBegun : State::Torn, keptAt};
}

WriteResult completeSave(std::wstring_view path) {
    const SignalGuard guard;
    const fs::path place = keptPlace(path);
    auto kept = readKept(path, place);
    if (!kept)
        return {};
    InPlaceFile file(path);
    WriteResult result = file.write(std::move(kept->bytes));
    if (result.status == WriteStatus::Ok)
        forget(place);
    return result;
}

} // namespace partwright
