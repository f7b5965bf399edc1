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

std::string bindCriterion(const Plan& plan, const sql::Expr& expr, const Context& context) {
  Binder binder(context);
  binder.parametersAllowed = false;
  Level level;
  level.file = plan.scope->file;
  level.own = context.file;
  level.ranges.push_back({{}, plan.scope->columns});
  const Bound bound = bindExpression(binder, level, expr);
  if (bound.aggregate) refuse("An aggregate can not stand in a criterion");
  return condition(bound);
}

}  // namespace engine::plan
