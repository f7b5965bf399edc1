#pragma once

#include <string_view>

#include "shell/session/session.h"

/// The letters of the letter bar: one row of `Buchstaben` a button, with up to five further characters
/// that count as the same letter.
namespace store {

/// Adds the rows A to Z to the table of a new dictionary.
void GenerateBuchstabenFilter(engine::Database& db);
/// Copies the further characters of a button's letter into the filter state: a single blank where a row
/// has none. A caption without a row leaves the state as it is.
void BuchstabenZuweisung(session::Session& s, std::string_view caption);

}  // namespace store
