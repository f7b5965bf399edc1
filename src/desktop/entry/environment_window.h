#pragma once

#include "desktop/kit/dialog.h"
#include "entry/frmEnvironment.h"

namespace desktop {

/// frmEnvironment: file types and the applications that open them. The last row is empty, for a new type.
void buildEnvironment(Dialog& dialog, entry::frmEnvironment& form);

}  // namespace desktop
