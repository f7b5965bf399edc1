#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "shell/frame/firstent.h"

namespace desktop {

/// firstent: the wizard that sets up a new dictionary, page by page.
std::unique_ptr<Dialog> makeWizard(Gate& gate, QWidget* parent, frame::firstent& form);

}  // namespace desktop
