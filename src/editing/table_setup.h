#pragma once

// What the table of a Change Component dialog looks like before it has rows: its columns, the
// drop-down lists of its cells and the property rows of its types. The two kinds of library differ
// in the values of TableDescriptor, not in code.
//
// Columns are counted as the grid shows them: 0 holds the row numbers, 1 to 6 are the same in every
// table, the parameters of the group follow from 7 on (LPar n is column 6 + n), then the link and
// the free texts.

#include "core/application.h"
#include "core/library_kind.h"
#include "editing/analysis_level.h"
#include "validation/choice_list.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

inline constexpr std::size_t partNumberColumn = 1;
inline constexpr std::size_t catalogNumberColumn = 2;
inline constexpr std::size_t descriptionColumn = 3;
inline constexpr std::size_t fullColumn = 4;
inline constexpr std::size_t usedColumn = 5;
inline constexpr std::size_t typeColumn = 6;

inline constexpr std::wstring_view fullMark = L"+";
inline constexpr std::wstring_view notFullMark = L"-";

/// What a check box holds; an empty one is not checked either.
inline constexpr std::wstring_view checkedBox = L"1";
inline constexpr std::wstring_view uncheckedBox = L"0";

enum class ColumnKind {
    RowNumber,
    PartNumber,
    CatalogNumber,
    Description,
    Full,
    Used,
    Type,
    Parameter,
    Datasheet,
    Manufacturer,
    Notes,
    /// Check boxes of the Analyses table; they are shown and not stored.
    PinLibrary,
    CalcOutput,
};

/// Which list a cell of the column drops down.
enum class ColumnChoices { None, Type, At, Package, Process, Option };

struct TableColumn {
    ColumnKind kind = ColumnKind::Parameter;
    std::wstring header;
    /// Before scaling to the display; of a parameter, in parts of the default width.
    double width = 0;
    bool hidden = false;
    ColumnChoices choices = ColumnChoices::None;
    /// LPar number; 0 when the column is no parameter.
    std::size_t parameter = 0;

    /// Takes no text from the user.
    [[nodiscard]] bool isReadOnly() const {
        return kind == ColumnKind::RowNumber || kind == ColumnKind::PartNumber ||
               kind == ColumnKind::Full || kind == ColumnKind::Used;
    }
};

/// All that sets the table of one kind of library apart from the other's.
struct TableDescriptor {
    /// Columns can be hidden by the analysis level, and Full speaks of the visible ones.
    bool hasLevels = false;
    /// The check-box columns stand behind the notes.
    bool hasCheckBoxes = false;
    /// Its values are stress limits, with StressChecks on them.
    bool hasStressChecks = false;
    /// Its cells name pins and list values, with CodedChecks on them.
    bool hasCodedChecks = false;
    /// Group whose column "Process" follows the Type; 0 for none.
    std::int32_t processGroup = 0;
    /// Group whose types have limits of the first parameter; 0 for none.
    std::int32_t powerGroup = 0;
    /// Groups with the package list of circuits.
    std::span<const std::int32_t> circuitGroups = {};
    std::span<const OptionColumn> options = {};
    /// Group whose column "IC.PinLibrary" is shown.
    std::int32_t pinLibraryGroup = 0;
    /// Between name and text of the list of a cell that does not apply.
    std::wstring_view notApplicableGap = {};
};

template <class Record>
[[nodiscard]] const TableDescriptor& tableDescriptor();
template <>
const TableDescriptor& tableDescriptor<SdtaComponent>();
template <>
const TableDescriptor& tableDescriptor<AsrComponent>();

/// A property row of either library. Slot n belongs to LPar n.
struct PropertyView {
    std::span<const std::wstring> names;
    std::span<const std::wstring> messages;
    std::span<const std::int32_t> valid;

    /// The parameter has no meaning for the type by its name in the table.
    [[nodiscard]] bool isUnused(std::size_t parameter) const;
    /// The same by its name or its message.
    [[nodiscard]] bool doesNotApply(std::size_t parameter) const;
};

/// Borrows the application's property tables: valid until they are loaded again.
struct TableSetup {
    const TableDescriptor* kind = nullptr;
    std::int32_t group = 0;
    std::wstring groupName;
    AnalysisLevel level = AnalysisLevel::Full;
    wchar_t decimalMark = L'.';

    std::vector<TableColumn> columns;
    /// The parameters are the columns typeColumn + 1 to lastParameter.
    std::size_t lastParameter = typeColumn;
    std::size_t datasheetColumn = 0;
    std::size_t manufacturerColumn = 0;
    std::size_t notesColumn = 0;
    /// 0 when the group has no such column.
    std::size_t processColumn = 0;

    /// Names of the group's types by their number, "Default" first.
    std::vector<std::wstring> types;
    /// What "Default" stands for; 0 when the group has no types.
    std::int32_t defaultType = 0;
    /// By type number; the last serves a text that is no type. Without spans: no row serves it.
    std::vector<PropertyView> properties;

    ChoiceList typeChoices;
    ChoiceList atChoices;
    ChoiceList packageChoices;
    ChoiceList customProcessChoices;
    ChoiceList notApplicableChoices;
    /// By column, for the columns that have one.
    std::vector<std::pair<const OptionColumn*, ChoiceList>> optionChoices;
    /// Shown in a package cell without a value.
    std::wstring defaultPackage;

    /// Number of a type's name, nothing when the group has no such type.
    [[nodiscard]] std::size_t typeNumber(std::wstring_view name) const;
    static constexpr auto noType = static_cast<std::size_t>(-1);
    [[nodiscard]] const PropertyView* property(std::wstring_view typeName) const;
    /// The name behind "Default", any other name itself.
    [[nodiscard]] std::wstring_view resolved(std::wstring_view typeName) const;
    [[nodiscard]] const std::pair<const OptionColumn*, ChoiceList>*
    option(std::size_t column) const;
};

template <class Record>
[[nodiscard]] TableSetup makeTableSetup(const CPartwrightPlugInApp& app, std::int32_t group,
                                        AnalysisLevel level);
extern template TableSetup makeTableSetup<SdtaComponent>(const CPartwrightPlugInApp&, std::int32_t,
                                                         AnalysisLevel);
extern template TableSetup makeTableSetup<AsrComponent>(const CPartwrightPlugInApp&, std::int32_t,
                                                        AnalysisLevel);

/// The number that a new record of a group gets: that of its default type, 0 without a type list.
template <class Record>
[[nodiscard]] std::int32_t defaultTypeOf(const Definitions<Record>& definitions,
                                         std::int32_t group);
extern template std::int32_t defaultTypeOf(const Definitions<SdtaComponent>&, std::int32_t);
extern template std::int32_t defaultTypeOf(const Definitions<AsrComponent>&, std::int32_t);

} // namespace partwright
