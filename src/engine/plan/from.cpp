#include <algorithm>
#include <iterator>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"
#include "engine/sql/parser.h"

namespace engine::plan {
namespace {

/// More than any statement of ours reaches, and few enough that a circle of queries that doubles at each
/// step ends at once.
constexpr std::size_t mostTables = 2000;
constexpr std::size_t deepestQuery = 40;

/// A bound item of a FROM clause.
struct Item {
  Chain chain;
  std::vector<Range> ranges;
  std::vector<OrderTerm> order;  ///< of a stored query or nested select that is the whole item
};

struct Place {
  const schema::Catalog& file;  ///< where tables are looked up
  const schema::Catalog& own;   ///< where nested selects look up theirs
  const Level* outer;
  Refs& escaped;  ///< gathers what of the outer levels is named
};

void count(Binder& binder) {
  if (++binder.bound > mostTables) refuse("The statement reads too many tables and queries");
}

Item bindTable(Binder& binder, const schema::Catalog& file, const schema::Table& table,
               const std::string& name) {
  const int id = binder.nextId++;
  const std::string alias = "t" + std::to_string(id);
  Member member;
  member.id = id;
  member.text = file.schemaName() + "." + schema::quoteName(table.name) + " AS " + alias;
  member.present = rowidText(table, alias);
  member.keys = {Key{id, &file, &table, member.present, false}};

  binder.tables.emplace(id, member.keys.front());

  Range range;
  range.name = name;
  range.columns.reserve(table.columns.size());
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const schema::Column& from = table.columns[i];
    Column& column = range.columns.emplace_back();
    column.name = from.name;
    column.size = from.size;
    column.ancestors.push_back({0, name, from.name});
    column.value.text = alias + "." + schema::quoteName(from.name);
    column.value.type = from.type;
    if (isText(column.value)) column.value.collation = file.collation();
    column.value.direct = column.value.affinity = true;
    column.value.key = id;
    column.value.position = static_cast<int>(i);
    column.value.refs = {id};
  }
  Item item;
  item.chain.members.push_back(std::move(member));
  item.ranges.push_back(std::move(range));
  return item;
}

/// A bound query as an item that is called `name`: merged where it is nothing but a join, else nested.
Item fromBody(Binder& binder, Body body, const std::string& name, bool asNested) {
  if (asNested || !body.plain()) nest(binder, body);
  Item item;
  item.chain = std::move(body.chain);
  item.order = std::move(body.order);
  Range range;
  range.name = name;
  for (Column& column : body.outputs) {
    for (Ancestor& ancestor : column.ancestors) ++ancestor.depth;
    column.ancestors.insert(column.ancestors.begin(), Ancestor{0, name, column.name});
    range.columns.push_back(std::move(column));
  }
  item.ranges.push_back(std::move(range));
  return item;
}

Body bindQuery(Binder& binder, const schema::Catalog& file, const schema::StoredQuery& query) {
  const Binder::QueryKey key{&file, &query};
  if (std::find(binder.open.begin(), binder.open.end(), key) != binder.open.end())
    refuse("The query '" + query.name + "' selects from itself");
  if (binder.open.size() >= deepestQuery) refuse("The query '" + query.name + "' lies too deep");
  auto& tree = binder.queries[key];
  if (!tree) tree = std::make_shared<const sql::Statement>(sql::parse(query.text));
  if (tree->kind != sql::StatementKind::select || !tree->select->into.empty())
    refuse("The query '" + query.name + "' gives no rows");
  declareParameters(binder, tree->parameters);
  binder.open.push_back(key);
  const std::shared_ptr<const sql::Statement> kept = tree;
  Body body = bindSelect(binder, *kept->select, file, nullptr);
  binder.open.pop_back();
  return body;
}

Item bindItem(Binder& binder, const Place& place, const sql::From& from);

/// A join as one nested select, for where its parts can not be joined to the rest one by one.
Item nested(Binder& binder, Item item) {
  Body body;
  body.chain = std::move(item.chain);
  for (const Range& range : item.ranges)
    body.outputs.insert(body.outputs.end(), range.columns.begin(), range.columns.end());
  nest(binder, body);
  item.chain = std::move(body.chain);
  auto output = body.outputs.begin();
  for (Range& range : item.ranges)
    for (Column& column : range.columns) column = std::move(*output++);
  return item;
}

/// A computed column of the side that may be missing is Null then, whatever it computes.
void guardColumns(std::vector<Range>& ranges, const Member& first) {
  for (Range& range : ranges) {
    for (Column& column : range.columns) {
      if (column.value.direct) continue;
      column.value.text =
          "(CASE WHEN " + first.present + " IS NOT NULL THEN " + value(column.value) + " END)";
      column.value.condition = false;
      column.value.constant.reset();
      column.value.parameter = -1;
      column.value.refs.insert(first.id);
    }
  }
}

Item bindJoin(Binder& binder, const Place& place, const sql::From& from) {
  const bool rightJoin = from.join == sql::JoinKind::right;
  Item left = bindItem(binder, place, *from.left);
  Item right = bindItem(binder, place, *from.right);
  const std::size_t written = left.ranges.size();

  Level level;
  level.outer = place.outer;
  level.file = &place.file;
  level.own = &place.own;
  level.ranges = std::move(left.ranges);
  std::move(right.ranges.begin(), right.ranges.end(), std::back_inserter(level.ranges));
  std::vector<Term> on;
  bindTerms(binder, level, *from.on, on);
  join(place.escaped, level.escaped);

  Item item;
  if (from.join == sql::JoinKind::inner) {
    item.chain = innerJoin(std::move(left.chain), std::move(right.chain), std::move(on));
    item.ranges = std::move(level.ranges);
    return item;
  }
  Chain& preserved = rightJoin ? right.chain : left.chain;
  Chain& missing = rightJoin ? left.chain : right.chain;
  const Member first = missing.members.front();
  if (!leftJoin(preserved, missing, on)) {
    // Bound once more, with this side as a nested select; noted, so that no item is tried a third time.
    binder.nested.insert(rightJoin ? from.left.get() : from.right.get());
    return bindItem(binder, place, from);
  }
  item.chain = std::move(preserved);
  const auto middle = level.ranges.begin() + static_cast<std::ptrdiff_t>(written);
  std::vector<Range> leftRanges(std::make_move_iterator(level.ranges.begin()),
                                std::make_move_iterator(middle));
  std::vector<Range> rightRanges(std::make_move_iterator(middle),
                                 std::make_move_iterator(level.ranges.end()));
  guardColumns(rightJoin ? leftRanges : rightRanges, first);
  item.ranges = std::move(leftRanges);
  std::move(rightRanges.begin(), rightRanges.end(), std::back_inserter(item.ranges));
  return item;
}

/// SQLite joins no more.
void limit(const Chain& chain) {
  if (chain.members.size() > 64) refuse("The statement joins more than 64 tables");
}

Item bindItem(Binder& binder, const Place& place, const sql::From& from) {
  const bool asNested = binder.nested.count(&from) != 0;
  if (from.kind == sql::From::Kind::join) {
    Item item = bindJoin(binder, place, from);
    limit(item.chain);
    return asNested ? nested(binder, std::move(item)) : std::move(item);
  }
  count(binder);
  const std::string& name = from.alias.empty() ? from.table : from.alias;
  if (from.kind == sql::From::Kind::select) {
    Body body = bindSelect(binder, *from.select, place.own, place.outer);
    join(place.escaped, body.escaped);
    return fromBody(binder, std::move(body), name, asNested);
  }
  if (const schema::Table* table = place.file.table(from.table))
    return bindTable(binder, place.file, *table, name);
  if (const schema::StoredQuery* query = place.file.query(from.table))
    return fromBody(binder, bindQuery(binder, place.file, *query), name, asNested);
  throw Error(errors::inputNotFound, "There is no table or query '" + from.table + "'");
}

}  // namespace

Chain bindFrom(Binder& binder, Level& level, std::span<const sql::FromPtr> from,
               std::vector<OrderTerm>& order) {
  const Place place{*level.file, *level.own, level.outer, level.escaped};
  Chain chain;
  for (const sql::FromPtr& item : from) {
    Item bound = bindItem(binder, place, *item);
    std::move(bound.ranges.begin(), bound.ranges.end(), std::back_inserter(level.ranges));
    chain = innerJoin(std::move(chain), std::move(bound.chain), {});
    limit(chain);
    if (from.size() == 1) order = std::move(bound.order);
  }
  return chain;
}

void bindTerms(Binder& binder, const Level& level, const sql::Expr& expr, std::vector<Term>& terms) {
  if (expr.kind == sql::ExprKind::binary && expr.op == "AND") {
    bindTerms(binder, level, *expr.args[0], terms);
    bindTerms(binder, level, *expr.args[1], terms);
    return;
  }
  binder.nullIsFalse = true;
  const Bound bound = bindExpression(binder, level, expr);
  if (bound.aggregate) refuse("An aggregate can not stand in a condition on rows");
  terms.push_back({condition(bound), bound.refs, bound.link, false, bound.alternatives});
}

}  // namespace engine::plan
