#pragma once

#include "shell/session/session.h"

namespace store {

/// Reads the settings row of the current dictionary into the session: the cached project fields, and
/// CurrentLocale from its sort order. What is Null there becomes the default.
void LoadProjectSettings(session::Session& s);
/// Shows the languages and the description of the current dictionary below the menu.
void RefreshProjectBar(session::Session& s);

}  // namespace store
