#include "engine/execute.h"

namespace engine {

namespace {

schema::Column columnOf(const sql::ColumnDecl& declared) {
  return {declared.name, declared.type, declared.type == ColumnType::text ? declared.size : 0,
          declared.notNull, false};
}

void createTable(storage::AttachedFile& file, const sql::CreateTable& statement) {
  schema::Table table{statement.table, {}, {}};
  schema::Index key{"PrimaryKey", {}, true, true};
  for (const sql::ColumnDecl& declared : statement.columns) {
    table.columns.push_back(columnOf(declared));
    if (declared.primaryKey) key.columns.push_back(declared.name);
  }
  if (!key.columns.empty()) table.indexes.push_back(key);
  file.createTable(table);
}

void alterTable(storage::AttachedFile& file, const sql::AlterTable& statement) {
  switch (statement.action) {
    case sql::AlterTable::Action::addColumn:
      return file.addColumn(statement.table, columnOf(statement.column));
    case sql::AlterTable::Action::alterColumn:
      return file.alterColumn(statement.table, columnOf(statement.column));
    case sql::AlterTable::Action::dropColumn:
      return file.dropColumn(statement.table, statement.column.name);
  }
}

}  // namespace

void define(DatabaseImpl& database, const sql::Statement& statement) {
  storage::AttachedFile& file = *database.file;
  switch (statement.kind) {
    case sql::StatementKind::createTable:
      return createTable(file, *statement.createTable);
    case sql::StatementKind::createIndex: {
      const sql::CreateIndex& index = *statement.createIndex;
      return file.createIndex(index.table,
                              {index.index, index.columns, index.primary, index.unique || index.primary});
    }
    case sql::StatementKind::dropTable:
      return file.dropTable(statement.dropTable->table);
    case sql::StatementKind::dropIndex:
      return file.dropIndex(statement.dropIndex->table, statement.dropIndex->index);
    case sql::StatementKind::alterTable:
      return alterTable(file, *statement.alterTable);
    default:
      throw Error(errors::syntax, "The statement defines nothing.");
  }
}

}  // namespace engine
