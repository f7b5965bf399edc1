#include <algorithm>

#include "base/text.h"
#include "engine/storage/catalog.h"

/// Definitions as statements of SQLite.
namespace engine::storage {

namespace {

using schema::quoteName;

std::string foreignKey(const RelationRecord& relation) {
  std::string text = ", FOREIGN KEY(" + quoteName(relation.foreignField) + ") REFERENCES " +
                     quoteName(relation.table) + "(" + quoteName(relation.field) + ")";
  if ((relation.attributes & 256) != 0) text += " ON UPDATE CASCADE";
  if ((relation.attributes & 4096) != 0) text += " ON DELETE CASCADE";
  return text;
}

std::string createIndex(const std::string& schemaName, const std::string& name, const schema::Table& table,
                        const std::vector<std::string>& columns, bool unique, const std::string& where = {}) {
  std::string text = unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
  text += quoteName(schemaName) + "." + quoteName(name) + " ON " + quoteName(table.name) + "(";
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i > 0) text += ", ";
    text += quoteName(columns[i]);
  }
  text += ")";
  return where.empty() ? text : text + " WHERE " + where;
}

bool leads(const schema::Table& table, const std::string& column) {
  return std::any_of(table.indexes.begin(), table.indexes.end(), [&](const schema::Index& index) {
    return base::equalsIgnoreCase(index.columns.front(), column);
  });
}

// A condition on one field is looked up by that field, which beats walking any order; others by the key, so
// that their rows come in its order.
std::string watchedColumn(const schema::Table& table, const WatchRecord& watch) {
  if (!watch.order.empty()) return watch.order;
  std::string only;
  for (const schema::Column& column : table.columns) {
    if (watch.text.find(quoteName(column.name)) == std::string::npos) continue;
    if (!only.empty()) return table.columns.front().name;
    only = column.name;
  }
  return only.empty() ? table.columns.front().name : only;
}

}  // namespace

// Lengths keep "a$b"+"c" and "a"+"b$c" apart.
std::string hiddenName(const char* kind, const std::string& table, const std::string& part) {
  return std::string("vc$") + kind + "$" + std::to_string(table.size()) + "$" + table + "$" + part;
}

std::string indexName(const schema::Table& table, const schema::Index& index) {
  return hiddenName("index", table.name, index.name);
}

bool isStored(const schema::Table& table, const schema::Index& index) {
  const int counter = table.counter();
  return counter < 0 || index.columns.size() != 1 || table.find(index.columns.front()) != counter;
}

std::string columnText(const schema::Column& column, const std::string& collation) {
  const std::string name = quoteName(column.name);
  switch (column.type) {
    case ColumnType::counter:
      return name + " INTEGER PRIMARY KEY AUTOINCREMENT";
    case ColumnType::longInteger:
    case ColumnType::shortInteger:
      return name + " INTEGER";
    case ColumnType::bit:
      return name + " INTEGER NOT NULL DEFAULT 0";
    case ColumnType::real:
      return name + " REAL";
    case ColumnType::date:
      return name + " TEXT";
    case ColumnType::text:
    case ColumnType::memo:
      break;
  }
  return name + " TEXT COLLATE " + quoteName(collation);
}

std::string tableStatement(const CatalogData& data, const schema::Table& table,
                           const std::string& schemaName) {
  std::string text = "CREATE TABLE ";
  if (!schemaName.empty()) text += quoteName(schemaName) + ".";
  text += quoteName(table.name) + "(";
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (i > 0) text += ", ";
    text += columnText(table.columns[i], data.collation);
  }
  for (const RelationRecord& relation : data.relations) {
    if (base::equalsIgnoreCase(relation.foreignTable, table.name)) text += foreignKey(relation);
  }
  return text + ")";
}

std::vector<StoredIndex> indexStatements(const CatalogData& data, const schema::Table& table,
                                         const std::string& schemaName) {
  std::vector<StoredIndex> result;
  const auto add = [&](const std::string& name, const std::string& statement) {
    const auto same = [&](const StoredIndex& index) { return index.name == name; };
    if (std::none_of(result.begin(), result.end(), same)) result.push_back({name, statement});
  };
  for (const schema::Index& index : table.indexes) {
    if (!isStored(table, index)) continue;
    const std::string name = indexName(table, index);
    add(name, createIndex(schemaName, name, table, index.columns, index.unique || index.primary));
  }
  // Without it each deletion in the parent would scan the children.
  for (const RelationRecord& relation : data.relations) {
    if (!base::equalsIgnoreCase(relation.foreignTable, table.name) || leads(table, relation.foreignField))
      continue;
    const std::string name = hiddenName("child", table.name, base::lower(relation.foreignField));
    add(name, createIndex(schemaName, name, table, {relation.foreignField}, false));
  }
  for (const WatchRecord& watch : data.watches) {
    if (!base::equalsIgnoreCase(watch.table, table.name)) continue;
    const std::string name = hiddenName("watch", table.name, watch.condition);
    add(name, createIndex(schemaName, name, table, {watchedColumn(table, watch)}, false, watch.text));
  }
  return result;
}

}  // namespace engine::storage
