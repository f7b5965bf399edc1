#include <array>
#include <charconv>

#include "engine/sql/operators.h"
#include "engine/sql/print_pieces.h"
#include "engine/sql/token.h"

namespace engine::sql {
namespace {

/// Where an operand stands: a sign may follow an operator without parentheses, but not precede one that
/// binds tighter.
enum class Side { left, right };

int strengthOf(const Expr& e) {
  switch (e.kind) {
    case ExprKind::unary:
      return e.op == "NOT" ? strength::negation : strength::sign;
    case ExprKind::binary:
      for (const Operator& op : operators)
        if (op.name == e.op) return op.strength;
      return strength::operand;
    case ExprKind::like:
    case ExprKind::between:
    case ExprKind::in:
    case ExprKind::isNull:
      return strength::comparison;
    default:
      return strength::operand;
  }
}

void printNumber(std::string& out, double value) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  const std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  out += digits;
  // A point or an exponent keeps it from being read as a whole number.
  if (digits.find_first_of(".e") == std::string_view::npos) out += ".0";
}

void printLiteral(std::string& out, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::null:
      out += "NULL";
      break;
    case Value::Kind::boolean:
      out += value.asBoolean() ? "TRUE" : "FALSE";
      break;
    case Value::Kind::integer:
      out += std::to_string(value.asInteger());
      break;
    case Value::Kind::real:
      printNumber(out, value.asReal());
      break;
    case Value::Kind::date:
      out += "#" + value.asDate().iso() + "#";
      break;
    case Value::Kind::text:
      printText(out, value.text());
      break;
  }
}

void printOperand(std::string& out, const Expr& e, int atLeast, Side side);

void printIn(std::string& out, const Expr& e) {
  out += e.negated ? " NOT IN (" : " IN (";
  if (e.select) {
    printSelect(out, *e.select);
  } else {
    for (std::size_t i = 1; i < e.args.size(); ++i) {
      if (i > 1) out += ", ";
      printExpr(out, *e.args[i]);
    }
  }
  out += ")";
}

void printBinary(std::string& out, const Expr& e) {
  const int own = strengthOf(e);
  // AND and OR mean the same however they are grouped, and the parser groups a chain anew.
  const bool chains = own == strength::both || own == strength::either;
  printOperand(out, *e.args[0], own, Side::left);
  out += " " + e.op + " ";
  printOperand(out, *e.args[1], chains ? own : own + 1, Side::right);
}

/// `atLeast`: how tightly what stands around the expression wants its operands to bind.
void printBare(std::string& out, const Expr& e, int atLeast) {
  constexpr int operandOfComparison = strength::comparison + 1;
  switch (e.kind) {
    case ExprKind::literal:
      printLiteral(out, e.value);
      break;
    case ExprKind::name:
      printPath(out, e.path, e.bracketed);
      break;
    case ExprKind::star:
      out += "*";
      break;
    case ExprKind::unary:
      out += e.op;
      if (e.op == "NOT") out += " ";
      printOperand(out, *e.args[0], e.op == "NOT" ? strength::negation : std::max(atLeast, strength::power),
                   Side::right);
      break;
    case ExprKind::binary:
      printBinary(out, e);
      break;
    case ExprKind::like:
      printOperand(out, *e.args[0], strength::comparison, Side::left);
      out += e.negated ? " NOT LIKE " : " LIKE ";
      printOperand(out, *e.args[1], operandOfComparison, Side::right);
      break;
    case ExprKind::between:
      printOperand(out, *e.args[0], strength::comparison, Side::left);
      out += e.negated ? " NOT BETWEEN " : " BETWEEN ";
      printOperand(out, *e.args[1], operandOfComparison, Side::right);
      out += " AND ";
      printOperand(out, *e.args[2], operandOfComparison, Side::right);
      break;
    case ExprKind::in:
      printOperand(out, *e.args[0], strength::comparison, Side::left);
      printIn(out, e);
      break;
    case ExprKind::isNull:
      printOperand(out, *e.args[0], strength::comparison, Side::left);
      out += e.negated ? " IS NOT NULL" : " IS NULL";
      break;
    case ExprKind::exists:
    case ExprKind::subquery:
      out += e.kind == ExprKind::exists ? "EXISTS (" : "(";
      printSelect(out, *e.select);
      out += ")";
      break;
    case ExprKind::call:
      out += e.path.front() + "(";
      printList(out, e.args, [&](const ExprPtr& arg) { printExpr(out, *arg); });
      out += ")";
      break;
  }
}

void printOperand(std::string& out, const Expr& e, int atLeast, Side side) {
  const int own = strengthOf(e);
  const bool fits = own >= atLeast || (own == strength::sign && side == Side::right);
  if (fits && !e.parenthesised) {
    printBare(out, e, atLeast);
  } else {
    out += "(";
    printBare(out, e, 0);
    out += ")";
  }
}

}  // namespace

void printName(std::string& out, const std::string& name) {
  if (isPlainName(name))
    out += name;
  else
    out += "[" + name + "]";
}

void printPath(std::string& out, const std::vector<std::string>& path, bool bracketed) {
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (i > 0) out += ".";
    // An unbracketed part behind or before a point may be any word.
    out += bracketed ? "[" + path[i] + "]" : path[i];
  }
}

void printText(std::string& out, const std::string& text) {
  out += "'";
  for (const char c : text) {
    out += c;
    if (c == '\'') out += c;
  }
  out += "'";
}

void printExpr(std::string& out, const Expr& expression) {
  printOperand(out, expression, 0, Side::right);
}

}  // namespace engine::sql
