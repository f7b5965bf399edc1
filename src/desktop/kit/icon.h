#pragma once

#include <QIcon>
#include <string>

#include "shell/session/session.h"

namespace desktop {

/// A picture of a command, drawn in the palette's text colour; empty when there is none of that name.
QIcon icon(const session::Session& s, const std::string& name);

}  // namespace desktop
