#pragma once

#include <memory>

#include "desktop/kit/dialog.h"
#include "entry/frmEintrag.h"

namespace desktop {

/// frmEintrag: the entry editor with its tabs.
std::unique_ptr<Dialog> makeEditor(Gate& gate, QWidget* parent, entry::frmEintrag& form);

}  // namespace desktop
