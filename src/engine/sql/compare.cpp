#include <algorithm>

#include "engine/sql/printer.h"

namespace engine::sql {
namespace {

// The templates below find only what stands before them.
bool same(const Expr& a, const Expr& b);
bool same(const Select& a, const Select& b);
bool same(const From& a, const From& b);
bool same(const OutputItem& a, const OutputItem& b);
bool same(const OrderItem& a, const OrderItem& b);
bool same(const Select::Arm& a, const Select::Arm& b);
bool same(const ParameterDecl& a, const ParameterDecl& b);
bool same(const Insert& a, const Insert& b);
bool same(const Assignment& a, const Assignment& b);
bool same(const Update& a, const Update& b);
bool same(const Delete& a, const Delete& b);
bool same(const ColumnDecl& a, const ColumnDecl& b);
bool same(const CreateTable& a, const CreateTable& b);
bool same(const CreateIndex& a, const CreateIndex& b);
bool same(const DropTable& a, const DropTable& b);
bool same(const DropIndex& a, const DropIndex& b);
bool same(const AlterTable& a, const AlterTable& b);

template <class Node>
bool same(const std::unique_ptr<Node>& a, const std::unique_ptr<Node>& b) {
  return a && b ? same(*a, *b) : !a && !b;
}

template <class Item>
bool same(const std::vector<Item>& a, const std::vector<Item>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Item& x, const Item& y) { return same(x, y); });
}

bool same(const Expr& a, const Expr& b) {
  return a.kind == b.kind && a.value == b.value && a.path == b.path && a.op == b.op &&
         a.negated == b.negated && a.parenthesised == b.parenthesised && a.bracketed == b.bracketed &&
         same(a.args, b.args) && same(a.select, b.select);
}

bool same(const From& a, const From& b) {
  return a.kind == b.kind && a.table == b.table && a.alias == b.alias && a.join == b.join &&
         a.parenthesised == b.parenthesised && same(a.select, b.select) && same(a.left, b.left) &&
         same(a.right, b.right) && same(a.on, b.on);
}

bool same(const OutputItem& a, const OutputItem& b) {
  return a.kind == b.kind && a.path == b.path && a.alias == b.alias && same(a.expr, b.expr);
}

bool same(const OrderItem& a, const OrderItem& b) {
  return a.descending == b.descending && same(a.expr, b.expr);
}

bool same(const Select::Arm& a, const Select::Arm& b) {
  return a.all == b.all && same(a.select, b.select);
}

bool same(const Select& a, const Select& b) {
  return a.distinct == b.distinct && a.top == b.top && same(a.items, b.items) && a.into == b.into &&
         same(a.from, b.from) && a.inFile == b.inFile && same(a.where, b.where) &&
         same(a.groupBy, b.groupBy) && same(a.having, b.having) && same(a.unions, b.unions) &&
         same(a.orderBy, b.orderBy);
}

bool same(const ParameterDecl& a, const ParameterDecl& b) {
  return a.name == b.name && a.type == b.type;
}

bool same(const Insert& a, const Insert& b) {
  return a.table == b.table && a.inFile == b.inFile && a.columns == b.columns && same(a.values, b.values) &&
         same(a.select, b.select);
}

bool same(const Assignment& a, const Assignment& b) {
  return a.path == b.path && same(a.value, b.value);
}

bool same(const Update& a, const Update& b) {
  return same(a.target, b.target) && a.inFile == b.inFile && same(a.set, b.set) && same(a.where, b.where);
}

bool same(const Delete& a, const Delete& b) {
  return a.ofTable == b.ofTable && same(a.target, b.target) && a.inFile == b.inFile && same(a.where, b.where);
}

bool same(const ColumnDecl& a, const ColumnDecl& b) {
  return a.name == b.name && a.type == b.type && a.size == b.size && a.notNull == b.notNull &&
         a.primaryKey == b.primaryKey;
}

bool same(const CreateTable& a, const CreateTable& b) {
  return a.table == b.table && same(a.columns, b.columns);
}

bool same(const CreateIndex& a, const CreateIndex& b) {
  return a.index == b.index && a.table == b.table && a.columns == b.columns && a.unique == b.unique &&
         a.primary == b.primary;
}

bool same(const DropTable& a, const DropTable& b) {
  return a.table == b.table;
}
bool same(const DropIndex& a, const DropIndex& b) {
  return a.index == b.index && a.table == b.table;
}

bool same(const AlterTable& a, const AlterTable& b) {
  return a.action == b.action && a.table == b.table && same(a.column, b.column);
}

}  // namespace

bool same(const Statement& a, const Statement& b) {
  return a.kind == b.kind && same(a.parameters, b.parameters) && same(a.select, b.select) &&
         same(a.insert, b.insert) && same(a.update, b.update) && same(a.remove, b.remove) &&
         same(a.createTable, b.createTable) && same(a.createIndex, b.createIndex) &&
         same(a.dropTable, b.dropTable) && same(a.dropIndex, b.dropIndex) && same(a.alterTable, b.alterTable);
}

}  // namespace engine::sql
