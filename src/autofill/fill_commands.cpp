// The two auto-fill commands of the window. They walk a library in key order and change records in
// place; what one record gets is the same for both kinds of library but for the numbers of Kind.

#include "autofill/defaults.h"
#include "autofill/fill_engine.h"
#include "core/cell_text.h"
#include "core/completion.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view decodedMark = L"GLib";
constexpr std::wstring_view parsedMark = L"Descr";

/// Recomputes the flags, and once more when the defaults of the type filled a cell.
template <class Record>
void complete(const CPartwrightPlugInApp& app, const CompletionRules<Record>& rules,
              Record& record) {
    rules.update(record);
    if (record.completed == 0 && applyDefaults(app, record))
        rules.update(record);
}

/// The number is no key of a part, or none that the command is for.
const std::wstring* selected(const PartSelection& selection, std::wstring_view key) {
    if (key.empty() || key == emptyMark)
        return nullptr;
    const auto found = selection.find(key);
    return found == selection.end() ? nullptr : &found->second;
}

void collect(std::vector<std::wstring>& messages, std::vector<std::wstring>& more) {
    messages.insert(messages.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
}

} // namespace

template <class Record>
FillReport FillEngine::runGroupLibrary(const PartSelection& selection,
                                       typename Kind<Record>::Library& library) {
    FillReport report;
    const CompletionRules<Record> rules(app_);
    for (auto& [key, record] : library) {
        const std::wstring number(trim(key));
        const std::wstring* designators = selected(selection, key);
        if (record.completed != 0 || designators == nullptr || !selection.contains(number) ||
            (Kind<Record>::method == Kind<AsrComponent>::method && record.group == 0))
            continue;
        PartDescription part = describe(number);
        collect(report.messages, part.messages);
        if (part.description.empty() && number.find(L' ') != std::wstring::npos) {
            part = describe(removeAll(number, L" "));
            collect(report.messages, part.messages);
        }
        if (part.description.empty())
            continue;
        const std::wstring text = synonyms_.rewrite(part.description);
        const std::int32_t group = classifier_->DetectGroup(*designators, text, true);
        if (!app_.groupNamesByCode.contains(group))
            continue;
        FilledPart filledPart = filled<Record>(group, text);
        record.group = filledPart.found.group;
        record.type = filledPart.found.type;
        record.family = FamilyNumber(Kind<Record>::family(record.group));
        for (std::size_t i = 0; i < Kind<Record>::takenCells; ++i)
            record.LPar[i] = std::move(filledPart.cells[i]);
        record.Manufacturer = part.manufacturer;
        record.Notes = std::move(filledPart.notes);
        record.Notes += decodedMark;
        complete(app_, rules, record);
        report.parts.push_back(key);
    }
    return report;
}

template <class Record>
FillReport FillEngine::parseDescriptions(const PartSelection& selection,
                                         typename Kind<Record>::Library& library) {
    FillReport report;
    const CompletionRules<Record> rules(app_);
    std::vector<std::wstring> cells(Kind<Record>::fillCells);
    for (auto& [key, record] : library) {
        if (record.completed != 0 || record.group == 0 || !selection.contains(key))
            continue;
        const auto* row = rules.row(record.group, record.type);
        if (row == nullptr)
            continue;
        const ScannedText text(synonyms_.rewrite(record.Description));
        filler_.FillParamsFromDescription(record.group, record.type, cells, text,
                                          Kind<Record>::method, record.Notes);
        const std::size_t count = std::min(Kind<Record>::takenCells, row->names.size() - 1);
        for (std::size_t i = 0; i < count; ++i) {
            const std::wstring& label = row->names[i + 1];
            if (!label.empty() && label != cell::labelNotApplicable && record.LPar[i].empty())
                record.LPar[i] = std::move(cells[i]);
        }
        record.Notes += parsedMark;
        complete(app_, rules, record);
        report.parts.push_back(key);
    }
    return report;
}

template FillReport FillEngine::runGroupLibrary<SdtaComponent>(const PartSelection&, SdtaLibrary&);
template FillReport FillEngine::runGroupLibrary<AsrComponent>(const PartSelection&, AsrLibrary&);
template FillReport FillEngine::parseDescriptions<SdtaComponent>(const PartSelection&,
                                                                 SdtaLibrary&);
template FillReport FillEngine::parseDescriptions<AsrComponent>(const PartSelection&, AsrLibrary&);

} // namespace partwright
