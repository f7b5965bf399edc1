// "a or b or c" over one table, each with an index in the order asked for: the list is what a walk over all
// rows would show, and SQLite makes no such walk.

#include <algorithm>
#include <functional>
#include <random>

#include "engine/execute.h"
#include "engine/sql/parser.h"
#include "words.h"

namespace {

using engine::Value;

class Alternatives : public test::Words {
 protected:
  struct Row {
    std::int64_t id;
    std::string key;
    bool hasKey;
    std::int64_t level;
  };

  /// Entries of few letters, so that many tie, on two levels; some without a sort key or a level.
  void fill(int count) {
    std::mt19937 random(7);
    auto rows = database.OpenRecordset("Woerterbuch");
    for (int n = 0; n < count; ++n) {
      std::string word(1 + random() % 3, ' ');
      for (char& letter : word) letter = "abcdBW"[random() % 6];
      rows.AddNew();
      rows.set("Begriff", word);
      if (random() % 10 != 0) rows.set("SortBegriff", word);
      if (random() % 10 != 0) rows.set("Ebene", static_cast<int>(1 + random() % 3));
      rows.Update();
    }
  }
  std::vector<Row> all() {
    std::vector<Row> result;
    auto rows = sorted();
    if (rows.RecordCount() == 0) return result;
    for (; !rows.EndOfFile(); rows.MoveNext())
      result.push_back({rows["ID_Woerterbuch"].asInteger(), rows["SortBegriff"].textOrEmpty(),
                        !rows["SortBegriff"].isNull(),
                        rows["Ebene"].isNull() ? 0 : rows["Ebene"].asInteger()});
    return result;
  }
  std::vector<std::int64_t> numbers(const std::string& statement) {
    std::vector<std::int64_t> result;
    for (auto rows = database.OpenRecordset(statement); !rows.EndOfFile(); rows.MoveNext())
      result.push_back(rows["ID_Woerterbuch"].asInteger());
    return result;
  }
  std::vector<std::int64_t> where(const std::function<bool(const Row&)>& wanted) {
    std::vector<std::int64_t> result;
    for (const Row& row : all())
      if (wanted(row)) result.push_back(row.id);
    return result;
  }
  static bool begins(const Row& row, char letter) {
    return row.hasKey && std::tolower(row.key.front()) == letter;
  }
  /// SQLite's plan for the keys of a statement, a line a step.
  std::string steps(const std::string& select) {
    const engine::Binding binding(*database.impl(), engine::Interface::first);
    const auto plan = engine::plan::bind(engine::sql::parse(select), binding.context());
    engine::storage::Statement explain(database.impl()->core->connection().handle(),
                                       "EXPLAIN QUERY PLAN " + engine::plan::emitKeys(plan));
    std::string text;
    while (explain.step()) text += std::string(explain.text(3)) + "\n";
    return text;
  }

  const std::string list = "SELECT * FROM Woerterbuch WHERE ";
  const std::string letters = "SortBegriff like \"b*\" or SortBegriff like \"w*\" or SortBegriff like \" *\"";
  const std::string order = " ORDER BY SortBegriff";
};

TEST_F(Alternatives, GiveEachRowOnceInTheOrderOfTheList) {
  fill(600);
  database.tableDef("Woerterbuch").watch("ebene = 2", "sortbegriff");
  const auto letterOrSub = [](const Row& row) {
    return begins(row, 'b') || begins(row, 'w') || row.level == 2;
  };
  const std::string statement = list + letters + " or ebene = 2" + order;
  const auto expected = where(letterOrSub);
  ASSERT_GT(expected.size(), 300U);
  EXPECT_EQ(numbers(statement), expected);
  EXPECT_EQ(numbers(list + letters + order),
            where([](const Row& row) { return begins(row, 'b') || begins(row, 'w'); }));
  EXPECT_EQ(numbers(list + letters + " or ebene = 2 and ID_Woerterbuch < 300" + order),
            where([](const Row& row) {
              return begins(row, 'b') || begins(row, 'w') || (row.level == 2 && row.id < 300);
            }));
  EXPECT_EQ(numbers(list + "(" + letters + " or ebene = 2) and ID_Woerterbuch > 100" + order),
            where([&](const Row& row) { return letterOrSub(row) && row.id > 100; }));
  std::vector<std::int64_t> backwards = expected;
  std::ranges::reverse(backwards);
  EXPECT_EQ(numbers(statement + " DESC"), backwards) << "ties turn round with the rest";

  auto rows = database.OpenRecordset(statement);
  rows.MoveLast();
  EXPECT_EQ(rows.RecordCount(), static_cast<std::int64_t>(expected.size()));
  EXPECT_EQ(rows["ID_Woerterbuch"], Value(expected.back()));
  rows.setAbsolutePosition(77);
  EXPECT_EQ(rows["ID_Woerterbuch"], Value(expected[77]));
  rows.FindFirst("ID_Woerterbuch = " + std::to_string(expected[5]));
  EXPECT_EQ(rows.AbsolutePosition(), 5);
}

TEST_F(Alternatives, AreWalkedByTheirIndexesAlone) {
  fill(50);
  const std::string statement = list + letters + " or ebene = 2" + order;
  EXPECT_EQ(steps(statement).find("MERGE"), std::string::npos) << "no index for the last condition yet";
  database.tableDef("Woerterbuch").watch("ebene = 2", "SortBegriff");
  const std::string merged = steps(statement);
  EXPECT_NE(merged.find("MERGE (UNION ALL)"), std::string::npos) << merged;
  EXPECT_NE(merged.find("vc$watch"), std::string::npos) << merged;
  EXPECT_EQ(merged.find("TEMP B-TREE"), std::string::npos) << merged;
  EXPECT_EQ(steps(list + letters + " or ebene = 3" + order).find("MERGE"), std::string::npos);
  EXPECT_EQ(steps(list + letters + " or ebene = 2 ORDER BY Begriff").find("MERGE"), std::string::npos);
  EXPECT_EQ(errorOf([&] { database.tableDef("Woerterbuch").watch("ebene = 3", "gibtsnicht"); }), 3265);
}

TEST_F(Alternatives, StandWhileRowsChangeAndStayBehindACompaction) {
  fill(200);
  database.tableDef("Woerterbuch").watch("ebene = 2", "SortBegriff");
  const std::string statement = list + letters + " or ebene = 2" + order;
  const auto before = numbers(statement);
  auto open = database.OpenRecordset(statement);
  database.Execute("UPDATE Woerterbuch SET Ebene = 2, SortBegriff = 'zz' WHERE ID_Woerterbuch < 20");
  database.Execute("UPDATE Woerterbuch SET Ebene = 1 WHERE ID_Woerterbuch BETWEEN 20 AND 60");
  std::vector<std::int64_t> kept;
  for (open.MoveFirst(); !open.EndOfFile(); open.MoveNext())
    kept.push_back(open["ID_Woerterbuch"].asInteger());
  EXPECT_EQ(kept, before);
  const auto expected =
      where([](const Row& row) { return begins(row, 'b') || begins(row, 'w') || row.level == 2; });
  EXPECT_NE(expected, before);
  EXPECT_EQ(numbers(statement), expected);

  open.Close();
  const std::string path = database.Name();
  database.Close();
  engine::CompactDatabase(workspace, path, folder / "small.cvb", german, 2);
  database = workspace.OpenDatabase(folder / "small.cvb");
  EXPECT_EQ(numbers(statement), expected);
  EXPECT_NE(steps(statement).find("MERGE"), std::string::npos);
}

}  // namespace
