#include <algorithm>

#include "base/text.h"
#include "engine/sql/operators.h"
#include "engine/sql/parser_state.h"

namespace engine::sql {
namespace {

const Operator* operatorAt(const Token& token) {
  for (const Operator& op : operators)
    if (token.isSymbol(op.name) || token.isWord(op.name)) return &op;
  return nullptr;
}

/// Joins operands [first, last) by an associative operator into a tree of logarithmic height.
template <class Join>
ExprPtr balanced(std::vector<ExprPtr>& operands, std::size_t first, std::size_t last, const Join& join) {
  if (last - first == 1) return std::move(operands[first]);
  const std::size_t middle = first + (last - first) / 2;
  ExprPtr left = balanced(operands, first, middle, join);
  ExprPtr right = balanced(operands, middle, last, join);
  return join(std::move(left), std::move(right));
}

}  // namespace

ExprPtr Parser::make(ExprKind kind, Place place) const {
  auto node = std::make_unique<Expr>();
  node->kind = kind;
  node->place = place;
  return node;
}

ExprPtr Parser::measured(ExprPtr node) {
  int below = node->select ? node->select->height : 0;
  for (const ExprPtr& arg : node->args) below = std::max(below, arg->height);
  node->height = below + 1;
  if (node->height > maxHeight) syntaxError(text_, node->place, "The expression nests too deep");
  tallest_ = std::max(tallest_, node->height);
  return node;
}

ExprPtr Parser::joined(std::string_view op, Place place, ExprPtr left, ExprPtr right) {
  ExprPtr node = make(ExprKind::binary, place);
  node->op = op;
  node->args.push_back(std::move(left));
  node->args.push_back(std::move(right));
  return measured(std::move(node));
}

ExprPtr Parser::binary(int atLeast) {
  ExprPtr left = prefixed(atLeast);
  for (;;) {
    if (atLeast <= strength::comparison && atPostfix()) {
      left = postfix(std::move(left));
      continue;
    }
    const Operator* op = operatorAt(peek());
    if (op == nullptr || op->strength < atLeast) return left;
    if (op->strength == strength::both || op->strength == strength::either) {
      left = chain(std::move(left), op->name, op->strength);
      continue;
    }
    const Place place = take().place;
    ExprPtr right = binary(op->strength + 1);
    left = joined(op->name, place, std::move(left), std::move(right));
  }
}

/// The rest of "a AND b AND c" or "a OR b OR c", which mean the same however they are grouped.
ExprPtr Parser::chain(ExprPtr first, std::string_view op, int opStrength) {
  const Place place = peek().place;
  std::vector<ExprPtr> operands;
  operands.push_back(std::move(first));
  while (takeWord(op)) operands.push_back(binary(opStrength + 1));
  return balanced(operands, 0, operands.size(), [&](ExprPtr left, ExprPtr right) {
    return joined(op, place, std::move(left), std::move(right));
  });
}

/// NOT and the signs; each may repeat, so they are gathered before the operand.
ExprPtr Parser::prefixed(int atLeast) {
  std::vector<std::pair<Place, std::string_view>> prefixes;
  int operandStrength = strength::comparison;
  if (atLeast <= strength::negation) {
    while (atWord("NOT")) prefixes.emplace_back(take().place, "NOT");
  }
  if (prefixes.empty()) {
    // Behind a sign only "^" binds tighter, and not even that in "2 ^ -3 ^ 2".
    operandStrength = std::max(atLeast, strength::power);
    while (atSymbol("-") || atSymbol("+")) {
      prefixes.emplace_back(peek().place, peek().raw);
      take();
    }
  }
  if (prefixes.empty()) return primary();

  ExprPtr node = binary(operandStrength);
  for (auto prefix = prefixes.rbegin(); prefix != prefixes.rend(); ++prefix) {
    ExprPtr outer = make(ExprKind::unary, prefix->first);
    outer->op = prefix->second;
    outer->args.push_back(std::move(node));
    node = measured(std::move(outer));
  }
  return node;
}

bool Parser::atPostfix() const {
  const std::size_t behind = atWord("NOT") ? 1 : 0;
  // IN without a parenthesis names the file of a FROM clause.
  return atWord("LIKE", behind) || atWord("BETWEEN", behind) ||
         (atWord("IN", behind) && atSymbol("(", behind + 1)) || (behind == 0 && atWord("IS"));
}

ExprPtr Parser::postfix(ExprPtr left) {
  ExprPtr node = make(ExprKind::like, peek().place);
  node->negated = takeWord("NOT");
  node->args.push_back(std::move(left));
  if (takeWord("LIKE")) {
    node->args.push_back(binary(strength::comparison + 1));
  } else if (takeWord("BETWEEN")) {
    node->kind = ExprKind::between;
    node->args.push_back(binary(strength::comparison + 1));
    expectWord("AND");
    node->args.push_back(binary(strength::comparison + 1));
  } else if (takeWord("IS")) {
    node->kind = ExprKind::isNull;
    node->negated = takeWord("NOT");
    expectWord("NULL");
  } else {
    expectWord("IN");
    const Level level(*this);
    node->kind = ExprKind::in;
    expectSymbol("(");
    if (atWord("SELECT")) {
      node->select = select();
    } else {
      do {
        node->args.push_back(expression());
      } while (takeSymbol(","));
    }
    expectSymbol(")");
  }
  return measured(std::move(node));
}

ExprPtr Parser::primary() {
  const Token& token = peek();
  switch (token.kind) {
    case TokenKind::number:
    case TokenKind::text:
    case TokenKind::date: {
      ExprPtr node = make(ExprKind::literal, token.place);
      node->value = take().value;
      return measured(std::move(node));
    }
    case TokenKind::word:
    case TokenKind::bracketed:
      return nameOrCall();
    default:
      if (atSymbol("(")) return parenthesised();
      fail("An expression expected");
  }
}

ExprPtr Parser::parenthesised() {
  const Level level(*this);
  const Place place = take().place;
  ExprPtr node;
  if (atWord("SELECT")) {
    node = make(ExprKind::subquery, place);
    node->select = select();
    node = measured(std::move(node));
  } else {
    node = expression();
    // A second pair around the same adds nothing and is dropped.
    node->parenthesised = true;
  }
  expectSymbol(")");
  return node;
}

/// NULL, TRUE and their like where they stand as a value; nothing otherwise.
ExprPtr Parser::literalWord() {
  if (atSymbol(".", 1) || atSymbol("!", 1) || atSymbol("(", 1)) return nullptr;
  const bool truth = atWord("TRUE") || atWord("YES");
  if (!truth && !atWord("FALSE") && !atWord("NO") && !atWord("NULL")) return nullptr;
  ExprPtr node = make(ExprKind::literal, peek().place);
  if (!atWord("NULL")) node->value = truth;
  take();
  return measured(std::move(node));
}

ExprPtr Parser::nameOrCall() {
  if (ExprPtr literal = literalWord()) return literal;
  const Place place = peek().place;
  if (peek().kind == TokenKind::word && atSymbol("(", 1)) return call(place);
  const bool qualified = atSymbol(".", 1) || atSymbol("!", 1);
  if (!atName() && !qualified) fail("An expression expected");
  ExprPtr node = make(ExprKind::name, place);
  const std::size_t first = at_;
  node->path = path();
  node->bracketed = std::any_of(tokens_.begin() + static_cast<std::ptrdiff_t>(first),
                                tokens_.begin() + static_cast<std::ptrdiff_t>(at_),
                                [](const Token& token) { return token.kind == TokenKind::bracketed; });
  return measured(std::move(node));
}

ExprPtr Parser::call(Place place) {
  // LEFT and RIGHT are functions too; the other reserved words are none.
  const bool function = !isReserved(peek().raw) || atWord("LEFT") || atWord("RIGHT");
  if (atWord("EXISTS")) {
    const Level level(*this);
    take();
    expectSymbol("(");
    ExprPtr node = make(ExprKind::exists, place);
    node->select = select();
    expectSymbol(")");
    return measured(std::move(node));
  }
  if (!function) fail("An expression expected");
  const Level level(*this);
  ExprPtr node = make(ExprKind::call, place);
  node->path.emplace_back(take().raw);
  expectSymbol("(");
  if (atSymbol("*")) {
    node->args.push_back(measured(make(ExprKind::star, take().place)));
  } else if (!atSymbol(")")) {
    do {
      node->args.push_back(expression());
    } while (takeSymbol(","));
  }
  expectSymbol(")");
  return measured(std::move(node));
}

/// Up to three names joined by points.
std::vector<std::string> Parser::path() {
  constexpr std::size_t mostParts = 3;
  std::vector<std::string> parts{anyName("A name")};
  while ((atSymbol(".") || atSymbol("!")) && !atSymbol("*", 1)) {
    if (parts.size() == mostParts) fail("The name has too many parts");
    take();
    parts.push_back(anyName("A name"));
  }
  return parts;
}

}  // namespace engine::sql
