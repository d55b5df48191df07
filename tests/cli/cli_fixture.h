#pragma once

// partwright-cli as a function: arguments and standard input in, exit code and both streams out.

#include "cli/program.h"
#include "core/encoding.h"
#include "support/places.h"
#include "support/project_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace partwright::test {

using Arguments = std::vector<std::string>;

struct Answer {
    int code = -1;
    std::string out;
    std::string err;

    /// The lines of `out` as JSON objects.
    [[nodiscard]] std::vector<nlohmann::json> objects() const {
        std::vector<nlohmann::json> all;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);)
            all.push_back(nlohmann::json::parse(line));
        return all;
    }
};

class CliTest : public ::testing::Test {
protected:
    Answer run(Arguments arguments, const std::string& input = {}) {
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
        const int code = cli::run(std::move(arguments), in, out, err);
        return {code, out.str(), err.str()};
    }
    /// A command over the shipped tables, or those of `tables`.
    Answer withTables(Arguments arguments, const std::string& input = {}) {
        arguments.insert(arguments.end(), {"--program", tables});
        return run(std::move(arguments), input);
    }
    /// A command over the project of the folder.
    Answer inProject(Arguments arguments) {
        for (const char* name : {"library", "input", "public"})
            arguments.insert(arguments.end(),
                             {std::string("--") + name, (folder.path() / name).string()});
        return withTables(std::move(arguments));
    }
    [[nodiscard]] std::string pathOf(std::wstring_view file) const {
        return encodeUtf8(folder / file);
    }
    /// From now on a copy of the tables in which a test can break one.
    void copyTables() {
        std::filesystem::copy(places::tables, folder.path() / "tables",
                              std::filesystem::copy_options::recursive);
        tables = (folder.path() / "tables").string();
    }

    ProjectFolder folder;
    std::string tables = places::tables;
};

} // namespace partwright::test
