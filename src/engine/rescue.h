#pragma once

#include <string>

#include "engine/database.h"
#include "engine/workspace.h"

namespace engine {

/// Whether the file of an open database is no longer what stands at its path: deleted, moved or replaced.
bool hasVanished(const Database& open);
/// Writes such a file anew from what is still open of it, with all that is committed: at its path, or beside
/// what stands there now, under another name. Returns the path written; complete, or an error as
/// CopyDatabase throws and nothing.
std::string RescueDatabase(Workspace& workspace, const Database& open);

}  // namespace engine
