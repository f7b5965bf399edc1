#pragma once

#include <cstdint>
#include <string>

#include "shell/session/session.h"

/// Several files in one session: rows carry the path of the file that they come from, and what is done to
/// one has to reach that file.
namespace browse {

/// Makes the open file of this path the current dictionary; it changes places with the one that was, so
/// that a list over all files still has each of them once. A path that is not of the session (rows may
/// carry an old one) leaves all as it is.
void useDictionary(session::Session& s, const std::string& databaseName);

/// The open file of this path; the current dictionary for a path that is not of the session.
engine::Database& databaseOf(session::Session& s, const std::string& databaseName);

/// A condition for one entry: by its number, in a session of several files by its file as well.
std::string entryCondition(const session::Session& s, std::int64_t id, const std::string& databaseName);

}  // namespace browse
