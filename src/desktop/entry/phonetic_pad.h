#pragma once

#include "desktop/entry/editor_tabs.h"

class QLineEdit;

namespace desktop {

/// A button that unfolds the phonetic characters of the dictionary; each is inserted at the box's cursor.
QWidget* phoneticPad(Editor& editor, QLineEdit& box);

}  // namespace desktop
