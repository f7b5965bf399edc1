#pragma once

#include "desktop/kit/dialog.h"
#include "shell/frame/firstent.h"

namespace desktop {

/// firstent: the wizard that sets up a new dictionary, page by page.
void buildWizard(Dialog& dialog, frame::firstent& form);

}  // namespace desktop
