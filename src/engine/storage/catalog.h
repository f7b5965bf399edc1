#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/schema/schema.h"

struct sqlite3;

/// The hidden tables of a file and their content as plain data.
///
/// Every definition stands in tables of the file itself, named "vc$...": vc$file (key, value), vc$table,
/// vc$column, vc$index, vc$query, vc$relation, vc$property, vc$permission, vc$watch, vc$text. SQLite's own
/// schema repeats only what it needs to store rows and to enforce keys and relations.
namespace engine::storage {

/// Raised when a file's hidden tables or the form of its rows change; a file of a later number is refused.
inline constexpr int formatVersion = 3;

struct RelationRecord {
  std::string name, table, foreignTable, field, foreignField;
  std::int32_t attributes = 0;  ///< 256 update cascade, 4096 delete cascade
};

/// A property of a field that the engine stores and does not heed.
struct PropertyRecord {
  std::string table, field, name, value;
};

struct PermissionRecord {
  std::string container, document, user;
  std::int32_t permissions = 0;
};

/// Rows of a table that meet a condition are kept in an index of their own.
struct WatchRecord {
  std::string table;
  std::string condition;   ///< of the dialect, as it was given
  std::string text;        ///< the same for SQLite, column names bare and quoted
  std::string order = {};  ///< the column in whose order they are kept; empty for any
};

/// Texts of a table that has a counter are kept in an index of trigrams; see text_index.h.
struct TextIndexRecord {
  std::string table;
  std::vector<std::string> columns;
  std::int64_t lastRow = 0;  ///< the highest row when the index was made
  std::string rules;         ///< what its letters were made by; empty while there is no index
};

/// All that the hidden tables hold.
struct CatalogData {
  int format = formatVersion;
  std::string locale;                 ///< connect string
  std::string collation;              ///< "vc_0407"
  std::string collationVersion;       ///< of ICU when the indexes were made
  std::int64_t counter = 0;           ///< raised with every change of a definition
  std::string compaction;             ///< stamp of the last compaction; empty when there was none
  std::string user;                   ///< owner
  std::vector<schema::Table> tables;  ///< in the order of creation, as are the next
  std::vector<schema::StoredQuery> queries;
  std::vector<RelationRecord> relations;
  std::vector<PropertyRecord> properties;
  std::vector<PermissionRecord> permissions;
  std::vector<WatchRecord> watches;
  std::vector<TextIndexRecord> texts;
};

/// 3343 for a file that a later version of the program wrote.
struct LaterFormat : Error {
  explicit LaterFormat(int number);
  int format;
};

/// Makes the hidden tables in an empty attached file.
void createCatalog(sqlite3* connection, const std::string& schemaName);
/// Makes what the hidden tables of a file of an earlier format lack, and notes the present one.
void completeCatalog(sqlite3* connection, const std::string& schemaName, CatalogData& data);
/// Throws 3343 when the hidden tables are missing, damaged, or of a later program.
CatalogData readCatalog(sqlite3* connection, const std::string& schemaName);
/// Replaces the content of the hidden tables by `data`.
void writeCatalog(sqlite3* connection, const std::string& schemaName, const CatalogData& data);

// Single records of the hidden tables; each throws what a write can throw.
/// Runs one statement with its parameters to the end.
void runStatement(sqlite3* connection, const std::string& text, const std::vector<Value>& parameters = {});
void writeTable(sqlite3* connection, const std::string& schemaName,
                const schema::Table& table);  ///< or replaces
/// With its columns, indexes, properties and watches.
void eraseTable(sqlite3* connection, const std::string& schemaName, const std::string& table);
void writeQuery(sqlite3* connection, const std::string& schemaName, const schema::StoredQuery& query);
void eraseQuery(sqlite3* connection, const std::string& schemaName, const std::string& query);
void writeRelation(sqlite3* connection, const std::string& schemaName, const RelationRecord& relation);
void writeProperty(sqlite3* connection, const std::string& schemaName, const PropertyRecord& property);
void eraseProperty(sqlite3* connection, const std::string& schemaName, const PropertyRecord& property);
void writePermission(sqlite3* connection, const std::string& schemaName, const PermissionRecord& permission);
void writeWatch(sqlite3* connection, const std::string& schemaName, const WatchRecord& watch);
void eraseWatch(sqlite3* connection, const std::string& schemaName, const WatchRecord& watch);
/// Or replaces.
void writeTextIndex(sqlite3* connection, const std::string& schemaName, const TextIndexRecord& record);
void eraseTextIndex(sqlite3* connection, const std::string& schemaName, const std::string& table);
void writeFileValue(sqlite3* connection, const std::string& schemaName, const std::string& key,
                    const std::string& value);
/// The counter of definitions alone; 0 when it is missing.
std::int64_t readCounter(sqlite3* connection, const std::string& schemaName);

// Statements that make what `data` describes, for SQLite, in `schemaName`.
/// CREATE TABLE with declared types, collations, counter and foreign keys; an empty schema name is left out.
std::string tableStatement(const CatalogData& data, const schema::Table& table,
                           const std::string& schemaName);
/// CREATE INDEX for each declared index, each child column of a relation and each watch of the table. They
/// may run before or behind the copying of rows; a parent's unique index has to stand before rows of its
/// children are written with foreign keys on.
struct StoredIndex {
  std::string name, statement;
};
std::vector<StoredIndex> indexStatements(const CatalogData& data, const schema::Table& table,
                                         const std::string& schemaName);
/// A name inside a file that no other kind, table and part make.
std::string hiddenName(const char* kind, const std::string& table, const std::string& part);
/// SQLite's name of a declared index: its names repeat across tables.
std::string indexName(const schema::Table& table, const schema::Index& index);
/// Whether SQLite needs an index of its own for a declared one: the counter alone is the row's number.
bool isStored(const schema::Table& table, const schema::Index& index);
/// A column as it stands in CREATE TABLE and ADD COLUMN.
std::string columnText(const schema::Column& column, const std::string& collation);

}  // namespace engine::storage
