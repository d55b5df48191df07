#pragma once

// The tables by which a part finds its group and type, as they were read; autofill/ prepares them.

#include "core/records.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace partwright {

struct ClassifierTables {
    /// Method number (14 or 20) to rows in file order.
    std::map<std::int32_t, std::vector<DirectKey>> DirectKeyTable;
    std::map<std::int32_t, std::vector<BiCodeEntry>> convBiCode;
    /// The classification rules of the SDTA groups, by BiCod.
    std::map<std::int32_t, GroupRule> GroupRuleTable;
    std::map<std::int32_t, std::wstring> GroupRefDesTable;
    std::map<std::int32_t, std::wstring> groupNamesByCode;
};

} // namespace partwright
