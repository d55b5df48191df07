#pragma once

// The commands of partwright-cli. Each answers with an exit code (program.h).

#include "cli/options.h"

#include <iosfwd>

namespace partwright::cli {

enum ExitCode : int { Fine = 0, Findings = 1, Usage = 2 };

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

int runStatus(const PlaceOptions& place, const StatusOptions& options, Streams streams);
int runCheck(const PlaceOptions& place, const CheckOptions& options, Streams streams);
int runFill(const PlaceOptions& place, const FillOptions& options, Streams streams);
int runClassify(const PlaceOptions& place, const LineOptions& options, Streams streams);
int runDescribe(const PlaceOptions& place, const LineOptions& options, Streams streams);
int runConvert(const PlaceOptions& place, const ConvertOptions& options, Streams streams);
int runTables(const PlaceOptions& place, const TablesOptions& options, Streams streams);

} // namespace partwright::cli
