// The walls between the folders of src/: each may include only what its row names.

#include "support/places.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace {

using Rooms = std::set<std::string>;

const std::map<std::string, Rooms> allowed = {
    {"core", {}},
    {"library", {"core"}},
    {"autofill", {"core", "library"}},
    {"validation", {"core", "library"}},
    {"tablecheck", {"core", "library", "autofill", "validation"}},
    {"maintenance", {"core", "library"}},
    {"editing", {"core", "library", "autofill", "validation", "maintenance"}},
    {"cli", {"core", "library", "autofill", "validation", "tablecheck", "maintenance", "editing"}},
    {"grid", {}},
    {"dialogs", {"core", "library", "autofill", "validation", "maintenance", "editing", "grid"}},
    {"platform", {"core"}},
    {"app", {"core", "library", "editing", "dialogs", "platform"}},
};

/// The rooms that know the widget toolkit.
const Rooms windowed = {"grid", "dialogs", "platform", "app"};

TEST(Layers, EachFolderIncludesOnlyWhatItMay) {
    const std::regex include(R"re(^\s*#include\s+[<"]([^/">]+)/[^">]*[">])re");
    const std::regex toolkit(R"re(^\s*#include\s+[<"]Q)re");
    const std::filesystem::path source(partwright::places::source);
    int seen = 0;
    for (const auto& file : std::filesystem::recursive_directory_iterator(source)) {
        const auto extension = file.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        const std::string room = std::filesystem::relative(file.path(), source).begin()->string();
        ASSERT_TRUE(allowed.contains(room)) << file.path() << ": a folder without a row";
        std::ifstream text(file.path());
        for (std::string line; std::getline(text, line);) {
            EXPECT_TRUE(windowed.contains(room) || !std::regex_search(line, toolkit))
                << file.path() << ": " << line;
            std::smatch match;
            if (!std::regex_search(line, match, include) || !allowed.contains(match[1]))
                continue;
            ++seen;
            EXPECT_TRUE(match[1] == room || allowed.at(room).contains(match[1]))
                << file.path() << ": " << line;
        }
    }
    EXPECT_GT(seen, 50);
}

} // namespace
