#include <algorithm>
#include <iterator>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"

namespace engine::plan {
namespace {

constexpr std::size_t mostColumns = 2000;  // as SQLite

void addAll(const std::vector<Range>& ranges, std::vector<Column>& outputs) {
  for (const Range& range : ranges) outputs.insert(outputs.end(), range.columns.begin(), range.columns.end());
}

/// "name.*": the columns of the item called so, else those that descend from a table or query of the name.
void addAllOf(const std::vector<Range>& ranges, const std::vector<std::string>& path,
              std::vector<Column>& outputs) {
  const std::size_t before = outputs.size();
  for (const Range& range : ranges)
    if (path.size() == 1 && sameName(range.name, path[0]))
      outputs.insert(outputs.end(), range.columns.begin(), range.columns.end());
  if (outputs.size() > before) return;
  for (const Range& range : ranges) {
    for (const Column& column : range.columns) {
      std::vector<std::string> whole = path;
      whole.emplace_back();
      const bool descends =
          std::any_of(column.ancestors.begin(), column.ancestors.end(), [&](const Ancestor& ancestor) {
            whole.back() = ancestor.name;
            return sameName(ancestor.range, path.back()) &&
                   findColumn({Range{range.name, {column}}}, whole, true);
          });
      if (descends) outputs.push_back(column);
    }
  }
  if (outputs.size() == before)
    throw Error(errors::inputNotFound, "There is no table or query '" + joinName(path) + "'");
}

/// A name that was written with its table keeps that for where the short one repeats.
void addExpression(Binder& binder, const Level& level, const sql::OutputItem& item,
                   std::vector<Column>& outputs) {
  const sql::Expr& expr = *item.expr;
  Column column;
  const Column* named =
      expr.kind == sql::ExprKind::name ? findColumn(level.ranges, expr.path, false) : nullptr;
  if (named != nullptr) {
    column = *named;
    spend(binder, column.value.text.size());
  } else {
    column.value = bindExpression(binder, level, expr);
    if (column.value.type == ColumnType::text && column.value.constant) column.size = 255;
    if (item.alias.empty())
      column.name = expr.kind == sql::ExprKind::name ? expr.path.back()
                                                     : "Expr" + std::to_string(++binder.lastExpression);
  }
  if (!item.alias.empty()) {
    column.name = item.alias;
    column.written.clear();
  }
  outputs.push_back(std::move(column));
}

/// Gives outputs that share a short name the name with their table.
void nameApart(std::vector<Column>& outputs) {
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    bool repeated = false;
    for (std::size_t other = 0; other < outputs.size() && !repeated; ++other)
      repeated = other != i && sameName(outputs[i].name, outputs[other].name);
    if (!repeated) {
      outputs[i].written.clear();
    } else if (outputs[i].written.empty() && !outputs[i].ancestors.empty()) {
      outputs[i].written = outputs[i].ancestors.front().range + "." + outputs[i].name;
    }
  }
}

void bindOutputs(Binder& binder, Level& level, const sql::Select& select, Body& body) {
  std::vector<std::size_t> named;
  for (const sql::OutputItem& item : select.items) {
    switch (item.kind) {
      case sql::OutputItem::Kind::all:
        if (level.ranges.empty()) refuse("'*' needs a FROM");
        addAll(level.ranges, body.outputs);
        break;
      case sql::OutputItem::Kind::allOf:
        addAllOf(level.ranges, item.path, body.outputs);
        break;
      case sql::OutputItem::Kind::expression:
        if (!item.alias.empty()) named.push_back(body.outputs.size());
        addExpression(binder, level, item, body.outputs);
        break;
    }
    if (body.outputs.size() > mostColumns) refuse("The selection has too many columns");
  }
  for (std::size_t output : named) level.aliases.push_back(&body.outputs[output]);
}

void bindGroups(Binder& binder, const Level& level, const sql::Select& select, Body& body) {
  for (const sql::ExprPtr& expr : select.groupBy) {
    Bound bound = bindExpression(binder, level, *expr);
    if (bound.aggregate) refuse("An aggregate can not stand in GROUP BY");
    bound.text = collated(level, bound);
    body.groupBy.push_back(std::move(bound));
  }
  if (select.having) {
    const Bound having = bindExpression(binder, level, *select.having);
    body.having = condition(having);
    body.aggregated = body.aggregated || having.aggregate;
  }
  body.aggregated = body.aggregated || !body.groupBy.empty() ||
                    std::any_of(body.outputs.begin(), body.outputs.end(),
                                [](const Column& column) { return column.value.aggregate; });
}

Body bindArm(Binder& binder, const sql::Select& select, const schema::Catalog& file, const Level* outer,
             Level& level) {
  level.outer = outer;
  level.own = &file;
  level.file = select.inFile.empty() ? &file : &binder.context.open(select.inFile);
  Body body;
  body.file = level.file;
  std::vector<OrderTerm> inherited;
  body.chain = bindFrom(binder, level, select.from, inherited);
  bindOutputs(binder, level, select, body);
  if (select.where) bindTerms(binder, level, *select.where, body.chain.where);
  bindGroups(binder, level, select, body);
  body.distinct = body.valuesAsked = select.distinct == sql::Distinct::values;
  if (select.distinct == sql::Distinct::rows && !body.aggregated) dropRepeats(binder, body);
  if (!body.distinct && !body.aggregated) body.order = std::move(inherited);
  return body;
}

/// Texts compare under their collation also behind DISTINCT, which SQLite takes from the output.
void collateOutputs(const Level& level, Body& body) {
  for (Column& column : body.outputs) {
    if (column.value.collation.empty() && !column.value.condition &&
        (isText(column.value) || !column.value.type))
      column.value.collation = level.file->collation();
  }
}

/// What one more arm of a union does to a column: the first arm names it, all of them are its ancestors.
void unite(Column& column, const Column& further) {
  std::optional<ColumnType>& type = column.value.type;
  if (column.value.isNull) {
    type = further.value.type;
    column.value.isNull = further.value.isNull;
  } else if (type != further.value.type && !further.value.isNull) {
    if (isText(column.value) && isText(further.value))
      type = ColumnType::memo;
    else if (isNumber(column.value) && isNumber(further.value))
      type = type == ColumnType::real || further.value.type == ColumnType::real ? ColumnType::real
                                                                                : ColumnType::longInteger;
    else
      type.reset();
  }
  column.size = std::max(column.size, further.size);
  column.ancestors.insert(column.ancestors.end(), further.ancestors.begin(), further.ancestors.end());
}

/// One select without its order, in a level that outlives it for the sake of ORDER BY.
Body finishedArm(Binder& binder, const sql::Select& select, const schema::Catalog& file, const Level* outer,
                 Level& level) {
  Body body = bindArm(binder, select, file, outer, level);
  body.top = select.top;
  if (body.distinct && rowsDiffer(body)) body.distinct = false;
  collateOutputs(level, body);
  nameApart(body.outputs);
  return body;
}

/// Whether the arm is one table with a unique key among its outputs.
bool isTellingTable(const Body& body) {
  const Chain& chain = body.chain;
  return chain.members.size() == 1 && chain.members[0].keyed && chain.members[0].keys.size() == 1 &&
         chain.members[0].keys[0].id == chain.members[0].id && body.plain() && !body.valuesAsked &&
         rowsDiffer(body);
}

/// Whether no two arms can give equal rows: each is a table, and a column of theirs holds one text in all
/// rows of each table, another one in each.
bool armsDiffer(const Binder& binder, const std::vector<Body>& arms) {
  if (!binder.context.apart || !std::ranges::all_of(arms, isTellingTable)) return false;
  for (std::size_t column = 0; column < arms[0].outputs.size(); ++column) {
    std::vector<TableColumn> columns;
    for (const Body& arm : arms) {
      const Bound& value = arm.outputs[column].value;
      const Key& key = arm.chain.members[0].keys[0];
      if (value.key == key.id && isText(value)) columns.push_back({key.file, key.table, value.position});
    }
    if (columns.size() == arms.size() &&
        binder.context.apart(columns, arms[0].outputs[column].value.collation))
      return true;
  }
  return false;
}

Arm tellingArm(const Body& body, bool first) {
  Arm arm;
  arm.key = body.chain.members[0].keys[0];
  arm.texts.rowid = arm.key.rowid;
  arm.texts.tails = {bodyTail(body)};
  arm.alternatives = alternativeTails(body, arm.alternativesColumn);
  for (const Column& column : body.outputs) {
    arm.positions.push_back(column.value.key == arm.key.id ? column.value.position : -1);
    std::string text = value(column.value);
    if (first && !column.value.collation.empty())
      text += " COLLATE " + schema::quoteName(column.value.collation);
    arm.texts.columns.push_back(std::move(text));
  }
  return arm;
}

/// The rowids of all arms, Null but for the arm's own.
std::string armKeys(const std::vector<Body>& arms, std::size_t own) {
  std::string text;
  for (std::size_t n = 0; n < arms.size(); ++n)
    text += ", " + (n == own ? arms[n].chain.members[0].keys[0].rowid : std::string("NULL")) + " AS k" +
            std::to_string(n);
  return text;
}

Body bindUnion(Binder& binder, const sql::Select& select, const schema::Catalog& file, const Level* outer) {
  const bool allRows = std::all_of(select.unions.begin(), select.unions.end(),
                                   [](const sql::Select::Arm& arm) { return arm.all; });
  const bool noneAll = std::none_of(select.unions.begin(), select.unions.end(),
                                    [](const sql::Select::Arm& arm) { return arm.all; });
  Body united;
  std::vector<Body> arms;
  const auto add = [&](const sql::Select& arm) {
    Level level;
    Body body = finishedArm(binder, arm, file, outer, level);
    join(united.escaped, level.escaped);
    if (!allRows) body.distinct = false;
    if (body.top) nest(binder, body);
    if (!arms.empty() && body.outputs.size() != arms[0].outputs.size())
      refuse("The selects of a UNION have to give the same number of columns");
    arms.push_back(std::move(body));
  };
  add(select);
  for (const sql::Select::Arm& arm : select.unions) add(*arm.select);

  const bool apart = noneAll && outer == nullptr && armsDiffer(binder, arms);
  std::string text;
  for (std::size_t n = 0; n < arms.size(); ++n) {
    const bool all = apart || (n > 0 && select.unions[n - 1].all);
    if (n > 0) text += all ? " UNION ALL " : " UNION ";
    text += bodyText(arms[n], n == 0, ", 1 AS here" + (apart ? armKeys(arms, n) : ""));
    if (apart) united.arms.push_back(tellingArm(arms[n], n == 0));
  }
  united.file = arms[0].file;
  united.outputs = std::move(arms[0].outputs);
  for (std::size_t n = 1; n < arms.size(); ++n)
    for (std::size_t i = 0; i < united.outputs.size(); ++i) unite(united.outputs[i], arms[n].outputs[i]);
  nestText(binder, united, text);
  return united;
}

}  // namespace

Body bindSelect(Binder& binder, const sql::Select& select, const schema::Catalog& file, const Level* outer) {
  Level level;
  Body body;
  if (select.unions.empty()) {
    body = finishedArm(binder, select, file, outer, level);
  } else {
    body = bindUnion(binder, select, file, outer);
    level.outer = outer;
    level.file = body.file;
    level.own = &file;
    level.ranges.push_back(Range{{}, body.outputs});
  }
  if (!select.orderBy.empty()) bindOrder(binder, level, select, body);
  join(body.escaped, level.escaped);
  return body;
}

}  // namespace engine::plan
