#include "core/messages.h"

namespace partwright::message {

namespace {

std::wstring join(std::initializer_list<std::wstring_view> pieces) {
    std::wstring text;
    for (const std::wstring_view piece : pieces)
        text += piece;
    return text;
}

} // namespace

std::wstring completenessStatus(std::int32_t uncompleted, std::int32_t total) {
    if (uncompleted == 0)
        return join({L"All (", std::to_wstring(total), L") components completed"});
    return join({std::to_wstring(uncompleted), L" uncompleted component",
                 uncompleted > 1 ? L"s" : L"", L" of ", std::to_wstring(total), L" total"});
}

std::wstring failedToOpen(std::wstring_view path) {
    return join({failedToOpenStart, path, L"."});
}

std::wstring failedToOpenForWriting(std::wstring_view path) {
    return join({L"Failed to Open File: \n", path});
}

std::wstring sourceFileNotFound(std::wstring_view path) {
    return join({L"Source File\n'", path, L"' was not found."});
}

std::wstring indexFieldErrorIn(std::wstring_view field) {
    return join({indexFieldError, L": ", field});
}

std::wstring failedToWrite(std::wstring_view path, std::wstring_view reason) {
    return join({L"The file could not be written:\n", path, L"\n", reason,
                 L".\nThe records stay in memory."});
}

std::wstring characterNotInCodePage(std::wstring_view path, std::wstring_view part,
                                    std::wstring_view column) {
    return join({L"The file\n", path, L"\ncannot hold a character of part ", part, L", column ",
                 column, L". Nothing was written. Write the file as UTF-8?"});
}

std::wstring saveWouldLose(std::wstring_view path, std::wstring_view cause) {
    return join({L"The library was not written, since its records were not understood when it was "
                 L"read:\n",
                 path, L"\n", cause});
}

std::wstring groupTableMissing(std::wstring_view tablePath) {
    return join({L"No group names are known; the table is missing or empty:\n", tablePath});
}

std::wstring fileUnreadable() {
    return L"The file was there and could not be opened.";
}

} // namespace partwright::message
