#pragma once

// What a library page does, without a widget. A page shows one kind of library as a list of groups
// with counts; it owns working copies of the design and the public library and the sets that decide
// which parts count.
//
// Three levels hold records: the dialog's copy, the page's working map, and the master copy of the
// application object. Only working maps and masters ever reach a file: save() turns the working map
// into the master and writes it; dropping the session drops the work.
//
//   SdtaPageSession sdta(app, fill, prompt);
//   sdta.start();                   // opening filter, key sets, the project's missing parts
//   sdta.runGroupLibrary();
//   sdta.parseDescriptions();
//   sdta.save(true);
//
// Keys and part numbers of working maps are in capitals; with several records that differ only in
// case the last one wins.

#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"
#include "editing/fill_engine.h"

#include <cstdint>
#include <string>
#include <vector>

namespace partwright {

/// The filter radios of the pages. The Analyses page calls AllProject "Project Only" and has no
/// SelectedOnly.
enum class PageFilter { SelectedOnly, AllProject, FullLibrary };

/// Analysis levels, in the order of the radios: "Schematic Review (ASR)", "Auto Stress Calculation
/// (Rapid )", "Tessara (Full)".
enum class AnalysisLevel { SchematicReview, Rapid, Full };

/// One line of a page's list.
struct GroupCount {
    std::int32_t group = 0;
    std::wstring name;
    std::wstring family;
    std::int32_t quantity = 0;
    /// Of these, how many are uncompleted, by level. SDTA has one level: all three are equal.
    std::int32_t uncompletedForAsr = 0;
    std::int32_t uncompletedForRapid = 0;
    std::int32_t uncompleted = 0;
};

template <class Record>
class LibraryPageSession {
public:
    using Library = typename Kind<Record>::Library;

    LibraryPageSession(CPartwrightPlugInApp& app, FillEngine& engine, Prompt& prompt);
    LibraryPageSession(const LibraryPageSession&) = delete;
    LibraryPageSession& operator=(const LibraryPageSession&) = delete;
    virtual ~LibraryPageSession() = default;

    /// Working copies, by part number in capitals.
    Library designLibrary;
    Library publicLibrary;
    /// Part numbers of the project with their designators, and the keys of the two maps.
    PartSelection projectParts;
    PartSelection selectedParts;
    PartSelection designParts;
    PartSelection publicParts;

    /// Takes over the master copies and loads what the page needs.
    virtual void start() = 0;

    /// Rebuilds what the list shows: in Design mode the project's missing parts are added first.
    void refresh();

    void setFilter(PageFilter filter) { filter_ = filter; }
    [[nodiscard]] PageFilter filter() const { return filter_; }
    void setDesign(bool isDesign) { isDesign_ = isDesign; }
    [[nodiscard]] bool isDesign() const { return isDesign_; }

    /// The set of the checked radio.
    [[nodiscard]] const PartSelection& filterSet() const;
    [[nodiscard]] Library& workingLibrary();
    [[nodiscard]] const Library& workingLibrary() const;
    [[nodiscard]] const std::wstring& libraryPath() const;

    /// One line a group, in the order in which the page shows them.
    [[nodiscard]] virtual std::vector<GroupCount> counts() const = 0;

    void RebuildKeySets();

    /// The two auto-fill commands over the records that pass the filter; the part numbers of the
    /// records gone through, in key order.
    std::vector<std::wstring> runGroupLibrary();
    std::vector<std::wstring> parseDescriptions();

    /// Makes the working map the master copy and writes it over the file of the current library.
    /// False when the file was not written; then everything stays in memory and a box told why.
    bool save(bool announce);

    /// True once a record was changed, merged or saved since the start.
    [[nodiscard]] bool modified() const { return modified_; }

protected:
    /// Adds the parts of the project that the design library lacks; true when any was added.
    virtual bool addMissingParts() = 0;
    void takeMasters();
    void fillProjectParts();
    /// Record with the texts that the project's rows give for a part.
    [[nodiscard]] Record newRecord(std::wstring_view partNumber, std::wstring_view designators) const;
    /// True when the library has the part with a group and a type.
    [[nodiscard]] static bool isUsable(const Library& library, std::wstring_view partNumber);
    /// One count a group name, by group number; "Public" counts the whole public map.
    [[nodiscard]] std::vector<GroupCount> countsByGroup() const;

    CPartwrightPlugInApp& app_;
    FillEngine& engine_;
    Prompt& prompt_;
    PageFilter filter_ = PageFilter::AllProject;
    bool isDesign_ = true;
    bool modified_ = false;
};

extern template class LibraryPageSession<SdtaComponent>;
extern template class LibraryPageSession<AsrComponent>;

class SdtaPageSession final : public LibraryPageSession<SdtaComponent> {
public:
    using LibraryPageSession::LibraryPageSession;

    void start() override;
    /// Groups in the order of their numbers, those without parts included.
    [[nodiscard]] std::vector<GroupCount> counts() const override;

private:
    bool addMissingParts() override;
};

class AsrPageSession final : public LibraryPageSession<AsrComponent> {
public:
    using LibraryPageSession::LibraryPageSession;

    void start() override;
    /// Family by family in the order of their first group; codes that are not in use left out.
    [[nodiscard]] std::vector<GroupCount> counts() const override;

    void setLevel(AnalysisLevel level) { level_ = level; }
    [[nodiscard]] AnalysisLevel level() const { return level_; }

private:
    bool addMissingParts() override;

    AnalysisLevel level_ = AnalysisLevel::SchematicReview;
};

} // namespace partwright
