#pragma once

#include "desktop/kit/dialog.h"
#include "entry/frmEintrag.h"

namespace desktop {

/// frmEintrag: the entry editor with its tabs.
void buildEditor(Dialog& dialog, entry::frmEintrag& form);

}  // namespace desktop
