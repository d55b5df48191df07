#include "editing/row_type.h"

#include "core/cell_text.h"
#include "core/vocabulary.h"

namespace partwright {

namespace {

/// What a custom capacitor starts as, and two parameters that this process does not have.
constexpr std::wstring_view firstCustomProcess = L"CKR";
constexpr std::size_t unusedByFirstProcess[] = {3, 4};

/// A type whose output supply current is calculated when the table shows that choice.
constexpr std::wstring_view calculatedType = L"IC.PinLibrary";

void ClearRowForType(ComponentTable& table, std::size_t row) {
    for (std::size_t column = typeColumn + 1; column <= table.setup().lastParameter; ++column)
        table.write(row, column, {});
    table.flag(row, false);
}

void ApplyTypeDefaults(ComponentTable& table, std::size_t row, std::wstring_view type) {
    const TableSetup& setup = table.setup();
    const PropertyView* property = setup.property(type);
    if (property == nullptr)
        return;
    for (std::size_t column = typeColumn + 1; column <= setup.lastParameter; ++column) {
        const ColumnChoices list = setup.columns[column].choices;
        if (list == ColumnChoices::None) {
            if (property->isUnused(setup.columns[column].parameter))
                table.write(row, column, cell::notApplicable);
        } else if (list == ColumnChoices::Option) {
            const OptionColumn& option = *setup.option(column)->first;
            table.write(row, column,
                        setup.resolved(type) == option.type ? option.defaultValue
                                                            : cell::notApplicable);
        }
    }
}

/// The process of a capacitor is chosen for one type alone.
void followProcess(ComponentTable& table, std::size_t row, std::wstring_view type) {
    const TableSetup& setup = table.setup();
    const bool isCustom = type == customTypeName;
    table.write(row, setup.processColumn, isCustom ? firstCustomProcess : cell::notApplicable);
    for (const std::size_t parameter : unusedByFirstProcess)
        if (isCustom && typeColumn + parameter <= setup.lastParameter)
            table.write(row, typeColumn + parameter, cell::notApplicable);
}

} // namespace

void ChangeRowType(ComponentTable& table, std::size_t row, std::wstring_view type) {
    const TableSetup& setup = table.setup();
    ClearRowForType(table, row);
    ApplyTypeDefaults(table, row, type);
    const std::size_t last = setup.columns.size() - 1;
    if (setup.columns[last].kind == ColumnKind::CalcOutput && !setup.columns[last].hidden &&
        type == calculatedType)
        table.write(row, last, checkedBox);
    if (setup.processColumn != 0 && setup.group == setup.kind->processGroup)
        followProcess(table, row, type);
}

void changeRowProcess(ComponentTable& table, std::size_t row, std::wstring_view process) {
    ClearRowForType(table, row);
    table.write(row, table.setup().processColumn, process);
    ApplyTypeDefaults(table, row, process);
}

} // namespace partwright
