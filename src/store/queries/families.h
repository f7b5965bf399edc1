#pragma once

#include <span>

#include "store/queries/stored_queries.h"

/// The texts of the stored queries, by family; each family is one table in a file of its own.
namespace store::queries {

/// Lists of entries: all, by letter, and by property or subject of the entry.
std::span<const StoredQueryText> entryLists();
/// Lists of entries by property or subject of a meaning.
std::span<const StoredQueryText> meaningLists();
/// What hangs on one entry or on one meaning.
std::span<const StoredQueryText> entryParts();
/// Values of properties, for grids that edit them, and the two catalogues in order.
std::span<const StoredQueryText> catalogues();
/// Entries with what hangs on them, as flat tables that can be edited in place.
std::span<const StoredQueryText> tableViews();
/// The wide joins below print and export.
std::span<const StoredQueryText> exportViews();
/// Selections for the publishing run and the trainer.
std::span<const StoredQueryText> printSelections();
/// Data of the report files, which bind these columns by name.
std::span<const StoredQueryText> reports();
/// Rules, dates and history, import, settings and the slots whose text is replaced at run time.
std::span<const StoredQueryText> rulesAndRest();

}  // namespace store::queries
