#pragma once

#include <cstdint>

#include "shell/session/session.h"

/// Keeps what derives from the texts of an entry current after a change outside the editor.
namespace browse {

/// What was changed: the headword (sort keys and search text follow), another text that the search looks at,
/// or anything else (the time of change alone).
enum class Changed { headword, text, other };

/// Brings the entry's derived columns up to date, and after a new headword the sort keys of its sub-entries.
/// Throws 3315 for a headword that leaves nothing to sort by; its row keeps the former key then.
void refreshDerived(session::Session& s, std::int64_t id, Changed changed);
/// Fills the flat texts of the entry and, unless it is 0, of one of its meanings anew.
void refreshFlat(session::Session& s, std::int64_t entry, std::int64_t meaning);

}  // namespace browse
