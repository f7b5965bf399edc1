#pragma once

#include "desktop/entry/editor_tabs.h"

namespace desktop {

/// Picture and sound of the entry, with their commands.
QWidget* mediaBox(Editor& editor);

}  // namespace desktop
