#pragma once

#include <string>

#include "shell/session/session.h"

namespace session {

/// What the number of an error means, as a sentence of the catalogue; empty for a number without one, without
/// a catalogue, and where the error's text is in the user's language already.
std::string errorSentence(const Session& s, const base::Error& error);

}  // namespace session
