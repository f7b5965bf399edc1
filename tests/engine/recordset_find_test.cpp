#include <functional>

#include "words.h"

using engine::Recordset;
using engine::RecordsetKind;
using test::Texts;

namespace {

class RecordsetFind : public test::Words {
 protected:
  /// The positions that FindFirst and FindNext reach, and those that FindLast and FindPrevious reach.
  static std::vector<std::int64_t> forwards(Recordset& rows, const std::string& criterion) {
    std::vector<std::int64_t> hits;
    for (rows.FindFirst(criterion); !rows.NoMatch(); rows.FindNext(criterion))
      hits.push_back(rows.AbsolutePosition());
    return hits;
  }
  static std::vector<std::int64_t> backwards(Recordset& rows, const std::string& criterion) {
    std::vector<std::int64_t> hits;
    for (rows.FindLast(criterion); !rows.NoMatch(); rows.FindPrevious(criterion)) {
      hits.push_back(rows.AbsolutePosition());
    }
    return {hits.rbegin(), hits.rend()};
  }

  /// Positions whose row meets a condition, by walking.
  static std::vector<std::int64_t> walked(Recordset& rows, const std::function<bool(Recordset&)>& meets) {
    std::vector<std::int64_t> hits;
    std::int64_t position = 0;
    for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext(), ++position) {
      if (meets(rows)) hits.push_back(position);
    }
    return hits;
  }
};

}  // namespace

TEST_F(RecordsetFind, FindsEveryHitInBothDirectionsInAllKindsOfSets) {
  Texts headwords;
  for (int i = 0; i < 400; ++i) headwords.push_back("w" + std::to_string((i * 7919) % 400 + 1000));
  add(headwords);
  database.Execute("UPDATE Woerterbuch SET Ebene = 2 WHERE ID_Woerterbuch > 390");
  const auto few = [](Recordset& rows) { return rows["Ebene"].asInteger() == 2; };
  const auto one = [](Recordset& rows) { return rows["Begriff"].asText() == "w1234"; };
  for (const auto& [statement, kind] :
       {std::pair{"SELECT * FROM Woerterbuch ORDER BY SortBegriff", RecordsetKind::dynaset},
        std::pair{"SELECT * FROM Woerterbuch", RecordsetKind::dynaset},
        std::pair{"SELECT * FROM Woerterbuch WHERE Begriff LIKE 'w12*' ORDER BY SortBegriff DESC",
                  RecordsetKind::dynaset},
        std::pair{"SELECT DISTINCT * FROM Woerterbuch", RecordsetKind::dynaset},
        std::pair{"SELECT * FROM Woerterbuch ORDER BY SortBegriff", RecordsetKind::snapshot}}) {
    Recordset rows = database.OpenRecordset(statement, kind);
    for (int pass = 0; pass < 2; ++pass) {
      EXPECT_EQ(forwards(rows, "Ebene = 2"), walked(rows, few)) << statement;
      EXPECT_EQ(backwards(rows, "ebene =2"), walked(rows, few)) << statement;
      EXPECT_EQ(forwards(rows, "begriff = \"W1234\""), walked(rows, one)) << statement;
      EXPECT_EQ(backwards(rows, "[Begriff] = 'w1234'"), walked(rows, one)) << statement;
      if (pass == 0) database.Execute("UPDATE Woerterbuch SET Unterbegriff = True WHERE ID_Woerterbuch = 5");
    }
  }
}

TEST_F(RecordsetFind, NoMatchLeavesTheCurrentRow) {
  add({"a", "b", "c"});
  Recordset rows = sorted();
  rows.MoveNext();
  for (const auto find :
       {&Recordset::FindFirst, &Recordset::FindLast, &Recordset::FindNext, &Recordset::FindPrevious}) {
    (rows.*find)("Begriff = 'nowhere'");
    EXPECT_TRUE(rows.NoMatch());
    EXPECT_EQ(read(rows, "Begriff"), "b");
    EXPECT_EQ(rows.AbsolutePosition(), 1);
  }
  rows.FindNext("Ebene = 1");
  EXPECT_EQ(read(rows, "Begriff"), "c");
  rows.FindNext("Ebene = 1");
  EXPECT_TRUE(rows.NoMatch());
  EXPECT_EQ(read(rows, "Begriff"), "c");
  EXPECT_EQ(errorOf([&] { rows.FindFirst("NoSuchField = 1"); }), 3070);
  EXPECT_EQ(errorOf([&] { rows.FindFirst("Begriff = "); }), 3075);
  EXPECT_EQ(read(rows, "Begriff"), "c");
}

TEST_F(RecordsetFind, TakesNamesWithQuotesDatesAndNulls) {
  add({"O'Neill", "say \"hi\"", "plain", "100%"});
  database.Execute("UPDATE Woerterbuch SET DateTimeStamp = #03-01-24 10:30:00# WHERE ID_Woerterbuch = 3");
  Recordset rows = sorted();
  const auto found = [&](const std::string& criterion) {
    rows.FindFirst(criterion);
    return rows.NoMatch() ? std::string("(none)") : read(rows, "Begriff");
  };
  EXPECT_EQ(found("Begriff = 'O''Neill'"), "O'Neill");
  EXPECT_EQ(found("Begriff = \"O'Neill\""), "O'Neill");
  EXPECT_EQ(found("Begriff = \"say \"\"hi\"\"\""), "say \"hi\"");
  EXPECT_EQ(found("Begriff = \"SAY \"\"HI\"\"\" and ebene > 0"), "say \"hi\"");
  EXPECT_EQ(found("DateTimeStamp >= #03-01-24 10:29:59#"), "plain");
  EXPECT_EQ(found("DateTimeStamp > #03-01-24 10:30:00#"), "(none)");
  EXPECT_EQ(found("ID_Woerterbuch1 is null"), "100%");
  EXPECT_EQ(found("woerterbuch.ID_Woerterbuch = 2"), "say \"hi\"");
  EXPECT_EQ(found("Begriff like '*ll'"), "O'Neill");
}

TEST_F(RecordsetFind, LooksAtMembersAsTheyAreNowAndAtNoOthers) {
  add({"a", "b", "c", "d"});
  Recordset rows = database.OpenRecordset(
      "SELECT * FROM Woerterbuch WHERE Ebene = 1 AND Begriff <> 'd' ORDER BY SortBegriff");
  database.Execute("UPDATE Woerterbuch SET Ebene = 3, SortBegriff = 'zz' WHERE ID_Woerterbuch = 1");
  add({"later"});
  rows.FindFirst("Ebene = 3");
  EXPECT_FALSE(rows.NoMatch());
  EXPECT_EQ(rows.AbsolutePosition(), 0);
  rows.FindFirst("Begriff = 'd'");
  EXPECT_TRUE(rows.NoMatch()) << "never was a member";
  rows.FindFirst("Begriff = 'later'");
  EXPECT_TRUE(rows.NoMatch()) << "came later, through another set";
  rows.AddNew();
  rows.set("Begriff", "own");
  rows.Update();
  rows.FindFirst("Begriff = 'own'");
  EXPECT_EQ(rows.AbsolutePosition(), 3);
}

TEST_F(RecordsetFind, DeletingHitsWhileFindingThemRemovesThemAll) {
  Texts headwords;
  for (int i = 0; i < 300; ++i) headwords.push_back("w" + std::to_string(1000 + i));
  add(headwords);
  database.Execute("UPDATE Woerterbuch SET Ebene = 0 WHERE ID_Woerterbuch IN (1, 2, 3, 150, 299, 300)");
  Recordset rows = sorted();
  int deleted = 0;
  for (rows.FindFirst("ebene =0"); !rows.NoMatch(); rows.FindNext("ebene =0")) {
    ASSERT_EQ(rows["EBENE"].asInteger(), 0);
    rows.Delete();
    ++deleted;
  }
  EXPECT_EQ(deleted, 6);
  Recordset left = database.OpenRecordset("Woerterbuch");
  left.MoveLast();
  EXPECT_EQ(left.RecordCount(), 294);
}

TEST_F(RecordsetFind, GoingOnFindsWhatChangedInTheMeantimeByWhomeverItWas) {
  add({"a", "b", "c", "d", "e", "f"});
  Recordset rows = sorted();
  rows.FindFirst("Ebene = 1");
  database.Execute("UPDATE Woerterbuch SET Ebene = 2 WHERE Begriff IN ('b', 'c')");
  rows.FindNext("Ebene = 1");
  EXPECT_EQ(read(rows, "Begriff"), "d");
  database.Execute("INSERT INTO WKategorie (Kategorie) VALUES ('another table')");
  database.Execute("DELETE * FROM Woerterbuch WHERE Begriff = 'e'");
  rows.FindNext("Ebene = 1");
  EXPECT_EQ(read(rows, "Begriff"), "f");
  rows.FindPrevious("Ebene = 2");
  EXPECT_EQ(read(rows, "Begriff"), "c");
  rows.Edit();
  rows.set("Ebene", 1);
  rows.Update();
  rows.FindPrevious("Ebene = 2");
  EXPECT_EQ(read(rows, "Begriff"), "b");
  rows.FindLast("Ebene = 2");
  EXPECT_EQ(read(rows, "Begriff"), "b");
}

TEST_F(RecordsetFind, ARowLimitHoldsForTheSetAndNotForTheHits) {
  add({"a", "b", "c", "d"});
  Recordset rows = database.OpenRecordset("SELECT TOP 2 * FROM Woerterbuch ORDER BY SortBegriff");
  rows.FindFirst("Begriff = 'd'");
  EXPECT_TRUE(rows.NoMatch());
  rows.FindFirst("Begriff = 'b'");
  EXPECT_EQ(rows.AbsolutePosition(), 1);
}

TEST_F(RecordsetFind, AFilterHoldsForTheSetsOpenedFromIt) {
  add({"a1", "a2", "b1", "b2"});
  Recordset rows = sorted();
  rows.setFilter("Begriff like 'a*'");
  EXPECT_EQ(column(rows, "Begriff").size(), 4U);
  Recordset filtered = rows.OpenRecordset();
  EXPECT_EQ(column(filtered, "Begriff"), (Texts{"a1", "a2"}));
  filtered.setFilter("Begriff like '*2'");
  Recordset twice = filtered.OpenRecordset();
  EXPECT_EQ(column(twice, "Begriff"), Texts{"a2"});
  twice.MoveFirst();
  twice.Edit();
  twice.set("Begriff", "A-two");
  twice.Update();
  rows.setFilter("");
  Recordset all = rows.OpenRecordset();
  EXPECT_EQ(column(all, "Begriff"), (Texts{"a1", "A-two", "b1", "b2"}));
  rows.setFilter("nonsense = 1");
  EXPECT_EQ(errorOf([&] { rows.OpenRecordset(); }), 3070);
}
