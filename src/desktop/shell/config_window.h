#pragma once

#include "desktop/kit/dialog.h"
#include "shell/frame/frmConfig.h"

namespace desktop {

/// frmConfig: the settings of the open dictionary on tabs, with OK and Cancel.
void buildConfig(Dialog& dialog, frame::frmConfig& form);

}  // namespace desktop
