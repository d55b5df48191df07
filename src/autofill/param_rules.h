#pragma once

// Which rule fills which parameter, and the driver that runs all rules of a component over its
// description.
//
//   std::array<std::wstring, 24> cells;
//   std::wstring note;
//   std::int32_t type = 1;
//   filler.FillParamsFromDescription(10, type, cells, ScannedText(L"RES 1k 0.25W"), 14, note);
//   // cells[0] "0.25", cells[3] "1000", cells[1] "15.8114", note "Voltage is calculated value; "
//
// The rules stand in an ordered table by family (14 SDTA, 20 Analyses), group, type and LPar
// number; every row holds fifteen rules, and a later row of the same key replaces an earlier one.

#include "autofill/rule_language.h"
#include "core/application.h"
#include "core/vocabulary.h"

#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace partwright {

struct RuleKey {
    std::int32_t family = 0;
    std::int32_t group = 0;
    std::int32_t type = 0;
    friend auto operator<=>(const RuleKey&, const RuleKey&) = default;
};

inline constexpr std::size_t rulesPerRow = 15;

struct PreparedRuleRow {
    std::array<std::wstring, rulesPerRow> texts;
    /// Null for a rule without terms.
    std::array<std::shared_ptr<const PreparedRule>, rulesPerRow> rules;
};

class ParamRuleTable {
public:
    ParamRuleTable() = default;
    /// From rows of family, group, type and rules.
    template <class Rows>
    ParamRuleTable(const Rows& rows, const UnitTable& units) {
        Prepared prepared;
        for (const auto& row : rows)
            add({row.family, row.group, row.type}, std::span<const std::wstring_view>(row.rules),
                units, prepared);
    }

    [[nodiscard]] const PreparedRuleRow* find(const RuleKey& key) const;
    [[nodiscard]] const std::map<RuleKey, PreparedRuleRow>& rows() const { return rows_; }

private:
    /// Rules recur, so each text is prepared once.
    using Prepared = std::map<std::wstring, std::shared_ptr<const PreparedRule>, std::less<>>;
    void add(const RuleKey& key, std::span<const std::wstring_view> rules, const UnitTable& units,
             Prepared& prepared);

    std::map<RuleKey, PreparedRuleRow> rows_;
};

/// The rules that move a component to a sibling type: for each pair of the parameter rules the
/// number of the type itself, and for fixed resistors a comparison of their power.
class TypeRefineTable {
public:
    TypeRefineTable() = default;
    TypeRefineTable(const ParamRuleTable& rules, const UnitTable& units);

    [[nodiscard]] const std::map<RuleKey, std::wstring>& texts() const { return texts_; }
    /// Null where no comparison stands.
    [[nodiscard]] const PreparedRule* find(const RuleKey& key) const;

private:
    std::map<RuleKey, std::wstring> texts_;
    std::map<RuleKey, PreparedRule> prepared_;
};

/// The compiled tables of the engine, built once.
struct FillTables {
    UnitTable units;
    ParamRuleTable rules;
    TypeRefineTable refine;
};

/// Package codes of a group become the names of the vocabulary, the load letters 1 and 2 "A" and
/// "C". Only groups below 10 have such columns.
void applyCodeNames(Names columns, std::int32_t group, std::span<std::wstring> cells);

/// Runs the rules of one row over a text: fills the cells that are empty.
struct FillRequest {
    RuleKey key;
    const ScannedText& text;
    wchar_t mark;
    std::wstring& note;
};
/// The type after the resistor rules, which may change it.
[[nodiscard]] std::int32_t ApplyParamRules(const ParamRuleTable& rules, const FillRequest& request,
                                           std::span<std::wstring> cells,
                                           const PackageTable& packageTable = {},
                                           const PiqTable& piqTable = {});

/// The driver with the application's default types and decimal mark. Borrows both arguments.
class ParamFiller {
public:
    ParamFiller(const FillTables& tables, const CPartwrightPlugInApp& app)
        : tables_(tables), app_(app) {}

    /// Empties `cells` and `note` and fills them. For type 0 the group's default type serves, and
    /// `type` stays 0 unless a rule changed it.
    void FillParamsFromDescription(std::int32_t group, std::int32_t& type,
                                   std::span<std::wstring> cells, const ScannedText& text,
                                   std::int32_t family, std::wstring& note) const;
    void RefineTypeByRule(std::int32_t family, std::int32_t group, std::int32_t& type,
                          const ScannedText& text) const;

private:
    [[nodiscard]] std::int32_t defaultType(std::int32_t family, std::int32_t group) const;

    const FillTables& tables_;
    const CPartwrightPlugInApp& app_;
};

} // namespace partwright
