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

#include "autofill/fill_engine.h"
#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"
#include "editing/analysis_level.h"
#include "editing/fill_history.h"
#include "editing/library_save.h"
#include "editing/table_session.h"
#include "library/project_input.h"
#include "validation/validation_tables.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace partwright {

class NewComponentTable;

/// The filter radios of the pages. The Analyses page calls AllProject "Project Only" and has no
/// SelectedOnly.
enum class PageFilter { SelectedOnly, AllProject, FullLibrary };

/// One line of a page's list.
struct GroupCount {
    std::int32_t group = 0;
    /// What the page shows as the line's number.
    std::int32_t shownNumber = 0;
    std::wstring name;
    std::wstring family;
    std::int32_t quantity = 0;
    /// Of these, how many are uncompleted, by level. SDTA has one level: all three are equal.
    std::int32_t uncompletedForAsr = 0;
    std::int32_t uncompletedForRapid = 0;
    std::int32_t uncompleted = 0;
};

/// What both pages offer, whatever their library holds.
class PageSession {
public:
    PageSession(CPartwrightPlugInApp& app, FillEngine& engine, ValidationTables& rules,
                Prompt& prompt)
        : app_(app), engine_(engine), rules_(rules), prompt_(prompt) {}
    PageSession(const PageSession&) = delete;
    PageSession& operator=(const PageSession&) = delete;
    virtual ~PageSession() = default;

    /// Takes over the master copies and loads what the page needs.
    virtual void start() = 0;
    /// Brings up to date what the list shows: in Design mode the project's missing parts are added.
    virtual void refresh() = 0;
    virtual void RebuildKeySets() = 0;

    /// The filter radios that the page has.
    [[nodiscard]] virtual std::vector<PageFilter> filters() const = 0;
    void setFilter(PageFilter filter) { filter_ = filter; }
    [[nodiscard]] PageFilter filter() const { return filter_; }
    void setDesign(bool isDesign) { isDesign_ = isDesign; }
    [[nodiscard]] bool isDesign() const { return isDesign_; }

    /// The set of the checked radio.
    [[nodiscard]] const PartSelection& filterSet() const;
    /// How deep the page looks; only the Analyses page asks.
    [[nodiscard]] virtual AnalysisLevel level() const { return AnalysisLevel::Full; }
    /// One line a group, in the order in which the page shows them.
    [[nodiscard]] virtual std::vector<GroupCount> counts() const = 0;
    /// Of a line, the count that the page calls uncompleted.
    [[nodiscard]] virtual std::int32_t uncompletedOf(const GroupCount& line) const {
        return line.uncompleted;
    }
    [[nodiscard]] virtual const std::wstring& libraryPath() const = 0;

    /// The two auto-fill commands over the records that pass the filter; the part numbers of the
    /// records gone through, in key order.
    virtual std::vector<std::wstring> runGroupLibrary() = 0;
    virtual std::vector<std::wstring> parseDescriptions() = 0;

    /// What the last auto-fill command did, as a line; empty when there is nothing to tell.
    [[nodiscard]] const std::wstring& fillLine() const { return fillLine_; }
    /// Something is there to be taken back, in the library that is shown.
    [[nodiscard]] virtual bool canTakeBackFill() const = 0;
    /// The command that takeBackFill() would take back; empty when there is none.
    [[nodiscard]] virtual std::wstring_view filledBy() const = 0;
    /// Its records.
    [[nodiscard]] virtual std::vector<FilledRecord> filledRecords() const = 0;
    /// Sets the records of the last auto-fill command back to what they were before it.
    virtual void takeBackFill() = 0;

    /// The counted records of a group, for a dialog that changes them. One such session is in work
    /// at a time.
    [[nodiscard]] virtual std::unique_ptr<TableSession> openGroup(std::int32_t group) = 0;
    /// Takes back what the session holds once its ok() was accepted. A record that was handed out
    /// and does not come back was deleted.
    virtual void storeGroup(TableSession& session) = 0;

    /// The parts without a group that pass the filter, to be given one.
    [[nodiscard]] virtual std::unique_ptr<NewComponentTable> openNewComponents() = 0;
    /// Takes over what a table of this page's openNewComponents() holds after OK. Its removed
    /// parts are the main session's affair, since they leave both pages.
    virtual void storeNewComponents(NewComponentTable& table) = 0;

    /// Makes the working map the master copy and writes it over the file of the current library;
    /// false when nothing was written, which was told in a box.
    bool save(bool announce) { return saveType(isDesign_, announce); }
    /// The same for the library of either type.
    virtual bool saveType(bool isDesign, bool announce) = 0;
    /// Whether records of that type were changed and not saved since. Parts of the project that
    /// were added by themselves do not count.
    [[nodiscard]] virtual bool hasUnsaved(bool isDesign) const = 0;
    /// Somebody changed records of that type.
    void markModified(bool isDesign) { modified_ = touched_[isDesign ? 1 : 0] = true; }

    /// What was not taken of the file that is shown.
    [[nodiscard]] const LoadReport& loadReport() const;
    [[nodiscard]] virtual bool hasPart(std::wstring_view part) const = 0;
    /// The group under which the list has a part that is there. "Full Library" is chosen where the
    /// filter leaves it out.
    [[nodiscard]] virtual std::int32_t reveal(std::wstring_view part) = 0;

    /// Why the page knows no part of the project; empty when it does.
    [[nodiscard]] std::wstring partListFault() const {
        return partwright::partListFault(app_.paths, app_.partList);
    }

    /// What a valid cell is, for the dialogs over the records; read when the SDTA page starts.
    [[nodiscard]] const ValidationTables& rules() const { return rules_; }

    /// True once a record was changed, merged or saved since the start.
    [[nodiscard]] bool modified() const { return modified_; }

    /// Part numbers of the project with their designators, and the keys of the two maps.
    PartSelection projectParts;
    PartSelection selectedParts;
    PartSelection designParts;
    PartSelection publicParts;

protected:
    /// Shows what loaders have to say.
    void tellAll(const std::vector<LoadResult>& results);
    /// Parts with a row in the project, whatever a dialog added to the sets above.
    PartSelection projectRows_;
    [[nodiscard]] PartSelection& shownParts() { return this->*setOf(filter_, isDesign_); }

    CPartwrightPlugInApp& app_;
    FillEngine& engine_;
    ValidationTables& rules_;
    Prompt& prompt_;
    PageFilter filter_ = PageFilter::AllProject;
    bool isDesign_ = true;
    bool modified_ = false;
    /// By type, "Public" first: somebody changed records; the last save failed.
    std::array<bool, 2> touched_{};
    std::array<bool, 2> saveFailed_{};
    std::wstring fillLine_;

private:
    [[nodiscard]] static PartSelection PageSession::*setOf(PageFilter filter, bool isDesign);
};

template <class Record>
class LibraryPageSession : public PageSession {
public:
    using Library = typename Kind<Record>::Library;
    using PageSession::PageSession;

    /// Working copies, by part number in capitals.
    Library designLibrary;
    Library publicLibrary;

    void refresh() override;
    void RebuildKeySets() override;
    [[nodiscard]] const std::wstring& libraryPath() const override;
    std::vector<std::wstring> runGroupLibrary() override;
    std::vector<std::wstring> parseDescriptions() override;
    [[nodiscard]] bool canTakeBackFill() const override;
    [[nodiscard]] std::wstring_view filledBy() const override;
    [[nodiscard]] std::vector<FilledRecord> filledRecords() const override;
    void takeBackFill() override;
    [[nodiscard]] std::unique_ptr<TableSession> openGroup(std::int32_t group) override;
    void storeGroup(TableSession& session) override;
    [[nodiscard]] std::unique_ptr<NewComponentTable> openNewComponents() override;
    void storeNewComponents(NewComponentTable& table) override;
    bool saveType(bool isDesign, bool announce) override;
    [[nodiscard]] bool hasUnsaved(bool isDesign) const override;
    [[nodiscard]] bool hasPart(std::wstring_view part) const override {
        return workingLibrary().find(part) != workingLibrary().end();
    }
    [[nodiscard]] std::int32_t reveal(std::wstring_view part) override;

    [[nodiscard]] Library& workingLibrary();
    [[nodiscard]] const Library& workingLibrary() const;

protected:
    /// Adds the parts of the project that the design library lacks; true when any was added.
    virtual bool addMissingParts() = 0;

    void takeMasters();
    /// Record with the texts that the project's rows give for a part.
    [[nodiscard]] Record newRecord(std::wstring_view partNumber,
                                   std::wstring_view designators) const;
    /// Gives a record that replaces one without a group what the part list cannot tell of it.
    void keepTexts(Record& record) const;
    /// One count a group name, by group number; "Public" counts the whole public map.
    [[nodiscard]] std::vector<GroupCount> countsByGroup() const;

private:
    /// The page shows the record.
    [[nodiscard]] bool isCounted(const std::wstring& key) const {
        return !isDesign_ || filterSet().contains(key);
    }

    /// A command is done: keeps the way back, tells what it did, and shows the page anew.
    std::vector<std::wstring> finishFill(std::wstring_view command, FillReport<Record> report);

    FillHistory<Record> fills_;
    /// Keys of the records that a dialog has.
    std::vector<std::wstring> handedOut_;
};

extern template class LibraryPageSession<SdtaComponent>;
extern template class LibraryPageSession<AsrComponent>;

class SdtaPageSession final : public LibraryPageSession<SdtaComponent> {
public:
    using LibraryPageSession::LibraryPageSession;

    void start() override;
    [[nodiscard]] std::vector<PageFilter> filters() const override;
    /// Groups in the order of their numbers, those without parts included.
    [[nodiscard]] std::vector<GroupCount> counts() const override;

private:
    /// The rule tables that are not there yet.
    void loadRules();
    bool addMissingParts() override;
};

class AsrPageSession final : public LibraryPageSession<AsrComponent> {
public:
    using LibraryPageSession::LibraryPageSession;

    void start() override;
    [[nodiscard]] std::vector<PageFilter> filters() const override;
    /// Family by family in the order of their first group; codes that are not in use left out.
    [[nodiscard]] std::vector<GroupCount> counts() const override;

    /// By the chosen level.
    [[nodiscard]] std::int32_t uncompletedOf(const GroupCount& line) const override;

    void setLevel(AnalysisLevel level) { level_ = level; }
    [[nodiscard]] AnalysisLevel level() const override { return level_; }

private:
    bool addMissingParts() override;

    AnalysisLevel level_ = AnalysisLevel::SchematicReview;
};

} // namespace partwright
