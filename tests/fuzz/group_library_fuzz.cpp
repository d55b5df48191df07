// A group library file of any bytes, and the part numbers that it gives as examples.

#include "autofill/group_library.h"
#include "core/text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    GroupLibraryTable table = parseGroupLibrary(bytes, detectCodePage(bytes));
    for (const GroupLibraryRule& rule : table)
        for (const std::wstring_view part : {std::wstring_view(rule.example), std::wstring_view(),
                                             std::wstring_view(L"EX0805J4K70")})
            static_cast<void>(describeBy(rule, part, L','));
    std::vector<std::wstring> examples;
    for (const GroupLibraryRule& rule : table)
        examples.push_back(rule.example);
    GroupLibrary library(std::move(table), L'.');
    for (const std::wstring& example : examples) {
        const PartDescription part = library.DescribePartNumber(example);
        if (part.description.empty() != (part.rule == 0) ||
            !library.DescribePartNumber(example).messages.empty())
            std::abort();
    }
    return 0;
}
