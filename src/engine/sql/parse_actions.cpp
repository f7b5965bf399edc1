#include "engine/sql/parser_state.h"

namespace engine::sql {

std::unique_ptr<Insert> Parser::insert() {
  auto made = std::make_unique<Insert>();
  expectWord("INTO");
  made->table = tableName();
  made->inFile = optionalFile();
  if (atSymbol("(") && !atWord("SELECT", 1)) made->columns = nameList();
  if (takeWord("VALUES")) {
    expectSymbol("(");
    do {
      made->values.push_back(expression());
    } while (takeSymbol(","));
    expectSymbol(")");
    if (!made->columns.empty() && made->columns.size() != made->values.size())
      fail("There are not as many values as columns");
    return made;
  }
  const bool wrapped = takeSymbol("(");
  if (!atWord("SELECT")) fail("VALUES or SELECT expected");
  made->select = select();
  if (wrapped) expectSymbol(")");
  if (!made->select->into.empty()) fail("An INSERT can not make a table");
  return made;
}

std::unique_ptr<Update> Parser::update() {
  auto made = std::make_unique<Update>();
  if (atWord("DISTINCTROW")) take();  // an UPDATE changes a row once, anyway
  made->target = fromItem();
  made->inFile = optionalFile();
  expectWord("SET");
  do {
    Assignment assignment;
    assignment.place = peek().place;
    assignment.path = path();
    expectSymbol("=");
    assignment.value = expression();
    made->set.push_back(std::move(assignment));
  } while (takeSymbol(","));
  if (takeWord("WHERE")) made->where = expression();
  return made;
}

std::unique_ptr<Delete> Parser::remove() {
  auto made = std::make_unique<Delete>();
  if (atWord("DISTINCTROW")) take();  // a DELETE removes a row once, anyway
  if (!takeSymbol("*") && !atWord("FROM")) {
    if (!atAllOf()) fail("'*' or a table and '.*' expected");
    made->ofTable = path();
    take();
    expectSymbol("*");
  }
  expectWord("FROM");
  made->target = fromItem();
  made->inFile = optionalFile();
  if (takeWord("WHERE")) made->where = expression();
  return made;
}

}  // namespace engine::sql
