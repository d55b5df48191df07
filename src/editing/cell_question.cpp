#include "editing/cell_question.h"

#include "core/vocabulary.h"

namespace partwright {

const ChoiceList* choicesOf(const ComponentTable& table, CellAt at) {
    const TableSetup& setup = table.setup();
    switch (setup.columns[at.column].choices) {
    case ColumnChoices::None:
        break;
    case ColumnChoices::Type:
        return &setup.typeChoices;
    case ColumnChoices::At:
        return &setup.atChoices;
    case ColumnChoices::Package:
        return &setup.packageChoices;
    case ColumnChoices::Process:
        return table.type(at.row) == customTypeName ? &setup.customProcessChoices
                                                    : &setup.notApplicableChoices;
    case ColumnChoices::Option:
        const auto* option = setup.option(at.column);
        return setup.resolved(table.type(at.row)) == option->first->type
                   ? &option->second
                   : &setup.notApplicableChoices;
    }
    return nullptr;
}

CellQuestion cellQuestion(const ComponentTable& table, const TableChecks& checks, CellAt at,
                          std::wstring_view text, bool isCommit) {
    const TableSetup& setup = table.setup();
    const TableColumn& column = setup.columns[at.column];
    CellQuestion question;
    question.type = table.type(at.row);
    question.value = text;
    question.isType = column.kind == ColumnKind::Type;
    question.isExempt = column.kind == ColumnKind::Datasheet ||
                        column.kind == ColumnKind::CalcOutput || column.kind == ColumnKind::Notes ||
                        column.kind == ColumnKind::Manufacturer ||
                        (column.kind == ColumnKind::PinLibrary && !isCommit);
    question.isChoice = column.choices != ColumnChoices::None && !question.isType;
    question.isPinList = checks.isPinList(column);
    if (const PropertyView* property = setup.property(question.type))
        question.reference = column.parameter != 0 && column.parameter < property->valid.size()
                                 ? property->valid[column.parameter]
                                 : SdtaPropertyRow::noValidation;
    question.choices = choicesOf(table, at);
    return question;
}

} // namespace partwright
