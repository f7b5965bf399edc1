#include "engine/plan/binder.h"
#include "engine/plan/names.h"
#include "engine/plan/result.h"

namespace engine::plan {

Plan bind(const sql::Statement& statement, const Context& context) {
  if (statement.kind != sql::StatementKind::select) refuse("The statement gives no rows");
  Binder binder(context);
  declareParameters(binder, statement.parameters);
  return finish(binder, bindSelect(binder, *statement.select, *context.file, nullptr));
}

std::size_t fieldIndex(const Plan& plan, std::string_view name) {
  for (std::size_t i = 0; i < plan.columns.size(); ++i)
    if (sameName(plan.columns[i].name, name)) return i;
  const std::vector<Range> ranges{{{}, plan.scope->columns}};
  const Column* found = findColumn(ranges, splitName(name), true);
  if (found == nullptr) throw Error(errors::itemNotFound, "There is no field '" + std::string(name) + "'");
  return static_cast<std::size_t>(found - ranges[0].columns.data());
}

namespace {

std::string criterion(std::vector<Column> columns, const Plan& plan, const sql::Expr& expr,
                      const Context& context) {
  Binder binder(context);
  binder.parametersAllowed = false;
  Level level;
  level.file = plan.scope->file;
  level.own = context.file;
  level.ranges.push_back({{}, std::move(columns)});
  const Bound bound = bindExpression(binder, level, expr);
  if (bound.aggregate) refuse("An aggregate can not stand in a criterion");
  return condition(bound);
}

}  // namespace

std::string bindCriterion(const Plan& plan, const sql::Expr& expr, const Context& context) {
  return criterion(plan.scope->columns, plan, expr, context);
}

std::string bindCriterionOnCopy(const Plan& plan, const sql::Expr& expr, const Context& context) {
  std::vector<Column> columns = plan.scope->columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    Bound copied;
    copied.text = "q.c" + std::to_string(i);
    copied.type = columns[i].value.type;
    copied.collation = columns[i].value.collation;
    copied.direct = true;
    columns[i].value = std::move(copied);
  }
  return criterion(std::move(columns), plan, expr, context);
}

}  // namespace engine::plan
