#include <sqlite3.h>

#include <algorithm>

#include "base/text.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/coerce.h"
#include "engine/storage/definition_change.h"
#include "engine/storage/messages.h"

/// Changes of a file's definitions: in memory, in the hidden tables and in SQLite's schema at once.
namespace engine::storage {

namespace {

using base::equalsIgnoreCase;
using schema::quoteName;

schema::Table& tableIn(CatalogData& data, std::string_view name) {
  for (schema::Table& table : data.tables) {
    if (equalsIgnoreCase(table.name, name)) return table;
  }
  throw Error(errors::inputNotFound, "There is no table \"" + std::string(name) + "\".");
}

int existingColumn(const schema::Table& table, std::string_view name) {
  const int position = table.find(name);
  if (position >= 0) return position;
  throw Error(errorNumbers::noSuchField,
              "The table \"" + table.name + "\" has no field \"" + std::string(name) + "\".");
}

bool uses(const schema::Index& index, std::string_view column) {
  return std::any_of(index.columns.begin(), index.columns.end(),
                     [&](const std::string& name) { return equalsIgnoreCase(name, column); });
}

bool inRelation(const CatalogData& data, std::string_view table, std::string_view column) {
  return std::any_of(data.relations.begin(), data.relations.end(), [&](const RelationRecord& relation) {
    return (equalsIgnoreCase(relation.table, table) && equalsIgnoreCase(relation.field, column)) ||
           (equalsIgnoreCase(relation.foreignTable, table) &&
            equalsIgnoreCase(relation.foreignField, column));
  });
}

bool isInTextIndex(const CatalogData& data, const std::string& table, const std::string& column) {
  return std::any_of(data.texts.begin(), data.texts.end(), [&](const TextIndexRecord& record) {
    return record.table == table &&
           std::find(record.columns.begin(), record.columns.end(), column) != record.columns.end();
  });
}

void checkColumns(const schema::Table& table) {
  if (table.columns.empty()) throw Error(errors::syntax, "The table \"" + table.name + "\" needs a field.");
  int counters = 0;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const schema::Column& column = table.columns[i];
    refuseOddName(column.name, "field");
    if (table.find(column.name) != static_cast<int>(i)) {
      throw Error(errorNumbers::fieldExists,
                  "The table \"" + table.name + "\" has two fields \"" + column.name + "\".");
    }
    counters += column.type == ColumnType::counter ? 1 : 0;
  }
  if (counters > 1)
    throw Error(errors::syntax, "The table \"" + table.name + "\" has more than one counter.");
}

bool isTextual(ColumnType type) {
  return type == ColumnType::text || type == ColumnType::memo;
}

bool isWhole(ColumnType type) {
  return type == ColumnType::longInteger || type == ColumnType::shortInteger;
}

}  // namespace

void refuseOddName(std::string_view name, const char* what) {
  const std::string small = base::lower(name);
  const bool control =
      std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
  if (name.empty() || control || !base::isUtf8(name) || small.starts_with("vc$") ||
      small.starts_with("sqlite_")) {
    throw Error(errorNumbers::invalidName,
                "\"" + std::string(name) + "\" can not be the name of a " + what + ".");
  }
}

void AttachedFile::refuseTakenName(std::string_view name) const {
  if (table(name) != nullptr) {
    throw Error(errors::tableExists, "A table \"" + std::string(name) + "\" exists already.");
  }
  if (query(name) != nullptr) {
    throw Error(errors::queryExists, "A query \"" + std::string(name) + "\" exists already.");
  }
}

void AttachedFile::syncIndexes(const CatalogData& data, const schema::Table& table) {
  sqlite3* const handle = connection_.handle();
  const auto wanted = indexStatements(data, table, schemaName_);
  std::vector<std::string> stored;
  {
    Statement names(handle, "SELECT name FROM " + quoteName(schemaName_) +
                                ".sqlite_master WHERE type = 'index' AND tbl_name = ?1 AND name GLOB 'vc$*'");
    names.bindText(1, table.name);
    while (names.step()) stored.emplace_back(names.text(0));
  }
  const auto isWanted = [&](const std::string& name) {
    return std::any_of(wanted.begin(), wanted.end(),
                       [&](const StoredIndex& index) { return index.name == name; });
  };
  for (const std::string& name : stored) {
    if (!isWanted(name)) runStatement(handle, "DROP INDEX " + qualified(name));
  }
  for (const StoredIndex& index : wanted) {
    if (std::find(stored.begin(), stored.end(), index.name) == stored.end())
      runStatement(handle, index.statement);
  }
}

void AttachedFile::dropStoredIndexes(const std::string& table) {
  syncIndexes({}, {table, {}, {}});
}

// The documented way to give a table other constraints without copying its rows.
void AttachedFile::rewriteTable(const CatalogData& data, const schema::Table& table) {
  sqlite3* const handle = connection_.handle();
  std::int64_t version = 0;
  {
    Statement current(handle, "PRAGMA " + schemaName_ + ".schema_version");
    if (current.step()) version = current.integer(0);
  }
  runStatement(handle, "PRAGMA writable_schema = ON");
  try {
    runStatement(
        handle,
        "UPDATE " + quoteName(schemaName_) + ".sqlite_master SET sql = ?1 WHERE type = 'table' AND name = ?2",
        {tableStatement(data, table, ""), table.name});
    runStatement(handle, "PRAGMA " + schemaName_ + ".schema_version = " + std::to_string(version + 1));
  } catch (...) {
    runStatement(handle, "PRAGMA writable_schema = OFF");
    throw;
  }
  runStatement(handle, "PRAGMA writable_schema = OFF");
}

void AttachedFile::createTable(const schema::Table& table) {
  refuseOddName(table.name, "table");
  checkColumns(table);
  change([&](CatalogData& next) {
    refuseTakenName(table.name);
    next.tables.push_back(table);
    runStatement(connection_.handle(), tableStatement(next, table, schemaName_));
    writeTable(connection_.handle(), schemaName_, table);
    syncIndexes(next, table);
  });
}

void AttachedFile::createIndex(std::string_view table, const schema::Index& index) {
  change([&](CatalogData& next) {
    schema::Table& target = tableIn(next, table);
    for (const schema::Index& other : target.indexes) {
      if (equalsIgnoreCase(other.name, index.name)) {
        throw Error(errorNumbers::indexExists,
                    "The table \"" + target.name + "\" has an index \"" + index.name + "\" already.");
      }
      if (index.primary && other.primary) {
        throw Error(errorNumbers::primaryExists,
                    "The table \"" + target.name + "\" has a primary key already.");
      }
    }
    schema::Index made = index;
    for (std::string& column : made.columns) {
      column = target.columns[static_cast<std::size_t>(existingColumn(target, column))].name;
      if (index.primary &&
          any("SELECT 1 FROM " + qualified(target.name) + " WHERE " + quoteName(column) + " IS NULL")) {
        throw Error(errors::keyIsNull, "The field \"" + column + "\" of \"" + target.name +
                                           "\" can not be a key: some rows hold no value in it.");
      }
    }
    target.indexes.push_back(std::move(made));
    syncIndexes(next, target);
    writeTable(connection_.handle(), schemaName_, target);
  });
}

void AttachedFile::dropTable(std::string_view name) {
  if (table(name) == nullptr && query(name) == nullptr) {
    throw Error(errors::objectNotFound, "There is no table or query \"" + std::string(name) + "\" to drop.");
  }
  change([&](CatalogData& next) {
    std::erase_if(next.queries, [&](const schema::StoredQuery& query) {
      if (!equalsIgnoreCase(query.name, name)) return false;
      eraseQuery(connection_.handle(), schemaName_, query.name);
      return true;
    });
    if (table(name) == nullptr) return;
    const std::string real = table(name)->name;
    for (const RelationRecord& relation : next.relations) {
      if (equalsIgnoreCase(relation.table, real) || equalsIgnoreCase(relation.foreignTable, real)) {
        throw Error(errorNumbers::tableInRelation, "The table \"" + real +
                                                       "\" can not be dropped: the relation \"" +
                                                       relation.name + "\" needs it.");
      }
    }
    forgetTextIndex(next, real, true);
    runStatement(connection_.handle(), "DROP TABLE " + qualified(real));
    eraseTable(connection_.handle(), schemaName_, real);
    std::erase_if(next.tables, [&](const schema::Table& table) { return table.name == real; });
    std::erase_if(next.properties, [&](const PropertyRecord& property) { return property.table == real; });
    std::erase_if(next.watches, [&](const WatchRecord& watch) { return watch.table == real; });
  });
}

void AttachedFile::dropIndex(std::string_view table, std::string_view index) {
  change([&](CatalogData& next) {
    schema::Table& target = tableIn(next, table);
    const auto isIt = [&](const schema::Index& any) { return equalsIgnoreCase(any.name, index); };
    const auto found = std::find_if(target.indexes.begin(), target.indexes.end(), isIt);
    if (found == target.indexes.end()) {
      throw Error(errors::objectNotFound,
                  "The table \"" + target.name + "\" has no index \"" + std::string(index) + "\".");
    }
    const schema::Index dropped = *found;
    target.indexes.erase(found);
    for (const RelationRecord& relation : next.relations) {
      if (equalsIgnoreCase(relation.table, target.name) && !hasUniqueKey(target, relation.field)) {
        throw Error(errorNumbers::fieldInUse, "The index \"" + dropped.name + "\" of \"" + target.name +
                                                  "\" can not be dropped: the relation \"" + relation.name +
                                                  "\" needs it.");
      }
    }
    syncIndexes(next, target);
    writeTable(connection_.handle(), schemaName_, target);
  });
}

void AttachedFile::addColumn(std::string_view table, const schema::Column& column) {
  if (column.type == ColumnType::counter) {
    throw Error(errors::invalidArgument,
                "A counter can not be added to the table \"" + std::string(table) + "\".");
  }
  change([&](CatalogData& next) {
    schema::Table& target = tableIn(next, table);
    target.columns.push_back(column);
    checkColumns(target);
    if (column.required && any("SELECT 1 FROM " + qualified(target.name))) {
      throw Error(errors::nullRefused, "The field \"" + column.name + "\" needs a value, but \"" +
                                           target.name + "\" holds rows without it.");
    }
    runStatement(connection_.handle(), "ALTER TABLE " + qualified(target.name) + " ADD COLUMN " +
                                           columnText(column, next.collation));
    writeTable(connection_.handle(), schemaName_, target);
  });
}

void AttachedFile::alterColumn(std::string_view table, const schema::Column& column) {
  const schema::Table& before = existingTable(table);
  const schema::Column& old = before.columns[static_cast<std::size_t>(existingColumn(before, column.name))];
  if (old.type == column.type && old.size == column.size && old.required == column.required) return;
  change([&](CatalogData& next) {
    schema::Table& target = tableIn(next, table);
    schema::Column& changed = target.columns[static_cast<std::size_t>(existingColumn(target, column.name))];
    const schema::Column previous = changed;
    changed.type = column.type;
    changed.size = column.size;
    changed.required = column.required;
    const std::string name = quoteName(changed.name), from = " FROM " + qualified(target.name) + " WHERE ";
    if (changed.required && any("SELECT 1" + from + name + " IS NULL")) {
      throw Error(errors::nullRefused,
                  "Some rows of \"" + target.name + "\" hold no value in \"" + changed.name + "\".");
    }
    if (changed.type == ColumnType::text && isTextual(previous.type) &&
        any("SELECT 1" + from + "length(" + name + ") > " + std::to_string(changed.size))) {
      throw Error(errors::tooLong, "Some values of \"" + changed.name + "\" in \"" + target.name +
                                       "\" are longer than " + std::to_string(changed.size) + " characters.");
    }
    const bool sameForm = previous.type == changed.type ||
                          (isTextual(previous.type) && isTextual(changed.type)) ||
                          (isWhole(previous.type) && changed.type == ColumnType::longInteger);
    if (!sameForm) {
      if (previous.type == ColumnType::counter || changed.type == ColumnType::counter ||
          inRelation(next, target.name, changed.name)) {
        throw Error(errorNumbers::fieldInUse,
                    "The type of \"" + changed.name + "\" in \"" + target.name +
                        "\" can not change: it is a counter or part of a relation.");
      }
      forgetTextIndex(next, target.name, isInTextIndex(next, target.name, changed.name));
      dropStoredIndexes(target.name);
      rewriteTable(next, target);
      convertColumn(target, changed);
      syncIndexes(next, target);
    }
    writeTable(connection_.handle(), schemaName_, target);
  });
}

void AttachedFile::convertColumn(const schema::Table& table, const schema::Column& column) {
  const std::string name = quoteName(column.name);
  std::vector<std::pair<std::int64_t, Value>> rows;
  {
    Statement read(connection_.handle(), "SELECT rowid, " + name + " FROM " + qualified(table.name));
    while (read.step()) rows.emplace_back(read.integer(0), read.value(1, ColumnType::memo));
  }
  Statement write(connection_.handle(),
                  "UPDATE " + qualified(table.name) + " SET " + name + " = ?1 WHERE rowid = ?2");
  for (const auto& [rowid, value] : rows) {
    bindCoerced(write, 1, table, column, value);
    write.bindInteger(2, rowid);
    write.run();
  }
}

void AttachedFile::dropColumn(std::string_view table, std::string_view column) {
  change([&](CatalogData& next) {
    schema::Table& target = tableIn(next, table);
    const int position = existingColumn(target, column);
    const schema::Column dropped = target.columns[static_cast<std::size_t>(position)];
    const bool indexed = std::any_of(target.indexes.begin(), target.indexes.end(),
                                     [&](const schema::Index& index) { return uses(index, column); });
    if (indexed || dropped.type == ColumnType::counter || inRelation(next, target.name, dropped.name)) {
      throw Error(errorNumbers::fieldInUse,
                  "The field \"" + dropped.name + "\" of \"" + target.name +
                      "\" can not be dropped: it is the counter, or an index or a relation needs it.");
    }
    if (target.columns.size() == 1) {
      throw Error(errorNumbers::fieldInUse,
                  "\"" + dropped.name + "\" is the only field of \"" + target.name + "\".");
    }
    std::erase_if(next.watches, [&](const WatchRecord& watch) {
      const bool goes =
          watch.table == target.name && (watch.text.find(quoteName(dropped.name)) != std::string::npos ||
                                         base::equalsIgnoreCase(watch.order, dropped.name));
      if (goes) eraseWatch(connection_.handle(), schemaName_, watch);
      return goes;
    });
    std::erase_if(next.properties, [&](const PropertyRecord& property) {
      const bool goes = property.table == target.name && property.field == dropped.name;
      if (goes) eraseProperty(connection_.handle(), schemaName_, property);
      return goes;
    });
    forgetTextIndex(next, target.name, isInTextIndex(next, target.name, dropped.name));
    dropStoredIndexes(target.name);
    runStatement(connection_.handle(),
                 "ALTER TABLE " + qualified(target.name) + " DROP COLUMN " + quoteName(dropped.name));
    target.columns.erase(target.columns.begin() + position);
    writeTable(connection_.handle(), schemaName_, target);
    syncIndexes(next, target);
  });
}

}  // namespace engine::storage
