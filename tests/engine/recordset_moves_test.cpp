#include <algorithm>

#include "words.h"

using engine::Recordset;
using engine::RecordsetKind;
using engine::Value;
using test::Texts;

namespace {

using RecordsetMoves = test::Words;

}  // namespace

TEST_F(RecordsetMoves, AnEmptySetStandsAtBothEnds) {
  Recordset rows = sorted();
  EXPECT_TRUE(rows.EndOfFile());
  EXPECT_TRUE(rows.BeginOfFile());
  EXPECT_EQ(rows.RecordCount(), 0);
  EXPECT_EQ(rows.AbsolutePosition(), -1);
  for (const auto move : {&Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext,
                          &Recordset::MovePrevious, &Recordset::Edit, &Recordset::Delete}) {
    EXPECT_EQ(errorOf([&] { (rows.*move)(); }), 3021);
  }
  EXPECT_EQ(errorOf([&] { rows["Begriff"]; }), 3021);
  rows.FindFirst("Begriff = \"x\"");
  EXPECT_TRUE(rows.NoMatch());
}

TEST_F(RecordsetMoves, GoesThroughTheRowsInOrderAndStopsOneBehindEachEnd) {
  add({"Zahn", "Apfel", "Äpfel", "birne"});
  Recordset rows = sorted();
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"Apfel", "Äpfel", "birne", "Zahn"}));
  EXPECT_TRUE(rows.EndOfFile());
  EXPECT_EQ(errorOf([&] { rows.MoveNext(); }), 3021);
  EXPECT_EQ(errorOf([&] { rows["Begriff"]; }), 3021);
  rows.MovePrevious();
  EXPECT_EQ(read(rows, "Begriff"), "Zahn");
  rows.MoveFirst();
  rows.MovePrevious();
  EXPECT_TRUE(rows.BeginOfFile());
  EXPECT_FALSE(rows.EndOfFile());
  EXPECT_EQ(errorOf([&] { rows.MovePrevious(); }), 3021);
  rows.MoveNext();
  EXPECT_EQ(read(rows, "Begriff"), "Apfel");
  rows.Move(2);
  EXPECT_EQ(read(rows, "Begriff"), "birne");
  rows.Move(-1);
  EXPECT_EQ(read(rows, "Begriff"), "Äpfel");
  rows.Move(100);
  EXPECT_TRUE(rows.EndOfFile());
  rows.Move(-100);
  EXPECT_TRUE(rows.BeginOfFile());
}

TEST_F(RecordsetMoves, CountsTheRowsReachedSoFarAndAllAfterTheLast) {
  Texts headwords;
  for (int i = 0; i < 300; ++i) headwords.push_back("Wort" + std::to_string(1000 + i));
  add(headwords);
  Recordset rows = sorted();
  EXPECT_EQ(rows.RecordCount(), 1);
  rows.Move(9);
  EXPECT_EQ(rows.RecordCount(), 10);
  rows.MoveFirst();
  EXPECT_EQ(rows.RecordCount(), 10);
  database.Execute("UPDATE Woerterbuch SET Ebene = 2 WHERE ID_Woerterbuch = 7");
  EXPECT_EQ(rows.RecordCount(), 10) << "reading the keys ahead of a write is no walk";
  rows.MoveLast();
  EXPECT_EQ(rows.RecordCount(), 300);
  EXPECT_EQ(rows.AbsolutePosition(), 299);
  Recordset table = database.OpenRecordset("Woerterbuch", RecordsetKind::table);
  EXPECT_EQ(table.RecordCount(), 300);
  Recordset client = database.OpenRecordset("SELECT * FROM Woerterbuch WHERE Begriff LIKE '%9'",
                                            RecordsetKind::dynaset, {}, engine::Interface::second);
  EXPECT_EQ(client.RecordCount(), 30);
}

TEST_F(RecordsetMoves, EveryPositionLeadsToItsRowFromWhereverTheSetStands) {
  Texts headwords;
  for (int i = 0; i < 700; ++i) headwords.push_back("Wort" + std::to_string(1000 + i));
  add(headwords);
  for (const std::string statement : {"SELECT * FROM Woerterbuch ORDER BY SortBegriff",
                                      "SELECT DISTINCT Begriff FROM Woerterbuch ORDER BY Begriff"}) {
    Recordset rows = database.OpenRecordset(statement);
    for (const int position : {650, 3, 4, 5, 699, 0, 300, 299, 301}) {
      rows.setAbsolutePosition(position);
      EXPECT_EQ(read(rows, "Begriff"), headwords[static_cast<std::size_t>(position)]) << statement;
      EXPECT_EQ(rows.AbsolutePosition(), position);
    }
    EXPECT_EQ(errorOf([&] { rows.setAbsolutePosition(700); }), 3021);
    EXPECT_EQ(errorOf([&] { rows.setAbsolutePosition(-1); }), 3021);
    EXPECT_EQ(column(rows, "Begriff"), headwords) << "a long walk behind jumps";
    rows.MoveLast();
    for (std::size_t i = headwords.size(); i-- > 0; rows.MovePrevious()) {
      ASSERT_EQ(read(rows, "Begriff"), headwords[i]);
    }
    EXPECT_TRUE(rows.BeginOfFile());
  }
}

TEST_F(RecordsetMoves, ALongWalkMayAskForFurtherFieldsAtAnyRow) {
  Texts headwords;
  for (int i = 0; i < 1500; ++i) headwords.push_back("Wort" + std::to_string(1000 + (i * 7919) % 1500));
  add(headwords);
  std::ranges::sort(headwords);
  for (const bool counted : {false, true}) {
    Recordset rows = sorted();
    if (counted) rows.MoveLast();
    rows.MoveFirst();
    for (int i = 0; i < 1500; ++i, rows.MoveNext()) {
      ASSERT_EQ(read(rows, "Begriff"), headwords[static_cast<std::size_t>(i)]);
      const std::string& expected = headwords[static_cast<std::size_t>(i)];
      ASSERT_EQ(i > 300 ? read(rows, "SortBegriff") : expected, expected);
      ASSERT_EQ(i % 500 == 499 ? read(rows, "Ebene") : "1", "1");
      if (i == 1200) database.Execute("UPDATE Woerterbuch SET Bemerkung = 'x'");
      ASSERT_EQ(i > 1200 ? read(rows, "Bemerkung") : "x", "x");
    }
    EXPECT_TRUE(rows.EndOfFile());
    EXPECT_EQ(rows.RecordCount(), 1500);
  }
}

TEST_F(RecordsetMoves, BookmarksComeBackToTheirRowsAndTellRowsApart) {
  add({"c", "a", "b"});
  for (const std::string statement :
       {"SELECT * FROM Woerterbuch ORDER BY SortBegriff",
        "SELECT Begriff FROM Woerterbuch UNION SELECT Kategorie FROM WKategorie ORDER BY Begriff"}) {
    Recordset rows = database.OpenRecordset(statement);
    const std::string first = rows.Bookmark();
    rows.MoveLast();
    const std::string last = rows.Bookmark();
    EXPECT_NE(first, last);
    rows.setBookmark(first);
    EXPECT_EQ(read(rows, "Begriff"), "a");
    EXPECT_EQ(rows.Bookmark(), first);
    rows.MoveNext();
    EXPECT_EQ(read(rows, "Begriff"), "b");
    rows.setBookmark(last);
    EXPECT_EQ(read(rows, "Begriff"), "c");
    EXPECT_EQ(rows.AbsolutePosition(), 2);
    EXPECT_EQ(errorOf([&] { rows.setBookmark("nonsense"); }), 3159);
    EXPECT_EQ(read(rows, "Begriff"), "c");
  }
}

TEST_F(RecordsetMoves, FieldsHaveFourNamesAndTheirTypes) {
  add({"Haus"});
  database.Execute("INSERT INTO Wortbedeutung (ID_Woerterbuch, Wortbedeutung) VALUES (1, 'house')");
  database.CreateQueryDef(
      "Senses",
      "SELECT Woerterbuch.*, Wortbedeutung.* FROM Woerterbuch INNER JOIN Wortbedeutung ON "
      "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch;");
  Recordset rows = database.OpenRecordset("SELECT * FROM Senses");
  for (const char* name :
       {"Begriff", "BEGRIFF", "senses.begriff", "woerterbuch.begriff", "Senses.Woerterbuch.Begriff"}) {
    EXPECT_EQ(read(rows, name), "Haus") << name;
  }
  EXPECT_EQ(rows.field("Woerterbuch.ID_Woerterbuch"), rows.field("Senses.Woerterbuch.ID_Woerterbuch"));
  EXPECT_NE(rows.field("Woerterbuch.ID_Woerterbuch"), rows.field("Wortbedeutung.ID_Woerterbuch"));
  EXPECT_EQ(errorOf([&] { rows.field("Kategorie"); }), 3265);
  const engine::FieldInfo& field = rows.Fields()[rows.field("Begriff")];
  EXPECT_EQ(field.sourceTable, "Woerterbuch");
  EXPECT_EQ(field.sourceField, "Begriff");
  EXPECT_EQ(field.size, 250);
  EXPECT_TRUE(field.updatable);
  EXPECT_EQ(rows["Unterbegriff"], Value(false));
  EXPECT_TRUE(rows["DateTimeStamp"].isNull());
}

TEST_F(RecordsetMoves, ParametersAreAskedForByName) {
  add({"a", "b"});
  const std::string statement =
      "PARAMETERS lWortID Long; SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = [lWortID] AND Begriff = "
      "sWort";
  EXPECT_EQ(errorOf([&] { database.OpenRecordset(statement); }), 3061);
  try {
    database.OpenRecordset(statement, RecordsetKind::dynaset, {{"LWORTID", "2"}});
  } catch (const engine::Error& error) {
    EXPECT_NE(error.text().find("sWort"), std::string::npos);
    EXPECT_EQ(error.text().find("lWortID"), std::string::npos);
  }
  Recordset rows =
      database.OpenRecordset(statement, RecordsetKind::dynaset, {{"LWORTID", "2"}, {"[sWort]", "B"}});
  EXPECT_EQ(column(rows, "Begriff"), Texts{"b"});
  EXPECT_EQ(errorOf([&] { database.OpenRecordset("NoSuchTable"); }), 3078);
  EXPECT_NE(errorOf([&] { database.OpenRecordset("DELETE * FROM Woerterbuch"); }), 0);
  EXPECT_EQ(errorOf([&] { database.OpenRecordset("SELECT FROM WHERE"); }), 3075);
}

TEST_F(RecordsetMoves, ASetKeepsItsFileOpenWhenTheDatabaseIsClosed) {
  add({"a", "b"});
  Recordset rows = sorted();
  database.Close();
  workspace.Idle();
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"a", "b"}));
  rows.MoveFirst();
  rows.Edit();
  rows.set("Begriff", "c");
  rows.Update();
  rows.Close();
  EXPECT_EQ(errorOf([&] { rows.MoveFirst(); }), 3420);
  engine::Database again = workspace.OpenDatabase(folder / "words.cvb");
  Recordset after = again.OpenRecordset("SELECT * FROM Woerterbuch ORDER BY ID_Woerterbuch");
  EXPECT_EQ(column(after, "Begriff"), (Texts{"c", "b"}));
}
