#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "shell/frame/firstent.h"

namespace desktop {

/// frmChooseDBType: three large buttons, one for each kind of project.
std::unique_ptr<Dialog> makeChooseType(Gate& gate, QWidget* parent, frame::frmChooseDBType& form);

}  // namespace desktop
