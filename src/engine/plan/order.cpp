#include <algorithm>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"

namespace engine::plan {
namespace {

std::string ordered(const Bound& bound) {
  if (bound.collation.empty()) return value(bound);
  return value(bound) + " COLLATE " + schema::quoteName(bound.collation);
}

/// A position, a named result, or an expression over the columns of the FROM clause.
Bound bindOrderTerm(Binder& binder, const Level& level, const sql::Expr& expr, const Body& body) {
  if (expr.kind == sql::ExprKind::literal && expr.value.kind() == Value::Kind::integer) {
    const std::int64_t position = expr.value.asInteger();
    if (position < 1 || position > static_cast<std::int64_t>(body.outputs.size()))
      refuse("ORDER BY " + std::to_string(position) + ": there is no such column");
    return body.outputs[static_cast<std::size_t>(position - 1)].value;
  }
  if (expr.kind == sql::ExprKind::name && expr.path.size() == 1) {
    for (const Column* named : level.aliases)
      if (sameName(named->name, expr.path[0])) return named->value;
  }
  return bindExpression(binder, level, expr);
}

/// The first table's primary key; its row identity where that is the key or where there is none.
std::vector<std::string> keyColumns(const Key& key) {
  const schema::Index* primary = key.table->primaryKey();
  const bool counter = primary != nullptr && primary->columns.size() == 1 &&
                       key.table->find(primary->columns[0]) == key.table->counter();
  if (primary == nullptr || counter) return {key.rowid};
  const std::string alias = key.rowid.substr(0, key.rowid.find('.'));
  std::vector<std::string> columns;
  for (const std::string& name : primary->columns) {
    const int position = key.table->find(name);
    if (position < 0) return {key.rowid};
    const schema::Column& column = key.table->columns[static_cast<std::size_t>(position)];
    std::string text = alias + "." + schema::quoteName(column.name);
    if (column.type == ColumnType::text || column.type == ColumnType::memo)
      text += " COLLATE " + schema::quoteName(key.file->collation());
    columns.push_back(std::move(text));
  }
  return columns;
}

}  // namespace

void bindOrder(Binder& binder, const Level& level, const sql::Select& select, Body& body) {
  body.order.clear();
  for (const sql::OrderItem& item : select.orderBy) {
    OrderTerm term;
    term.value = bindOrderTerm(binder, level, *item.expr, body);
    if (term.value.collation.empty() && (isText(term.value) || !term.value.type))
      term.value.collation = level.file->collation();
    term.descending = item.descending;
    body.order.push_back(std::move(term));
  }
}

std::string orderText(const Body& body, bool backwards) {
  std::string text;
  const auto add = [&](const std::string& term, bool descending) {
    if (!text.empty()) text += ", ";
    text += term;
    if (descending != backwards) text += " DESC";
  };
  for (const OrderTerm& term : body.order) add(ordered(term.value), term.descending);
  if (body.aggregated || body.chain.members.empty()) return text;

  // Rows that tie stand in an order that the next run repeats and that turns round with the rest. It goes
  // the way of the first term, as an index does.
  const bool descending = !body.order.empty() && body.order.front().descending;
  const std::vector<Key>& first = body.chain.members.front().keys;
  const bool alone = body.chain.members.size() == 1;
  if (body.order.empty() && !first.empty() && first.front().rowid.starts_with("t"))
    for (const std::string& column : keyColumns(first.front())) add(column, false);
  if (!body.keyed()) return text;
  std::vector<std::string> ties = body.repeats;
  if (ties.empty())
    for (const Member& member : body.chain.members)
      for (const Key& key : member.keys) ties.push_back(key.rowid);
  for (const std::string& tie : ties)
    if (!alone || tie != text) add(tie, descending);
  return text;
}

}  // namespace engine::plan
