#include <algorithm>

#include "base/text.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/definition_change.h"
#include "engine/storage/messages.h"
#include "engine/storage/text_index.h"

/// Queries, relations, properties and the other small definitions of a file.
namespace engine::storage {

namespace {

using base::equalsIgnoreCase;
using schema::quoteName;

schema::Column& columnIn(CatalogData& data, std::string_view table, std::string_view column) {
  for (schema::Table& any : data.tables) {
    if (!equalsIgnoreCase(any.name, table)) continue;
    const int position = any.find(column);
    if (position >= 0) return any.columns[static_cast<std::size_t>(position)];
  }
  throw Error(errorNumbers::noSuchField,
              "There is no field \"" + std::string(column) + "\" in a table \"" + std::string(table) + "\".");
}

}  // namespace

void AttachedFile::createQuery(const schema::StoredQuery& query, bool inMemory) {
  refuseOddName(query.name, "query");
  if (inMemory || readOnly_) {
    refuseTakenName(query.name);
    data_.queries.push_back(query);
    queries_[base::lower(query.name)] = query;
    scratch_[base::lower(query.name)] = query;
    ++version_;
    return;
  }
  change([&](CatalogData& next) {
    refuseTakenName(query.name);
    next.queries.push_back(query);
    writeQuery(connection_.handle(), schemaName_, query);
  });
}

// Without a copy of all definitions: scratch queries are set before each use.
void AttachedFile::setQueryText(std::string_view name, const std::string& text, bool inMemory) {
  const auto found = queries_.find(base::lower(name));
  if (found == queries_.end()) {
    throw Error(errors::itemNotFound, "There is no query \"" + std::string(name) + "\" in " + path_ + ".");
  }
  if (found->second.text == text) return;
  if (!inMemory && !readOnly_) {
    connection_.beforeWrite(*this);
    const Connection::Internal internal(connection_);
    Connection::Savepoint savepoint(connection_);
    writeQuery(connection_.handle(), schemaName_, {found->second.name, text});
    writeFileValue(connection_.handle(), schemaName_, "counter", std::to_string(data_.counter + 1));
    savepoint.release();
    ++data_.counter;
  } else {
    scratch_[found->first] = {found->second.name, text};
  }
  found->second.text = text;
  for (schema::StoredQuery& query : data_.queries) {
    if (query.name == found->second.name) query.text = text;
  }
  ++version_;
}

void AttachedFile::appendRelation(const RelationRecord& relation) {
  change([&](CatalogData& next) {
    for (const RelationRecord& other : next.relations) {
      if (equalsIgnoreCase(other.name, relation.name)) {
        throw Error(errors::queryExists, "A relation \"" + relation.name + "\" exists already.");
      }
    }
    const schema::Table& parent = existingTable(relation.table);
    const schema::Table& child = existingTable(relation.foreignTable);
    RelationRecord made = relation;
    made.table = parent.name;
    made.foreignTable = child.name;
    made.field = columnIn(next, parent.name, relation.field).name;
    made.foreignField = columnIn(next, child.name, relation.foreignField).name;
    if (!hasUniqueKey(parent, made.field)) {
      throw Error(errorNumbers::noUniqueKey, "The relation \"" + made.name + "\" needs a unique index on \"" +
                                                 made.field + "\" of \"" + made.table + "\".");
    }
    const std::string key = quoteName(made.foreignField);
    if (any("SELECT 1 FROM " + qualified(child.name) + " AS c WHERE c." + key +
            " IS NOT NULL AND NOT EXISTS (SELECT 1 FROM " + qualified(parent.name) + " AS p WHERE p." +
            quoteName(made.field) + " = c." + key + ")")) {
      throw Error(errors::relatedRowRequired, "The relation \"" + made.name +
                                                  "\" can not be made: some rows of \"" + made.foreignTable +
                                                  "\" have no row in \"" + made.table + "\".");
    }
    next.relations.push_back(made);
    rewriteTable(next, child);
    syncIndexes(next, child);
    writeRelation(connection_.handle(), schemaName_, made);
  });
}

void AttachedFile::setAllowZeroLength(std::string_view table, std::string_view column, bool allow) {
  change([&](CatalogData& next) {
    columnIn(next, table, column).allowZeroLength = allow;
    const schema::Table& owner = existingTable(table);
    runStatement(connection_.handle(),
                 "UPDATE " + qualified("vc$column") +
                     " SET \"zeroLength\" = ?1 WHERE \"tableName\" = ?2 AND \"position\" = ?3",
                 {allow ? 1 : 0, owner.name, owner.find(column)});
  });
}

void AttachedFile::setProperty(const PropertyRecord& property) {
  change([&](CatalogData& next) {
    PropertyRecord made = property;
    made.field = columnIn(next, property.table, property.field).name;
    made.table = existingTable(property.table).name;
    std::erase_if(next.properties, [&](const PropertyRecord& other) {
      return other.table == made.table && other.field == made.field && other.name == made.name;
    });
    next.properties.push_back(made);
    writeProperty(connection_.handle(), schemaName_, made);
  });
}

void AttachedFile::setPermission(const PermissionRecord& permission) {
  change([&](CatalogData& next) {
    std::erase_if(next.permissions, [&](const PermissionRecord& other) {
      return other.container == permission.container && other.document == permission.document &&
             other.user == permission.user;
    });
    next.permissions.push_back(permission);
    writePermission(connection_.handle(), schemaName_, permission);
  });
}

void AttachedFile::appendWatch(const WatchRecord& watch) {
  const schema::Table& table = existingTable(watch.table);
  if (!watch.order.empty() && table.find(watch.order) < 0)
    throw Error(errors::itemNotFound,
                "The table \"" + table.name + "\" has no field \"" + watch.order + "\".");
  const auto isIt = [&](const WatchRecord& other) {
    return other.table == table.name && other.condition == watch.condition &&
           base::equalsIgnoreCase(other.order, watch.order);
  };
  if (std::any_of(data_.watches.begin(), data_.watches.end(), isIt)) return;
  change([&](CatalogData& next) {
    WatchRecord made = watch;
    made.table = existingTable(watch.table).name;
    std::erase_if(next.watches, [&](const WatchRecord& other) {
      return other.table == made.table && other.condition == made.condition;
    });
    completeCatalog(connection_.handle(), schemaName_, next);
    next.watches.push_back(made);
    writeWatch(connection_.handle(), schemaName_, made);
    syncIndexes(next, existingTable(made.table));
  });
}

void AttachedFile::appendTextIndex(const TextIndexRecord& record) {
  const schema::Table& table = existingTable(record.table);
  if (table.counter() < 0)
    throw Error(errors::invalidArgument,
                "The table \"" + table.name + "\" has no counter to find its rows by.");
  TextIndexRecord made{table.name, {}, 0, {}};
  for (const std::string& name : record.columns) {
    const int position = table.find(name);
    if (position < 0)
      throw Error(errors::itemNotFound, "The table \"" + table.name + "\" has no field \"" + name + "\".");
    const schema::Column& column = table.columns[static_cast<std::size_t>(position)];
    if (column.type != ColumnType::text && column.type != ColumnType::memo)
      throw Error(errors::invalidArgument, "The field \"" + column.name + "\" holds no texts.");
    made.columns.push_back(column.name);
  }
  const auto isIt = [&](const TextIndexRecord& other) { return other.table == made.table; };
  const auto known = std::find_if(data_.texts.begin(), data_.texts.end(), isIt);
  if (known != data_.texts.end() && known->columns == made.columns) return;
  change([&](CatalogData& next) {
    forgetTextIndex(next, made.table, true);
    completeCatalog(connection_.handle(), schemaName_, next);
    next.texts.push_back(made);
    writeTextIndex(connection_.handle(), schemaName_, made);
  });
}

void AttachedFile::forgetTextIndex(CatalogData& next, const std::string& table, bool recordToo) {
  for (TextIndexRecord& record : next.texts) {
    if (record.table != table) continue;
    dropTextIndex(*this, record);
    if (recordToo)
      eraseTextIndex(connection_.handle(), schemaName_, table);
    else
      writeTextIndex(connection_.handle(), schemaName_, record);
  }
  if (recordToo) std::erase_if(next.texts, [&](const auto& record) { return record.table == table; });
}

void AttachedFile::setFileValue(const std::string& key, const std::string& value) {
  change([&](CatalogData& next) {
    writeFileValue(connection_.handle(), schemaName_, key, value);
    if (key == "compaction") next.compaction = value;
  });
}

}  // namespace engine::storage
