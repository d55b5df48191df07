#pragma once

// The Change Component session over the records of one kind of library: opens them as rows and,
// when OK went through, gives them back. In between records are not touched.
//
//   ComponentTableSession<SdtaComponent> session(app, group, level, records, rules, place);
//   ...verbs...
//   TableOutcome outcome = session.ok(order, app.libraries.datasheetLinks);
//   if (outcome.accepted)
//       page takes session.takeRecords(): what it handed over and is missing now was deleted
//
// On the way in "-1" shows as "-" and "-2" as "N/A"; on the way out the same back. So a record
// that nobody touched comes back as it was, but for "N/A", which is stored as "-2", and for what
// the table had to fill in: a package, a process that does not apply, the completion flags.

#include "core/library_kind.h"
#include "editing/table_session.h"

#include <cstdint>
#include <string_view>

namespace partwright {

template <class Record>
class ComponentTableSession final : public TableSession {
public:
    using Library = typename Kind<Record>::Library;

    /// `records` are those of the group, by part number. The level is of use to the Analyses
    /// library alone.
    ComponentTableSession(const CPartwrightPlugInApp& app, std::int32_t group, AnalysisLevel level,
                          Library records, const ValidationTables& rules, TablePlace place);

    [[nodiscard]] FamilyGroups familyGroups() const override;
    TableOutcome ok(RowOrder order, DatasheetLinks& links,
                    Consent consent = Consent::NotAsked) override;

    /// After an accepted ok().
    [[nodiscard]] Library takeRecords() { return std::move(records_); }

protected:
    [[nodiscard]] bool isOpened(std::wstring_view part) const override;
    [[nodiscard]] std::size_t changedComponents() const override;

private:
    void StoreRowsToRecords();
    /// The record of a row at or behind `hint`; made when the row is new.
    typename Library::iterator recordOf(const TableRow& row, typename Library::iterator hint);
    void storeRow(const TableRow& row, Record& record) const;
    void storeTexts(const TableRow& row, Record& record) const;
    void storeFlags(bool isFull, Record& record) const;
    void storeDeparted(const DepartedPart& part);
    void StoreDatasheetLinks(DatasheetLinks& links) const;

    const CPartwrightPlugInApp& app_;
    Library records_;
};

extern template class ComponentTableSession<SdtaComponent>;
extern template class ComponentTableSession<AsrComponent>;

} // namespace partwright
