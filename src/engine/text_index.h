#pragma once

#include <string>
#include <vector>

#include "engine/database.h"

namespace engine {

/// Asks for an index over these text fields of a table that has a counter, by which selects with LIKE find
/// a piece of text anywhere in them ("*piece*", of three letters or more). It is made when the file is
/// compacted or repaired next, kept from then on, and changes no result. Replaces an earlier call for the
/// table; harmless when it is the same. Throws 3078 for an unknown table, 3265 for an unknown field, 5 for
/// fields that are no texts and a table without a counter, 3027 for a file that can not be written.
void indexTexts(Database& database, const std::string& table, const std::vector<std::string>& fields);

}  // namespace engine
