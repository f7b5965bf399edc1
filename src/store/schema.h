#pragma once

#include <string>
#include <string_view>

#include "shell/session/session.h"

/// What a dictionary file holds: tables with their indexes, relations, properties of fields.
namespace store {

/// The version of the schema that new files bear.
inline constexpr const char* currentVersion = "202301";

/// Entries that must be their own parent and are not, and stubs.
inline constexpr const char* wrongMainEntries =
    "(ebene = 1 and ID_Woerterbuch <> ID_Woerterbuch1) or isnull(ID_Woerterbuch1)";
inline constexpr const char* noSortKey = "isnull(sortbegriff)";
inline constexpr const char* noSearchText = "isnull(metasuche)";
inline constexpr const char* levelZero = "ebene =0";
inline constexpr const char* noEntry = "ID_Woerterbuch is null";

/// Creates all tables and indexes in an empty file. Throws what the engine throws.
void CreateTables(engine::Database& db);
/// Creates one of the tables with its indexes in a file that lacks it.
void CreateTable(engine::Database& db, std::string_view name);
/// Adds the enforced relations; all of them cascade updates and deletions.
void CreateRelations(engine::Database& db);
/// Keeps the rows that every opening asks for at hand, so that no opening scans a table.
void WatchOpeningChecks(engine::Database& db);
/// Keeps the sub-entries at hand in the order of the list, which shows them beside the entries of any letter.
void KeepSubEntries(engine::Database& db);
/// Asks for indexes over the texts that are searched for pieces; the next compaction makes them.
void IndexSearchedTexts(engine::Database& db);
/// Lets the listed text fields take the empty text; all others refuse it.
void SetTableProperties(engine::Database& db);
/// Marks the listed text fields as compressed, opening the file afresh for each table.
void SetUniCodeCompression(session::Session& s, const std::string& path);

}  // namespace store
