#include "editing/table_setup.h"

#include "core/cell_text.h"
#include "core/text.h"
#include "core/vocabulary.h"

#include <algorithm>

namespace partwright {

namespace {

using Text = std::wstring_view;

constexpr Text datasheetHeader = L"Datasheet (PDF)";

constexpr std::int32_t circuitGroups[] = {1, 2};

/// What a package code means to the reader of a data sheet, in the order of the lists.
constexpr Text semiconductorPackageTexts[] = {
    L"Hermetic CAN High Power Ojc<=25",
    L"Hermetic CAN Low Power Ojc>25",
    L"Hermetic Surface Mount",
    L"Hermetic Through Hole",
    L"Non Hermetic Surface Mount",
    L"Non Hermetic Through Hole",
    L"Metal CAN, two pins and case",
    L"Metal CAN, 8 mm",
    L"Metal CAN, 5 mm",
    L"Metal CAN, 8 mm, short leads",
    L"Plastic, three leads in a row",
    L"Plastic with tab, three leads",
    L"Plastic, three leads, long",
    L"Glass, axial, small",
    L"Plastic or glass, axial",
    L"Metal, axial",
};
constexpr Text circuitPackageTexts[] = {
    L"Hermetic DIP, Eutectic or Solder Seal",
    L"Hermetic DIP, Glass Seal",
    L"Plastic DIP",
    L"Non Hermetic Small Outline",
    L"Ceramic Pin Grid Array",
    L"Plastic Pin Grid Array",
    L"Hermetic Flatpack",
    L"Non Hermetic Flatpack",
    L"Hermetic CAN High Power Ojc<=25",
    L"Hermetic CAN Low Power Ojc>25",
    L"Plastic Leaded Chip Carrier",
    L"Ceramic Quad Flatpack",
    L"Plastic Quad Flatpack",
    L"Hermetic Leadless",
    L"Non Hermetic Leadless",
    L"Hermetic Leaded, Through Hole",
    L"Non Hermetic Leaded, Through Hole",
    L"Hermetic Leaded, Surface Mount",
    L"Non Hermetic Leaded, Surface Mount",
};

constexpr std::size_t defaultSemiconductorPackage = 4;
constexpr std::size_t defaultCircuitPackage = 18;

bool contains(std::span<const std::int32_t> groups, std::int32_t group) {
    return std::find(groups.begin(), groups.end(), group) != groups.end();
}

ColumnChoices choicesOf(const TableDescriptor& kind, std::int32_t group, Text header,
                        std::size_t parameter) {
    if (header == temperatureReferenceColumn)
        return ColumnChoices::At;
    if (header == packageColumn)
        return ColumnChoices::Package;
    if (header == partwright::processColumn)
        return ColumnChoices::Process;
    for (const OptionColumn& option : kind.options)
        if (option.group == group && option.parameter == parameter)
            return ColumnChoices::Option;
    return ColumnChoices::None;
}

double parameterWidth(ColumnChoices choices, std::size_t parameter) {
    const bool isList = choices != ColumnChoices::None;
    return 0.8 * (isList ? 1.3 : 1.0) * (parameter == 1 ? 1.4 : 1.0);
}

std::size_t addColumn(TableSetup& setup, ColumnKind kind, Text header, double width) {
    TableColumn column;
    column.kind = kind;
    column.header = header;
    column.width = width;
    setup.columns.push_back(std::move(column));
    return setup.columns.size() - 1;
}

void addParameters(TableSetup& setup, Names names, const LevelColumns* level, bool showsAll) {
    for (std::size_t n = 1; n <= names.size(); ++n) {
        const Text header = names[n - 1];
        const ColumnChoices choices = choicesOf(*setup.kind, setup.group, header, n);
        const auto at = addColumn(setup, ColumnKind::Parameter, header, parameterWidth(choices, n));
        TableColumn& column = setup.columns[at];
        column.choices = choices;
        column.parameter = n;
        column.hidden = !showsAll && (level == nullptr || n >= level->size() || (*level)[n] == 0);
        if (choices == ColumnChoices::Process)
            setup.processColumn = at;
    }
    setup.lastParameter = setup.columns.size() - 1;
}

void addColumns(TableSetup& setup, Names names, const LevelColumns* level) {
    addColumn(setup, ColumnKind::RowNumber, {}, 20);
    addColumn(setup, ColumnKind::PartNumber, L"Part Number", 145);
    addColumn(setup, ColumnKind::CatalogNumber, L"CatNum", 100);
    addColumn(setup, ColumnKind::Description, L"Description", 120);
    addColumn(setup, ColumnKind::Full, L"Full", 35);
    setup.columns[addColumn(setup, ColumnKind::Used, L"Used", 40)].hidden = true;
    setup.columns[addColumn(setup, ColumnKind::Type, L"Type", 120)].choices = ColumnChoices::Type;
    addParameters(setup, names, level,
                  !setup.kind->hasLevels || setup.level == AnalysisLevel::Full);
    setup.datasheetColumn = addColumn(setup, ColumnKind::Datasheet, datasheetHeader, 150);
    setup.manufacturerColumn = addColumn(setup, ColumnKind::Manufacturer, L"Manufacturer", 90);
    setup.notesColumn = addColumn(setup, ColumnKind::Notes, L"Notes", 100);
    if (!setup.kind->hasCheckBoxes)
        return;
    const auto library = addColumn(setup, ColumnKind::PinLibrary, L"IC.PinLibrary", 100);
    setup.columns[library].hidden = setup.group != setup.kind->pinLibraryGroup;
    setup.columns[addColumn(setup, ColumnKind::CalcOutput, L"Calc Out.Spl.Current", 100)].hidden =
        true;
}

void addPackages(TableSetup& setup) {
    const bool isCircuit = contains(setup.kind->circuitGroups, setup.group);
    const Names names = isCircuit ? circuitPackages() : semiconductorPackages();
    const std::span<const Text> texts =
        isCircuit ? std::span<const Text>(circuitPackageTexts) : semiconductorPackageTexts;
    for (std::size_t i = 0; i < std::min(names.size(), texts.size()); ++i)
        setup.packageChoices.add(names[i], texts[i]);
    setup.defaultPackage = names[isCircuit ? defaultCircuitPackage : defaultSemiconductorPackage];
}

void addChoices(TableSetup& setup, std::span<const TypeName> vocabulary) {
    for (std::size_t i = 1; i < setup.types.size(); ++i) {
        const Text text = i < vocabulary.size() ? vocabulary[i].description : Text();
        setup.typeChoices.add(setup.types[i], text);
        if (i + 1 < setup.types.size())
            setup.customProcessChoices.add(setup.types[i], text);
    }
    setup.atChoices.add(temperatureReferences[0], L"Ts is given for Ambient");
    setup.atChoices.add(temperatureReferences[1], L"Ts is given for Case");
    setup.notApplicableChoices = ChoiceList(setup.kind->notApplicableGap);
    setup.notApplicableChoices.add(cell::notApplicable, L"Not Applicable");
    addPackages(setup);
    for (const OptionColumn& option : setup.kind->options) {
        if (option.group != setup.group)
            continue;
        ChoiceList list;
        for (std::size_t i = 0; i < option.names.size(); ++i)
            list.add(option.names[i], option.descriptions[i]);
        setup.optionChoices.emplace_back(&option, std::move(list));
    }
}

template <class Row>
PropertyView viewOf(const Row* row) {
    return row == nullptr ? PropertyView{} : PropertyView{row->names, row->messages, row->valid};
}

} // namespace

template <>
const TableDescriptor& tableDescriptor<SdtaComponent>() {
    static const TableDescriptor descriptor{
        .hasStressChecks = true,
        .processGroup = 11,
        .powerGroup = 10,
        .circuitGroups = circuitGroups,
    };
    return descriptor;
}

template <>
const TableDescriptor& tableDescriptor<AsrComponent>() {
    static const TableDescriptor descriptor{
        .hasLevels = true,
        .hasCheckBoxes = true,
        .hasCodedChecks = true,
        .circuitGroups = circuitGroups,
        .options = optionColumnsOfAsr(),
        .pinLibraryGroup = 9,
        .notApplicableGap = L"     ",
    };
    return descriptor;
}

bool PropertyView::isUnused(std::size_t parameter) const {
    return parameter < names.size() && names[parameter] == cell::labelNotApplicable;
}

bool PropertyView::doesNotApply(std::size_t parameter) const {
    return isUnused(parameter) ||
           (parameter < messages.size() && messages[parameter] == cell::messageNotUsed);
}

std::size_t TableSetup::typeNumber(std::wstring_view name) const {
    const auto found = std::find(types.begin(), types.end(), name);
    return found == types.end() ? noType : static_cast<std::size_t>(found - types.begin());
}

const PropertyView* TableSetup::property(std::wstring_view typeName) const {
    const PropertyView& view = properties[std::min(typeNumber(typeName), types.size())];
    return view.names.empty() ? nullptr : &view;
}

std::wstring_view TableSetup::resolved(std::wstring_view typeName) const {
    return typeName == defaultTypeName && defaultType != 0
               ? std::wstring_view(types[static_cast<std::size_t>(defaultType)])
               : typeName;
}

const std::pair<const OptionColumn*, ChoiceList>* TableSetup::option(std::size_t column) const {
    for (const auto& entry : optionChoices)
        if (entry.first->parameter == columns[column].parameter)
            return &entry;
    return nullptr;
}

template <class Record>
std::int32_t defaultTypeOf(const Definitions<Record>& definitions, std::int32_t group) {
    const auto& defaults = definitions.defaultTypes;
    if (group < 1 || static_cast<std::size_t>(group) >= defaults.size())
        return 0;
    const std::int32_t type = defaults[static_cast<std::size_t>(group)];
    return type > 0 && static_cast<std::size_t>(type) < definitions.typesOf(group).size() ? type
                                                                                          : 0;
}

template <class Record>
TableSetup makeTableSetup(const CPartwrightPlugInApp& app, std::int32_t group,
                          AnalysisLevel level) {
    const Definitions<Record>& definitions = app.of<Record>();
    TableSetup setup;
    setup.kind = &tableDescriptor<Record>();
    setup.group = group;
    setup.groupName = definitions.GroupAndTypeNames(group, 0).first;
    setup.level = level;
    setup.decimalMark = app.decimalMark();
    setup.defaultType = defaultTypeOf(definitions, group);

    const auto& levels =
        level == AnalysisLevel::Rapid ? app.asr.columnsForRapid : app.asr.columnsForAsr;
    const auto flags = levels.find(group);
    addColumns(setup, Kind<Record>::columns(group),
               flags == levels.end() ? nullptr : &flags->second);

    for (const TypeEntry& type : definitions.typesOf(group))
        setup.types.push_back(type.name);
    for (const std::wstring& type : setup.types)
        setup.properties.push_back(viewOf(definitions.FindPropertyRow(setup.groupName, type)));
    setup.properties.push_back(viewOf(definitions.FindPropertyRow(setup.groupName, {})));
    if constexpr (std::is_same_v<Record, SdtaComponent>)
        addChoices(setup, TypeTableOfSdtaGroup(group));
    else
        addChoices(setup, TypeTableOfAsrGroup(group));
    return setup;
}

template TableSetup makeTableSetup<SdtaComponent>(const CPartwrightPlugInApp&, std::int32_t,
                                                  AnalysisLevel);
template TableSetup makeTableSetup<AsrComponent>(const CPartwrightPlugInApp&, std::int32_t,
                                                 AnalysisLevel);
template std::int32_t defaultTypeOf(const Definitions<SdtaComponent>&, std::int32_t);
template std::int32_t defaultTypeOf(const Definitions<AsrComponent>&, std::int32_t);

} // namespace partwright
