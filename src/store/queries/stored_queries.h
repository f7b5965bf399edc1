#pragma once

#include <vector>

#include "engine/database.h"

namespace store {

struct StoredQueryText {
  const char* name;
  const char* text;
};

/// All 148 stored queries that a dictionary carries.
std::vector<StoredQueryText> storedQueries();

/// Adds each stored query that the file does not have yet; a name that is taken (Error 3012) keeps its
/// text. Throws what else the engine raises (3027 for a read-only file, 61).
void CreateQueries(engine::Database& db);

}  // namespace store
