#include "cli/commands.h"
#include "cli/project.h"
#include "core/encoding.h"
#include "tablecheck/coverage.h"
#include "tablecheck/table_check.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace partwright::cli {

namespace {

void printText(std::ostream& out, const TableFinding& finding) {
    out << encodeUtf8(finding.file);
    if (finding.line() != 0)
        out << ':' << finding.line();
    out << ": ";
    if (!finding.column.empty())
        out << encodeUtf8(finding.column) << ": ";
    out << encodeUtf8(finding.finding.summary()) << '\n';
}

nlohmann::ordered_json json(const TableFinding& finding) {
    return {{"file", encodeUtf8(finding.file)},
            {"line", finding.line()},
            {"column", encodeUtf8(finding.column)},
            {"text", encodeUtf8(finding.finding.summary())}};
}

} // namespace

int runTables(const PlaceOptions& place, const TablesOptions& options, Streams streams) {
    Tables tables(place, streams);
    if (options.coverage) {
        streams.out << encodeUtf8(coverageText(tables.app, tables.engine.tables()));
        return Fine;
    }
    const std::vector<TableFinding> findings = checkTables(tables.app, tables.engine);
    if (place.json) {
        auto answer = nlohmann::ordered_json::array();
        for (const TableFinding& finding : findings)
            answer.push_back(json(finding));
        streams.out << answer.dump(2) << '\n';
    } else {
        for (const TableFinding& finding : findings)
            printText(streams.out, finding);
        streams.out << findings.size() << (findings.size() == 1 ? " finding" : " findings") << '\n';
    }
    return findings.empty() ? Fine : Findings;
}

} // namespace partwright::cli
