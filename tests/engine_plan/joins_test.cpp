#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <random>

#include "words.h"

namespace {

using test::Row;
using test::Rows;

/// Random joins of small tables with Nulls and repeated values, each run through the binder and compared with
/// loops that follow the joins as they are written.
class RandomJoins {
 public:
  explicit RandomJoins(unsigned seed) : random_(seed) {
    test::MemoryFile& file = files.add("A.CVB");
    for (int t = 0; t < tableCount; ++t) {
      const std::string name(1, static_cast<char>('A' + t));
      file.define("CREATE TABLE " + name + " (K COUNTER, X LONG, Y LONG)");
      file.define("CREATE UNIQUE INDEX PrimaryKey ON " + name + " (K) WITH PRIMARY");
      file.define("CREATE INDEX X ON " + name + " (X)");
      std::string rows;
      for (int k = 1; k <= 4; ++k) {
        tables_[name].push_back({{name + "K", k}, {name + "X", cell()}, {name + "Y", cell()}});
        const Record& row = tables_[name].back();
        rows += (k > 1 ? ", (" : "(") + std::to_string(k) + ", " + shown(row.at(name + "X")) + ", " +
                shown(row.at(name + "Y")) + ")";
      }
      file.insert(name, rows);
    }
  }

  /// One statement and the rows it has to give, each as the keys of all tables in the order of their names.
  struct Case {
    std::string statement;
    Rows expected;
  };
  Case next() {
    unused_.clear();
    for (const auto& [name, rows] : tables_) unused_.push_back(name);
    std::shuffle(unused_.begin(), unused_.end(), random_);
    unused_.resize(2 + random_() % (tableCount - 1));
    used_ = unused_;
    const Relation relation = join(static_cast<int>(unused_.size()));
    std::string where;
    std::vector<Record> rows = relation.rows;
    if (random_() % 2 == 0) {
      const Condition condition = compare(relation, relation);
      where = " WHERE " + condition.text;
      std::erase_if(rows, [&](const Record& row) { return !condition.holds(row); });
    }
    std::sort(used_.begin(), used_.end());
    Case made;
    for (const std::string& table : used_)
      made.statement += (made.statement.empty() ? "SELECT " : ", ") + relation.range(table) + ".K" + table;
    made.statement += " FROM " + relation.text + where;
    for (const Record& row : rows) {
      Row& keys = made.expected.emplace_back();
      for (const std::string& table : used_) keys.push_back(shown(row.at(table + "K"), "~"));
    }
    std::sort(made.expected.begin(), made.expected.end());
    return made;
  }

  test::MemoryFiles files;

 private:
  static constexpr int tableCount = 5;
  using Record = std::map<std::string, std::optional<int>>;  // "AX" to the value of column X of table A
  struct Relation {
    std::string text;
    std::vector<std::string> names;              // tables within
    std::map<std::string, std::string> through;  // table to the query that shows its columns, renamed
    std::vector<Record> rows;
    std::string range(const std::string& table) const {
      const auto found = through.find(table);
      return found == through.end() ? "S" + table : found->second;
    }
  };
  struct Condition {
    std::string text;
    std::function<bool(const Record&)> holds;
  };

  std::optional<int> cell() {
    const auto number = random_() % 4;
    return number == 0 ? std::nullopt : std::optional<int>(static_cast<int>(number));
  }
  static std::string shown(std::optional<int> value, const char* null = "NULL") {
    return value ? std::to_string(*value) : null;
  }

  std::string column(const Relation& relation, std::string& key) {
    const std::string& table = relation.names[random_() % relation.names.size()];
    const char which = "KXY"[random_() % 3];
    key = table + which;
    return relation.range(table) + "." + which + table;
  }

  /// Mostly equalities; also what is true of missing rows.
  Condition compare(const Relation& left, const Relation& right) {
    std::string a, b;
    const std::string first = column(left, a), second = column(right, b);
    switch (random_() % 6) {
      case 0:
        return {first + " IS NULL", [a](const Record& row) { return !row.at(a); }};
      case 1:
        return {"(" + first + " < " + second + " OR " + second + " IS NULL)",
                [a, b](const Record& row) { return !row.at(b) || (row.at(a) && *row.at(a) < *row.at(b)); }};
      default:
        return {first + " = " + second,
                [a, b](const Record& row) { return row.at(a) && row.at(b) && *row.at(a) == *row.at(b); }};
    }
  }

  /// A table as a query that names its columns after it, so that every column has a name of its own.
  Relation leaf() {
    const std::string table = unused_.back();
    unused_.pop_back();
    Relation relation;
    relation.names = {table};
    relation.rows = tables_.at(table);
    relation.text = "S" + table;
    // A computed column is Null, too, where an outer join finds no row.
    const std::string key = random_() % 3 == 0 ? "IIf(isnull(K), 9, K)" : "K";
    std::string text =
        "SELECT " + key + " AS K" + table + ", X AS X" + table + ", Y AS Y" + table + " FROM " + table;
    if (random_() % 4 == 0) {
      text += " WHERE X = 1";
      std::erase_if(relation.rows, [&](const Record& row) { return row.at(table + "X") != 1; });
    }
    files.file().addQuery(relation.text, text);
    return relation;
  }

  Relation join(int count) {
    if (count == 1) return leaf();
    const int onTheLeft = 1 + static_cast<int>(random_() % static_cast<unsigned>(count - 1));
    Relation left = join(onTheLeft), right = join(count - onTheLeft);
    Relation made;
    for (const Relation* side : {&left, &right}) {
      made.names.insert(made.names.end(), side->names.begin(), side->names.end());
      made.through.insert(side->through.begin(), side->through.end());
    }
    const auto kind = random_() % 3;
    Condition condition = compare(left, right);
    if (random_() % 3 == 0) {
      const Condition more = compare(right, left);
      condition = {condition.text + " AND " + more.text,
                   [a = condition.holds, b = more.holds](const Record& row) { return a(row) && b(row); }};
    }
    const char* words[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN "};
    made.text = "(" + left.text + words[kind] + right.text + " ON " + condition.text + ")";
    made.rows = joined(kind == 2 ? right : left, kind == 2 ? left : right, kind != 0, condition);
    if (random_() % 4 == 0) store(made);
    return made;
  }

  static std::vector<Record> joined(const Relation& kept, const Relation& other, bool outer,
                                    const Condition& condition) {
    std::vector<Record> rows;
    for (const Record& a : kept.rows) {
      bool found = false;
      for (const Record& b : other.rows) {
        Record both = a;
        both.insert(b.begin(), b.end());
        if (!condition.holds(both)) continue;
        rows.push_back(std::move(both));
        found = true;
      }
      if (found || !outer) continue;
      Record alone = a;
      for (const std::string& name : other.names)
        for (const char which : {'K', 'X', 'Y'}) alone[name + which] = std::nullopt;
      rows.push_back(std::move(alone));
    }
    return rows;
  }

  /// Makes a stored query of what there is so far.
  void store(Relation& relation) {
    const std::string name = "Q" + std::to_string(++queries_);
    std::string list;
    for (const std::string& table : relation.names)
      for (const char which : {'K', 'X', 'Y'})
        list += (list.empty() ? "" : ", ") + relation.range(table) + "." + which + table;
    std::string where;
    if (random_() % 2 == 0) {
      const Condition condition = compare(relation, relation);
      where = " WHERE " + condition.text;
      std::erase_if(relation.rows, [&](const Record& row) { return !condition.holds(row); });
    }
    files.file().addQuery(name, "SELECT " + list + " FROM " + relation.text + where);
    relation.text = name;
    for (const std::string& table : relation.names) relation.through[table] = name;
  }

  std::mt19937 random_;
  std::map<std::string, std::vector<Record>> tables_;
  std::vector<std::string> unused_, used_;
  int queries_ = 0;
};

TEST(Joins, GiveTheRowsOfLoopsHoweverTheyNest) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    RandomJoins joins(seed);
    for (int i = 0; i < 25; ++i) {
      const RandomJoins::Case made = joins.next();
      const engine::plan::Plan plan = joins.files.bind(made.statement);
      Rows rows = joins.files.fetch(emitRows(plan));
      Rows backwards = joins.files.fetch(emitKeys(plan, {}, true));
      const Rows keys = joins.files.fetch(emitKeys(plan));
      std::reverse(backwards.begin(), backwards.end());
      EXPECT_EQ(keys, backwards) << made.statement;
      for (std::size_t at = 0; at < std::min<std::size_t>(rows.size(), 3); ++at) {
        std::vector<engine::Value> key;
        for (const std::string& rowid : keys[at])
          key.push_back(rowid == "~" ? engine::Value() : engine::Value(std::stoi(rowid)));
        EXPECT_EQ(joins.files.fetch(emitRowByKey(plan), key), Rows{rows[at]}) << made.statement;
      }
      std::sort(rows.begin(), rows.end());
      ASSERT_EQ(rows, made.expected) << "seed " << seed << "\n" << made.statement << "\n" << emitRows(plan);
    }
  }
}

}  // namespace
