#include <algorithm>

#include "engine/plan/binder.h"
#include "engine/plan/names.h"

/// Conditions joined by OR, each of which an index answers in the order that is asked for ("sortbegriff like
/// 'a*' or ebene = 2"). SQLite's own way with OR gives up the order, and with it the first rows at once.
namespace engine::plan {
namespace {

constexpr std::size_t mostAlternatives = 16;  // each is a select of its own, merged with the others

std::shared_ptr<const Alternatives> alternatives(int key, int column, std::vector<std::string> conditions) {
  return std::make_shared<const Alternatives>(Alternatives{key, column, std::move(conditions)});
}

/// As the file keeps it: names without the alias that they have in this statement.
std::string bareCondition(const Key& key, const Bound& column, const std::string& text) {
  const std::string alias = key.rowid.substr(0, key.rowid.find('.') + 1);
  const std::size_t place = text.find(column.text);
  if (alias.empty() || place == std::string::npos || !column.text.starts_with(alias)) return {};
  return text.substr(0, place) + text.substr(place + alias.size());
}

}  // namespace

void noteKept(const Binder& binder, const Bound& a, const Bound& b, Bound& condition) {
  const Bound& column = a.constant ? b : a;
  const Bound& constant = a.constant ? a : b;
  const auto table = binder.tables.find(column.key);
  if (!constant.constant || !column.direct || table == binder.tables.end()) return;
  const Key& key = table->second;
  const int order = key.file->keptInOrderOf(*key.table, bareCondition(key, column, condition.text));
  if (order >= 0) condition.alternatives = alternatives(key.id, order, {condition.text});
}

void noteBoth(const Bound& a, const Bound& b, Bound& made) {
  const Bound& few = a.alternatives ? a : b;
  const Bound& other = a.alternatives ? b : a;
  if (!few.alternatives) return;
  std::vector<std::string> conditions;
  for (const std::string& text : few.alternatives->conditions)
    conditions.push_back("(" + text + " AND " + condition(other) + ")");
  made.alternatives = alternatives(few.alternatives->key, few.alternatives->column, std::move(conditions));
}

void noteEither(const Bound& a, const Bound& b, Bound& made) {
  if (!a.alternatives || !b.alternatives || a.alternatives->key != b.alternatives->key ||
      a.alternatives->column != b.alternatives->column)
    return;
  std::vector<std::string> conditions = a.alternatives->conditions;
  for (const std::string& text : b.alternatives->conditions)
    if (std::ranges::find(conditions, text) == conditions.end()) conditions.push_back(text);
  if (conditions.size() > mostAlternatives) return;
  made.alternatives = alternatives(a.alternatives->key, a.alternatives->column, std::move(conditions));
}

std::vector<std::string> alternativeTails(const Body& body, int& column) {
  const Chain& chain = body.chain;
  column = -1;
  if (!body.plain() || chain.members.size() != 1 || chain.members[0].keys.size() != 1) return {};
  const Key& key = chain.members[0].keys[0];
  const auto found = std::ranges::find_if(chain.where, [&](const Term& term) {
    return term.alternatives && term.alternatives->conditions.size() > 1 && term.alternatives->key == key.id;
  });
  if (key.id != chain.members[0].id || found == chain.where.end()) return {};
  std::string others;
  for (const Term& term : chain.where)
    if (&term != &*found) others += " AND " + term.text;
  std::vector<std::string> tails;
  std::string before;  // a row that meets an earlier one has been given there
  for (const std::string& text : found->alternatives->conditions) {
    tails.push_back(" FROM " + fromText(chain) + " WHERE " + text + before + others);
    before += " AND " + text + " IS NOT TRUE";
  }
  column = found->alternatives->column;
  return tails;
}

}  // namespace engine::plan
