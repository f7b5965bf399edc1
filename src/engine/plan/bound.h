#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/plan/plan.h"

/// What the binder knows about a select while it works: expressions as SQLite text with their types, the
/// names that can be used, and the FROM clause as a chain of joins.
///
/// Every table instance and every nested select gets a number of its own within one statement, also across
/// subqueries and stored queries, and is called "t<n>" or "q<n>" in the emitted text. Text that was bound
/// inside a stored query therefore keeps its meaning when the query is merged into the select around it.
namespace engine::plan {

/// The instances that an expression reads.
using Refs = std::set<int>;

/// Two plain columns of two instances that a condition makes equal.
struct Equality {
  int left = -1, right = -1;              ///< instances
  int leftColumn = -1, rightColumn = -1;  ///< positions in their tables
};

/// Rows of one base table instance that an index offers for a condition: the condition is false for all
/// others, and still has to be put to these.
struct Candidates {
  int key = -1;  ///< the instance
  std::string rowid;
  std::vector<std::string> selects;  ///< of row numbers, for SQLite
  std::string condition;
  bool asked = false;  ///< the text asks for them; else another index serves the condition better on its own
};

/// Conditions of which a row of one base table instance meets at least one. For each of them an index hands
/// out its rows in the order of a column, so that a set in that order can merge them instead of looking at
/// every row of the table.
struct Alternatives {
  int key = -1;     ///< the instance
  int column = -1;  ///< position in its table
  std::vector<std::string> conditions;
};

/// A bound expression.
struct Bound {
  std::string text;                ///< for SQLite; may stand beside any operator as it is
  std::optional<ColumnType> type;  ///< nothing when only the running statement knows
  std::string collation;           ///< of a text that comes from a column; empty otherwise
  bool condition = false;          ///< the text gives 0 and 1; value() makes -1 of 1
  bool isNull = false;             ///< the literal Null
  std::optional<Value> constant;   ///< a literal
  bool direct = false;             ///< the text names a column, so it is Null where its row is missing
  bool affinity = false;           ///< SQLite converts what it is compared with to the column's type
  bool aggregate = false;
  int parameter = -1;            ///< a bare parameter, by its position
  int key = -1;                  ///< a column of the base table instance of this number ...
  int position = -1;             ///< ... and its position there
  std::optional<Equality> link;  ///< an equality of two such columns
  std::shared_ptr<const Candidates> candidates;
  std::shared_ptr<const Alternatives> alternatives;
  Refs refs;
};

/// Where a column comes from, one step of descent each: depth 0 is the table or query that the FROM clause
/// names, depth 1 what that query selects from, and so on. The arms of a UNION share a depth.
struct Ancestor {
  int depth = 0;
  std::string range;
  std::string name;
};

/// A column that can be named, of a table, of a query, or of a result.
struct Column {
  std::string name;
  std::string written;  ///< "Table.Column" where it bears that name because the short one repeats
  Bound value;
  int size = 0;
  std::vector<Ancestor> ancestors;
};

/// One item of a FROM clause as names see it.
struct Range {
  std::string name;
  std::vector<Column> columns;
};

/// A base table whose rows a select can tell apart.
struct Key {
  int id = 0;
  const schema::Catalog* file = nullptr;
  const schema::Table* table = nullptr;
  std::string rowid;  ///< SQLite text of its row's identity, Null when an outer join found none
  bool outer = false;
};

/// One term of a conjunction.
struct Term {
  std::string text;
  Refs refs;
  std::optional<Equality> link;
  bool filter = false;  ///< takes one of several equal rows, for DISTINCTROW
  std::shared_ptr<const Alternatives> alternatives = nullptr;
};

/// One table or nested select in a chain of joins.
struct Member {
  int id = 0;
  std::string text;       ///< 'd1."Woerterbuch" AS t3'
  bool outer = false;     ///< joined by LEFT JOIN on `on`
  std::vector<Term> on;   ///< of an outer member alone; inner conditions stand in Chain::where
  std::vector<Key> keys;  ///< itself, or the keys that a nested select hands out
  bool keyed = true;      ///< the keys tell its rows apart
  std::string present;    ///< text that is not Null when the member has a row
};

/// A FROM clause without nesting: each outer member reads only members before it.
struct Chain {
  std::vector<Member> members;
  std::vector<Term> where;
};

/// The names of one SELECT, with those of the selects around it.
struct Level {
  std::vector<Range> ranges;
  std::vector<const Column*> aliases;  ///< results named by AS, seen where no column is
  const Level* outer = nullptr;
  const schema::Catalog* file = nullptr;  ///< of the FROM clause: computed texts compare by its locale
  const schema::Catalog* own = nullptr;   ///< of the statement: subqueries look up their tables there
  mutable Refs escaped;                   ///< instances of outer levels that were named here or below
};

struct OrderTerm {
  Bound value;  ///< with the collation it is ordered by, empty where it can be no text
  bool descending = false;
};

/// One arm of a union whose rows are told by those of one table each.
struct Arm {
  Key key;
  UnionArm texts;
  std::vector<int> positions;             ///< of the outputs in the table, -1 for those that are computed
  int alternativesColumn = -1;            ///< what stands in the next comes in the order of this column
  std::vector<std::string> alternatives;  ///< tails as in UnionArm
};

/// A bound select or union.
struct Body {
  const schema::Catalog* file = nullptr;
  Chain chain;
  std::vector<Column> outputs;
  std::vector<Bound> groupBy;
  std::string having;
  bool aggregated = false;
  std::vector<OrderTerm> order;
  bool distinct = false;             ///< values
  bool valuesAsked = false;          ///< DISTINCT was written: the rows can not be told apart any more
  std::vector<std::string> repeats;  ///< row identities to group by where DISTINCTROW drops repeats
  std::optional<std::int64_t> top;
  std::vector<Arm> arms;  ///< of a union whose arms can not give equal rows; empty for all else
  Refs escaped;           ///< instances of the selects around it that it reads

  /// It is nothing but a join and a condition, so that it may become part of the FROM clause around it.
  bool plain() const;
  /// Its rows are told by the rows of base tables.
  bool keyed() const;
};

/// The expression as a value: conditions as -1 and 0.
std::string value(const Bound& bound);
bool isText(const Bound& bound);
bool isNumber(const Bound& bound);
bool isDate(const Bound& bound);
void join(Refs& into, const Refs& refs);
/// Terms joined by AND; empty for none.
std::string conjunction(const std::vector<Term>& terms);

}  // namespace engine::plan
