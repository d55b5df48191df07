#include "fuzz/fuzz_input.h"
#include "library/project_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    const std::string input = test::bytesOf(data, size);
    CPartwrightPlugInApp app;
    parseProjectInput(app, input, detectCodePage(input));
    for (const auto& [designator, entry] : app.projectEntries) {
        test::demand(!designator.empty(), "no placement without a designator");
        test::demand(entry.values.size() <= 4, "four values at most");
        const auto value = app.ProjectValue(designator, app.columnDescription);
        test::demand(value.find(L'\n') == std::wstring::npos, "no control characters");
    }
    test::demand(app.selectedCount >= 0, "a count");
    return 0;
}
