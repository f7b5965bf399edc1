#pragma once

#include "desktop/kit/dialog.h"
#include "store/frmBackup.h"

namespace desktop {

/// frmBackup: the folder to copy to, and whether the media folder goes along.
void buildBackup(Dialog& dialog, store::frmBackup& form);

}  // namespace desktop
