#pragma once

// The master copies of the libraries, the links to data sheets, and what went wrong when their
// files were read. Only what stands here is ever written to a file.

#include "core/content_mark.h"
#include "core/encoding.h"
#include "core/library_kind.h"
#include "core/load_report.h"
#include "core/records.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace partwright {

/// All that the records read from a library file depend on.
struct LibraryReading {
    std::wstring path;
    CodePage codePage = CodePage::Utf8;
    wchar_t decimalMark = L'.';
    std::uint32_t propertiesRead = 0;
    std::vector<std::wstring> groupNames;
    std::string bytes;
    friend bool operator==(const LibraryReading&, const LibraryReading&) = default;
};

/// One library. It remembers what it was read from for as long as it holds just that, so that a
/// file that did not change need not be parsed again.
template <class Record>
class MasterCopy {
public:
    using Library = typename Kind<Record>::Library;

    [[nodiscard]] const Library& records() const { return records_; }
    void replace(Library records, std::optional<LibraryReading> reading = std::nullopt) {
        records_ = std::move(records);
        reading_ = std::move(reading);
    }
    [[nodiscard]] bool isFrom(const LibraryReading& reading) const { return reading_ == reading; }
    void forgetReading() { reading_.reset(); }

private:
    Library records_;
    std::optional<LibraryReading> reading_;
};

struct Libraries {
    MasterCopy<SdtaComponent> sdtaDesignLibrary;
    MasterCopy<SdtaComponent> sdtaPublicLibrary;
    MasterCopy<AsrComponent> asrDesignLibrary;
    MasterCopy<AsrComponent> asrPublicLibrary;
    DatasheetLinks datasheetLinks;
    /// What was not taken of the four library files and of the link table, by path.
    std::map<std::wstring, LoadReport, std::less<>> loadReports;
    /// What these files held when they were read or last written, by path.
    std::map<std::wstring, ContentMark, std::less<>> marks;
    /// That saves are not secured is told once in a run.
    bool isUnsecuredTold = false;

    template <class Record>
    [[nodiscard]] MasterCopy<Record>& designLibrary() {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return sdtaDesignLibrary;
        else
            return asrDesignLibrary;
    }
    template <class Record>
    [[nodiscard]] MasterCopy<Record>& publicLibrary() {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return sdtaPublicLibrary;
        else
            return asrPublicLibrary;
    }
};

} // namespace partwright
