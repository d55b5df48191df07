#pragma once

// What the system says about a call that failed, in English words of this program: those of the
// system follow the user's language and code page, and differ from one system to the next.

#include <string>

namespace partwright {

/// Words for a value of errno, without a full stop; the number where there are no words for it.
[[nodiscard]] std::wstring systemErrorText(int error);

} // namespace partwright
