#pragma once

#include <QWidget>

#include "desktop/kit/gate.h"

namespace desktop {

/// frmAbout: name, version and where the program's home page is.
void showAbout(Gate& gate, QWidget* parent);

}  // namespace desktop
