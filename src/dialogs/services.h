#pragma once

// What the dialogs need of the world around them. All of it is borrowed.

#include "core/application.h"
#include "core/ports/opener.h"
#include "core/ports/prompt.h"

namespace partwright {

struct DialogServices {
    CPartwrightPlugInApp& app;
    Prompt& prompt;
    Opener& opener;
};

} // namespace partwright
