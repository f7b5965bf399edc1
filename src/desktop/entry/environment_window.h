#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "entry/frmEnvironment.h"

namespace desktop {

/// frmEnvironment: file types and the applications that open them. The last row is empty, for a new type.
std::unique_ptr<Dialog> makeEnvironment(Gate& gate, QWidget* parent, entry::frmEnvironment& form);

}  // namespace desktop
