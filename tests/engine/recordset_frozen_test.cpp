#include <algorithm>

#include "words.h"

using engine::Recordset;
using engine::RecordsetKind;
using test::Texts;

namespace {

using RecordsetFrozen = test::Words;

Texts numbered(const std::string& stem, int from, int to) {
  Texts texts;
  for (int i = from; i <= to; ++i) texts.push_back(stem + std::to_string(i));
  return texts;
}

}  // namespace

TEST_F(RecordsetFrozen, MembershipAndOrderStayWhileValuesAreCurrent) {
  add({"a", "b", "c", "d", "e"});
  Recordset rows = database.OpenRecordset("SELECT * FROM Woerterbuch WHERE Ebene = 1 ORDER BY SortBegriff");
  rows.MoveNext();
  database.Execute("UPDATE Woerterbuch SET SortBegriff = 'z', Begriff = 'Z' WHERE ID_Woerterbuch = 1");
  database.Execute("UPDATE Woerterbuch SET Ebene = 2, Begriff = 'C' WHERE ID_Woerterbuch = 3");
  database.Execute("DELETE * FROM Woerterbuch WHERE ID_Woerterbuch = 4");
  add({"aa"});
  EXPECT_EQ(read(rows, "Begriff"), "b");
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"Z", "b", "C", "(gone)", "e"}));
  EXPECT_EQ(rows.RecordCount(), 5);
  rows.Requery();
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"aa", "b", "e", "Z"}));
}

TEST_F(RecordsetFrozen, FreezesBeforeAWriteThroughAnotherSetAtAnyPointOfAWalk) {
  const Texts headwords = numbered("Wort", 1000, 1299);
  for (const int writtenAt : {0, 1, 63, 64, 65, 150, 299}) {
    database.Execute("DELETE * FROM Woerterbuch");
    add(headwords);
    Recordset walked = sorted();
    Recordset other = sorted();
    Texts seen;
    for (int i = 0; !walked.EndOfFile(); walked.MoveNext(), ++i) {
      seen.push_back(read(walked, "Begriff"));
      if (i == writtenAt) {
        other.FindFirst("Begriff = 'Wort1299'");
        other.Edit();
        other.set("SortBegriff", "Aaa");
        other.set("Begriff", "Changed");
        other.Update();
        other.AddNew();
        other.set("Begriff", "New");
        other.set("SortBegriff", "Wort1150a");
        other.Update();
      }
    }
    Texts expected = headwords;
    if (writtenAt < 299) expected.back() = "Changed";
    EXPECT_EQ(seen, expected) << writtenAt;
    EXPECT_EQ(walked.RecordCount(), 300);
  }
}

TEST_F(RecordsetFrozen, AWalkThatChangesItsSortColumnVisitsEachRowOnce) {
  const Texts headwords = numbered("Wort", 1000, 1399);
  add(headwords);
  Recordset rows = sorted();
  Texts seen;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    seen.push_back(read(rows, "Begriff"));
    ASSERT_LE(seen.size(), headwords.size());
    rows.Edit();
    rows.set("SortBegriff", "X" + read(rows, "SortBegriff"));
    rows.Update();
  }
  EXPECT_EQ(seen, headwords);
  const Texts keys = column(rows, "SortBegriff");
  EXPECT_TRUE(std::ranges::all_of(keys, [](const std::string& key) { return key.starts_with("XWort"); }));
}

TEST_F(RecordsetFrozen, AddedRowsStandLastWhateverTheQuerySays) {
  add({"b", "d"});
  for (const char* statement : {"SELECT * FROM Woerterbuch WHERE Ebene = 1 ORDER BY SortBegriff",
                                "SELECT * FROM Woerterbuch", "Woerterbuch"}) {
    Recordset rows = database.OpenRecordset(statement);
    rows.AddNew();
    rows.set("Begriff", "a");
    rows.set("SortBegriff", "a");
    rows.set("Ebene", 7);
    rows.Update();
    EXPECT_EQ(read(rows, "Begriff"), "b") << "the current row stays";
    EXPECT_EQ(column(rows, "Begriff"), (Texts{"b", "d", "a"})) << statement;
    rows.setBookmark(rows.LastModified());
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    rows.Delete();
    EXPECT_EQ(column(rows, "Begriff"), (Texts{"b", "d"})) << statement;
  }
}

TEST_F(RecordsetFrozen, ASetInKeyOrderStaysWhatItWasThroughItsOwnEarlyWrites) {
  add(numbered("w", 1, 200));
  Recordset rows = database.OpenRecordset("SELECT * FROM Woerterbuch");
  rows.FindFirst("ID_Woerterbuch = 100");
  rows.Delete();
  EXPECT_EQ(errorOf([&] { rows["Begriff"]; }), 3167);
  rows.AddNew();
  rows.set("Begriff", "new");
  rows.Update();
  rows.FindFirst("ID_Woerterbuch = 150");
  rows.Edit();
  rows.set("Begriff", "changed");
  rows.Update();
  database.Execute("DELETE * FROM Woerterbuch WHERE ID_Woerterbuch = 3");
  Texts expected = numbered("w", 1, 200);
  expected[149] = "changed";
  expected[2] = "(gone)";
  expected.erase(expected.begin() + 99);
  expected.push_back("new");
  EXPECT_EQ(column(rows, "Begriff"), expected);
  EXPECT_EQ(rows.RecordCount(), 200);
}

TEST_F(RecordsetFrozen, AfterADeleteTheNextMoveGoesToTheRowThatFollowed) {
  add(numbered("w", 10, 90));
  Recordset rows = sorted();
  rows.Move(4);
  rows.Delete();
  EXPECT_EQ(errorOf([&] { rows["Begriff"]; }), 3167);
  EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3167);
  EXPECT_EQ(rows.AbsolutePosition(), -1);
  rows.MoveNext();
  EXPECT_EQ(read(rows, "Begriff"), "w15");
  EXPECT_EQ(rows.AbsolutePosition(), 4);
  rows.Delete();
  rows.MovePrevious();
  EXPECT_EQ(read(rows, "Begriff"), "w13");
  rows.MoveLast();
  EXPECT_EQ(rows.RecordCount(), 79);
  rows.Delete();
  rows.MoveNext();
  EXPECT_TRUE(rows.EndOfFile());
  while (rows.RecordCount() > 0) {
    rows.MoveFirst();
    rows.Delete();
  }
  EXPECT_EQ(errorOf([&] { rows.MoveFirst(); }), 3021);
  EXPECT_TRUE(rows.BeginOfFile() && rows.EndOfFile());
}

TEST_F(RecordsetFrozen, SnapshotsUnionsAndGroupsKeepTheirValuesAndRefuseWrites) {
  add({"a", "b", "b"});
  const std::string whole = "SELECT Begriff FROM Woerterbuch ORDER BY Begriff";
  std::vector<Recordset> sets;
  sets.push_back(database.OpenRecordset(whole, RecordsetKind::snapshot));
  sets.push_back(
      database.OpenRecordset("SELECT Begriff FROM Woerterbuch UNION ALL SELECT Kategorie FROM WKategorie"));
  sets.push_back(database.OpenRecordset("SELECT DISTINCT Begriff FROM Woerterbuch ORDER BY Begriff"));
  sets.push_back(
      database.OpenRecordset("SELECT Begriff, Count(*) AS Anzahl FROM Woerterbuch GROUP BY Begriff"));
  database.Execute("UPDATE Woerterbuch SET Begriff = 'x'");
  EXPECT_EQ(column(sets[0], "Begriff"), (Texts{"a", "b", "b"}));
  EXPECT_EQ(column(sets[1], "Begriff"), (Texts{"a", "b", "b"}));
  EXPECT_EQ(column(sets[2], "Begriff"), (Texts{"a", "b"}));
  EXPECT_EQ(column(sets[3], "Anzahl"), (Texts{"1", "2"}));
  for (Recordset& rows : sets) {
    rows.MoveFirst();
    EXPECT_EQ(errorOf([&] { rows.AddNew(); }), 3027);
    EXPECT_EQ(errorOf([&] { rows.Edit(); }), 3027);
    EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3027);
  }
}

TEST_F(RecordsetFrozen, WhatATransactionUndoesIsGoneFromTheSetsThatSawIt) {
  add({"a", "b"});
  Recordset rows = sorted();
  Recordset distinct = database.OpenRecordset("SELECT DISTINCT Begriff FROM Woerterbuch");
  workspace.BeginTrans();
  rows.AddNew();
  rows.set("Begriff", "c");
  rows.Update();
  rows.MoveFirst();
  rows.Edit();
  rows.set("Begriff", "A2");
  rows.Update();
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"A2", "b", "c"}));
  workspace.Rollback();
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"a", "b", "(gone)"}));
  EXPECT_EQ(column(distinct, "Begriff"), (Texts{"a", "b"}));
}

TEST_F(RecordsetFrozen, DefinitionsMayChangeWhileSetsAreOpen) {
  add(numbered("w", 10, 99));
  Recordset rows = sorted();
  rows.Move(3);
  database.Execute("CREATE TABLE Neu (ID COUNTER, Wort TEXT(50))");
  database.Execute("CREATE INDEX Ebene ON Woerterbuch (Ebene)");
  EXPECT_EQ(read(rows, "Begriff"), "w13");
  rows.FindFirst("Begriff = 'w50'");
  rows.Edit();
  rows.set("Begriff", "changed");
  rows.Update();
  database.Execute("DROP TABLE Neu");
  EXPECT_EQ(rows.AbsolutePosition(), 40);
  EXPECT_EQ(read(rows, "Begriff"), "changed");
  database.Execute("ALTER TABLE Woerterbuch ADD COLUMN Zusatz TEXT(20)");
  EXPECT_EQ(read(rows, "Begriff"), "(3211)") << "the fields of the set are not the table's any more";
  EXPECT_EQ(column(rows, "Begriff").size(), 90U);
  Recordset again = sorted();
  EXPECT_EQ(read(again, "Zusatz"), "(null)");
}
