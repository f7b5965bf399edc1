#pragma once

#include "desktop/kit/dialog.h"
#include "shell/frame/firstent.h"

namespace desktop {

/// frmChooseDBType: three large buttons, one for each kind of project.
void buildChooseType(Dialog& dialog, frame::frmChooseDBType& form);

}  // namespace desktop
