#include <algorithm>
#include <utility>

#include "engine/sql/parser_state.h"

namespace engine::sql {

SelectPtr Parser::select() {
  const Level level(*this);
  const int tallestOutside = tallest_;
  tallest_ = 0;
  SelectPtr first = selectArm();
  while (takeWord("UNION")) {
    Select::Arm arm;
    arm.all = takeWord("ALL");
    const bool wrapped = takeSymbol("(");
    arm.select = selectArm();
    if (wrapped) expectSymbol(")");
    if (!arm.select->into.empty()) fail("Only the first SELECT of a UNION may make a table");
    first->unions.push_back(std::move(arm));
  }
  first->orderBy = orderBy();
  first->height = tallest_ + 1;
  tallest_ = std::max(tallestOutside, first->height);
  return first;
}

SelectPtr Parser::selectArm() {
  const int tablesOutside = std::exchange(tables_, 0);
  auto made = std::make_unique<Select>();
  made->place = peek().place;
  expectWord("SELECT");
  selectHead(*made);
  do {
    made->items.push_back(outputItem());
  } while (takeSymbol(","));
  if (takeWord("INTO")) made->into = tableName();
  if (takeWord("FROM")) {
    made->from = fromList();
    made->inFile = optionalFile();
  }
  if (takeWord("WHERE")) made->where = expression();
  if (takeWord("GROUP")) {
    expectWord("BY");
    do {
      made->groupBy.push_back(expression());
    } while (takeSymbol(","));
  }
  if (takeWord("HAVING")) made->having = expression();
  tables_ = tablesOutside;
  return made;
}

void Parser::selectHead(Select& into) {
  if (takeWord("DISTINCT"))
    into.distinct = Distinct::values;
  else if (takeWord("DISTINCTROW"))
    into.distinct = Distinct::rows;
  if (atWord("TOP") && peek(1).kind == TokenKind::number) {
    take();
    const Token& count = take();
    if (count.value.kind() != Value::Kind::integer)
      syntaxError(text_, count.place, "A whole number expected");
    into.top = count.value.asInteger();
  }
}

/// Whether "*" or "name.*" stands here.
bool Parser::atAllOf() const {
  std::size_t ahead = 0;
  while (peek(ahead).kind == TokenKind::word || peek(ahead).kind == TokenKind::bracketed) {
    if (!atSymbol(".", ahead + 1) && !atSymbol("!", ahead + 1)) return false;
    ahead += 2;
  }
  return atSymbol("*", ahead);
}

OutputItem Parser::outputItem() {
  OutputItem item;
  item.place = peek().place;
  if (takeSymbol("*")) {
    item.kind = OutputItem::Kind::all;
  } else if (atAllOf()) {
    item.kind = OutputItem::Kind::allOf;
    item.path = path();
    take();
    expectSymbol("*");
  } else {
    item.expr = expression();
    if (takeWord("AS")) item.alias = anyName("A column name");
  }
  return item;
}

std::vector<FromPtr> Parser::fromList() {
  std::vector<FromPtr> list;
  do {
    list.push_back(fromItem());
  } while (takeSymbol(","));
  return list;
}

FromPtr Parser::fromItem() {
  return joins(fromPrimary());
}

bool Parser::atJoin() const {
  return atWord("INNER") || atWord("JOIN") ||
         ((atWord("LEFT") || atWord("RIGHT")) && (atWord("JOIN", 1) || atWord("OUTER", 1)));
}

FromPtr Parser::joins(FromPtr left) {
  while (atJoin()) left = joinTail(std::move(left));
  return left;
}

/// "LEFT JOIN right ON condition" behind its left side. "a JOIN b JOIN c ON .. ON .." nests to the right.
FromPtr Parser::joinTail(FromPtr left) {
  auto made = std::make_unique<From>();
  made->kind = From::Kind::join;
  made->place = peek().place;
  if (takeWord("LEFT"))
    made->join = JoinKind::left;
  else if (takeWord("RIGHT"))
    made->join = JoinKind::right;
  else
    takeWord("INNER");
  if (made->join != JoinKind::inner) takeWord("OUTER");
  expectWord("JOIN");
  made->left = std::move(left);
  made->right = fromPrimary();
  while (atJoin()) made->right = joinTail(std::move(made->right));
  expectWord("ON");
  made->on = expression();
  return made;
}

FromPtr Parser::fromPrimary() {
  constexpr int mostTables = 64;
  if (atSymbol("(") && !atWord("SELECT", 1)) {
    const Level level(*this);
    take();
    FromPtr inner = fromItem();
    inner->parenthesised = inner->kind == From::Kind::join;
    expectSymbol(")");
    return inner;
  }
  if (++tables_ > mostTables) fail("The FROM clause has too many tables");
  auto made = std::make_unique<From>();
  made->place = peek().place;
  if (takeSymbol("(")) {
    made->kind = From::Kind::select;
    made->select = select();
    expectSymbol(")");
  } else {
    made->table = tableName();
  }
  if (takeWord("AS") || atName()) made->alias = anyName("A table's other name");
  return made;
}

/// A table's name. A text file stands with its extension, as in "words.txt", and as it is spelled.
std::string Parser::tableName() {
  if (peek().kind == TokenKind::bracketed) return std::string(take().raw);
  const std::uint32_t start = peek().place.offset;
  if (peek().kind != TokenKind::number && !atName()) fail("A table expected");
  std::uint32_t end = peek().end;
  bool hasPoint = take().raw.find('.') != std::string_view::npos;
  const auto continues = [&] {
    return peek().place.offset == end && (peek().kind == TokenKind::word ||
                                          peek().kind == TokenKind::number || atSymbol(".") || atSymbol("-"));
  };
  while (continues()) {
    hasPoint = hasPoint || peek().raw.find('.') != std::string_view::npos;
    end = take().end;
  }
  const std::string_view spelled = text_.substr(start, end - start);
  if (!hasPoint && !isPlainName(spelled)) syntaxError(text_, Place{start}, "A table expected");
  return std::string(spelled);
}

std::vector<OrderItem> Parser::orderBy() {
  std::vector<OrderItem> items;
  if (!takeWord("ORDER")) return items;
  expectWord("BY");
  do {
    OrderItem item;
    item.expr = expression();
    item.descending = takeWord("DESC");
    if (!item.descending) takeWord("ASC");
    items.push_back(std::move(item));
  } while (takeSymbol(","));
  return items;
}

}  // namespace engine::sql
