#include <algorithm>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"

/// INSERT, UPDATE, DELETE and SELECT INTO as a select of the rows they act on.
namespace engine::plan {
namespace {

const schema::Catalog& fileOf(const Binder& binder, const std::string& inFile) {
  return inFile.empty() ? *binder.context.file : binder.context.open(inFile);
}

const schema::Table& tableOf(const schema::Catalog& file, const std::string& name) {
  const schema::Table* table = file.table(name);
  if (table == nullptr) throw Error(errors::inputNotFound, "There is no table '" + name + "'");
  return *table;
}

int columnOf(const schema::Table& table, const std::string& name) {
  const int column = table.find(name);
  if (column < 0)
    throw Error(errors::unknownName, "The table '" + table.name + "' has no field '" + name + "'");
  return column;
}

void refuseTwice(const schema::Table& table, const std::vector<int>& targets) {
  std::vector<int> sorted = targets;
  std::sort(sorted.begin(), sorted.end());
  const auto twice = std::adjacent_find(sorted.begin(), sorted.end());
  if (twice != sorted.end())
    refuse("The field '" + table.columns[static_cast<std::size_t>(*twice)].name + "' is given twice");
}

/// A value of the right type for SQLite to hand on: a date is written as the column keeps it.
void coerceTo(const schema::Column& target, Bound& value) {
  if (target.type != ColumnType::date || isDate(value) || value.isNull || value.direct) return;
  value.text = coerced(value, ColumnType::date);
  value.type = ColumnType::date;
  value.condition = false;
}

Body bindValues(Binder& binder, const sql::Insert& insert) {
  Body body;
  Level level;
  level.file = level.own = body.file = binder.context.file;
  for (const sql::ExprPtr& expr : insert.values) {
    Column column;
    column.name = "Expr" + std::to_string(++binder.lastExpression);
    column.value = bindExpression(binder, level, *expr);
    body.outputs.push_back(std::move(column));
  }
  return body;
}

/// The columns that a list names, or that the selected columns name when there is no list.
std::vector<int> insertTargets(const sql::Insert& insert, const schema::Table& table, const Body& body) {
  std::vector<int> targets;
  for (const std::string& name : insert.columns) targets.push_back(columnOf(table, name));
  if (insert.columns.empty() && insert.select) {
    for (const Column& column : body.outputs) targets.push_back(columnOf(table, column.name));
  } else if (insert.columns.empty()) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) targets.push_back(static_cast<int>(i));
  }
  if (targets.size() != body.outputs.size()) refuse("There are not as many values as columns");
  refuseTwice(table, targets);
  return targets;
}

Action bindInsert(Binder& binder, const sql::Insert& insert) {
  Action action;
  action.kind = sql::StatementKind::insert;
  action.file = &fileOf(binder, insert.inFile);
  action.table = &tableOf(*action.file, insert.table);
  action.singleRow = !insert.select;
  Body body = insert.select ? bindSelect(binder, *insert.select, *binder.context.file, nullptr)
                            : bindValues(binder, insert);
  action.targets = insertTargets(insert, *action.table, body);
  for (std::size_t i = 0; i < action.targets.size(); ++i)
    coerceTo(action.table->columns[static_cast<std::size_t>(action.targets[i])], body.outputs[i].value);
  action.rows = finish(binder, std::move(body));
  return action;
}

/// The FROM clause of an UPDATE or DELETE as the chain of a body without outputs.
Body bindTarget(Binder& binder, Level& level, const sql::FromPtr& target, const std::string& inFile,
                const sql::ExprPtr& where) {
  level.file = &fileOf(binder, inFile);
  level.own = binder.context.file;
  Body body;
  body.file = level.file;
  std::vector<OrderTerm> ignored;
  body.chain = bindFrom(binder, level, {&target, 1}, ignored);
  if (where) bindTerms(binder, level, *where, body.chain.where);
  return body;
}

const Key& keyOf(const Body& body, int id) {
  for (const Member& member : body.chain.members)
    for (const Key& key : member.keys)
      if (key.id == id && member.keyed) return key;
  throw Error(errors::readOnly, "The rows of this selection can not be changed");
}

/// The row identity as the first output; the rows of other tables make no row of the target twice.
void actOn(Action& action, Body& body, const Key& key) {
  action.file = key.file;
  action.table = key.table;
  Column rowid;
  rowid.name = "rowid";
  rowid.value.text = key.rowid;
  rowid.value.type = ColumnType::longInteger;
  body.outputs.insert(body.outputs.begin(), std::move(rowid));
}

Action bindUpdate(Binder& binder, const sql::Update& update) {
  Action action;
  action.kind = sql::StatementKind::update;
  Level level;
  Body body = bindTarget(binder, level, update.target, update.inFile, update.where);
  int target = -1;
  for (const sql::Assignment& assignment : update.set) {
    const Column* column = findColumn(level.ranges, assignment.path, false);
    if (column == nullptr)
      throw Error(errors::unknownName, "There is no field '" + joinName(assignment.path) + "'");
    if (column->value.key < 0)
      throw Error(errors::readOnly, "The field '" + joinName(assignment.path) + "' is computed");
    if (target >= 0 && target != column->value.key) refuse("One UPDATE can change one table");
    target = column->value.key;
    action.targets.push_back(column->value.position);
    Column value;
    value.name = column->name;
    value.value = bindExpression(binder, level, *assignment.value);
    if (value.value.aggregate) refuse("An aggregate can not be assigned");
    body.outputs.push_back(std::move(value));
  }
  const Key key = keyOf(body, target);
  refuseTwice(*key.table, action.targets);
  for (std::size_t i = 0; i < action.targets.size(); ++i)
    coerceTo(key.table->columns[static_cast<std::size_t>(action.targets[i])], body.outputs[i].value);
  actOn(action, body, key);
  action.rows = finish(binder, std::move(body));
  return action;
}

/// The table that "DELETE t.* FROM ..." names, or the only one.
int deletedTable(const Level& level, const std::vector<std::string>& name) {
  int found = -1;
  for (const Range& range : level.ranges) {
    for (const Column& column : range.columns) {
      if (column.value.key < 0) continue;
      const bool named =
          name.empty() || sameName(range.name, name.back()) ||
          std::any_of(column.ancestors.begin(), column.ancestors.end(),
                      [&](const Ancestor& ancestor) { return sameName(ancestor.range, name.back()); });
      if (!named || column.value.key == found) continue;
      if (found >= 0) refuse("Specify the table whose rows are to be deleted");
      found = column.value.key;
    }
  }
  if (found < 0)
    throw Error(errors::inputNotFound, "There is no table '" + joinName(name) + "' to delete from");
  return found;
}

Action bindDelete(Binder& binder, const sql::Delete& remove) {
  Action action;
  action.kind = sql::StatementKind::remove;
  Level level;
  Body body = bindTarget(binder, level, remove.target, remove.inFile, remove.where);
  const Key key = keyOf(body, deletedTable(level, remove.ofTable));
  if (key.outer) body.chain.where.push_back({"(" + key.rowid + " IS NOT NULL)", {}, std::nullopt, false});
  actOn(action, body, key);
  action.rows = finish(binder, std::move(body));
  // Which rows go does not depend on an order.
  action.rows.orderBy.clear();
  action.rows.orderByBackwards.clear();
  return action;
}

Action bindMakeTable(Binder& binder, const sql::Select& select) {
  Action action;
  action.kind = sql::StatementKind::select;
  action.file = binder.context.file;
  action.newTable = select.into;
  Body body = bindSelect(binder, select, *binder.context.file, nullptr);
  action.rows = finish(binder, std::move(body));
  for (Output& column : action.rows.columns) {
    std::replace(column.name.begin(), column.name.end(), '.', '_');
    if (column.type == ColumnType::counter) column.type = ColumnType::longInteger;
  }
  return action;
}

}  // namespace

Action bindAction(const sql::Statement& statement, const Context& context) {
  Binder binder(context);
  declareParameters(binder, statement.parameters);
  switch (statement.kind) {
    case sql::StatementKind::insert:
      return bindInsert(binder, *statement.insert);
    case sql::StatementKind::update:
      return bindUpdate(binder, *statement.update);
    case sql::StatementKind::remove:
      return bindDelete(binder, *statement.remove);
    case sql::StatementKind::select:
      if (!statement.select->into.empty()) return bindMakeTable(binder, *statement.select);
      break;
    default:
      break;
  }
  refuse("The statement changes no rows");
}

}  // namespace engine::plan
