#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "store/frmBackup.h"

namespace desktop {

/// frmBackup: the folder to copy to, and whether the media folder goes along.
std::unique_ptr<Dialog> makeBackup(Gate& gate, QWidget* parent, store::frmBackup& form);

}  // namespace desktop
