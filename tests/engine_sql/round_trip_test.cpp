#include <gtest/gtest.h>

#include <random>

#include "engine/sql/parser.h"
#include "engine/sql/printer.h"

namespace {

using namespace engine::sql;
using base::Value;

/// Makes trees at random. With `flags` every nested operation carries its parentheses, as the parser
/// would have noted them; without, the printer has to find out where they are needed.
class Generator {
 public:
  Generator(unsigned seed, bool flags) : random_(seed), flags_(flags) {}

  Statement statement() {
    Statement made;
    made.kind = StatementKind::select;
    made.select = select(3);
    if (chance(3)) made.parameters.push_back({name(), pick({"TEXT", "LONG", "TEXT(50)", "DATETIME"})});
    return made;
  }

  /// Whole numbers and truths only, so that it can be computed.
  ExprPtr computable(int depth) {
    if (depth == 0 || chance(4)) return literal(Value(std::int64_t{below(4)}));
    if (chance(4)) return unary(chance(2) ? "NOT" : "-", computable(depth - 1));
    static const std::vector<std::string> ops = {
        "+", "-", "*", "=", "<", ">=", "AND", "OR", "XOR", "EQV", "IMP"};
    return binary(ops[static_cast<std::size_t>(below(static_cast<int>(ops.size())))], computable(depth - 1),
                  computable(depth - 1));
  }

 private:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  bool chance(int in) { return below(in) == 0; }
  std::string pick(const std::vector<std::string>& from) {
    return from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
  }
  std::string name() {
    return pick({"Begriff", "ID_Woerterbuch", "two words", "Order", "Überschrift", "select", "x$1", "3rd",
                 "a.b", "Date"});
  }
  std::string file() { return pick({"", "", "C:/a's.cvb", "/tmp/\"b\".cvb"}); }

  ExprPtr literal(Value value) {
    auto made = std::make_unique<Expr>();
    made->value = std::move(value);
    return made;
  }
  ExprPtr node(ExprKind kind, std::vector<ExprPtr> args) {
    auto made = std::make_unique<Expr>();
    made->kind = kind;
    for (ExprPtr& arg : args) {
      const bool composite =
          arg->kind != ExprKind::literal && arg->kind != ExprKind::name && arg->kind != ExprKind::call;
      arg->parenthesised = flags_ && composite;
      made->args.push_back(std::move(arg));
    }
    return made;
  }
  ExprPtr unary(const std::string& op, ExprPtr arg) {
    std::vector<ExprPtr> args;
    args.push_back(std::move(arg));
    ExprPtr made = node(ExprKind::unary, std::move(args));
    made->op = op;
    return made;
  }
  ExprPtr binary(const std::string& op, ExprPtr left, ExprPtr right) {
    std::vector<ExprPtr> args;
    args.push_back(std::move(left));
    args.push_back(std::move(right));
    ExprPtr made = node(ExprKind::binary, std::move(args));
    made->op = op;
    return made;
  }

  ExprPtr leaf() {
    switch (below(8)) {
      case 0:
        return literal(Value(pick({"", "it's", "say \"x\"", "ä\nö", "[a] -- #"})));
      case 1:
        return literal(Value(std::int64_t{below(1000)}));
      case 2:
        return literal(Value(below(1000) / 8.0 * (chance(2) ? 1e30 : 1)));
      case 3:
        return literal(
            Value(base::DateTime::of(100 + below(9000), 1 + below(12), 1 + below(28), below(24), 5, 9)));
      case 4:
        return literal(chance(2) ? Value(chance(2)) : Value());
      default: {
        auto made = std::make_unique<Expr>();
        made->kind = ExprKind::name;
        made->bracketed = true;
        for (int parts = 1 + below(3); parts > 0; --parts) made->path.push_back(name());
        return made;
      }
    }
  }

  ExprPtr expression(int depth) {
    if (depth == 0 || chance(4)) return leaf();
    std::vector<ExprPtr> args;
    const auto add = [&](int count) {
      for (; count > 0; --count) args.push_back(expression(depth - 1));
    };
    static const std::vector<std::string> ops = {"+",  "-",  "*", "/", "\\", "MOD", "^",   "&",   "=",  "<>",
                                                 "<=", ">=", "<", ">", "OR", "AND", "XOR", "EQV", "IMP"};
    ExprPtr made;
    switch (below(9)) {
      case 0:
        return unary(pick({"NOT", "-", "+"}), expression(depth - 1));
      case 1:
        add(2);
        made = node(ExprKind::like, std::move(args));
        break;
      case 2:
        add(3);
        made = node(ExprKind::between, std::move(args));
        break;
      case 3:
        add(1);
        made = node(ExprKind::isNull, std::move(args));
        break;
      case 4:
        add(2 + below(3));
        made = node(ExprKind::in, std::move(args));
        for (std::size_t i = 1; i < made->args.size(); ++i) made->args[i]->parenthesised = false;
        break;
      case 5:
        add(1);
        made = node(ExprKind::in, std::move(args));
        made->select = select(depth - 1);
        break;
      case 6:
        add(below(3));
        made = node(ExprKind::call, std::move(args));
        made->path.push_back(pick({"left", "Max", "datevalue", "iif"}));
        return made;
      case 7: {
        made = node(chance(2) ? ExprKind::exists : ExprKind::subquery, {});
        made->select = select(depth - 1);
        return made;
      }
      default:
        return binary(pick(ops), expression(depth - 1), expression(depth - 1));
    }
    made->negated = chance(2);
    return made;
  }

  FromPtr from(int depth) {
    auto made = std::make_unique<From>();
    if (depth > 0 && chance(2)) {
      made->kind = From::Kind::join;
      made->join = static_cast<JoinKind>(below(3));
      made->left = from(depth - 1);
      made->right = from(depth - 1);
      made->on = expression(1);
      made->parenthesised = true;
    } else if (depth > 0 && chance(3)) {
      made->kind = From::Kind::select;
      made->select = select(depth - 1);
      made->alias = "q";
    } else {
      made->table = pick({"Woerterbuch", "words.txt", "2 words", "select"});
      if (chance(2)) made->alias = name();
    }
    return made;
  }

  SelectPtr arm(int depth) {
    auto made = std::make_unique<Select>();
    made->distinct = static_cast<Distinct>(below(3));
    if (chance(4)) made->top = below(100);
    for (int count = 1 + below(3); count > 0; --count) {
      OutputItem item;
      item.kind = static_cast<OutputItem::Kind>(below(3));
      if (item.kind == OutputItem::Kind::allOf) item.path = {name()};
      if (item.kind == OutputItem::Kind::expression) {
        item.expr = expression(depth);
        if (chance(2)) item.alias = name();
      }
      made->items.push_back(std::move(item));
    }
    for (int count = 1 + below(2); count > 0; --count) made->from.push_back(from(depth));
    made->inFile = file();
    if (chance(2)) made->where = expression(depth);
    if (chance(4)) made->groupBy.push_back(expression(1));
    if (chance(4)) made->having = expression(1);
    return made;
  }

  SelectPtr select(int depth) {
    SelectPtr made = arm(depth);
    for (int count = below(2); count > 0; --count) made->unions.push_back({chance(2), arm(depth)});
    if (chance(2)) made->orderBy.push_back({expression(1), chance(2)});
    return made;
  }

  std::mt19937 random_;
  bool flags_;
};

std::int64_t compute(const Expr& e) {
  if (e.kind == ExprKind::literal) return e.value.asInteger();
  const std::int64_t a = compute(*e.args[0]);
  if (e.kind == ExprKind::unary) return e.op == "-" ? -a : ~a;
  const std::int64_t b = compute(*e.args[1]);
  const auto truth = [](bool holds) { return std::int64_t{holds ? -1 : 0}; };
  if (e.op == "+") return (a + b) % 1000;
  if (e.op == "-") return (a - b) % 1000;
  if (e.op == "*") return (a * b) % 1000;
  if (e.op == "=") return truth(a == b);
  if (e.op == "<") return truth(a < b);
  if (e.op == ">=") return truth(a >= b);
  if (e.op == "AND") return a & b;
  if (e.op == "OR") return a | b;
  if (e.op == "XOR") return a ^ b;
  if (e.op == "EQV") return ~(a ^ b);
  return ~a | b;  // IMP
}

TEST(RoundTrip, GivesBackEveryTreeItPrints) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    const Statement tree = Generator(seed, true).statement();
    const std::string printed = print(tree);
    ASSERT_TRUE(same(tree, parse(printed))) << printed;
  }
}

TEST(RoundTrip, AddsTheParenthesesThatAreNeeded) {
  for (unsigned seed = 0; seed < 5000; ++seed) {
    const ExprPtr tree = Generator(seed, false).computable(5);
    const std::string printed = print(*tree);
    const ExprPtr again = parseCondition(printed);
    ASSERT_EQ(compute(*tree), compute(*again)) << printed;
    ASSERT_EQ(print(*again), printed);
  }
}

TEST(RoundTrip, TellsTreesApart) {
  const std::pair<const char*, const char*> different[] = {
      {"select a from t", "select [a] from t"},
      {"select a from t", "select distinct a from t"},
      {"select 1 from t", "select '1' from t"},
      {"select 1 from t", "select 1.0 from t"},
      {"select a from t where b like c", "select a from t where b not like c"},
      {"select a from t in 'x'", "select a from t in 'y'"},
      {"select a from t union select a from u", "select a from t union all select a from u"},
      {"select a from t order by a", "select a from t order by a desc"},
      {"select a from t left join u on 1", "select a from t right join u on 1"},
      {"delete t.* from t", "delete * from t"},
      {"update t set a = 1", "update t set a = 2"},
      {"create table t (a text(5))", "create table t (a text(6))"},
      {"alter table t add column a long", "alter table t alter column a long"},
  };
  for (const auto& [a, b] : different) EXPECT_FALSE(same(parse(a), parse(b))) << a << " | " << b;
}

}  // namespace
