#include "engine/sql/parser.h"

#include "base/text.h"
#include "engine/sql/parser_state.h"

namespace engine::sql {

const Token& Parser::peek(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& Parser::take() {
  const Token& token = peek();
  if (at_ + 1 < tokens_.size()) ++at_;
  return token;
}

bool Parser::takeWord(std::string_view upper) {
  if (!atWord(upper)) return false;
  take();
  return true;
}

bool Parser::takeSymbol(std::string_view symbol) {
  if (!atSymbol(symbol)) return false;
  take();
  return true;
}

void Parser::expectWord(std::string_view upper) {
  if (!takeWord(upper)) fail(std::string(upper) + " expected");
}

void Parser::expectSymbol(std::string_view symbol) {
  if (!takeSymbol(symbol)) fail("'" + std::string(symbol) + "' expected");
}

void Parser::fail(std::string_view message) const {
  syntaxError(text_, peek().place, message);
}

bool Parser::atName() const {
  return peek().kind == TokenKind::bracketed || (peek().kind == TokenKind::word && !isReserved(peek().raw));
}

std::string Parser::anyName(std::string_view what) {
  if (peek().kind != TokenKind::bracketed && peek().kind != TokenKind::word)
    fail(std::string(what) + " expected");
  return std::string(take().raw);
}

std::string Parser::name(std::string_view what) {
  if (!atName()) fail(std::string(what) + " expected");
  return std::string(take().raw);
}

std::string Parser::optionalFile() {
  if (!takeWord("IN")) return {};
  if (peek().kind != TokenKind::text) fail("A file name in quotes expected");
  std::string file = take().value.text();
  if (file.empty()) syntaxError(text_, tokens_[at_ - 1].place, "The file name is empty");
  return file;
}

std::vector<std::string> Parser::nameList() {
  std::vector<std::string> names;
  expectSymbol("(");
  do {
    names.push_back(anyName("A column"));
  } while (takeSymbol(","));
  expectSymbol(")");
  return names;
}

void Parser::parameters(Statement& into) {
  do {
    ParameterDecl declared;
    declared.name = anyName("A parameter");
    if (peek().kind != TokenKind::word) fail("The parameter's type expected");
    declared.type = base::upper(take().raw);
    if (takeSymbol("(")) {
      if (peek().kind != TokenKind::number) fail("The length expected");
      declared.type += "(" + std::string(take().raw) + ")";
      expectSymbol(")");
    }
    into.parameters.push_back(std::move(declared));
  } while (takeSymbol(","));
  expectSymbol(";");
}

Statement Parser::statement() {
  Statement made;
  if (takeWord("PARAMETERS")) parameters(made);
  if (atWord("SELECT")) {
    made.kind = StatementKind::select;
    made.select = select();
  } else if (takeWord("INSERT")) {
    made.kind = StatementKind::insert;
    made.insert = insert();
  } else if (takeWord("UPDATE")) {
    made.kind = StatementKind::update;
    made.update = update();
  } else if (takeWord("DELETE")) {
    made.kind = StatementKind::remove;
    made.remove = remove();
  } else if (takeWord("CREATE")) {
    create(made);
  } else if (takeWord("DROP")) {
    drop(made);
  } else if (takeWord("ALTER")) {
    made.kind = StatementKind::alterTable;
    made.alterTable = alterTable();
  } else {
    fail("SELECT, INSERT, UPDATE, DELETE, CREATE, ALTER or DROP expected");
  }
  takeSymbol(";");
  if (peek().kind != TokenKind::end) fail("The statement should end here");
  return made;
}

ExprPtr Parser::wholeCondition() {
  ExprPtr condition = expression();
  if (peek().kind != TokenKind::end) fail("The condition should end here");
  return condition;
}

Statement parse(std::string_view text) {
  return Parser(text).statement();
}

ExprPtr parseCondition(std::string_view text) {
  return Parser(text).wholeCondition();
}

}  // namespace engine::sql
