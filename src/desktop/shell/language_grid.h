#pragma once

#include <string>
#include <vector>

#include "desktop/kit/face.h"
#include "shell/frame/firstent.h"

namespace desktop {

/// Object names of the grid, the box beside it and the check box below.
struct LanguageNames {
  const char *grid, *box, *rightToLeft;
};

/// Languages to choose one from: a click on a row writes its name into the box. The list and the two places
/// that it fills outlive the widget.
QWidget* languageGrid(Face& face, const LanguageNames& names, int caption,
                      const std::vector<frame::Language>& languages, std::string& chosen, bool& rightToLeft);

}  // namespace desktop
