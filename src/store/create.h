#pragma once

#include <string>

#include "shell/session/session.h"

namespace store {

/// Creates a dictionary with its tables, relations, stored queries and rights, and makes it the current
/// one. A failure leaves no half-made file behind and throws on.
void NewLocalDB(session::Session& s, const std::string& path);

/// Makes the media folder of the new dictionary, or, where a dictionary of this name was replaced, takes
/// the old one's sounds out of it.
void prepareMediaFolder(session::Session& s, bool replaced);

/// Fills the reference data of a new dictionary whose settings row is written, then closes and reopens it.
void fillReferenceData(session::Session& s);

/// Closes the new dictionary and deletes it, with its media folder if that was made for it; NewDBPath is
/// empty afterwards.
void discardNewDictionary(session::Session& s);

}  // namespace store
