#pragma once

// Default values of a pair of group and type, the last source of values: they fill only what is
// still empty, and "-1" and "N/A" are not empty.

#include "core/definitions.h"

namespace partwright {

/// True when a cell was filled. Package and load codes of the record then become names, whether or
/// not there are defaults for its type.
bool ApplySdtaDefaults(const Definitions<SdtaComponent>& definitions, SdtaComponent& record);
bool ApplyAsrDefaults(const Definitions<AsrComponent>& definitions, AsrComponent& record);

/// The one of the two for a kind of record, for code that serves both.
inline bool applyDefaults(const Definitions<SdtaComponent>& definitions, SdtaComponent& record) {
    return ApplySdtaDefaults(definitions, record);
}
inline bool applyDefaults(const Definitions<AsrComponent>& definitions, AsrComponent& record) {
    return ApplyAsrDefaults(definitions, record);
}

} // namespace partwright
