#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "shell/frame/frmConfig.h"

namespace desktop {

/// frmConfig: the settings of the open dictionary on tabs, with OK and Cancel.
std::unique_ptr<Dialog> makeConfig(Gate& gate, QWidget* parent, frame::frmConfig& form);

}  // namespace desktop
