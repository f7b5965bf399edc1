#pragma once

#include <string>

#include "shell/session/session.h"

namespace store {

/// What the author chose for a new dictionary; all other settings get their defaults.
struct NewSettings {
  std::string sourceLanguage, targetLanguage, description;
  std::string sortOrder;  ///< caption of a sort order
  std::string dateFormat;
  bool german = true;  ///< language of the standard catalogues
  bool rightToLeftFrom = false, rightToLeftTo = false;
};

/// Adds the one row of `Sprache` to a new dictionary, with the session's project type and fonts.
void writeSettingsRow(session::Session& s, const NewSettings& settings);

}  // namespace store
