#pragma once

// The decisions of the two dialogs that bring a part into its group. GroupChoiceSession is the
// small one, behind "Add", "Copy" and "Change Group": a part number, a family, a group.
// NewComponentSession is the large one: all parts without a group, each to be given one; a widget
// sees it as a NewComponentTable.
//
// A family is known by its key; a dialog shows a longer name for some. "Hybrid-EquipPCB" and
// "Hybrid" are one family under two keys.

#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"
#include "editing/table_session.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// What a dialog shows for a family.
[[nodiscard]] std::wstring_view familyDisplayName(std::wstring_view key);
/// Position in the family list.
[[nodiscard]] std::int32_t familyNumberOf(std::wstring_view key);

/// Every family that has groups which a part can be put into.
template <class Record>
[[nodiscard]] FamilyGroups familyGroups(const Definitions<Record>& definitions);
extern template FamilyGroups familyGroups(const Definitions<SdtaComponent>&);
extern template FamilyGroups familyGroups(const Definitions<AsrComponent>&);

enum class GroupChoiceMode { ChangeGroup, Add, Copy };

class GroupChoiceSession {
public:
    struct Family {
        std::wstring key;
        std::wstring shown;
    };

    /// Starts with the family that has `group`, and with that group. `isTaken` asks whether a part
    /// number, in capitals, is in use.
    GroupChoiceSession(GroupChoiceMode mode, FamilyGroups groups, std::int32_t group,
                       std::function<bool(std::wstring_view)> isTaken);

    [[nodiscard]] std::wstring_view title() const;
    [[nodiscard]] bool asksPartNumber() const { return mode_ != GroupChoiceMode::ChangeGroup; }
    /// A copy goes where its original is; family and group are shown all the same.
    [[nodiscard]] bool asksGroup() const { return mode_ != GroupChoiceMode::Copy; }
    [[nodiscard]] const std::vector<Family>& families() const { return families_; }
    [[nodiscard]] std::size_t family() const { return family_; }
    /// Of the chosen family.
    [[nodiscard]] const std::vector<FamilyGroup>& groups() const;
    [[nodiscard]] std::size_t group() const { return group_; }
    /// The first group of the family is chosen with it.
    void chooseFamily(std::size_t place);
    void chooseGroup(std::size_t place) { group_ = place; }

    /// OK. False: the dialog stays open and a box told why.
    bool accept(std::wstring_view partNumber, Prompt& prompt);
    [[nodiscard]] const GroupChoice& result() const { return result_; }

private:
    GroupChoiceMode mode_;
    FamilyGroups groups_;
    std::vector<Family> families_;
    std::size_t family_ = 0;
    std::size_t group_ = 0;
    std::function<bool(std::wstring_view)> isTaken_;
    GroupChoice result_;
};

/// A line of the table of parts without a group.
struct NewComponentRow {
    std::wstring part;
    std::wstring catalogNumber;
    std::wstring description;
    std::wstring family;
    std::wstring group;
    /// The designators that carry the part in the project; such a part cannot be deleted.
    std::wstring used;
    std::wstring datasheet;
    std::wstring manufacturer;
    std::wstring notes;
};

/// The table as a dialog shows it, whatever kind of library it came from.
class NewComponentTable {
public:
    NewComponentTable(const NewComponentTable&) = delete;
    NewComponentTable& operator=(const NewComponentTable&) = delete;
    virtual ~NewComponentTable() = default;

    /// By part number; the places of all verbs below.
    [[nodiscard]] const std::vector<NewComponentRow>& rows() const { return rows_; }
    /// Keys of the families on offer.
    [[nodiscard]] std::vector<std::wstring> families() const;
    /// Names of the groups on offer for a family.
    [[nodiscard]] std::vector<std::wstring> groups(std::wstring_view family) const;

    /// A group that the new family does not have is emptied.
    void setFamily(std::size_t row, std::wstring_view family);
    void setGroup(std::size_t row, std::wstring_view group);
    /// The link is no longer shown; the table of links keeps it.
    void clearDatasheet(std::size_t row) { rows_[row].datasheet.clear(); }
    /// Asks, and removes; the places that are gone, ascending.
    std::vector<std::size_t> deleteRows(std::vector<std::size_t> selected);
    /// Parts to be taken out of all working copies after OK.
    [[nodiscard]] const std::vector<std::wstring>& removedParts() const { return removed_; }

protected:
    /// `projectParts` are those with a row in the project.
    NewComponentTable(FamilyGroups groups, PartSelection projectParts, Prompt& prompt);

    /// 0 when the family or the name is unknown.
    [[nodiscard]] std::int32_t groupNumber(std::wstring_view family, std::wstring_view name) const;
    [[nodiscard]] std::wstring designatorsOf(std::wstring_view part) const;

    std::vector<NewComponentRow> rows_;

private:
    [[nodiscard]] const std::vector<FamilyGroup>* groupsOf(std::wstring_view family) const;

    FamilyGroups groups_;
    PartSelection projectParts_;
    Prompt& prompt_;
    std::vector<std::wstring> removed_;
};

template <class Record>
class NewComponentSession final : public NewComponentTable {
public:
    using Library = typename Kind<Record>::Library;

    NewComponentSession(const CPartwrightPlugInApp& app, Library records,
                        PartSelection projectParts, Prompt& prompt);

    /// OK: the records that are left, those with a family and a group in their new group, without
    /// values.
    [[nodiscard]] Library takeRecords();

private:
    const CPartwrightPlugInApp& app_;
    Library records_;
};

extern template class NewComponentSession<SdtaComponent>;
extern template class NewComponentSession<AsrComponent>;

} // namespace partwright
