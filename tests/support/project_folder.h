#pragma once

// A project on disk: folders "input", "library" and "public" in a temporary folder, with the part
// list that a test writes.

#include "core/encoding.h"
#include "support/temp_folder.h"

#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

namespace partwright::test {

class ProjectFolder : public TempFolder {
public:
    /// Numbers with a point, and no settings of whoever runs the test.
    ProjectFolder() {
        setenv("LC_ALL", "C.UTF-8", 1);
        setenv("XDG_CONFIG_HOME", (path() / "no-settings").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (path() / "no-settings").c_str(), 1);
        for (const char* folder : {"input", "library", "public"})
            std::filesystem::create_directory(path() / folder);
    }

    /// Rows "designator,part number,maker,description,catalogue number,selected" of project "B".
    void putParts(std::string_view rows) const {
        put(L"input/PlugIn_Partwright_PrjInput.csv",
            "sep=,\n#Project filename: C:\\work\\B.DSN\n#REFDES,P/N,MFG,DESCR,CPN,SELECT\n" +
                std::string(rows));
    }

    /// Replaces a file by a folder of its name, which no reader can open.
    void block(std::wstring_view file) const {
        std::filesystem::remove_all(nativePath(*this / file));
        std::filesystem::create_directories(nativePath(*this / file));
    }

    /// Every file below the folder with its content.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path()))
            if (entry.is_regular_file()) {
                const auto name = std::filesystem::relative(entry.path(), path());
                all[name.string()] = bytesOf(pathText(name));
            }
        return all;
    }
};

inline constexpr std::wstring_view sdtaFile = L"library/SDTALib_B.csv";
inline constexpr std::wstring_view linkFile = L"library/DataSheetLinkTable.csv";
inline constexpr std::wstring_view analysesFile = L"library/AnalysesLib_B.csv";

} // namespace partwright::test
