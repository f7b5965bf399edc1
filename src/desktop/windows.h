#pragma once

#include "desktop/kit/gate.h"
#include "platform/desk.h"

class QWidget;

namespace desktop {

/// Runs the window of a modal form until its visit is over. Throws 5 for a form without a window.
void showForm(Gate& gate, QWidget* parent, platform::Form& form);

}  // namespace desktop
