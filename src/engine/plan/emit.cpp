#include <algorithm>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"
#include "engine/plan/result.h"

namespace engine::plan {
namespace {

std::string joined(const std::vector<std::string>& parts, const char* between) {
  std::string text;
  for (const std::string& part : parts) {
    if (!text.empty()) text += between;
    text += part;
  }
  return text;
}

std::string both(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return a.empty() ? b : a;
  return a + " AND (" + b + ")";
}

std::string clause(const char* keyword, const std::string& content) {
  return content.empty() ? std::string() : keyword + content;
}

std::string rowids(const Plan& plan) {
  std::string text;
  for (const Source& source : plan.sources) text += (text.empty() ? "" : ", ") + source.rowid;
  return text;
}

std::string limited(const Plan& plan) {
  return plan.limit ? " LIMIT " + std::to_string(*plan.limit) : std::string();
}

std::string statement(const Plan& plan, const std::string& list, const std::string& extraWhere,
                      const std::string& order) {
  return (plan.distinct ? "SELECT DISTINCT " : "SELECT ") + list + clause(" FROM ", plan.from) +
         clause(" WHERE ", both(plan.where, extraWhere)) + clause(" GROUP BY ", plan.groupBy) +
         clause(" ORDER BY ", order);
}

/// The rows of a TOP that meet a further condition, or the same rows backwards: TOP counts before either.
std::string withinLimit(const Plan& plan, const std::string& extraWhere) {
  if (!plan.limit) return extraWhere;
  std::string identity;
  for (const Source& source : plan.sources)
    identity += (identity.empty() ? "" : ", ") + std::string("ifnull(") + source.rowid + ", 'none')";
  const std::string member =
      "(" + identity + ") IN (" + statement(plan, identity, {}, plan.orderBy) + limited(plan) + ")";
  return extraWhere.empty() ? member : member + " AND (" + extraWhere + ")";
}

std::string forward(const Plan& plan, const std::string& list, const std::string& extraWhere) {
  if (extraWhere.empty()) return statement(plan, list, {}, plan.orderBy) + limited(plan);
  return statement(plan, list, withinLimit(plan, extraWhere), plan.orderBy);
}

void requireKeys(const Plan& plan) {
  if (!plan.keyed) throw Error(errors::readOnly, "The rows of this selection have no keys");
}

bool onlyTables(const Chain& chain) {
  return std::all_of(chain.members.begin(), chain.members.end(), [](const Member& member) {
    return member.keys.size() == 1 && member.keys[0].id == member.id;
  });
}

/// Each table looked up by its own key, without the conditions that once joined them.
std::string lookUpByKey(const Chain& chain, const std::string& list, std::size_t parameters) {
  std::string from, where, outer;
  std::size_t next = parameters;
  for (const Member& member : chain.members) {
    const std::string told = member.keys[0].rowid + " = ?" + std::to_string(++next);
    if (member.keys[0].outer) {
      outer += " LEFT JOIN " + member.text + " ON " + told;
    } else {
      from += (from.empty() ? "" : " CROSS JOIN ") + member.text;
      where += (where.empty() ? "" : " AND ") + told;
    }
  }
  return "SELECT " + list + " FROM " + from + outer + " WHERE " + where;
}

std::string filterByKey(const Plan& plan) {
  std::string where = plan.where;
  std::size_t next = plan.parameters.size();
  for (const Source& source : plan.sources)
    where += (where.empty() ? "" : " AND ") + source.rowid + " IS ?" + std::to_string(++next);
  return "SELECT " + plan.selectList + " FROM " + plan.from + " WHERE " + where + " LIMIT 1";
}

Output outputOf(const Column& column, const std::vector<Key>& keys) {
  Output output;
  output.name = column.written.empty() ? column.name : column.written;
  output.type = column.value.type.value_or(ColumnType::memo);
  output.size = column.size;
  if (isText(column.value) || !column.value.type) output.collation = column.value.collation;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (keys[i].id != column.value.key) continue;
    output.source = static_cast<int>(i);
    output.column = column.value.position;
  }
  return output;
}

void addLink(Plan& plan, const Term& term, const std::vector<Key>& keys) {
  if (!term.link) return;
  const auto position = [&](int id) {
    const auto found = std::find_if(keys.begin(), keys.end(), [id](const Key& key) { return key.id == id; });
    return found == keys.end() ? -1 : static_cast<int>(found - keys.begin());
  };
  const Link link{position(term.link->left), term.link->leftColumn, position(term.link->right),
                  term.link->rightColumn};
  if (link.source >= 0 && link.otherSource >= 0) plan.links.push_back(link);
}

void addSources(Plan& plan, const Chain& chain, const std::vector<Key>& keys) {
  for (const Key& key : keys) plan.sources.push_back({key.file, key.table, key.rowid, key.outer});
  for (const Member& member : chain.members)
    for (const Term& term : member.on) addLink(plan, term, keys);
  for (const Term& term : chain.where) addLink(plan, term, keys);
}

}  // namespace

bool Body::plain() const {
  return !chain.members.empty() && !aggregated && !distinct && repeats.empty() && !top;
}

bool Body::keyed() const {
  return !chain.members.empty() && !aggregated && !valuesAsked &&
         std::all_of(chain.members.begin(), chain.members.end(),
                     [](const Member& member) { return member.keyed; });
}

std::string rowidText(const schema::Table& table, const std::string& alias) {
  // A column may bear SQLite's own name for the row's identity, and then hides it.
  for (const char* name : {"rowid", "_rowid_", "oid"})
    if (table.find(name) < 0) return alias + "." + name;
  return alias + "." + schema::quoteName(table.columns[static_cast<std::size_t>(table.counter())].name);
}

std::string fromText(const Chain& chain) {
  std::string text;
  for (const Member& member : chain.members)
    if (!member.outer) text += (text.empty() ? "" : " JOIN ") + member.text;
  for (const Member& member : chain.members) {
    if (!member.outer) continue;
    text += " LEFT JOIN " + member.text + " ON " + (member.on.empty() ? "1" : conjunction(member.on));
  }
  return text;
}

std::string bodyText(const Body& body, bool firstArm, const std::string& further) {
  std::string text = body.distinct ? "SELECT DISTINCT " : "SELECT ";
  for (std::size_t i = 0; i < body.outputs.size(); ++i) {
    const Bound& output = body.outputs[i].value;
    text += (i > 0 ? ", " : "") + value(output);
    if ((firstArm || body.distinct) && !output.collation.empty())
      text += " COLLATE " + schema::quoteName(output.collation);
    text += " AS c" + std::to_string(i);
  }
  return text + further + bodyTail(body);
}

std::string bodyTail(const Body& body) {
  std::vector<std::string> groups = body.repeats;
  for (const Bound& group : body.groupBy) groups.push_back(group.text);
  return clause(" FROM ", fromText(body.chain)) + clause(" WHERE ", conjunction(body.chain.where)) +
         clause(" GROUP BY ", joined(groups, ", ")) + clause(" HAVING ", body.having);
}

namespace {

/// The order of a union as one compound, where each of its terms is a column; false when one is not.
bool orderArms(Plan& plan, const Body& body) {
  const std::string alias = "q" + std::to_string(body.chain.members.front().id) + ".c";
  const auto number = [](std::size_t n) { return std::to_string(n + 1); };
  const bool descending = !body.order.empty() && body.order.front().descending;
  std::string ties, tiesBackwards;
  // The last arm's rowid first: Null comes before all else, so that rows that tie come arm by arm.
  for (std::size_t n = plan.arms.size(); n-- > 0;) {
    const std::string before = ties.empty() && body.order.empty() ? "" : ", ";
    ties += before + plan.sources[n].rowid + (descending ? " DESC" : "");
    tiesBackwards += before + plan.sources[n].rowid + (descending ? "" : " DESC");
  }
  for (const OrderTerm& term : body.order) {
    if (!term.value.text.starts_with(alias)) return false;
    const std::string digits = term.value.text.substr(alias.size());
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return false;
    const std::size_t column = std::stoul(digits);
    plan.armsOrderColumns.push_back(column);
    plan.armsOrder += (plan.armsOrder.empty() ? "" : ", ") + number(plan.arms.size() + column);
    if (!term.value.collation.empty())
      plan.armsOrder += " COLLATE " + schema::quoteName(term.value.collation);
    if (term.descending) plan.armsOrder += " DESC";
  }
  for (std::size_t n = plan.arms.size(); n-- > 0;)
    plan.armsOrder += (plan.armsOrder.empty() ? "" : ", ") + number(n) + (descending ? " DESC" : "");
  plan.orderBy += ties;
  plan.orderByBackwards += tiesBackwards;
  return true;
}

/// Where the one column of the order is that of an arm's alternatives, these stand for the arm.
void takeAlternatives(Plan& plan, const Body& body) {
  if (plan.armsOrderColumns.size() != 1) return;
  for (std::size_t n = 0; n < plan.arms.size(); ++n) {
    const Arm& arm = body.arms[n];
    const int ordered = arm.positions[plan.armsOrderColumns.front()];
    if (ordered >= 0 && ordered == arm.alternativesColumn) plan.arms[n].tails = arm.alternatives;
  }
}

/// Makes the plan of a union of telling arms a keyed one.
void tellArms(Plan& plan, const Body& body) {
  const std::string alias = "q" + std::to_string(body.chain.members.front().id) + ".k";
  for (const Arm& arm : body.arms) {
    plan.sources.push_back({arm.key.file, arm.key.table, alias + std::to_string(plan.arms.size()), true});
    plan.arms.push_back(arm.texts);
  }
  plan.keyed = orderArms(plan, body);
  if (plan.keyed) {
    takeAlternatives(plan, body);
    plan.rowByKey = filterByKey(plan);
    return;
  }
  plan.sources.clear();
  plan.arms.clear();
}

/// All keys and the wanted columns of the arms, merged in their order: SQLite walks each arm's own index.
std::string armsTogether(const Plan& plan, const std::vector<bool>& wanted) {
  std::vector<std::string> selects;
  for (std::size_t arm = 0; arm < plan.arms.size(); ++arm) {
    std::string list;
    for (std::size_t n = 0; n < plan.arms.size(); ++n)
      list += (n > 0 ? ", " : "") + (n == arm ? plan.arms[arm].rowid : std::string("NULL"));
    for (std::size_t column = 0; column < wanted.size(); ++column)
      list += ", " + (wanted[column] ? plan.arms[arm].columns[column] : std::string("NULL"));
    for (const std::string& tail : plan.arms[arm].tails) selects.push_back("SELECT " + list + tail);
  }
  return joined(selects, " UNION ALL ") + " ORDER BY " + plan.armsOrder;
}

/// The rowid and `wanted` (each with ", " before it) of a table's rows, its alternatives merged in the order.
std::string alternativesTogether(const Plan& plan, const std::string& wanted, std::size_t columns) {
  std::vector<std::string> selects;
  for (const std::string& tail : plan.alternatives)
    selects.push_back("SELECT " + rowids(plan) + wanted + ", " + plan.mergedBy + tail);
  return joined(selects, " UNION ALL ") + " ORDER BY " + std::to_string(columns + 2) + plan.mergedDirection +
         ", 1" + plan.mergedDirection;
}

/// Where a condition of alternatives stands in a select on one table in the order that they have, notes them.
void noteAlternatives(Plan& plan, const Body& body) {
  if (body.order.size() != 1 || !body.keyed() || !body.repeats.empty()) return;
  int column = -1;
  std::vector<std::string> tails = alternativeTails(body, column);
  const OrderTerm& order = body.order.front();
  if (tails.empty() || order.value.key != body.chain.members[0].id || order.value.position != column) return;
  plan.alternatives = std::move(tails);
  plan.mergedBy = value(order.value);
  if (!order.value.collation.empty()) plan.mergedBy += " COLLATE " + schema::quoteName(order.value.collation);
  plan.mergedDirection = order.descending ? " DESC" : "";
}

std::vector<bool> withOrderColumns(const Plan& plan, std::vector<bool> wanted) {
  for (const std::size_t column : plan.armsOrderColumns) wanted[column] = true;
  return wanted;
}

}  // namespace

Plan finish(Binder& binder, Body body) {
  Plan plan;
  plan.parameters = binder.parameters;
  for (const auto& type : binder.parameterTypes)
    plan.parameterTypes.push_back(type.value_or(ColumnType::text));
  plan.keyed = body.keyed();
  plan.ordered = !body.order.empty();
  // TOP is kept as a piece where rows have keys, and DISTINCT where it stands alone.
  const bool nested =
      body.aggregated || (!plan.keyed && body.top) || (body.distinct && !body.repeats.empty());
  if (nested && !body.chain.members.empty()) nest(binder, body);

  std::vector<Key> keys;
  for (const Member& member : body.chain.members)
    keys.insert(keys.end(), member.keys.begin(), member.keys.end());
  if (plan.keyed) addSources(plan, body.chain, keys);
  for (const Column& output : body.outputs) {
    plan.columns.push_back(outputOf(output, plan.keyed ? keys : std::vector<Key>{}));
    plan.selectList += (plan.selectList.empty() ? "" : ", ") + value(output.value);
    if (body.distinct && !output.value.collation.empty())
      plan.selectList += " COLLATE " + schema::quoteName(output.value.collation);
  }
  plan.from = fromText(body.chain);
  plan.where = conjunction(body.chain.where);
  plan.groupBy = joined(body.repeats, ", ");
  plan.orderBy = orderText(body);
  plan.orderByBackwards = orderText(body, true);
  plan.distinct = body.distinct;
  plan.limit = body.top;
  if (plan.keyed)
    plan.rowByKey = onlyTables(body.chain) ? lookUpByKey(body.chain, plan.selectList, plan.parameters.size())
                                           : filterByKey(plan);
  if (!body.arms.empty() && !nested && !plan.limit && !plan.distinct) tellArms(plan, body);
  if (plan.keyed && body.arms.empty() && !plan.limit && !plan.distinct) noteAlternatives(plan, body);
  plan.scope = std::make_shared<const Scope>(Scope{std::move(body.outputs), body.file});
  return plan;
}

std::string emitRows(const Plan& plan, const std::string& extraWhere) {
  return forward(plan, plan.selectList, extraWhere);
}

std::string emitKeys(const Plan& plan, const std::string& extraWhere, bool backwards) {
  requireKeys(plan);
  if (!plan.arms.empty() && extraWhere.empty() && !backwards)
    return armsTogether(plan, withOrderColumns(plan, std::vector<bool>(plan.columns.size(), false)));
  if (!plan.alternatives.empty() && extraWhere.empty() && !backwards)
    return alternativesTogether(plan, {}, 0);
  if (!backwards) return forward(plan, rowids(plan), extraWhere);
  return statement(plan, rowids(plan), withinLimit(plan, extraWhere), plan.orderByBackwards);
}

std::string emitKeysAndRows(const Plan& plan, const std::string& extraWhere) {
  requireKeys(plan);
  if (!plan.arms.empty() && extraWhere.empty())
    return armsTogether(plan, std::vector<bool>(plan.columns.size(), true));
  if (!plan.alternatives.empty() && extraWhere.empty())
    return alternativesTogether(plan, ", " + plan.selectList, plan.columns.size());
  return forward(plan, rowids(plan) + ", " + plan.selectList, extraWhere);
}

std::string emitKeysAndSome(const Plan& plan, const std::vector<bool>& wanted,
                            const std::string& extraWhere) {
  requireKeys(plan);
  if (!plan.arms.empty() && extraWhere.empty()) return armsTogether(plan, withOrderColumns(plan, wanted));
  std::string list;
  for (std::size_t i = 0; i < plan.scope->columns.size(); ++i)
    list += ", " + (wanted[i] ? value(plan.scope->columns[i].value) : std::string("NULL"));
  if (!plan.alternatives.empty() && extraWhere.empty())
    return alternativesTogether(plan, list, plan.scope->columns.size());
  return forward(plan, rowids(plan) + list, extraWhere);
}

std::string emitRowByKey(const Plan& plan) {
  requireKeys(plan);
  return plan.rowByKey;
}

std::string emitCount(const Plan& plan, const std::string& extraWhere) {
  if (plan.groupBy.empty() && !plan.distinct && !plan.limit)
    return statement(plan, "count(*)", extraWhere, {});
  if (plan.distinct) return "SELECT count(*) FROM (" + statement(plan, plan.selectList, extraWhere, {}) + ")";
  return "SELECT count(*) FROM (" + forward(plan, "1", extraWhere) + ")";
}

}  // namespace engine::plan
