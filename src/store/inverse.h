#pragma once

#include <string>

#include "shell/session/session.h"

/// The inverse dictionary: a new file in which meanings are entries and entries are meanings.
namespace store {

/// Asks for the source (the open dictionary, which is closed after a question, or a file) and the target,
/// builds the inverse dictionary, tells that it is ready and closes it. An existing target is replaced
/// together with the files of its media folder. False when the user did not want to or the two bear one
/// name, which is told. Throws 32755 when a dialog is cancelled, and what fails; no half-made target stays.
bool InverseTranslation(session::Session& s);

/// Fills the current dictionary, which must be new and empty, from the dictionary at `source`. Entries and
/// meanings are joined by their texts, so that homonyms share properties, subject fields and examples.
void InverseVocariumSQLs(session::Session& s, const std::string& source);

}  // namespace store
