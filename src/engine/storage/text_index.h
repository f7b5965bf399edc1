#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/storage/attached_file.h"
#include "engine/storage/catalog.h"

/// Indexes of trigrams over the texts of a table, for LIKE patterns that begin with a wildcard.
///
/// An index is written once, by a compaction or a repair, and never changed: SQLite's FTS5 table
/// "vc$text$...$index" lists the rows of each trigram of their texts, spelled in text::GramLetters, as they
/// stood then. Rows whose texts changed since, or that were put in below the highest row of then, are noted
/// by two triggers in "...$changed"; rows above that number need no note. Those rows are candidates for every
/// pattern, the others by their trigrams, and LIKE decides about each. Rows that are gone do no harm. So a
/// save costs a note at most, and bulk loads into a new file cost nothing. "...$count" holds the number of
/// rows of each trigram, to choose the rarest ones of a pattern.
namespace engine::storage {

/// So many rows without an index are read through faster than it pays to make one.
inline constexpr std::int64_t rowsWithoutTextIndex = 1000;

/// Whether an index stands and its letters are those of the file's text order.
bool isUsable(const CatalogData& data, const TextIndexRecord& record);

/// Makes the index of a record from the rows of an attached file, in place of an older one, and completes the
/// record there and in `record`. A table of few rows is left without.
void makeTextIndex(const AttachedFile& file, const CatalogData& data, TextIndexRecord& record);
/// The same for a copy with the same row numbers: takes the source's index over where little has changed.
void copyTextIndex(const AttachedFile& source, const AttachedFile& target, const CatalogData& data,
                   TextIndexRecord& record);
/// Drops the index, its notes and its triggers; the record stays, as of an index that is still to be made.
void dropTextIndex(const AttachedFile& file, TextIndexRecord& record);

/// A select of row numbers, among them those of all rows with these grams, as text::LikePattern has them, in
/// one of the record's columns; empty where reading all rows is as good.
std::string rowsWithGrams(const AttachedFile& file, const TextIndexRecord& record,
                          const std::vector<std::string>& grams);

/// What is missing of usable indexes, and, when `thorough`, rows that they do not list as they are.
std::vector<std::string> textIndexFaults(const AttachedFile& file, bool thorough);

}  // namespace engine::storage
