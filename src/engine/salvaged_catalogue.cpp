#include <algorithm>
#include <map>
#include <set>

#include "base/text.h"
#include "engine/salvaged_rows.h"
#include "engine/text/collation.h"

namespace engine::repair {

namespace {

using schema::quoteName;
using storage::AttachedFile;
using storage::runStatement;
using storage::Statement;

// What the hidden tables hold, as people call it.
const std::map<std::string, std::string>& contents() {
  static const std::map<std::string, std::string> names = {{"vc$file", "the language of the text order"},
                                                           {"vc$table", "the order of the tables"},
                                                           {"vc$column", "lengths and rules of fields"},
                                                           {"vc$index", "indexes"},
                                                           {"vc$query", "stored queries"},
                                                           {"vc$relation", "relations between tables"},
                                                           {"vc$property", "properties of fields"},
                                                           {"vc$permission", "rights"},
                                                           {"vc$watch", "kept selections of rows"},
                                                           {"vc$text", "which texts are indexed"}};
  return names;
}

struct StoredColumns {
  std::vector<std::string> names, types;
  std::vector<bool> required;
  int number = -1;  // the column that is the row number
};

// Columns of a table of SQLite's; `schemaName` is where it stands.
StoredColumns columnsOf(sqlite3* connection, const std::string& schemaName, const std::string& table) {
  StoredColumns columns;
  Statement info(connection, "PRAGMA " + schemaName + ".table_info(" + quoteName(table) + ")");
  int keys = 0;
  while (info.step()) {
    if (info.integer(5) > 0 && ++keys == 1 && info.text(2) == "INTEGER")
      columns.number = static_cast<int>(columns.names.size());
    columns.names.emplace_back(info.text(1));
    columns.types.emplace_back(info.text(2));
    columns.required.push_back(info.integer(3) != 0);
  }
  if (keys != 1) columns.number = -1;
  return columns;
}

struct Hidden {
  std::string name;
  Inserter inserter;
  StoredColumns columns;
  bool lostPages;
};

// Records of a catalogue page that nothing leads to: so many texts and numbers, in this order.
bool canBelong(const Hidden& hidden, const file::SalvagedRow& row) {
  const auto& values = row.record.values;
  if (!hidden.lostPages || !row.record.whole || values.size() != hidden.columns.names.size()) return false;
  if ((row.rowid != 0) != (hidden.columns.number >= 0)) return false;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (std::cmp_equal(i, hidden.columns.number)) continue;
    const bool number = hidden.columns.types[i] == "INTEGER";
    if (number != std::holds_alternative<std::int64_t>(values[i])) return false;
    if (!number && !std::holds_alternative<std::string>(values[i])) return false;
  }
  return true;
}

void fillHidden(Source& source, AttachedFile& target, Findings& findings) {
  std::vector<Hidden> all;
  std::string damaged;
  for (const auto& [name, content] : contents()) {
    StoredColumns columns = columnsOf(target.connection().handle(), target.schemaName(), name);
    runStatement(target.connection().handle(), "DELETE FROM " + target.schemaName() + "." + quoteName(name));
    Inserter inserter(target, name, columns.names, columns.number, "");
    const file::SchemaEntry* entry = source.table(name);
    if (entry == nullptr && name == "vc$text" && source.salvage.schemaWhole())
      continue;  // a file of format 1
    const auto report = source.salvage.walk(entry == nullptr ? 0 : entry->root,
                                            [&](const auto& row) { inserter.insert(row); });
    if (report.lostPages > 0 || report.cutRows > 0) damaged += (damaged.empty() ? "" : ", ") + content;
    all.push_back({name, std::move(inserter), std::move(columns), report.lostPages > 0});
  }
  if (!damaged.empty()) findings.tellLoss("Parts of the catalogue were damaged: " + damaged + ".");
  std::erase_if(source.strays, [&](std::uint32_t page) {
    std::vector<file::SalvagedRow> rows;
    source.salvage.readLeaf(page, [&](const auto& row) { rows.push_back(row); });
    for (Hidden& hidden : all) {
      const auto fits = [&](const auto& row) { return canBelong(hidden, row); };
      if (rows.empty() || !std::all_of(rows.begin(), rows.end(), fits)) continue;
      for (const auto& row : rows) hidden.inserter.insert(row);
      return true;
    }
    return false;
  });
}

// A type as SQLite's own catalogue tells it; what it does not tell is chosen so that every row fits.
std::string typeFor(const StoredColumns& columns, std::size_t column, bool hasCollation) {
  if (std::cmp_equal(column, columns.number)) return "counter";
  if (columns.types[column] == "INTEGER") return columns.required[column] ? "bit" : "long";
  if (columns.types[column] == "REAL") return "real";
  return hasCollation ? "memo" : "date";
}

bool mentionsCollation(const std::string& sql, const std::string& column) {
  return sql.find(quoteName(column) + " TEXT COLLATE") != std::string::npos;
}

// Makes up for fields that the damaged catalogue lost.
void completeTable(const file::SchemaEntry& entry, AttachedFile& target) {
  sqlite3* const handle = target.connection().handle();
  runStatement(handle, entry.sql);  // into the connection's empty main database, to have it parsed
  const StoredColumns columns = columnsOf(handle, "main", entry.name);
  runStatement(handle, "DROP TABLE main." + quoteName(entry.name));
  const std::string in = target.schemaName() + ".";
  runStatement(handle,
               "INSERT INTO " + in + "\"vc$table\"(\"name\") SELECT ?1 WHERE NOT EXISTS (SELECT 1 FROM " +
                   in + "\"vc$table\" WHERE \"name\" = ?1)",
               {entry.name});
  for (std::size_t i = 0; i < columns.names.size(); ++i) {
    runStatement(handle, "INSERT OR IGNORE INTO " + in + "\"vc$column\" VALUES (?1, ?2, ?3, ?4, 0, 0, 1)",
                 {entry.name, static_cast<std::int64_t>(i), columns.names[i],
                  typeFor(columns, i, mentionsCollation(entry.sql, columns.names[i]))});
  }
}

// The field names of an index statement as their positions in the table; empty when one is unknown.
std::string positionsIn(const std::string& sql, const std::vector<std::string>& columns) {
  const std::size_t open = sql.find('(');
  if (open == std::string::npos) return {};
  std::string positions;
  std::size_t at = open;
  while (sql[at] == '(' || sql[at] == ',') {
    const std::size_t quote = sql.find('"', at);
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const std::string& column) {
      return quote != std::string::npos && sql.compare(quote, column.size() + 2, quoteName(column)) == 0;
    });
    if (found == columns.end()) return {};
    positions += (positions.empty() ? "" : ",") + std::to_string(found - columns.begin());
    at = quote + found->size() + 2;
    if (at >= sql.size()) return {};
  }
  return positions;
}

// Makes up for declared indexes that the damaged catalogue lost; their names and fields stand in SQLite's.
void completeIndexes(const std::vector<file::SchemaEntry>& schema, AttachedFile& target) {
  sqlite3* const handle = target.connection().handle();
  const std::string in = target.schemaName() + ".";
  std::int64_t position = 1000;  // behind all that were kept
  for (const file::SchemaEntry& entry : schema) {
    const std::string prefix = storage::indexName({entry.table, {}, {}}, {});
    if (entry.type != "index" || !entry.name.starts_with(prefix)) continue;
    const std::string name = entry.name.substr(prefix.size());
    std::vector<std::string> columns;
    Statement names(handle, "SELECT \"name\" FROM " + in +
                                "\"vc$column\" WHERE \"tableName\" = ?1 ORDER BY \"position\"");
    names.bindText(1, entry.table);
    while (names.step()) columns.emplace_back(names.text(0));
    const std::string positions = positionsIn(entry.sql, columns);
    if (positions.empty()) continue;
    runStatement(handle,
                 "INSERT INTO " + in +
                     "\"vc$index\" SELECT ?1, ?2, ?3, ?4, 0, ?5 WHERE NOT EXISTS (SELECT 1 FROM " + in +
                     "\"vc$index\" WHERE \"tableName\" = ?1 AND \"name\" = ?3)",
                 {entry.table, position++, name, positions,
                  std::int64_t{entry.sql.starts_with("CREATE UNIQUE") ? 1 : 0}});
  }
}

// The collation is part of each text field's definition, and tells the language.
std::string collationIn(const std::vector<file::SchemaEntry>& schema) {
  const std::string mark = "COLLATE \"";
  for (const file::SchemaEntry& entry : schema) {
    const std::size_t found = entry.sql.find(mark);
    if (found == std::string::npos) continue;
    const std::size_t start = found + mark.size();
    return entry.sql.substr(start, entry.sql.find('"', start) - start);
  }
  return {};
}

void completeFileValues(const Source& source, AttachedFile& target) {
  const std::string collation = collationIn(source.schema);
  const bool known = collation.starts_with("vc_");
  const std::string locale =
      known ? ";LANGID=0x" + collation.substr(3) + ";CP=1252;COUNTRY=0" : target.data().locale;
  const std::pair<const char*, std::string> values[] = {{"format", std::to_string(storage::formatVersion)},
                                                        {"locale", locale},
                                                        {"collation", text::collationName(locale)},
                                                        {"counter", "1"},
                                                        {"user", target.data().user}};
  for (const auto& [key, value] : values) {
    runStatement(target.connection().handle(),
                 "INSERT OR IGNORE INTO " + target.schemaName() + ".\"vc$file\" VALUES (?1, ?2)",
                 {std::string(key), value});
  }
}

// Column records of a table whose name is lost, and indexes of fields that are.
void removeUnreadable(AttachedFile& target) {
  sqlite3* const handle = target.connection().handle();
  const std::string in = target.schemaName() + ".";
  runStatement(handle, "INSERT INTO " + in + "\"vc$table\"(\"name\") SELECT DISTINCT \"tableName\" FROM " +
                           in + "\"vc$column\" WHERE \"tableName\" NOT IN (SELECT \"name\" FROM " + in +
                           "\"vc$table\")");
  runStatement(handle, "DELETE FROM " + in +
                           "\"vc$table\" WHERE \"name\" NOT IN (SELECT \"tableName\" FROM " + in +
                           "\"vc$column\")");
  runStatement(handle, "DELETE FROM " + in +
                           "\"vc$index\" WHERE \"tableName\" NOT IN (SELECT \"name\" FROM " + in +
                           "\"vc$table\")");
}

// A relation needs both its tables, and a unique key on its first side.
void keepPossibleRelations(storage::CatalogData& data, Findings& findings) {
  const auto tableNamed = [&](const std::string& name) {
    const auto found = std::find_if(data.tables.begin(), data.tables.end(), [&](const auto& table) {
      return base::equalsIgnoreCase(table.name, name);
    });
    return found == data.tables.end() ? nullptr : &*found;
  };
  std::erase_if(data.relations, [&](const storage::RelationRecord& relation) {
    const schema::Table* parent = tableNamed(relation.table);
    const schema::Table* child = tableNamed(relation.foreignTable);
    if (parent != nullptr && child != nullptr && child->find(relation.foreignField) >= 0 &&
        storage::hasUniqueKey(*parent, relation.field))
      return false;
    findings.tellLoss("The relation \"" + relation.name +
                      "\" can not be kept, as its tables or their keys are lost.");
    return true;
  });
}

// The indexes are made anew, for tables and fields that are left.
void keepPossibleTextIndexes(storage::CatalogData& data) {
  std::erase_if(data.texts, [&](const storage::TextIndexRecord& record) {
    const auto table = std::find_if(data.tables.begin(), data.tables.end(),
                                    [&](const auto& any) { return any.name == record.table; });
    return table == data.tables.end() || table->counter() < 0 || record.columns.empty() ||
           !std::all_of(record.columns.begin(), record.columns.end(),
                        [&](const std::string& column) { return table->find(column) >= 0; });
  });
  for (storage::TextIndexRecord& record : data.texts) record.rules.clear();
}

}  // namespace

storage::CatalogData salvageCatalogue(Source& source, AttachedFile& target, Findings& findings) {
  sqlite3* const handle = target.connection().handle();
  if (!source.salvage.schemaWhole())
    findings.tellLoss("The list of tables was damaged; tables and indexes may be missing.");
  fillHidden(source, target, findings);
  completeFileValues(source, target);
  removeUnreadable(target);
  for (const file::SchemaEntry& entry : source.schema) {
    const bool own =
        entry.type == "table" && !entry.name.starts_with("vc$") && !entry.name.starts_with("sqlite_");
    if (own) completeTable(entry, target);
  }
  completeIndexes(source.schema, target);
  storage::CatalogData data = storage::readCatalog(handle, target.schemaName());
  if (data.tables.empty())
    throw Error(errors::notADictionary, "Nothing of the dictionary can be read: its tables are lost.");
  keepPossibleRelations(data, findings);
  data.collationVersion = text::collationVersion(data.collation);
  data.compaction.clear();
  data.format = storage::formatVersion;
  keepPossibleTextIndexes(data);
  storage::writeCatalog(handle, target.schemaName(), data);
  return data;
}

}  // namespace engine::repair
