#pragma once

// Default values of a pair of group and type, the last source of values: they fill only what is
// still empty, and "-1" and "N/A" are not empty. A row of the Analyses table may also ask for words
// in what is told of the part, and yield to others:
//
//   ID_Family,ID_Type,Needs,Unless,LPar1,LPar2,LPar3
//   21,1,ohm|kohm,ARRAY|NETWORK,,1,2      a resistor has the pins 1 and 2, an array has more
//
// A word counts in any case of letters where no other letter touches it, as in "4.7kohm".

#include "core/definitions.h"

#include <string_view>

namespace partwright {

/// True when a cell was filled. Package and load codes of the record then become names, whether or
/// not there are defaults for its type.
bool ApplySdtaDefaults(const Definitions<SdtaComponent>& definitions, SdtaComponent& record);
/// `told` is a description of the part, rewritten by the synonyms.
bool ApplyAsrDefaults(const Definitions<AsrComponent>& definitions, AsrComponent& record,
                      std::wstring_view told);

/// The one of the two for a kind of record, for code that serves both.
inline bool applyDefaults(const Definitions<SdtaComponent>& definitions, SdtaComponent& record,
                          std::wstring_view) {
    return ApplySdtaDefaults(definitions, record);
}
inline bool applyDefaults(const Definitions<AsrComponent>& definitions, AsrComponent& record,
                          std::wstring_view told) {
    return ApplyAsrDefaults(definitions, record, told);
}

} // namespace partwright
