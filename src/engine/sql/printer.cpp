#include "engine/sql/printer.h"

#include "engine/sql/print_pieces.h"
#include "engine/sql/type_names.h"

namespace engine::sql {
namespace {

void printNames(std::string& out, const std::vector<std::string>& names) {
  out += " (";
  printList(out, names, [&](const std::string& name) { printName(out, name); });
  out += ")";
}

void printInsert(std::string& out, const Insert& insert) {
  out += "INSERT INTO ";
  printName(out, insert.table);
  printFile(out, insert.inFile);
  if (!insert.columns.empty()) printNames(out, insert.columns);
  out += " ";
  if (insert.select) {
    printSelect(out, *insert.select);
    return;
  }
  out += "VALUES (";
  printList(out, insert.values, [&](const ExprPtr& value) { printExpr(out, *value); });
  out += ")";
}

void printUpdate(std::string& out, const Update& update) {
  out += "UPDATE ";
  printFrom(out, *update.target);
  printFile(out, update.inFile);
  out += " SET ";
  printList(out, update.set, [&](const Assignment& assignment) {
    printPath(out, assignment.path, true);
    out += " = ";
    printExpr(out, *assignment.value);
  });
  printWhere(out, update.where);
}

void printDelete(std::string& out, const Delete& remove) {
  out += "DELETE ";
  if (!remove.ofTable.empty()) {
    printPath(out, remove.ofTable, true);
    out += ".";
  }
  out += "* FROM ";
  printFrom(out, *remove.target);
  printFile(out, remove.inFile);
  printWhere(out, remove.where);
}

void printColumn(std::string& out, const ColumnDecl& column) {
  out += "[" + column.name + "] ";
  out += typeName(column.type);
  if (column.type == ColumnType::text) out += "(" + std::to_string(column.size) + ")";
  if (column.notNull) out += " NOT NULL";
  if (column.primaryKey) out += " PRIMARY KEY";
}

void printCreateTable(std::string& out, const CreateTable& create) {
  out += "CREATE TABLE ";
  printName(out, create.table);
  out += " (";
  printList(out, create.columns, [&](const ColumnDecl& column) { printColumn(out, column); });
  out += ")";
}

void printCreateIndex(std::string& out, const CreateIndex& create) {
  out += create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
  printName(out, create.index);
  out += " ON ";
  printName(out, create.table);
  printNames(out, create.columns);
  if (create.primary) out += " WITH PRIMARY";
}

void printAlterTable(std::string& out, const AlterTable& alter) {
  out += "ALTER TABLE ";
  printName(out, alter.table);
  switch (alter.action) {
    case AlterTable::Action::addColumn:
      out += " ADD COLUMN ";
      break;
    case AlterTable::Action::alterColumn:
      out += " ALTER COLUMN ";
      break;
    case AlterTable::Action::dropColumn:
      out += " DROP COLUMN [" + alter.column.name + "]";
      return;
  }
  printColumn(out, alter.column);
}

void printParameters(std::string& out, const std::vector<ParameterDecl>& parameters) {
  if (parameters.empty()) return;
  out += "PARAMETERS ";
  printList(out, parameters, [&](const ParameterDecl& declared) {
    printName(out, declared.name);
    out += " " + declared.type;
  });
  out += "; ";
}

}  // namespace

std::string print(const Statement& statement) {
  std::string out;
  printParameters(out, statement.parameters);
  switch (statement.kind) {
    case StatementKind::select:
      printSelect(out, *statement.select);
      break;
    case StatementKind::insert:
      printInsert(out, *statement.insert);
      break;
    case StatementKind::update:
      printUpdate(out, *statement.update);
      break;
    case StatementKind::remove:
      printDelete(out, *statement.remove);
      break;
    case StatementKind::createTable:
      printCreateTable(out, *statement.createTable);
      break;
    case StatementKind::createIndex:
      printCreateIndex(out, *statement.createIndex);
      break;
    case StatementKind::dropTable:
      out += "DROP TABLE ";
      printName(out, statement.dropTable->table);
      break;
    case StatementKind::dropIndex:
      out += "DROP INDEX ";
      printName(out, statement.dropIndex->index);
      out += " ON ";
      printName(out, statement.dropIndex->table);
      break;
    case StatementKind::alterTable:
      printAlterTable(out, *statement.alterTable);
      break;
  }
  return out;
}

std::string print(const Select& select) {
  std::string out;
  printSelect(out, select);
  return out;
}

std::string print(const Expr& expression) {
  std::string out;
  printExpr(out, expression);
  return out;
}

}  // namespace engine::sql
