#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/ast.h"
#include "engine/sql/token.h"

namespace engine::sql {

/// Recursive descent over the tokens of one statement. Recursion and the height of trees are bounded, so
/// that whoever walks a tree may recurse. All members throw 3075.
class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text), tokens_(tokenize(text)) {}

  Statement statement();  ///< parser.cpp
  ExprPtr wholeCondition();

 private:
  // Tokens (parser.cpp).
  const Token& peek(std::size_t ahead = 0) const;
  const Token& take();
  bool atWord(std::string_view upper, std::size_t ahead = 0) const { return peek(ahead).isWord(upper); }
  bool atSymbol(std::string_view symbol, std::size_t ahead = 0) const { return peek(ahead).isSymbol(symbol); }
  bool takeWord(std::string_view upper);
  bool takeSymbol(std::string_view symbol);
  void expectWord(std::string_view upper);
  void expectSymbol(std::string_view symbol);
  [[noreturn]] void fail(std::string_view message) const;
  /// A bracketed name, or any word where nothing but a name can stand.
  std::string anyName(std::string_view what);
  /// A bracketed name, or a word that is not reserved.
  std::string name(std::string_view what);
  bool atName() const;
  std::string optionalFile();  ///< IN "file"
  std::vector<std::string> nameList();
  void parameters(Statement& into);

  // Expressions (parse_expression.cpp).
  ExprPtr expression() { return binary(0); }
  ExprPtr binary(int atLeast);
  ExprPtr prefixed(int atLeast);
  ExprPtr primary();
  ExprPtr literalWord();
  ExprPtr nameOrCall();
  ExprPtr call(Place place);
  ExprPtr parenthesised();
  ExprPtr postfix(ExprPtr left);
  ExprPtr chain(ExprPtr first, std::string_view op, int opStrength);
  bool atPostfix() const;
  ExprPtr make(ExprKind kind, Place place) const;
  ExprPtr joined(std::string_view op, Place place, ExprPtr left, ExprPtr right);
  /// Notes a finished node's height and refuses what is too tall.
  ExprPtr measured(ExprPtr node);
  std::vector<std::string> path();

  // Selects (parse_select.cpp).
  SelectPtr select();
  SelectPtr selectArm();
  OutputItem outputItem();
  bool atAllOf() const;
  std::vector<FromPtr> fromList();
  FromPtr fromItem();
  FromPtr fromPrimary();
  FromPtr joins(FromPtr left);
  FromPtr joinTail(FromPtr left);
  bool atJoin() const;
  std::string tableName();
  std::vector<OrderItem> orderBy();
  void selectHead(Select& into);

  // Actions (parse_actions.cpp) and definitions (parse_definitions.cpp).
  std::unique_ptr<Insert> insert();
  std::unique_ptr<Update> update();
  std::unique_ptr<Delete> remove();
  void create(Statement& into);
  void drop(Statement& into);
  std::unique_ptr<AlterTable> alterTable();
  ColumnDecl column();
  void columnType(ColumnDecl& into);
  std::unique_ptr<CreateIndex> createIndex(bool unique);

  /// Counts a level of nesting while it lives.
  class Level;

  std::string_view text_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int level_ = 0;
  int tables_ = 0;   ///< in the FROM clause at hand; this bounds the height of joins
  int tallest_ = 0;  ///< of the expressions in the select at hand
};

class Parser::Level {
 public:
  explicit Level(Parser& parser) : parser_(parser) {
    if (++parser_.level_ > maxHeight) parser_.fail("The statement nests too deep");
  }
  ~Level() { --parser_.level_; }
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;

 private:
  Parser& parser_;
};

}  // namespace engine::sql
