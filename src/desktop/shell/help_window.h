#pragma once

#include <string>

#include "shell/session/session.h"

class QWidget;

namespace desktop {

/// Shows a page of the help in a window of its own, which stays usable beside a modal window; false for a
/// file that is no page of the help. The window belongs to the one that it was called from.
bool showHelpPage(session::Session& s, QWidget* frame, const std::string& page);

}  // namespace desktop
