#include <algorithm>

#include "base/text.h"
#include "engine/plan/binder.h"
#include "engine/plan/names.h"

/// DISTINCTROW. A table that gives no column can make rows of the others repeat. Where it links two
/// tables, as the relation tables do, all but the first of its rows with the same link are left out by a
/// condition, and the select stays a plain join. Otherwise the rows are grouped.
namespace engine::plan {
namespace {

const Member* memberOf(const Chain& chain, int id) {
  const auto found = std::find_if(chain.members.begin(), chain.members.end(),
                                  [&](const Member& member) { return member.id == id; });
  return found == chain.members.end() ? nullptr : &*found;
}

bool isTable(const Member& member) {
  return member.keys.size() == 1 && member.keys[0].id == member.id;
}

/// Every term that can tie the member to another, each with whether it stands in the other's ON.
std::vector<const Term*> termsReading(const Chain& chain, int id) {
  std::vector<const Term*> terms;
  for (const Member& member : chain.members)
    for (const Term& term : member.on)
      if (term.refs.count(id) != 0 || member.id == id) terms.push_back(&term);
  for (const Term& term : chain.where)
    if (term.refs.count(id) != 0) terms.push_back(&term);
  return terms;
}

/// Whether the columns hold a unique key of the table, counters included.
bool holdsKey(const schema::Table& table, const std::set<int>& columns) {
  if (table.counter() >= 0 && columns.count(table.counter()) != 0 && table.primaryKey() != nullptr &&
      table.primaryKey()->columns.size() == 1 &&
      table.find(table.primaryKey()->columns[0]) == table.counter())
    return true;
  return std::any_of(table.indexes.begin(), table.indexes.end(), [&](const schema::Index& index) {
    return (index.primary || index.unique) && !index.columns.empty() &&
           std::all_of(index.columns.begin(), index.columns.end(),
                       [&](const std::string& name) { return columns.count(table.find(name)) != 0; });
  });
}

/// Whether one row of this member at most belongs to given rows of the `told` ones.
bool isTold(const Chain& chain, const Member& member, const Refs& told) {
  if (!isTable(member)) return false;
  std::set<int> columns;
  for (const Term& term : member.outer ? member.on : chain.where) {
    if (!term.link) continue;
    if (term.link->left == member.id && told.count(term.link->right) != 0)
      columns.insert(term.link->leftColumn);
    if (term.link->right == member.id && told.count(term.link->left) != 0)
      columns.insert(term.link->rightColumn);
  }
  return holdsKey(*member.keys[0].table, columns);
}

Refs toldBy(const Chain& chain, Refs told) {
  for (bool more = true; more;) {
    more = false;
    for (const Member& member : chain.members) {
      if (told.count(member.id) != 0 || !isTold(chain, member, told)) continue;
      told.insert(member.id);
      more = true;
    }
  }
  return told;
}

struct Tie {
  int column;  ///< of the linking table
  const Member* other;
  int otherColumn;
  bool downstream;  ///< the other is joined to the linking table and may be missing
};

/// The linking table's ties, or nothing when it is more than a link between told members.
std::optional<std::vector<Tie>> tiesOf(const Chain& chain, const Member& member, const Refs& told) {
  std::vector<Tie> ties;
  for (const Term* term : termsReading(chain, member.id)) {
    if (term->filter) continue;
    if (term->refs.count(member.id) == 0) {
      if (!std::includes(told.begin(), told.end(), term->refs.begin(), term->refs.end())) return std::nullopt;
      continue;
    }
    if (!term->link) return std::nullopt;
    const bool left = term->link->left == member.id;
    const int other = left ? term->link->right : term->link->left;
    if (told.count(other) == 0) return std::nullopt;
    const Member* otherMember = memberOf(chain, other);
    if (otherMember == nullptr || !isTable(*otherMember)) return std::nullopt;
    const bool downstream = std::any_of(otherMember->on.begin(), otherMember->on.end(),
                                        [&](const Term& on) { return &on == term; });
    // More than the tie decides whether the other row is found; then its absence can have two reasons.
    if (downstream && otherMember->on.size() != 1) return std::nullopt;
    ties.push_back({left ? term->link->leftColumn : term->link->rightColumn, otherMember,
                    left ? term->link->rightColumn : term->link->leftColumn, downstream});
  }
  if (std::none_of(ties.begin(), ties.end(), [](const Tie& tie) { return !tie.downstream; }))
    return std::nullopt;
  return ties;
}

std::string columnText(const Key& key, const std::string& alias, int column) {
  return alias + "." + schema::quoteName(key.table->columns[static_cast<std::size_t>(column)].name);
}

std::string collateFor(const Key& key, int column) {
  const ColumnType type = key.table->columns[static_cast<std::size_t>(column)].type;
  if (type != ColumnType::text && type != ColumnType::memo) return {};
  return " COLLATE " + schema::quoteName(key.file->collation());
}

std::string tableText(const Key& key, const std::string& alias) {
  return key.file->schemaName() + "." + schema::quoteName(key.table->name) + " AS " + alias;
}

/// "there is no earlier row with the same ties".
Term firstOfItsKind(Binder& binder, const Member& member, const std::vector<Tie>& ties) {
  const Key& key = member.keys[0];
  const std::string mine = "t" + std::to_string(member.id), twin = "t" + std::to_string(binder.nextId++);
  std::string text = "(NOT EXISTS (SELECT 1 FROM " + tableText(key, twin) + " WHERE " +
                     rowidText(*key.table, twin) + " < " + key.rowid;
  for (const Tie& tie : ties) {
    const std::string here = columnText(key, mine, tie.column), there = columnText(key, twin, tie.column);
    const std::string collation = collateFor(key, tie.column);
    if (!tie.downstream) {
      text += " AND " + there + collation + " = " + here;
      continue;
    }
    // Two values that both find no row say the same.
    const Key& other = tie.other->keys[0];
    const std::string found = "t" + std::to_string(binder.nextId++);
    const std::string question = "NOT EXISTS (SELECT 1 FROM " + tableText(other, found) + " WHERE " +
                                 columnText(other, found, tie.otherColumn) +
                                 collateFor(other, tie.otherColumn) + " = ";
    text += " AND (" + there + collation + " IS " + here + " OR (" + question + there + ") AND " + question +
            here + ")))";
  }
  return {text + "))", {member.id}, std::nullopt, true};
}

Refs givers(const Body& body) {
  Refs giving;
  for (const Column& output : body.outputs) join(giving, output.value.refs);
  return giving;
}

}  // namespace

void dropRepeats(Binder& binder, Body& body) {
  Chain& chain = body.chain;
  const Refs giving = givers(body);
  const Refs told = toldBy(chain, giving);
  bool grouped = false;
  std::vector<std::pair<int, Term>> filters;
  for (const Member& member : chain.members) {
    if (told.count(member.id) != 0) continue;
    const auto ties = isTable(member) ? tiesOf(chain, member, told) : std::nullopt;
    if (!ties) {
      grouped = true;
      break;
    }
    const auto terms = termsReading(chain, member.id);
    if (std::none_of(terms.begin(), terms.end(), [](const Term* term) { return term->filter; }))
      filters.emplace_back(member.id, firstOfItsKind(binder, member, *ties));
  }
  if (!grouped) {
    for (auto& [id, filter] : filters) {
      const auto member = std::find_if(chain.members.begin(), chain.members.end(),
                                       [id = id](const Member& m) { return m.id == id; });
      (member->outer ? member->on : chain.where).push_back(std::move(filter));
    }
    return;
  }
  for (const Member& member : chain.members) {
    if (giving.count(member.id) == 0) continue;
    if (!member.keyed) {
      body.repeats.clear();
      return;
    }
    for (const Key& key : member.keys) body.repeats.push_back(key.rowid);
  }
}

bool rowsDiffer(const Body& body) {
  if (body.aggregated || body.chain.members.empty()) return false;
  Refs told;
  for (const Member& member : body.chain.members) {
    if (!isTable(member)) return false;
    std::set<int> columns;
    for (const Column& output : body.outputs)
      if (output.value.key == member.id) columns.insert(output.value.position);
    if (holdsKey(*member.keys[0].table, columns)) told.insert(member.id);
  }
  return toldBy(body.chain, told).size() >= body.chain.members.size();
}

}  // namespace engine::plan
