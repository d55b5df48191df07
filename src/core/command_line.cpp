#include "core/command_line.h"

#include "core/text.h"

#include <algorithm>
#include <array>

namespace partwright {

namespace {

std::array<std::wstring, 5> fieldsOf(std::wstring_view text) {
    std::array<std::wstring, 5> fields;
    std::size_t quotes = 0;
    for (const wchar_t c : text) {
        if (c == L'"')
            ++quotes;
        else if (quotes >= 10)
            break;
        else if (quotes % 2 == 1)
            fields[quotes / 2].push_back(c);
    }
    return fields;
}

} // namespace

CommandLine parseCommandLine(std::wstring_view text) {
    const auto fields = fieldsOf(text);
    const IntegerPrefix tool = readInteger(fields[0]); // "2x" passes as 2
    const IntegerPrefix page = readInteger(fields[3]);
    const IntegerPrefix level = readInteger(fields[4]);
    CommandLine result;
    result.hostTool = tool.value;
    result.libraryFolder = fields[1];
    result.projectInputFolder = fields[2];
    result.startPage = page.value;
    result.analysisLevel = level.value;
    result.valid = result.hostTool >= 1 && result.hostTool <= 3 && !fields[1].empty() &&
                   page.consumed == fields[3].size() && level.consumed == fields[4].size() &&
                   (result.startPage == 0 || result.startPage == 1);
    return result;
}

std::wstring commandLineText(const std::vector<std::wstring>& arguments) {
    const bool quoted = std::any_of(arguments.begin(), arguments.end(), [](const auto& argument) {
        return argument.find(L'"') != std::wstring::npos;
    });
    std::wstring text;
    for (const std::wstring& argument : arguments) {
        if (!text.empty())
            text += L' ';
        text += quoted ? argument : L'"' + argument + L'"';
    }
    return text;
}

} // namespace partwright
