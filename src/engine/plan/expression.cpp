#include <algorithm>
#include <utility>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"

namespace engine::plan {
namespace {

Bound bindLiteral(const Value& constant) {
  Bound bound;
  bound.text = literal(constant);
  bound.constant = constant;
  switch (constant.kind()) {
    case Value::Kind::null:
      bound.isNull = true;
      break;
    case Value::Kind::boolean:
      bound.type = ColumnType::bit;
      break;
    case Value::Kind::integer:
      bound.type = ColumnType::longInteger;
      break;
    case Value::Kind::real:
      bound.type = ColumnType::real;
      break;
    case Value::Kind::date:
      bound.type = ColumnType::date;
      break;
    case Value::Kind::text:
      bound.type = ColumnType::text;
      break;
  }
  return bound;
}

/// A new expression over `parts`, without the properties that belong to a single column.
Bound made(std::string text, std::optional<ColumnType> type, std::initializer_list<const Bound*> parts) {
  Bound bound;
  bound.text = std::move(text);
  bound.type = type;
  for (const Bound* part : parts) {
    join(bound.refs, part->refs);
    bound.aggregate = bound.aggregate || part->aggregate;
  }
  return bound;
}

Bound truth(std::string text, std::initializer_list<const Bound*> parts) {
  Bound bound = made(std::move(text), ColumnType::bit, parts);
  bound.condition = true;
  return bound;
}

bool whole(const Bound& bound) {
  return bound.type && (*bound.type == ColumnType::counter || *bound.type == ColumnType::longInteger ||
                        *bound.type == ColumnType::shortInteger || *bound.type == ColumnType::bit);
}

Bound call(const char* function, const Bound& a, const Bound& b, std::optional<ColumnType> type) {
  return made(std::string(function) + "(" + value(a) + ", " + value(b) + ")", type, {&a, &b});
}

/// A text that stands where a number is needed; names whose type is unknown are left to SQLite.
std::string numeric(const Bound& bound) {
  return isText(bound) ? coerced(bound, ColumnType::real) : value(bound);
}

Bound plus(const Bound& a, const Bound& b) {
  if (isNumber(a) && isNumber(b)) {
    const auto type = whole(a) && whole(b) ? ColumnType::longInteger : ColumnType::real;
    return made("(" + value(a) + " + " + value(b) + ")", type, {&a, &b});
  }
  if (isText(a) && isText(b)) return made("(" + a.text + " || " + b.text + ")", ColumnType::text, {&a, &b});
  std::optional<ColumnType> type;
  if (isDate(a) != isDate(b) && (isNumber(a) || isNumber(b))) type = ColumnType::date;
  return call("vc_plus", a, b, type);
}

Bound minus(const Bound& a, const Bound& b) {
  if (isNumber(a) && isNumber(b)) {
    const auto type = whole(a) && whole(b) ? ColumnType::longInteger : ColumnType::real;
    return made("(" + value(a) + " - " + value(b) + ")", type, {&a, &b});
  }
  std::optional<ColumnType> type;
  if (isDate(a)) {
    if (isNumber(b)) type = ColumnType::date;
    if (isDate(b)) type = ColumnType::real;
  }
  return call("vc_minus", a, b, type);
}

Bound arithmetic(const std::string& op, const Bound& a, const Bound& b) {
  if (op == "+") return plus(a, b);
  if (op == "-") return minus(a, b);
  if (op == "*") {
    const auto type = whole(a) && whole(b) ? ColumnType::longInteger : ColumnType::real;
    return made("(" + numeric(a) + " * " + numeric(b) + ")", type, {&a, &b});
  }
  if (op == "/") return call("vc_div", a, b, ColumnType::real);
  if (op == "\\") return call("vc_idiv", a, b, ColumnType::longInteger);
  if (op == "MOD") return call("vc_mod", a, b, ColumnType::longInteger);
  return call("vc_pow", a, b, ColumnType::real);
}

std::string orEmpty(const Bound& bound) {
  return bound.constant ? bound.text : "ifnull(" + bound.text + ", '')";
}

Bound concatenation(const Bound& a, const Bound& b) {
  if (isText(a) && isText(b))
    return made("(" + orEmpty(a) + " || " + orEmpty(b) + ")", ColumnType::text, {&a, &b});
  const auto part = [](const Bound& bound) { return isDate(bound) ? asText(bound) : value(bound); };
  return made("vc_concat(" + part(a) + ", " + part(b) + ")", ColumnType::text, {&a, &b});
}

Bound logical(const std::string& op, const Bound& a, const Bound& b) {
  const std::string left = condition(a), right = condition(b);
  if (op == "XOR") return truth("(" + left + " <> " + right + ")", {&a, &b});
  if (op == "EQV") return truth("(" + left + " = " + right + ")", {&a, &b});
  if (op == "IMP") return truth("((NOT " + left + ") OR " + right + ")", {&a, &b});
  Bound bound = truth("(" + left + " " + op + " " + right + ")", {&a, &b});
  constexpr std::size_t mostTogether = 50;  // SQLite unites 500 selects, of which each of these has a few
  if (op == "OR" && a.candidates && b.candidates && a.candidates->key == b.candidates->key &&
      a.candidates->selects.size() + b.candidates->selects.size() <= mostTogether) {
    // Together, or SQLite would gather the rows of each side twice.
    Candidates either = *a.candidates;
    for (const std::string& select : b.candidates->selects)
      if (std::find(either.selects.begin(), either.selects.end(), select) == either.selects.end())
        either.selects.push_back(select);
    either.condition = "(" + either.condition + " OR " + b.candidates->condition + ")";
    if (either.asked || b.candidates->asked)
      narrow(bound, std::move(either));
    else
      bound.candidates = std::make_shared<const Candidates>(std::move(either));
  }
  if (op == "OR") noteEither(a, b, bound);
  if (op == "AND") noteBoth(a, b, bound);
  return bound;
}

bool isLogical(const std::string& op) {
  return op == "AND" || op == "OR" || op == "XOR" || op == "EQV" || op == "IMP";
}

bool isComparison(const std::string& op) {
  return op == "=" || op == "<>" || op == "<" || op == "<=" || op == ">" || op == ">=";
}

Bound bindBinary(Binder& binder, const Level& level, const sql::Expr& expr, bool nullIsFalse) {
  const bool still = nullIsFalse && (expr.op == "AND" || expr.op == "OR");
  binder.nullIsFalse = still;
  const Bound a = bindExpression(binder, level, *expr.args[0]);
  binder.nullIsFalse = still;
  const Bound b = bindExpression(binder, level, *expr.args[1]);
  if (isLogical(expr.op)) return logical(expr.op, a, b);
  if (isComparison(expr.op)) {
    Bound bound = compare(level, a, expr.op, b);
    if (nullIsFalse) noteKept(binder, a, b, bound);
    return bound;
  }
  if (expr.op == "&") return concatenation(a, b);
  return arithmetic(expr.op, a, b);
}

Bound negative(const Bound& operand) {
  if (operand.constant && operand.constant->kind() == Value::Kind::integer)
    return bindLiteral(Value(-operand.constant->asInteger()));
  if (operand.constant && operand.constant->kind() == Value::Kind::real)
    return bindLiteral(Value(-operand.constant->asReal()));
  return made("(-" + numeric(operand) + ")", whole(operand) ? ColumnType::longInteger : ColumnType::real,
              {&operand});
}

Bound bindUnary(Binder& binder, const Level& level, const sql::Expr& expr) {
  const Bound operand = bindExpression(binder, level, *expr.args[0]);
  if (expr.op == "NOT") return truth("(NOT " + condition(operand) + ")", {&operand});
  if (expr.op == "-") return negative(operand);
  return operand;
}

Bound bindBetween(Binder& binder, const Level& level, const sql::Expr& expr) {
  const Bound middle = bindExpression(binder, level, *expr.args[0]);
  const Bound low = compare(level, middle, ">=", bindExpression(binder, level, *expr.args[1]));
  const Bound high = compare(level, middle, "<=", bindExpression(binder, level, *expr.args[2]));
  const std::string text = "(" + low.text + " AND " + high.text + ")";
  return truth(expr.negated ? "(NOT " + text + ")" : text, {&low, &high});
}

Bound bindExists(Binder& binder, const Level& level, const sql::Expr& expr) {
  Body body = bindSelect(binder, *expr.select, *level.own, &level);
  if (body.top) nest(binder, body);
  body.distinct = false;
  body.repeats.clear();
  Bound bound = truth("(EXISTS (" + bodyText(body) + "))", {});
  bound.refs = body.escaped;
  return bound;
}

Bound bindScalar(Binder& binder, const Level& level, const sql::Expr& expr) {
  Body body = bindSelect(binder, *expr.select, *level.own, &level);
  if (body.outputs.size() != 1) refuse("A subquery that stands for a value has to give one column");
  const Column& column = body.outputs[0];
  Bound bound;
  bound.type = column.value.type;
  bound.collation = column.value.collation;
  bound.refs = body.escaped;
  const std::string order = body.order.empty() ? std::string() : " ORDER BY " + orderText(body);
  if (!body.top) body.top = 1;
  const std::string limit = " LIMIT " + std::to_string(std::min<std::int64_t>(*body.top, 1));
  body.top.reset();
  bound.text = "(" + bodyText(body) + order + limit + ")";
  return bound;
}

Bound bindNode(Binder& binder, const Level& level, const sql::Expr& expr, bool nullIsFalse) {
  switch (expr.kind) {
    case sql::ExprKind::literal:
      return bindLiteral(expr.value);
    case sql::ExprKind::name:
      return bindName(binder, level, expr);
    case sql::ExprKind::star:
      refuse("'*' can not stand here");
    case sql::ExprKind::unary:
      return bindUnary(binder, level, expr);
    case sql::ExprKind::binary:
      return bindBinary(binder, level, expr, nullIsFalse);
    case sql::ExprKind::like:
      return bindLike(binder, level, expr, nullIsFalse);
    case sql::ExprKind::between:
      return bindBetween(binder, level, expr);
    case sql::ExprKind::in:
      return bindIn(binder, level, expr, nullIsFalse);
    case sql::ExprKind::isNull: {
      const Bound operand = bindExpression(binder, level, *expr.args[0]);
      return truth("(" + operand.text + (expr.negated ? " IS NOT NULL)" : " IS NULL)"), {&operand});
    }
    case sql::ExprKind::exists:
      return bindExists(binder, level, expr);
    case sql::ExprKind::subquery:
      return bindScalar(binder, level, expr);
    case sql::ExprKind::call:
      return bindCall(binder, level, expr);
  }
  refuse("An expression that can not be meant");
}

}  // namespace

Bound bindExpression(Binder& binder, const Level& level, const sql::Expr& expr) {
  const bool nullIsFalse = std::exchange(binder.nullIsFalse, false);
  Bound bound = bindNode(binder, level, expr, nullIsFalse);
  spend(binder, bound.text.size());
  return bound;
}

std::string condition(const Bound& bound) {
  if (bound.condition) return bound.text;
  return "(" + numeric(bound) + " <> 0)";
}

std::string value(const Bound& bound) {
  return bound.condition ? "(-" + bound.text + ")" : bound.text;
}

bool isText(const Bound& bound) {
  return bound.type && (*bound.type == ColumnType::text || *bound.type == ColumnType::memo);
}

bool isDate(const Bound& bound) {
  return bound.type && *bound.type == ColumnType::date;
}

bool isNumber(const Bound& bound) {
  return bound.type && !isText(bound) && !isDate(bound);
}

void join(Refs& into, const Refs& refs) {
  into.insert(refs.begin(), refs.end());
}

std::string conjunction(const std::vector<Term>& terms) {
  std::string text;
  for (const Term& term : terms) {
    if (!text.empty()) text += " AND ";
    text += term.text;
  }
  return text;
}

}  // namespace engine::plan
