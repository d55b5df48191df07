#pragma once

// Any bytes as a library file: the reader answers as the literal one does, and what it read comes
// back from the writer with every part.

#include "fuzz/fuzz_input.h"
#include "library/library_reader.h"
#include "library/library_writer.h"
#include "library/literal_library.h"
#include "library/sample_app.h"

namespace partwright::test {

template <class Record>
void tryLibrary(const std::string& input) {
    static const CPartwrightPlugInApp point = sampleApp(L".", 4, 11);
    static const CPartwrightPlugInApp comma = sampleApp(L",", 4, 11);
    const CPartwrightPlugInApp& app = input.size() % 2 == 0 ? point : comma;
    const CodePage codePage = detectCodePage(input);
    const auto read = parseLibrary(app.of<Record>(), app.decimalMark(), input, codePage).records;
    demand(read == literalRead<Record>(app, input, codePage), "the reader equals the literal one");

    const auto file = formatLibrary<Record>(app, recordsByGroup(read), L"/lib.csv", {});
    demand(file.encodable, "UTF-8 holds what was read");
    const auto again =
        parseLibrary(app.of<Record>(), app.decimalMark(), file.bytes, CodePage::Utf8).records;
    for (const auto& [key, record] : read)
        demand(again.contains(upperCase(removeAll(key, L"\r\n"))),
               "no part is lost by writing and reading");
}

} // namespace partwright::test
