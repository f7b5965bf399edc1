#pragma once

#include <functional>
#include <string>

#include "shell/frame/frmMDI.h"

namespace desktop {

/// What a menu item does; empty for one that has no command yet and is shown disabled. The pop-up items
/// are the commands of the menu of entries.
std::function<void(frame::frmMDI&)> commandOf(const std::string& menuItem);

}  // namespace desktop
