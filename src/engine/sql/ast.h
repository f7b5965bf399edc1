#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/types/types.h"

/// The tree of one statement of the dialect. Plain data; every node knows its place in the text.
/// Printing a tree and parsing the print gives the same tree (places aside).
namespace engine::sql {

struct Place {
  std::uint32_t offset = 0;  ///< bytes from the start of the statement
};

/// No tree is taller, nor text nested deeper, so every walk over a tree may recurse. Chains of AND and of OR
/// are kept as balanced trees, which costs their height a logarithm: they may be as long as a statement.
inline constexpr int maxHeight = 400;

struct Select;
struct Expr;
using ExprPtr = std::unique_ptr<Expr>;
using SelectPtr = std::unique_ptr<Select>;

enum class ExprKind {
  literal,   ///< value
  name,      ///< path: 1 to 3 parts; may turn out to be a column or a parameter
  star,      ///< "*" in count(*)
  unary,     ///< op, args[0]
  binary,    ///< op, args[0], args[1]
  like,      ///< args[0] LIKE args[1]
  between,   ///< args[0] BETWEEN args[1] AND args[2]
  in,        ///< args[0] IN (args[1..]) or IN (select)
  isNull,    ///< args[0] IS NULL
  exists,    ///< EXISTS (select)
  subquery,  ///< (select) as a value
  call       ///< name(args)
};

struct Expr {
  ExprKind kind = ExprKind::literal;
  Place place;
  Value value;                    ///< literal; a #date# literal holds a date
  std::vector<std::string> path;  ///< name: parts without brackets; call: the function's name
  std::string op;                 ///< upper case: + - * / \ MOD ^ & = <> < <= > >= AND OR NOT XOR EQV IMP
  bool negated = false;           ///< NOT LIKE, NOT BETWEEN, NOT IN, IS NOT NULL
  bool parenthesised = false;     ///< stood in parentheses of its own; printed so
  bool bracketed = false;         ///< name: some part was written in brackets
  std::vector<ExprPtr> args;
  SelectPtr select;
  int height = 1;  ///< of the tree from here down, kept by the parser
};

/// One item of a FROM clause: a table or query, a derived table, or a join of two.
enum class JoinKind { inner, left, right };
struct From;
using FromPtr = std::unique_ptr<From>;
struct From {
  enum class Kind { table, select, join } kind = Kind::table;
  Place place;
  std::string table;  ///< name without brackets; "words.txt" keeps its point
  std::string alias;  ///< empty when none
  SelectPtr select;
  JoinKind join = JoinKind::inner;
  FromPtr left, right;
  ExprPtr on;
  bool parenthesised = false;
};

struct OutputItem {
  enum class Kind { all, allOf, expression } kind = Kind::expression;
  Place place;
  std::vector<std::string> path;  ///< allOf: what stands before ".*"
  ExprPtr expr;
  std::string alias;
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
};

enum class Distinct { none, values, rows };  ///< DISTINCT, DISTINCTROW

struct Select {
  Place place;
  Distinct distinct = Distinct::none;
  std::optional<std::int64_t> top;
  std::vector<OutputItem> items;
  std::string into;           ///< SELECT ... INTO name; empty when none
  std::vector<FromPtr> from;  ///< comma-separated
  std::string inFile;         ///< IN "file" behind FROM; empty when none
  ExprPtr where;
  std::vector<ExprPtr> groupBy;
  ExprPtr having;
  /// UNION arms: this select's own parts are the first arm, these follow.
  struct Arm {
    bool all = false;
    SelectPtr select;
  };
  std::vector<Arm> unions;
  std::vector<OrderItem> orderBy;  ///< of the whole, behind the last arm
  int height = 1;                  ///< as of expressions
};

struct ParameterDecl {
  std::string name;
  std::string type;  ///< upper case as declared: TEXT, LONG, DATETIME ...
};

struct Insert {
  std::string table;
  std::string inFile;
  std::vector<std::string> columns;  ///< empty: by name from the select
  std::vector<ExprPtr> values;       ///< VALUES (...), empty when select is set
  SelectPtr select;
};

struct Assignment {
  std::vector<std::string> path;  ///< column, or table.column
  ExprPtr value;
  Place place;
};

struct Update {
  FromPtr target;  ///< one table, or a join of which assigned columns name the table
  std::string inFile;
  std::vector<Assignment> set;
  ExprPtr where;
};

struct Delete {
  std::vector<std::string> ofTable;  ///< DELETE t.* FROM ...; empty for DELETE * or DELETE
  FromPtr target;
  std::string inFile;
  ExprPtr where;
};

struct ColumnDecl {
  std::string name;
  ColumnType type = ColumnType::text;
  int size = 0;  ///< 255 for TEXT without a size
  bool notNull = false;
  bool primaryKey = false;
};

struct CreateTable {
  std::string table;
  std::vector<ColumnDecl> columns;
};
struct CreateIndex {
  std::string index, table;
  std::vector<std::string> columns;
  bool unique = false, primary = false;
};
struct DropTable {
  std::string table;  ///< DROP TABLE drops a query of that name too
};
struct DropIndex {
  std::string index, table;
};
struct AlterTable {
  enum class Action { addColumn, alterColumn, dropColumn } action = Action::addColumn;
  std::string table;
  ColumnDecl column;  ///< dropColumn: the name alone
};

enum class StatementKind {
  select,
  insert,
  update,
  remove,
  createTable,
  createIndex,
  dropTable,
  dropIndex,
  alterTable
};

struct Statement {
  StatementKind kind = StatementKind::select;
  std::vector<ParameterDecl> parameters;  ///< PARAMETERS clause
  SelectPtr select;
  std::unique_ptr<Insert> insert;
  std::unique_ptr<Update> update;
  std::unique_ptr<Delete> remove;
  std::unique_ptr<CreateTable> createTable;
  std::unique_ptr<CreateIndex> createIndex;
  std::unique_ptr<DropTable> dropTable;
  std::unique_ptr<DropIndex> dropIndex;
  std::unique_ptr<AlterTable> alterTable;
};

}  // namespace engine::sql
