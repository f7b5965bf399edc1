#include "engine/storage/catalog.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "engine/storage/statement.h"

namespace engine::storage {

namespace {

constexpr std::array<const char*, 8> typeNames = {"counter", "long", "short", "bit",
                                                  "text",    "memo", "date",  "real"};

constexpr std::array hiddenTables = {
    R"("vc$file"("key" TEXT PRIMARY KEY, "value" TEXT NOT NULL) WITHOUT ROWID)",
    R"("vc$table"("id" INTEGER PRIMARY KEY, "name" TEXT NOT NULL UNIQUE))",
    R"("vc$column"("tableName" TEXT NOT NULL, "position" INTEGER NOT NULL, "name" TEXT NOT NULL,
       "type" TEXT NOT NULL, "size" INTEGER NOT NULL, "required" INTEGER NOT NULL, "zeroLength" INTEGER NOT NULL,
       PRIMARY KEY("tableName", "position")) WITHOUT ROWID)",
    R"("vc$index"("tableName" TEXT NOT NULL, "position" INTEGER NOT NULL, "name" TEXT NOT NULL,
       "columns" TEXT NOT NULL, "isPrimary" INTEGER NOT NULL, "isUnique" INTEGER NOT NULL,
       PRIMARY KEY("tableName", "position")) WITHOUT ROWID)",
    R"("vc$query"("id" INTEGER PRIMARY KEY, "name" TEXT NOT NULL UNIQUE, "text" TEXT NOT NULL))",
    R"("vc$relation"("id" INTEGER PRIMARY KEY, "name" TEXT NOT NULL UNIQUE, "tableName" TEXT NOT NULL,
       "foreignTable" TEXT NOT NULL, "field" TEXT NOT NULL, "foreignField" TEXT NOT NULL,
       "attributes" INTEGER NOT NULL))",
    R"("vc$property"("tableName" TEXT NOT NULL, "field" TEXT NOT NULL, "name" TEXT NOT NULL,
       "value" TEXT NOT NULL, PRIMARY KEY("tableName", "field", "name")) WITHOUT ROWID)",
    R"("vc$permission"("container" TEXT NOT NULL, "document" TEXT NOT NULL, "user" TEXT NOT NULL,
       "permissions" INTEGER NOT NULL, PRIMARY KEY("container", "document", "user")) WITHOUT ROWID)",
    R"("vc$watch"("tableName" TEXT NOT NULL, "condition" TEXT NOT NULL, "text" TEXT NOT NULL,
       "order" TEXT NOT NULL DEFAULT '', PRIMARY KEY("tableName", "condition")) WITHOUT ROWID)",
    R"("vc$text"("tableName" TEXT PRIMARY KEY, "columns" TEXT NOT NULL, "lastRow" INTEGER NOT NULL,
       "rules" TEXT NOT NULL) WITHOUT ROWID)",
};

std::string hidden(const std::string& schemaName, const char* table) {
  return schema::quoteName(schemaName) + "." + schema::quoteName(table);
}

[[noreturn]] void refuseCatalogue() {
  throw Error(errors::notADictionary, "The file's catalogue of tables is damaged.");
}

ColumnType typeNamed(std::string_view name) {
  for (std::size_t i = 0; i < typeNames.size(); ++i) {
    if (name == typeNames[i]) return static_cast<ColumnType>(i);
  }
  refuseCatalogue();
}

std::int64_t number(std::string_view text) {
  std::int64_t result = 0;
  const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), result);
  if (code != std::errc{} || end != text.data() + text.size()) refuseCatalogue();
  return result;
}

void readFileValues(sqlite3* connection, const std::string& schemaName, CatalogData& data) {
  Statement values(connection, "SELECT \"key\", \"value\" FROM " + hidden(schemaName, "vc$file"));
  while (values.step()) {
    const std::string_view key = values.text(0), value = values.text(1);
    if (key == "format") data.format = static_cast<int>(number(value));
    if (key == "locale") data.locale = value;
    if (key == "collation") data.collation = value;
    if (key == "collationVersion") data.collationVersion = value;
    if (key == "counter") data.counter = number(value);
    if (key == "compaction") data.compaction = value;
    if (key == "user") data.user = value;
  }
  if (data.format > formatVersion) throw LaterFormat(data.format);
  if (data.locale.empty() || data.collation.empty()) refuseCatalogue();
}

void readTables(sqlite3* connection, const std::string& schemaName, CatalogData& data) {
  std::unordered_map<std::string, std::size_t> positions;
  Statement tables(connection, "SELECT \"name\" FROM " + hidden(schemaName, "vc$table") + " ORDER BY \"id\"");
  while (tables.step()) {
    positions[std::string(tables.text(0))] = data.tables.size();
    data.tables.push_back({std::string(tables.text(0)), {}, {}});
  }
  const auto tableOf = [&](const Statement& row) -> schema::Table& {
    const auto found = positions.find(std::string(row.text(0)));
    if (found == positions.end()) refuseCatalogue();
    return data.tables[found->second];
  };
  Statement columns(connection,
                    "SELECT \"tableName\", \"name\", \"type\", \"size\", \"required\", \"zeroLength\" FROM " +
                        hidden(schemaName, "vc$column") + " ORDER BY \"tableName\", \"position\"");
  while (columns.step()) {
    tableOf(columns).columns.push_back({std::string(columns.text(1)), typeNamed(columns.text(2)),
                                        static_cast<int>(columns.integer(3)), columns.integer(4) != 0,
                                        columns.integer(5) != 0});
  }
  Statement indexes(connection,
                    "SELECT \"tableName\", \"name\", \"columns\", \"isPrimary\", \"isUnique\" FROM " +
                        hidden(schemaName, "vc$index") + " ORDER BY \"tableName\", \"position\"");
  while (indexes.step()) {
    schema::Table& table = tableOf(indexes);
    schema::Index index{std::string(indexes.text(1)), {}, indexes.integer(3) != 0, indexes.integer(4) != 0};
    for (const std::string& position : base::split(indexes.text(2), ",")) {
      const auto column = static_cast<std::size_t>(number(position));
      if (column >= table.columns.size()) refuseCatalogue();
      index.columns.push_back(table.columns[column].name);
    }
    table.indexes.push_back(std::move(index));
  }
}

bool isThere(sqlite3* connection, const std::string& schemaName, const char* table) {
  Statement found(connection, "SELECT 1 FROM " + schema::quoteName(schemaName) +
                                  ".sqlite_master WHERE type = 'table' AND name = ?1");
  found.bindText(1, table);
  return found.step();
}

// Files of format 1 lack the table.
void readTextIndexes(sqlite3* connection, const std::string& schemaName, CatalogData& data) {
  if (!isThere(connection, schemaName, "vc$text")) return;
  Statement texts(connection, "SELECT \"tableName\", \"columns\", \"lastRow\", \"rules\" FROM " +
                                  hidden(schemaName, "vc$text"));
  while (texts.step()) {
    std::vector<std::string> columns;
    for (const std::string& column : base::split(texts.text(1), "\n")) columns.push_back(column);
    data.texts.push_back(
        {std::string(texts.text(0)), std::move(columns), texts.integer(2), std::string(texts.text(3))});
  }
}

void readOthers(sqlite3* connection, const std::string& schemaName, CatalogData& data) {
  Statement queries(connection,
                    "SELECT \"name\", \"text\" FROM " + hidden(schemaName, "vc$query") + " ORDER BY \"id\"");
  while (queries.step()) data.queries.push_back({std::string(queries.text(0)), std::string(queries.text(1))});
  Statement relations(connection,
                      "SELECT \"name\", \"tableName\", \"foreignTable\", \"field\", \"foreignField\", "
                      "\"attributes\" FROM " +
                          hidden(schemaName, "vc$relation") + " ORDER BY \"id\"");
  while (relations.step()) {
    data.relations.push_back({std::string(relations.text(0)), std::string(relations.text(1)),
                              std::string(relations.text(2)), std::string(relations.text(3)),
                              std::string(relations.text(4)),
                              static_cast<std::int32_t>(relations.integer(5))});
  }
  Statement properties(connection, "SELECT \"tableName\", \"field\", \"name\", \"value\" FROM " +
                                       hidden(schemaName, "vc$property"));
  while (properties.step()) {
    data.properties.push_back({std::string(properties.text(0)), std::string(properties.text(1)),
                               std::string(properties.text(2)), std::string(properties.text(3))});
  }
  Statement permissions(connection, "SELECT \"container\", \"document\", \"user\", \"permissions\" FROM " +
                                        hidden(schemaName, "vc$permission"));
  while (permissions.step()) {
    data.permissions.push_back({std::string(permissions.text(0)), std::string(permissions.text(1)),
                                std::string(permissions.text(2)),
                                static_cast<std::int32_t>(permissions.integer(3))});
  }
  // Files up to format 2 know no order of kept rows.
  const char* order = data.format < 3 ? "''" : "\"order\"";
  Statement watches(connection, std::string("SELECT \"tableName\", \"condition\", \"text\", ") + order +
                                    " FROM " + hidden(schemaName, "vc$watch"));
  while (watches.step()) {
    data.watches.push_back({std::string(watches.text(0)), std::string(watches.text(1)),
                            std::string(watches.text(2)), std::string(watches.text(3))});
  }
}

std::string positionsText(const schema::Table& table, const schema::Index& index) {
  std::string text;
  for (const std::string& column : index.columns) {
    if (!text.empty()) text += ",";
    text += std::to_string(table.find(column));
  }
  return text;
}

}  // namespace

LaterFormat::LaterFormat(int number)
    : Error(errors::notADictionary, "The file was written by a later version of the program (format " +
                                        std::to_string(number) + ")."),
      format(number) {}

void runStatement(sqlite3* connection, const std::string& text, const std::vector<Value>& parameters) {
  Statement statement(connection, text);
  for (std::size_t i = 0; i < parameters.size(); ++i) statement.bind(static_cast<int>(i) + 1, parameters[i]);
  statement.run();
}

void createCatalog(sqlite3* connection, const std::string& schemaName) {
  for (const char* definition : hiddenTables) {
    runStatement(connection, "CREATE TABLE " + schema::quoteName(schemaName) + "." + definition);
  }
}

void completeCatalog(sqlite3* connection, const std::string& schemaName, CatalogData& data) {
  if (data.format == formatVersion) return;
  if (!isThere(connection, schemaName, "vc$text"))
    runStatement(connection, "CREATE TABLE " + schema::quoteName(schemaName) + "." + hiddenTables.back());
  runStatement(connection, "ALTER TABLE " + hidden(schemaName, "vc$watch") +
                               " ADD COLUMN \"order\" TEXT NOT NULL DEFAULT ''");
  data.format = formatVersion;
  writeFileValue(connection, schemaName, "format", std::to_string(data.format));
}

CatalogData readCatalog(sqlite3* connection, const std::string& schemaName) {
  if (!isThere(connection, schemaName, "vc$file")) refuseCatalogue();
  CatalogData data;
  readFileValues(connection, schemaName, data);
  readTables(connection, schemaName, data);
  readOthers(connection, schemaName, data);
  readTextIndexes(connection, schemaName, data);
  return data;
}

void writeCatalog(sqlite3* connection, const std::string& schemaName, const CatalogData& data) {
  for (const char* table : {"vc$file", "vc$table", "vc$column", "vc$index", "vc$query", "vc$relation",
                            "vc$property", "vc$permission", "vc$watch", "vc$text"}) {
    runStatement(connection, "DELETE FROM " + hidden(schemaName, table));
  }
  const std::pair<const char*, std::string> values[] = {{"format", std::to_string(data.format)},
                                                        {"locale", data.locale},
                                                        {"collation", data.collation},
                                                        {"collationVersion", data.collationVersion},
                                                        {"counter", std::to_string(data.counter)},
                                                        {"compaction", data.compaction},
                                                        {"user", data.user}};
  for (const auto& [key, value] : values) writeFileValue(connection, schemaName, key, value);
  for (const auto& table : data.tables) writeTable(connection, schemaName, table);
  for (const auto& query : data.queries) writeQuery(connection, schemaName, query);
  for (const auto& relation : data.relations) writeRelation(connection, schemaName, relation);
  for (const auto& property : data.properties) writeProperty(connection, schemaName, property);
  for (const auto& permission : data.permissions) writePermission(connection, schemaName, permission);
  for (const auto& watch : data.watches) writeWatch(connection, schemaName, watch);
  for (const auto& text : data.texts) writeTextIndex(connection, schemaName, text);
}

void writeTable(sqlite3* connection, const std::string& schemaName, const schema::Table& table) {
  runStatement(
      connection,
      "INSERT INTO " + hidden(schemaName, "vc$table") + "(\"name\") VALUES (?1) ON CONFLICT DO NOTHING",
      {table.name});
  for (const char* part : {"vc$column", "vc$index"}) {
    runStatement(connection, "DELETE FROM " + hidden(schemaName, part) + " WHERE \"tableName\" = ?1",
                 {table.name});
  }
  Statement columns(
      connection, "INSERT INTO " + hidden(schemaName, "vc$column") + " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)");
  std::int64_t position = 0;
  for (const schema::Column& column : table.columns) {
    columns.bindText(1, table.name);
    columns.bindInteger(2, position++);
    columns.bindText(3, column.name);
    columns.bindText(4, typeNames[static_cast<std::size_t>(column.type)]);
    columns.bindInteger(5, column.size);
    columns.bindInteger(6, column.required ? 1 : 0);
    columns.bindInteger(7, column.allowZeroLength ? 1 : 0);
    columns.run();
  }
  position = 0;
  for (const schema::Index& index : table.indexes) {
    runStatement(connection,
                 "INSERT INTO " + hidden(schemaName, "vc$index") + " VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
                 {table.name, position++, index.name, positionsText(table, index), index.primary ? 1 : 0,
                  index.unique ? 1 : 0});
  }
}

void eraseTable(sqlite3* connection, const std::string& schemaName, const std::string& table) {
  runStatement(connection, "DELETE FROM " + hidden(schemaName, "vc$table") + " WHERE \"name\" = ?1", {table});
  for (const char* part : {"vc$column", "vc$index", "vc$property", "vc$watch"}) {
    runStatement(connection, "DELETE FROM " + hidden(schemaName, part) + " WHERE \"tableName\" = ?1",
                 {table});
  }
}

void writeTextIndex(sqlite3* connection, const std::string& schemaName, const TextIndexRecord& record) {
  std::string columns;
  for (const std::string& column : record.columns) columns += (columns.empty() ? "" : "\n") + column;
  runStatement(connection,
               "INSERT OR REPLACE INTO " + hidden(schemaName, "vc$text") + " VALUES (?1, ?2, ?3, ?4)",
               {record.table, columns, record.lastRow, record.rules});
}

void eraseTextIndex(sqlite3* connection, const std::string& schemaName, const std::string& table) {
  runStatement(connection, "DELETE FROM " + hidden(schemaName, "vc$text") + " WHERE \"tableName\" = ?1",
               {table});
}

void writeQuery(sqlite3* connection, const std::string& schemaName, const schema::StoredQuery& query) {
  runStatement(connection,
               "INSERT INTO " + hidden(schemaName, "vc$query") +
                   "(\"name\", \"text\") VALUES (?1, ?2) ON CONFLICT(\"name\") DO UPDATE SET \"text\" = ?2",
               {query.name, query.text});
}

void eraseQuery(sqlite3* connection, const std::string& schemaName, const std::string& query) {
  runStatement(connection, "DELETE FROM " + hidden(schemaName, "vc$query") + " WHERE \"name\" = ?1", {query});
}

void writeRelation(sqlite3* connection, const std::string& schemaName, const RelationRecord& relation) {
  runStatement(connection,
               "INSERT INTO " + hidden(schemaName, "vc$relation") +
                   "(\"name\", \"tableName\", \"foreignTable\", \"field\", \"foreignField\", \"attributes\")"
                   " VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
               {relation.name, relation.table, relation.foreignTable, relation.field, relation.foreignField,
                relation.attributes});
}

void writeProperty(sqlite3* connection, const std::string& schemaName, const PropertyRecord& property) {
  runStatement(connection,
               "INSERT OR REPLACE INTO " + hidden(schemaName, "vc$property") + " VALUES (?1, ?2, ?3, ?4)",
               {property.table, property.field, property.name, property.value});
}

void eraseProperty(sqlite3* connection, const std::string& schemaName, const PropertyRecord& property) {
  runStatement(connection,
               "DELETE FROM " + hidden(schemaName, "vc$property") +
                   " WHERE \"tableName\" = ?1 AND \"field\" = ?2 AND \"name\" = ?3",
               {property.table, property.field, property.name});
}

void writePermission(sqlite3* connection, const std::string& schemaName, const PermissionRecord& permission) {
  runStatement(connection,
               "INSERT OR REPLACE INTO " + hidden(schemaName, "vc$permission") + " VALUES (?1, ?2, ?3, ?4)",
               {permission.container, permission.document, permission.user, permission.permissions});
}

void writeWatch(sqlite3* connection, const std::string& schemaName, const WatchRecord& watch) {
  runStatement(connection,
               "INSERT OR REPLACE INTO " + hidden(schemaName, "vc$watch") + " VALUES (?1, ?2, ?3, ?4)",
               {watch.table, watch.condition, watch.text, watch.order});
}

void eraseWatch(sqlite3* connection, const std::string& schemaName, const WatchRecord& watch) {
  runStatement(
      connection,
      "DELETE FROM " + hidden(schemaName, "vc$watch") + " WHERE \"tableName\" = ?1 AND \"condition\" = ?2",
      {watch.table, watch.condition});
}

void writeFileValue(sqlite3* connection, const std::string& schemaName, const std::string& key,
                    const std::string& value) {
  runStatement(connection, "INSERT OR REPLACE INTO " + hidden(schemaName, "vc$file") + " VALUES (?1, ?2)",
               {key, value});
}

std::int64_t readCounter(sqlite3* connection, const std::string& schemaName) {
  Statement counter(connection,
                    "SELECT \"value\" FROM " + hidden(schemaName, "vc$file") + " WHERE \"key\" = 'counter'");
  return counter.step() ? number(counter.text(0)) : 0;
}

}  // namespace engine::storage
