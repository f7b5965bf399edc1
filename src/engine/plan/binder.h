#pragma once

#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/plan/bound.h"

/// The binder's state for one statement, and its stages. Each stage is a free procedure in a file of its own.
namespace engine::plan {

struct Binder {
  explicit Binder(const Context& c) : context(c) {}
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  const Context& context;
  std::vector<std::string> parameters;
  std::vector<std::optional<ColumnType>> parameterTypes;
  bool parametersAllowed = true;  ///< false in criteria: an unknown name ends in 3070

  /// The expression that is bound next decides about rows, where Null is as good as false.
  bool nullIsFalse = false;
  std::map<int, Key> tables;  ///< of the base table instances, by number

  int nextId = 0;
  int lastExpression = 999;  ///< a result without a name is called Expr1000, Expr1001 ...
  std::size_t bound = 0;     ///< tables and queries so far, for the limit on the whole statement
  std::size_t effort = 0;    ///< what spend() counts
  /// FROM items that have to stay a nested select, found while trying to merge them.
  std::set<const sql::From*> nested;

  using QueryKey = std::pair<const schema::Catalog*, const schema::StoredQuery*>;
  std::map<QueryKey, std::shared_ptr<const sql::Statement>> queries;  ///< parsed once a statement
  std::vector<QueryKey> open;                                         ///< being expanded, to refuse a circle
};

/// Throws 3075 with a message for people.
[[noreturn]] void refuse(const std::string& message);
/// Counts bytes written and names compared: queries that double their expressions at each step would else
/// fill the memory. Throws 3075 far beyond what a real statement needs.
void spend(Binder& binder, std::size_t units);

// scope.cpp
/// The column that a path means among these ranges; null when there is none. Where two different columns
/// fit equally it throws 3075, or gives the first of them.
const Column* findColumn(const std::vector<Range>& ranges, const std::vector<std::string>& path,
                         bool firstOfMany);
/// A name in an expression: a column of this level or of one around it, a named result, else a parameter.
Bound bindName(Binder& binder, const Level& level, const sql::Expr& expr);
/// Notes a parameter and gives its position.
int parameterPosition(Binder& binder, const std::string& name);
void declareParameters(Binder& binder, const std::vector<sql::ParameterDecl>& declared);

// expression.cpp, comparison.cpp
Bound bindExpression(Binder& binder, const Level& level, const sql::Expr& expr);
/// The expression for a WHERE: SQLite's truth.
std::string condition(const Bound& bound);
Bound compare(const Level& level, const Bound& left, const std::string& op, const Bound& right);
/// `nullIsFalse`: see Binder.
Bound bindLike(Binder& binder, const Level& level, const sql::Expr& expr, bool nullIsFalse);
/// Makes the text of a condition ask for its candidates first.
void narrow(Bound& bound, Candidates candidates);
Bound bindIn(Binder& binder, const Level& level, const sql::Expr& expr, bool nullIsFalse);
/// The expression with the collation that its texts compare by; as it is when it can be no text.
std::string collated(const Level& level, const Bound& bound);
/// As text for joining and for LIKE: numbers in decimal, dates day first.
std::string asText(const Bound& bound);
/// The expression made comparable with a value of `type`. Throws 13 for a literal that can not be.
std::string coerced(const Bound& bound, ColumnType type);

// alternatives.cpp
/// Notes that a comparison of a column with a constant is the condition of rows that the file keeps in an
/// index of their own, in the order of some column.
void noteKept(const Binder& binder, const Bound& a, const Bound& b, Bound& condition);
/// What `both` and `either` mean for the alternatives of two conditions, for a new one with the text given.
void noteBoth(const Bound& a, const Bound& b, Bound& made);
void noteEither(const Bound& a, const Bound& b, Bound& made);
/// A body on one table whose condition has alternatives: the tails of the selects that give its rows
/// together, each row once, and the column in whose order an index gives each of them. Empty and -1 for other
/// bodies.
std::vector<std::string> alternativeTails(const Body& body, int& column);

// functions.cpp
Bound bindCall(Binder& binder, const Level& level, const sql::Expr& expr);

// from.cpp, chain.cpp
/// The FROM clause; adds its ranges in the order they are written. `order` becomes the order of a stored
/// query that is all of it.
Chain bindFrom(Binder& binder, Level& level, std::span<const sql::FromPtr> from,
               std::vector<OrderTerm>& order);
/// The AND-terms of a condition.
void bindTerms(Binder& binder, const Level& level, const sql::Expr& expr, std::vector<Term>& terms);
Chain innerJoin(Chain left, Chain right, std::vector<Term> on);
/// `left` LEFT JOIN `right`; false when that has no form without nesting (then nothing was changed).
bool leftJoin(Chain& left, Chain& right, const std::vector<Term>& on);

// select.cpp, order.cpp
/// A select with its UNION arms. `outer` is the level it is correlated with, null for none.
Body bindSelect(Binder& binder, const sql::Select& select, const schema::Catalog& file, const Level* outer);
/// The select's ORDER BY, which also sees columns that are not selected.
void bindOrder(Binder& binder, const Level& level, const sql::Select& select, Body& body);
/// Order of the first table's key, behind which ties are told apart by row identities.
std::string orderText(const Body& body, bool backwards = false);

// repeats.cpp
/// What DISTINCTROW asks for: repeats of the rows of tables that give columns are dropped.
void dropRepeats(Binder& binder, Body& body);
/// Whether no two rows can agree in all outputs, since each table has a unique key among them.
bool rowsDiffer(const Body& body);

// nest.cpp
/// Makes a body plain: the select as it is becomes one member, "(SELECT ...) AS q<n>", of a new one.
void nest(Binder& binder, Body& body);
/// The same with the select's finished text, whose columns are c0, c1, ... and "here".
void nestText(Binder& binder, Body& body, const std::string& text);

// emit.cpp
std::string fromText(const Chain& chain);
std::string rowidText(const schema::Table& table, const std::string& alias);
/// The statement of a body with columns c0, c1, ..., without its order. `further` is text behind the last
/// column. The columns of a union's first arm carry their collations: SQLite takes from them which rows
/// are equal.
std::string bodyText(const Body& body, bool firstArm = false, const std::string& further = {});
/// What stands behind the columns of bodyText.
std::string bodyTail(const Body& body);
Plan finish(Binder& binder, Body body);

}  // namespace engine::plan
