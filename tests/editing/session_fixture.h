#pragma once

// A dialog's session over the shipped tables, with a prompt that is told what will come.

#include "core/messages.h"
#include "core/paths.h"
#include "core/text_file.h"
#include "editing/component_table_session.h"
#include "library/property_tables.h"
#include "support/places.h"
#include "support/scripted_prompt.h"
#include "validation/validation_tables.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace partwright::test {

inline std::string narrow(std::wstring_view text) {
    return ScriptedPrompt::narrow(text);
}

/// The application with all shipped tables, loaded once; take a copy to change it.
inline const CPartwrightPlugInApp& shippedApp() {
    static const auto app = [] {
        auto made = std::make_unique<CPartwrightPlugInApp>();
        made->paths.hostTool = 1;
        made->paths.programFolder = withSeparator(pathText(places::tables));
        ResolveFilePaths(made->paths, L"/nowhere/");
        LoadGroupNames(made->paths, made->classifier, made->sdta);
        LoadSdtaProperties(made->paths, made->sdta);
        LoadAsrProperties(made->paths, made->asr);
        LoadColumnVisibility(made->paths, made->asr);
        return made;
    }();
    return *app;
}

inline const ValidationTables& shippedRules() {
    static const auto tables = [] {
        ValidationTables made;
        LoadValidationRules(shippedApp().paths.sdtaValidationRulesPath, made.rules);
        LoadThermalValidationRules(shippedApp().paths.sdtaThermalValidationPath, made.thermal);
        return made;
    }();
    return tables;
}

template <class Record>
struct Dialog {
    using Library = typename Kind<Record>::Library;

    CPartwrightPlugInApp app = shippedApp();
    ValidationTables rules = shippedRules();
    ScriptedPrompt prompt;
    OutcomeBoxes boxes{prompt};
    PartSelection projectParts = {{L"P1", L"R1,R2"}};
    PartSelection shownParts;
    PartSelection libraryParts;
    /// Records of other groups.
    PartSelection elsewhere;
    std::unique_ptr<ComponentTableSession<Record>> session;

    /// Records P1, P2, ... of the group with the type's number and values.
    struct Part {
        std::int32_t type = 0;
        std::vector<std::wstring> values;
    };

    Library records(std::int32_t group, const std::vector<Part>& parts) const {
        Library library;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            Record record;
            record.PartNum = L"P" + std::to_wstring(i + 1);
            record.CatNum = L"C" + std::to_wstring(i + 1);
            record.Description = L"part";
            record.group = group;
            record.family = FamilyNumber(Kind<Record>::family(group));
            record.type = parts[i].type;
            for (std::size_t n = 0; n < parts[i].values.size(); ++n)
                record.LPar[n] = parts[i].values[n];
            library.emplace(record.PartNum, record);
        }
        return library;
    }

    ComponentTableSession<Record>& open(std::int32_t group, const std::vector<Part>& parts,
                                        AnalysisLevel level = AnalysisLevel::Full) {
        return openRecords(group, records(group, parts), level);
    }

    ComponentTableSession<Record>& openRecords(std::int32_t group, Library library,
                                               AnalysisLevel level = AnalysisLevel::Full) {
        TablePlace place{&projectParts, &shownParts, &libraryParts,
                         [this, own = library](std::wstring_view part) {
                             return own.find(part) != own.end() || elsewhere.contains(part);
                         }};
        session = std::make_unique<ComponentTableSession<Record>>(
            app, group, level, std::move(library), rules, std::move(place));
        return *session;
    }

    /// Shows an outcome's boxes and hands it on.
    TableOutcome shown(TableOutcome outcome) {
        boxes.show(outcome);
        line_ = outcome.line.value_or(line_);
        return outcome;
    }
    /// A verb that asks first: what comes of it after the answer.
    template <class Verb>
    TableOutcome asked(Verb verb) {
        TableOutcome outcome = verb(Consent::NotAsked);
        line_ = outcome.line.value_or(line_);
        return boxes.show(outcome) ? shown(verb(Consent::Given)) : outcome;
    }
    /// As a person types: every change of the text, then Enter.
    bool type(CellAt at, std::wstring_view text) {
        shown(session->modify(at, text));
        return shown(session->commit(at, text, at.row + 1)).accepted;
    }
    /// The parameters of a row, joined by blanks.
    std::string row(std::size_t row) const {
        std::wstring text = session->table().text(row, fullColumn);
        for (std::size_t c = typeColumn; c <= session->setup().lastParameter; ++c)
            text += L" " + session->table().text(row, c);
        return narrow(text);
    }
    /// As the user drags one cell over rows.
    TableOutcome fill(CellAt source, std::vector<std::size_t> rows, std::wstring_view text) {
        return shown(
            session->fill({{source, std::wstring(text)}}, std::move(rows), source.row + 1));
    }
    /// The line below the table.
    std::string line() const { return narrow(line_); }
    TableOutcome closed(RowOrder order = {}) {
        return asked([&](Consent consent) {
            return session->ok(order, app.libraries.datasheetLinks, consent);
        });
    }
    bool ok() { return closed().accepted; }

private:
    std::wstring line_;
};

using SdtaDialog = Dialog<SdtaComponent>;
using AsrDialog = Dialog<AsrComponent>;

/// A complete thyristor: Pw-RT, Ts, at, Tjmax, Ion-RT, Voff-RT, Package, Oja, Ojc, Isrg-RT.
inline SdtaDialog::Part goodThyristor() {
    return {1, {L"10", L"25", L"C", L"125", L"5", L"400", L"NH.TH", L"60", L"10", L"50"}};
}

} // namespace partwright::test
