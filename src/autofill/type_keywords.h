#pragma once

// The type keywords of the SDTA library, DescrRules_SDTATypes.csv: which words of a description
// mean which type of a group, and which tests a type must pass as well.
//
//   BiCod,ParamID,Rules,RulesExcluding
//   10,25,"CHIP RESISTOR,RES SMD",*D                    the default type of its group
//   10,28,"RES SMD,FILM",FUNC6{[Pw][0.5][>=]}           only from half a watt on
//   10,7,"CARBON",*NU                                   a row that is switched off
//
// A row counts when its keyword list compiles as a regular expression.

#include "core/project_paths.h"
#include "library/load_result.h"
#include "library/rule_table.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct TypeExclusion {
    std::int32_t type = 0;
    /// Terms of the rule language, or "*D" for the default type.
    std::wstring text;
    friend bool operator==(const TypeExclusion&, const TypeExclusion&) = default;
};

struct TypeKeywords {
    /// Family to group to type to keywords, in capitals.
    std::map<std::int32_t,
             std::map<std::int32_t, std::map<std::int32_t, std::vector<std::wstring>>>>
        TypeKeywordTable;
    /// Family to group to entries in file order.
    std::map<std::int32_t, std::map<std::int32_t, std::vector<TypeExclusion>>> TypeExclusionTable;
    /// Length of the longest keyword of all.
    std::size_t typeKeywordMaxLength = 0;
};

/// The columns that are read.
[[nodiscard]] RuleTableForm typeKeywordForm();
[[nodiscard]] TypeKeywords typeKeywordsOf(const RuleTable& table);

/// From descrRulesSdtaTypesPath; `keywords` is emptied first.
LoadResult LoadTypeKeywords(const ProjectPaths& paths, TypeKeywords& keywords);

/// The keywords of a list in capitals, each trimmed and cut at 255 characters, none of them empty:
/// a piece that begins with a quote runs to the next quote, any other to the next ",".
[[nodiscard]] std::vector<std::wstring> splitKeywords(std::wstring_view list);

} // namespace partwright
