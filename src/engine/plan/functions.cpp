#include <algorithm>

#include "base/text.h"
#include "engine/plan/binder.h"
#include "engine/plan/names.h"

/// The dialect's functions: what each takes and gives. All but a few are SQLite functions of the same name
/// behind "vc_".
namespace engine::plan {
namespace {

constexpr int many = 100;
enum class Takes { anything, text };

struct Function {
  std::string_view name;
  int least, most;
  ColumnType gives;
  Takes takes;
};

constexpr Function functions[] = {
    {"abs", 1, 1, ColumnType::real, Takes::anything},
    {"asc", 1, 1, ColumnType::longInteger, Takes::text},
    {"ascw", 1, 1, ColumnType::longInteger, Takes::text},
    {"cbool", 1, 1, ColumnType::bit, Takes::anything},
    {"cdate", 1, 1, ColumnType::date, Takes::anything},
    {"cdbl", 1, 1, ColumnType::real, Takes::anything},
    {"chr", 1, 1, ColumnType::text, Takes::anything},
    {"chrw", 1, 1, ColumnType::text, Takes::anything},
    {"cint", 1, 1, ColumnType::longInteger, Takes::anything},
    {"clng", 1, 1, ColumnType::longInteger, Takes::anything},
    {"cstr", 1, 1, ColumnType::text, Takes::text},
    {"date", 0, 0, ColumnType::date, Takes::anything},
    {"dateadd", 3, 3, ColumnType::date, Takes::anything},
    {"datediff", 3, 5, ColumnType::longInteger, Takes::anything},
    {"datepart", 2, 4, ColumnType::longInteger, Takes::anything},
    {"dateserial", 3, 3, ColumnType::date, Takes::anything},
    {"datevalue", 1, 1, ColumnType::date, Takes::anything},
    {"day", 1, 1, ColumnType::longInteger, Takes::anything},
    {"fix", 1, 1, ColumnType::real, Takes::anything},
    {"format", 1, 4, ColumnType::text, Takes::anything},
    {"hour", 1, 1, ColumnType::longInteger, Takes::anything},
    {"instr", 2, 4, ColumnType::longInteger, Takes::text},
    {"instrrev", 2, 4, ColumnType::longInteger, Takes::text},
    {"int", 1, 1, ColumnType::real, Takes::anything},
    {"isdate", 1, 1, ColumnType::bit, Takes::anything},
    {"isnumeric", 1, 1, ColumnType::bit, Takes::anything},
    {"lcase", 1, 1, ColumnType::text, Takes::text},
    {"left", 2, 2, ColumnType::text, Takes::text},
    {"len", 1, 1, ColumnType::longInteger, Takes::text},
    {"ltrim", 1, 1, ColumnType::text, Takes::text},
    {"mid", 2, 3, ColumnType::text, Takes::text},
    {"minute", 1, 1, ColumnType::longInteger, Takes::anything},
    {"month", 1, 1, ColumnType::longInteger, Takes::anything},
    {"now", 0, 0, ColumnType::date, Takes::anything},
    {"replace", 3, 6, ColumnType::text, Takes::text},
    {"right", 2, 2, ColumnType::text, Takes::text},
    {"round", 1, 2, ColumnType::real, Takes::anything},
    {"rtrim", 1, 1, ColumnType::text, Takes::text},
    {"second", 1, 1, ColumnType::longInteger, Takes::anything},
    {"sgn", 1, 1, ColumnType::longInteger, Takes::anything},
    {"space", 1, 1, ColumnType::text, Takes::anything},
    {"str", 1, 1, ColumnType::text, Takes::anything},
    {"strcomp", 2, 3, ColumnType::longInteger, Takes::text},
    {"string", 2, 2, ColumnType::text, Takes::anything},
    {"strreverse", 1, 1, ColumnType::text, Takes::text},
    {"time", 0, 0, ColumnType::date, Takes::anything},
    {"timeserial", 3, 3, ColumnType::date, Takes::anything},
    {"timevalue", 1, 1, ColumnType::date, Takes::anything},
    {"trim", 1, 1, ColumnType::text, Takes::text},
    {"ucase", 1, 1, ColumnType::text, Takes::text},
    {"val", 1, 1, ColumnType::real, Takes::text},
    {"weekday", 1, 2, ColumnType::longInteger, Takes::anything},
    {"year", 1, 1, ColumnType::longInteger, Takes::anything},
};

struct Aggregate {
  std::string_view name, emitted;
};
constexpr Aggregate aggregates[] = {
    {"count", "count"}, {"sum", "sum"},        {"avg", "avg"},      {"min", "min"},
    {"max", "max"},     {"first", "vc_first"}, {"last", "vc_last"},
};

std::vector<Bound> bindArguments(Binder& binder, const Level& level, const sql::Expr& expr, std::size_t least,
                                 std::size_t most) {
  if (expr.args.size() < least || expr.args.size() > most)
    refuse("Wrong number of arguments for '" + expr.path[0] + "'");
  std::vector<Bound> arguments;
  for (const sql::ExprPtr& argument : expr.args)
    arguments.push_back(bindExpression(binder, level, *argument));
  return arguments;
}

void gather(Bound& bound, const std::vector<Bound>& parts) {
  for (const Bound& part : parts) {
    join(bound.refs, part.refs);
    bound.aggregate = bound.aggregate || part.aggregate;
  }
}

/// What two alternatives have in common.
std::optional<ColumnType> common(const Bound& a, const Bound& b) {
  if (a.isNull) return b.type;
  if (b.isNull || (a.type && b.type && *a.type == *b.type)) return a.type;
  if (isText(a) && isText(b)) return ColumnType::memo;
  if (isNumber(a) && isNumber(b)) return ColumnType::real;
  return std::nullopt;
}

Bound bindIif(Binder& binder, const Level& level, const sql::Expr& expr) {
  const std::vector<Bound> parts = bindArguments(binder, level, expr, 3, 3);
  Bound bound;
  gather(bound, parts);
  bound.type = common(parts[1], parts[2]);
  bound.text =
      "(CASE WHEN " + condition(parts[0]) + " THEN " + value(parts[1]) + " ELSE " + value(parts[2]) + " END)";
  return bound;
}

Bound bindIsNull(Binder& binder, const Level& level, const sql::Expr& expr) {
  const std::vector<Bound> parts = bindArguments(binder, level, expr, 1, 1);
  Bound bound;
  gather(bound, parts);
  bound.type = ColumnType::bit;
  bound.condition = true;
  bound.text = "(" + parts[0].text + " IS NULL)";
  return bound;
}

Bound bindNz(Binder& binder, const Level& level, const sql::Expr& expr) {
  const std::vector<Bound> parts = bindArguments(binder, level, expr, 1, 2);
  Bound bound;
  gather(bound, parts);
  bound.type = parts.size() == 2 ? common(parts[0], parts[1]) : parts[0].type;
  bound.collation = parts[0].collation;
  bound.text = "ifnull(" + value(parts[0]) + ", " + (parts.size() == 2 ? value(parts[1]) : "''") + ")";
  return bound;
}

Bound bindChoose(Binder& binder, const Level& level, const sql::Expr& expr) {
  const std::vector<Bound> parts = bindArguments(binder, level, expr, 2, many);
  Bound bound;
  gather(bound, parts);
  bound.type = parts[1].type;
  bound.text = "vc_choose(";
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 1 && parts[i].type != bound.type) bound.type.reset();
    bound.text += (i > 0 ? ", " : "") + value(parts[i]);
  }
  bound.text += ")";
  return bound;
}

Bound bindAggregate(Binder& binder, const Level& level, const sql::Expr& expr, const Aggregate& aggregate) {
  Bound bound;
  if (expr.args.size() == 1 && expr.args[0]->kind == sql::ExprKind::star) {
    if (aggregate.name != "count") refuse("'*' can only stand in count(*)");
    bound.text = "count(*)";
    bound.type = ColumnType::longInteger;
  } else {
    const std::vector<Bound> parts = bindArguments(binder, level, expr, 1, 1);
    if (parts[0].aggregate) refuse("An aggregate can not stand within another");
    gather(bound, parts);
    const bool ordered = aggregate.name == "min" || aggregate.name == "max";
    bound.text =
        std::string(aggregate.emitted) + "(" + (ordered ? collated(level, parts[0]) : value(parts[0])) + ")";
    bound.type = parts[0].type;
    bound.collation = parts[0].collation;
    if (aggregate.name == "count") bound.type = ColumnType::longInteger;
    if (aggregate.name == "avg") bound.type = ColumnType::real;
    if (aggregate.name == "sum" && bound.type != ColumnType::real) bound.type = ColumnType::longInteger;
    if (bound.type == ColumnType::counter) bound.type = ColumnType::longInteger;
  }
  bound.aggregate = true;
  return bound;
}

}  // namespace

Bound bindCall(Binder& binder, const Level& level, const sql::Expr& expr) {
  std::string_view name = expr.path[0];
  if (name.ends_with('$')) name.remove_suffix(1);
  for (const Aggregate& aggregate : aggregates)
    if (sameName(aggregate.name, name)) return bindAggregate(binder, level, expr, aggregate);
  if (sameName(name, "iif")) return bindIif(binder, level, expr);
  if (sameName(name, "isnull")) return bindIsNull(binder, level, expr);
  if (sameName(name, "nz")) return bindNz(binder, level, expr);
  if (sameName(name, "choose")) return bindChoose(binder, level, expr);

  const auto* function = std::find_if(std::begin(functions), std::end(functions),
                                      [&](const Function& known) { return sameName(known.name, name); });
  if (function == std::end(functions)) refuse("Undefined function '" + expr.path[0] + "'");
  const std::vector<Bound> parts =
      bindArguments(binder, level, expr, static_cast<std::size_t>(function->least),
                    static_cast<std::size_t>(function->most));
  Bound bound;
  gather(bound, parts);
  bound.type = function->gives;
  bound.text = "vc_" + std::string(function->name) + "(";
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool dateAsText = function->takes == Takes::text && isDate(parts[i]);
    bound.text += (i > 0 ? ", " : "") + (dateAsText ? asText(parts[i]) : value(parts[i]));
  }
  bound.text += ")";
  return bound;
}

}  // namespace engine::plan
