#include "core/application.h"
#include "fuzz/fuzz_input.h"
#include "library/project_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    const std::string input = test::bytesOf(data, size);
    CPartwrightPlugInApp app;
    parseProjectInput(app.paths, app.partList, input, detectCodePage(input));
    for (const auto& [designator, entry] : app.partList.projectEntries) {
        test::demand(!designator.empty(), "no placement without a designator");
        test::demand(entry.values.size() <= 4, "four values at most");
        const auto value = app.partList.ProjectValue(designator, app.partList.columnDescription);
        test::demand(value.find(L'\n') == std::wstring::npos, "no control characters");
    }
    test::demand(app.partList.selectedCount >= 0, "a count");
    return 0;
}
