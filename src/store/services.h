#pragma once

#include "shell/session/session.h"

/// The service commands on any dictionary file. Each asks first, closes the open dictionary on yes and
/// lets the user choose files; a No stops, a cancelled dialog throws 32755.
namespace store {

/// Copies a dictionary with its media folder.
void CopyDB(session::Session& s);
/// Writes a compact copy of a dictionary, in the session's locale, to another file.
void CompactDB(session::Session& s);
/// Repairs a dictionary in its place and tells what was lost.
void RepairDB(session::Session& s);

/// Copies the file of a dictionary that no one has open. Throws 53, 61, 70, 3343 where it is none.
void copyFileOnly(session::Session& s, const std::string& source, const std::string& target);
/// Makes the media folder of a copy and copies the source's, where there is one, over it.
void copyMediaFolder(session::Session& s, const std::string& source, const std::string& target);

}  // namespace store
