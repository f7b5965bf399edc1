#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/schema/schema.h"
#include "engine/sql/ast.h"

/// What the binder makes of a select: names resolved, stored queries expanded, ready to be emitted as
/// SQLite text in several shapes. Recordsets, action statements and criteria all start from a Plan.
namespace engine::plan {

/// A column of a base table, by its position there.
struct TableColumn {
  const schema::Catalog* file = nullptr;
  const schema::Table* table = nullptr;
  int column = 0;
};

/// Where names are looked up. `open` gives the catalogue of an IN "file", attaching it on demand; it has to
/// live as long as the plan. A text file such as "words.txt" is a table of a catalogue like any other.
struct Context {
  const schema::Catalog* file = nullptr;
  std::function<const schema::Catalog&(const std::string& path)> open;
  Interface way = Interface::first;
  /// Tells by their rows that no two of the columns can hold equal texts; empty: nothing is known of rows.
  std::function<bool(const std::vector<TableColumn>&, const std::string& collation)> apart;
};

/// One base table in the emitted FROM.
struct Source {
  const schema::Catalog* file = nullptr;
  const schema::Table* table = nullptr;
  std::string rowid;   ///< SQLite text of the row's identity in the emitted FROM ("t3.rowid")
  bool outer = false;  ///< may be missing (null side of an outer join)
};

/// One column of the result.
struct Output {
  std::string name;  ///< "begriff", or "table.column" where the short name repeats
  ColumnType type = ColumnType::text;
  int size = 0;
  std::string collation;  ///< SQLite collation name for text, else empty
  int source = -1;        ///< index into Plan::sources when it is a plain base column, else -1
  int column = -1;        ///< index into that table's columns
};

/// Two base columns that the joins of a plan set equal ("a.id = b.id" in ON or, for comma joins, in WHERE):
/// how a new row of one table finds or gets its row of the other.
struct Link {
  int source = 0, column = 0;  ///< index into Plan::sources and of the column in its table
  int otherSource = 0, otherColumn = 0;
};

/// One select of a union whose rows are told apart; SQLite text.
struct UnionArm {
  std::vector<std::string> columns;
  std::string rowid;
  std::vector<std::string> tails;  ///< from " FROM " on: the rows of the arm are those of all tails together
};

struct Scope;  // the names that a criterion over the plan may use

/// A bound select. Cheap to move, not to copy.
///
/// Parameters stand as ?1, ?2, ... in the order of `parameters` in every statement made from the plan; a
/// statement may not need all of them, so only those up to sqlite3_bind_parameter_count() can be bound.
struct Plan {
  std::vector<Output> columns;
  std::vector<Source> sources;             ///< base tables of the outermost FROM after expansion
  std::vector<Link> links;                 ///< between two different sources (keyed plans)
  std::vector<std::string> parameters;     ///< names as they are written, declared ones first
  std::vector<ColumnType> parameterTypes;  ///< declared type, text where undeclared
  /// The row is told by the sources' rowids: values can be read and written by key. False for DISTINCT,
  /// GROUP BY, aggregates and most unions (see `arms`), which are read-only.
  bool keyed = false;
  bool ordered = false;                ///< has an ORDER BY (own or inherited)
  std::shared_ptr<const Scope> scope;  ///< for bindCriterion and field names

  // Emitted pieces, SQLite text without their keywords; empty where absent. What groups or unites rows
  // stands nested in `from`.
  std::string selectList, from, where, orderBy, orderByBackwards;
  std::string groupBy;  ///< rowids, where DISTINCTROW drops repeats
  bool distinct = false;
  std::optional<std::int64_t> limit;
  std::string rowByKey;  ///< emitRowByKey's text
  /// Of a union of tables whose rows can not be equal: each arm has a source of its own, and a row has the
  /// rowid of one of them, Null for the others. It is keyed for reading; no column can be written.
  std::vector<UnionArm> arms;
  std::string armsOrder;                      ///< of the arms as one compound; columns stand by their numbers
  std::vector<std::size_t> armsOrderColumns;  ///< that have to be read for it
  /// Of one table, in the order of one column, with a condition of alternatives that have an index each: what
  /// stands behind " FROM ", once for each. No row is in two of them.
  std::vector<std::string> alternatives;
  std::string mergedBy, mergedDirection;  ///< the column, and " DESC" or nothing
};

/// Binds a select (with its UNION arms and stored queries). Throws 3078 for a missing table, 3061-free:
/// unknown names become parameters; 3075 for what can not be meant.
Plan bind(const sql::Statement& statement, const Context& context);

/// The field that a caller means by a name in any of its four forms; throws 3265.
std::size_t fieldIndex(const Plan& plan, std::string_view name);

/// A condition bound over the plan's columns, as SQLite text to be handed to the statements below as
/// `extraWhere`. Throws 3070 for an unknown name.
std::string bindCriterion(const Plan& plan, const sql::Expr& condition, const Context& context);
/// The same over copied rows of the plan, whose columns are called q.c0, q.c1, ...
std::string bindCriterionOnCopy(const Plan& plan, const sql::Expr& condition, const Context& context);

// Statements in the shapes that callers need. `extraWhere` is SQLite text to be joined with AND.
/// The result's columns, in order.
std::string emitRows(const Plan& plan, const std::string& extraWhere = {});
/// The sources' rowids only, in the result's order (keyed plans).
std::string emitKeys(const Plan& plan, const std::string& extraWhere = {}, bool backwards = false);
/// The sources' rowids followed by the result's columns, in order (keyed plans).
std::string emitKeysAndRows(const Plan& plan, const std::string& extraWhere = {});
/// The same with Null instead of the columns that are not wanted, which SQLite then need not read.
std::string emitKeysAndSome(const Plan& plan, const std::vector<bool>& wanted,
                            const std::string& extraWhere = {});
/// The result's columns of one row, told by rowids bound to ?<n+1>.. behind the n parameters (a rowid may
/// be bound to Null). Where the key is still there the row is given whether or not it meets the condition
/// by now; there is no row once one of the rows that it was joined of is gone.
std::string emitRowByKey(const Plan& plan);
/// The number of rows.
std::string emitCount(const Plan& plan, const std::string& extraWhere = {});

/// An action statement, bound: which rows of which table get which values.
struct Action {
  sql::StatementKind kind = sql::StatementKind::update;
  const schema::Catalog* file = nullptr;  ///< of the target
  const schema::Table* table = nullptr;   ///< null for a table that SELECT INTO makes
  std::string newTable;
  std::vector<int> targets;  ///< columns of `table` that rows.columns fill, in order
  /// insert: the values; update: rowid, then the new values; remove: the rowids alone.
  /// A single-row INSERT ... VALUES has a plan without sources.
  Plan rows;
  bool singleRow = false;  ///< INSERT ... VALUES: raises instead of skipping
};
Action bindAction(const sql::Statement& statement, const Context& context);

}  // namespace engine::plan
