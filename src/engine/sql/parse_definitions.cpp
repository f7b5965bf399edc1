#include <array>

#include "engine/sql/parser_state.h"
#include "engine/sql/type_names.h"

namespace engine::sql {
namespace {

struct TypeName {
  std::string_view name;
  ColumnType type;
};

/// Every name of a type that the dialect knows; the first of each type is the one that is printed.
constexpr std::array typeNames = std::to_array<TypeName>({
    {"COUNTER", ColumnType::counter},
    {"AUTOINCREMENT", ColumnType::counter},
    {"LONG", ColumnType::longInteger},
    {"INTEGER", ColumnType::longInteger},
    {"INT", ColumnType::longInteger},
    {"SHORT", ColumnType::shortInteger},
    {"SMALLINT", ColumnType::shortInteger},
    {"BYTE", ColumnType::shortInteger},
    {"BIT", ColumnType::bit},
    {"YESNO", ColumnType::bit},
    {"BOOLEAN", ColumnType::bit},
    {"LOGICAL", ColumnType::bit},
    {"TEXT", ColumnType::text},
    {"CHAR", ColumnType::text},
    {"VARCHAR", ColumnType::text},
    {"STRING", ColumnType::text},
    {"LONGTEXT", ColumnType::memo},
    {"MEMO", ColumnType::memo},
    {"NOTE", ColumnType::memo},
    {"DATE", ColumnType::date},
    {"DATETIME", ColumnType::date},
    {"TIME", ColumnType::date},
    {"DOUBLE", ColumnType::real},
    {"FLOAT", ColumnType::real},
    {"REAL", ColumnType::real},
    {"SINGLE", ColumnType::real},
    {"CURRENCY", ColumnType::real},
    {"NUMBER", ColumnType::real},
});

constexpr int longestText = 255;

}  // namespace

std::string_view typeName(ColumnType type) {
  for (const TypeName& known : typeNames)
    if (known.type == type) return known.name;
  return {};
}

void Parser::columnType(ColumnDecl& into) {
  const TypeName* found = nullptr;
  for (const TypeName& known : typeNames)
    if (found == nullptr && atWord(known.name)) found = &known;
  if (found == nullptr) fail("A column type expected");
  take();
  into.type = found->type;
  into.size = found->type == ColumnType::text ? longestText : 0;
  if (found->type != ColumnType::text || !takeSymbol("(")) return;
  const Token& size = take();
  if (size.kind != TokenKind::number || size.value.kind() != Value::Kind::integer ||
      size.value.asInteger() < 1 || size.value.asInteger() > longestText)
    syntaxError(text_, size.place, "A length from 1 to 255 expected");
  into.size = static_cast<int>(size.value.asInteger());
  expectSymbol(")");
}

ColumnDecl Parser::column() {
  ColumnDecl made;
  made.name = anyName("A column");
  columnType(made);
  for (;;) {
    if (takeWord("NOT")) {
      expectWord("NULL");
      made.notNull = true;
    } else if (takeWord("PRIMARY")) {
      expectWord("KEY");
      made.primaryKey = true;
    } else {
      return made;
    }
  }
}

std::unique_ptr<CreateIndex> Parser::createIndex(bool unique) {
  auto made = std::make_unique<CreateIndex>();
  made->unique = unique;
  made->index = anyName("An index");
  expectWord("ON");
  made->table = tableName();
  made->columns = nameList();
  if (takeWord("WITH")) {
    expectWord("PRIMARY");
    made->primary = true;
  }
  return made;
}

void Parser::create(Statement& into) {
  if (takeWord("TABLE")) {
    into.kind = StatementKind::createTable;
    into.createTable = std::make_unique<CreateTable>();
    into.createTable->table = tableName();
    expectSymbol("(");
    do {
      into.createTable->columns.push_back(column());
    } while (takeSymbol(","));
    expectSymbol(")");
    return;
  }
  const bool unique = takeWord("UNIQUE");
  if (!takeWord("INDEX")) fail(unique ? "INDEX expected" : "TABLE or INDEX expected");
  into.kind = StatementKind::createIndex;
  into.createIndex = createIndex(unique);
}

void Parser::drop(Statement& into) {
  if (takeWord("TABLE")) {
    into.kind = StatementKind::dropTable;
    into.dropTable = std::make_unique<DropTable>();
    into.dropTable->table = tableName();
    return;
  }
  if (!takeWord("INDEX")) fail("TABLE or INDEX expected");
  into.kind = StatementKind::dropIndex;
  into.dropIndex = std::make_unique<DropIndex>();
  into.dropIndex->index = anyName("An index");
  expectWord("ON");
  into.dropIndex->table = tableName();
}

std::unique_ptr<AlterTable> Parser::alterTable() {
  auto made = std::make_unique<AlterTable>();
  expectWord("TABLE");
  made->table = tableName();
  if (takeWord("ADD"))
    made->action = AlterTable::Action::addColumn;
  else if (takeWord("ALTER"))
    made->action = AlterTable::Action::alterColumn;
  else if (takeWord("DROP"))
    made->action = AlterTable::Action::dropColumn;
  else
    fail("ADD, ALTER or DROP expected");
  if (atWord("COLUMN") && (peek(1).kind == TokenKind::word || peek(1).kind == TokenKind::bracketed)) take();
  if (made->action == AlterTable::Action::dropColumn)
    made->column.name = anyName("A column");
  else
    made->column = column();
  return made;
}

}  // namespace engine::sql
