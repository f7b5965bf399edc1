#pragma once

#include <string>

#include "shell/session/session.h"

/// What every opening looks at. Read-only files are opened as they are.
namespace store {

/// Compares a file's schema version with the program's. An older one is brought up to date when the user
/// wants it; false when the file must not be opened, which was told then.
bool PruefeProgrammVersion(session::Session& s, engine::Database& db);
/// Whether a version string is accepted as it stands.
bool isCurrentVersion(const std::string& version);

/// Asks, where the path stored in a file is not `path`, whether the file was moved, and on yes stores
/// `path` with all rows. On no nothing changes.
void CheckDBPath(session::Session& s, engine::Database& db, const std::string& path);

/// Drops the last session's filter, mends main entries that are not their own parent, telling each by
/// name, and tells of missing sort keys and search texts.
void ExecKorrekturen(session::Session& s);

/// Removes rows that no view could show: entries of level 0 and meanings without an entry.
void CheckDatabase(session::Session& s);

}  // namespace store
