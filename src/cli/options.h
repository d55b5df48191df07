#pragma once

// What the arguments of partwright-cli say, as plain values.

#include "editing/analysis_level.h"

#include <cstdint>
#include <optional>
#include <string>

namespace partwright::cli {

/// Where the project and the tables stand; common to all commands.
struct PlaceOptions {
    std::string library;
    std::string input;
    std::string publicFolder;
    std::string program;
    std::int32_t host = 1;
    bool json = false;
    /// Complete the saves that were interrupted, instead of refusing to read their files.
    bool recover = false;
};

struct TablesOptions {
    /// Print what the tables cover instead of checking them.
    bool coverage = false;
};

enum class FilterChoice { Selected, Project, Full };

struct StatusOptions {
    /// None: the filter that a page opens with.
    std::optional<FilterChoice> filter;
};

struct CheckOptions {
    AnalysisLevel level = AnalysisLevel::Full;
};

struct FillOptions {
    bool groupLibrary = false;
    bool descriptions = false;
    bool sdta = false;
    bool analyses = false;
    bool dryRun = false;
    /// Write although lines of the files are lost by it.
    bool dropUnread = false;
    std::optional<FilterChoice> filter;
};

struct LineOptions {
    /// Answer in the form of the Analyses library.
    bool analyses = false;
    /// describe only: classify and fill from the decoded description.
    bool fill = false;
};

struct ConvertOptions {
    std::string in;
    std::string out;
    bool analyses = false;
    bool dropUnread = false;
};

} // namespace partwright::cli
