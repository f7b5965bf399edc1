#pragma once

#include <string>

#include "shell/session/session.h"

namespace store {

/// Opens a dictionary as the current one: media folder, version, moved-file question, corrections, checks.
/// Returns false when it was refused, which the user was told. Throws what fails; either way nothing is
/// open then. None may be open before.
bool openDictionary(session::Session& s, const std::string& path, bool readOnly);

/// Adds a further dictionary to the session, or opens the first one. Returns false when the session is
/// full, has the file already, holds another kind of project, or the version was refused; told each time.
bool addDictionary(session::Session& s, const std::string& path, bool readOnly);
/// Whether another file may be added; tells when not.
bool hasRoomForDictionary(session::Session& s);

inline constexpr int dictionaryLimit = 5;

}  // namespace store
