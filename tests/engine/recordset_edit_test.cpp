#include "words.h"

using engine::Recordset;
using engine::RecordsetKind;
using engine::Value;
using test::Texts;

namespace {

class RecordsetEdit : public test::Words {
 protected:
  static constexpr const char* senses =
      "SELECT Woerterbuch.*, Wortbedeutung.* FROM Woerterbuch INNER JOIN Wortbedeutung ON "
      "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch";
  static constexpr const char* properties =
      "SELECT relWoertWKat.ID_Woerterbuch, relWoertWKat.ID_WKategorie, KategorieWert, Kategorie FROM "
      "relWoertWKat "
      "INNER JOIN WKategorie ON relWoertWKat.ID_WKategorie = WKategorie.ID_WKategorie";

  std::string all(const std::string& table) {
    Recordset rows = database.OpenRecordset(table);
    std::string text;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
      for (std::size_t i = 0; i < rows.Fields().size(); ++i) text += rows.value(i).textOrEmpty() + "|";
      text += "\n";
    }
    return text;
  }
};

}  // namespace

TEST_F(RecordsetEdit, TheCounterIsKnownAtAddNewAndNeverGivenTwice) {
  Recordset rows = database.OpenRecordset("Woerterbuch");
  rows.AddNew();
  EXPECT_EQ(rows["ID_Woerterbuch"], Value(1));
  EXPECT_EQ(rows["Unterbegriff"], Value(false));
  EXPECT_TRUE(rows["Begriff"].isNull());
  rows.set("Begriff", "a");
  EXPECT_EQ(rows["Begriff"], Value("a"));
  rows.Update();
  EXPECT_EQ(errorOf([&] { rows["Begriff"]; }), 3021) << "what was current before the first row: none";
  rows.MoveLast();
  EXPECT_EQ(rows["ID_Woerterbuch"], Value(1));
  rows.Delete();
  rows.AddNew();
  const Value second = rows["ID_Woerterbuch"];
  EXPECT_NE(second, Value(1));
  rows.CancelUpdate();
  rows.AddNew();
  rows.set("ID_Woerterbuch", 500);
  rows.set("Begriff", "b");
  rows.Update();
  rows.AddNew();
  EXPECT_EQ(rows["ID_Woerterbuch"], Value(501));
  rows.Update();
  EXPECT_EQ(column(rows, "ID_Woerterbuch"), (Texts{"500", "501"}));
}

TEST_F(RecordsetEdit, ValuesComeBackInTheTypesOfTheirColumns) {
  Recordset rows = database.OpenRecordset("Woerterbuch");
  const auto when = base::DateTime::of(2024, 2, 29, 23, 59, 58);
  rows.AddNew();
  rows.set("Begriff", "O'Neill \"x\" \xF0\x9F\x98\x80");
  rows.set("Ebene", "2");
  rows.set("Unterbegriff", -1);
  rows.set("DateTimeStamp", when);
  rows.set("Bemerkung", std::string(100000, 'x'));
  rows.Update();
  rows.MoveFirst();
  EXPECT_EQ(rows["Begriff"], Value("O'Neill \"x\" \xF0\x9F\x98\x80"));
  EXPECT_EQ(rows["Ebene"], Value(2));
  EXPECT_EQ(rows["Unterbegriff"], Value(true));
  EXPECT_EQ(rows["DateTimeStamp"], Value(when));
  EXPECT_EQ(rows["Bemerkung"].text().size(), 100000U);
  rows.Edit();
  rows.set("DateTimeStamp", Value());
  rows.set("Bemerkung", Value());
  rows.Update();
  EXPECT_TRUE(rows["DateTimeStamp"].isNull());
  EXPECT_TRUE(rows["Bemerkung"].isNull());
  EXPECT_EQ(rows["Ebene"], Value(2));
}

TEST_F(RecordsetEdit, ARefusedUpdateWritesNothingAndStaysPending) {
  add({"a", "b"});
  const std::string before = all("Woerterbuch");
  Recordset rows = sorted();
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3020);
  EXPECT_EQ(errorOf([&] { rows.set("Begriff", "x"); }), 3020);
  rows.Edit();
  rows.set("Begriff", std::string(251, 'x'));
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3163);
  rows.set("Begriff", "");
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3315);
  rows.set("Begriff", "ok");
  rows.set("Ebene", "no number");
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 13);
  rows.set("Ebene", 40000);
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 6);
  EXPECT_EQ(all("Woerterbuch"), before);
  rows.CancelUpdate();
  EXPECT_EQ(read(rows, "Begriff"), "a");
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3020);
  rows.AddNew();
  rows.set("ID_Woerterbuch", 2);
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3022);
  rows.set("ID_Woerterbuch", 3);
  rows.Update();
  rows.MoveLast();
  EXPECT_EQ(rows["ID_Woerterbuch"], Value(3));
  Recordset links = database.OpenRecordset("SELECT * FROM relWoertWKat");
  links.AddNew();
  links.set("ID_Woerterbuch", 1);
  links.set("ID_WKategorie", 77);
  EXPECT_EQ(errorOf([&] { links.Update(); }), 3201);
}

TEST_F(RecordsetEdit, AMoveDropsWhatWasPending) {
  add({"a", "b"});
  Recordset rows = sorted();
  rows.Edit();
  rows.set("Begriff", "lost");
  rows.MoveNext();
  rows.AddNew();
  rows.set("Begriff", "lost too");
  rows.MoveFirst();
  EXPECT_EQ(column(rows, "Begriff"), (Texts{"a", "b"}));
  rows.MoveFirst();
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3020);
}

TEST_F(RecordsetEdit, RowsDeletedElsewhereCanNotBeEdited) {
  add({"a", "b"});
  Recordset rows = sorted();
  database.Execute("DELETE * FROM Woerterbuch WHERE Begriff = 'a'");
  EXPECT_EQ(errorOf([&] { rows.Edit(); }), 3167);
  EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3167);
  rows.MoveNext();
  rows.Edit();
  rows.set("Begriff", "c");
  database.Execute("DELETE * FROM Woerterbuch");
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3167);
}

TEST_F(RecordsetEdit, TwoSetsOnOneTableSeeEachOthersValues) {
  add({"a", "b"});
  Recordset one = sorted();
  Recordset two = database.OpenRecordset("SELECT * FROM Woerterbuch ORDER BY ID_Woerterbuch DESC");
  two.MoveLast();
  for (int i = 0; i < 3; ++i) {
    one.Edit();
    one.set("Bemerkung", "one " + std::to_string(i));
    one.Update();
    EXPECT_EQ(read(two, "Bemerkung"), "one " + std::to_string(i));
    two.Edit();
    two.set("Bemerkung", "two " + std::to_string(i));
    two.Update();
    EXPECT_EQ(read(one, "Bemerkung"), "two " + std::to_string(i));
  }
}

TEST_F(RecordsetEdit, OneNewRowOfAJoinFillsBothTables) {
  database.CreateQueryDef("View", senses);
  Recordset rows = database.OpenRecordset("select * from View");
  for (const bool explicitly : {true, false}) {
    rows.AddNew();
    rows.set("Begriff", "Haus");
    rows.set("Wortbedeutung", "house");
    const Value entry = rows["woerterbuch.ID_Woerterbuch"];
    rows.set("ID_Woerterbuch1", entry);
    if (explicitly) rows.set("Wortbedeutung.ID_Woerterbuch", entry);
    rows.Update();
  }
  EXPECT_EQ(all("SELECT ID_Woerterbuch, ID_Woerterbuch1, Begriff FROM Woerterbuch"),
            "1|1|Haus|\n2|2|Haus|\n");
  EXPECT_EQ(all("Wortbedeutung"), "1|1|house|\n2|2|house|\n");
  rows.MoveLast();
  EXPECT_EQ(read(rows, "Wortbedeutung.ID_Woerterbuch"), "2");
  rows.AddNew();
  rows.set("Wortbedeutung.ID_Woerterbuch", 1);
  rows.set("Wortbedeutung", "building");
  rows.Update();
  rows.MoveLast();
  EXPECT_EQ(read(rows, "Begriff"), "Haus") << "the entry is looked up, not added";
  EXPECT_EQ(all("SELECT ID_Woerterbuch FROM Woerterbuch"), "1|\n2|\n");
  rows.Delete();
  rows.MoveFirst();
  rows.Delete();
  EXPECT_EQ(all("SELECT ID_Woerterbuch FROM Woerterbuch"), "1|\n2|\n") << "the side of the senses alone goes";
  EXPECT_EQ(all("Wortbedeutung"), "2|2|house|\n");
}

TEST_F(RecordsetEdit, AJoinThatFailsHalfwayLeavesNeitherRow) {
  Recordset rows = database.OpenRecordset(senses);
  rows.AddNew();
  rows.set("Begriff", "Haus");
  rows.set("Wortbedeutung", std::string(251, 'x'));
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3163);
  EXPECT_EQ(all("Woerterbuch"), "");
  rows.set("Wortbedeutung", "house");
  rows.Update();
  EXPECT_EQ(all("SELECT Begriff FROM Woerterbuch"), "Haus|\n");
}

TEST_F(RecordsetEdit, LinkRowsAreAddedAndLeadToAnotherRowWhenTheirKeyChanges) {
  add({"a"});
  for (const char* name : {"Genus", "Numerus"}) {
    database.Execute(std::string("INSERT INTO WKategorie (Kategorie) VALUES ('") + name + "')");
  }
  Recordset rows = database.OpenRecordset(properties);
  rows.AddNew();
  rows.set("relWoertWKat.ID_Woerterbuch", 1);
  rows.set("ID_WKategorie", 2);
  rows.set("KategorieWert", "Plural");
  rows.Update();
  rows.MoveLast();
  EXPECT_EQ(read(rows, "Kategorie"), "Numerus");
  rows.Edit();
  rows.set("ID_WKategorie", 1);
  rows.Update();
  EXPECT_EQ(read(rows, "Kategorie"), "Genus");
  rows.Edit();
  rows.set("Kategorie", "Geschlecht");
  rows.Update();
  EXPECT_EQ(all("WKategorie"), "1|Geschlecht|\n2|Numerus|\n");
  rows.AddNew();
  rows.set("ID_Woerterbuch", 1);
  rows.set("ID_WKategorie", 9);
  EXPECT_EQ(errorOf([&] { rows.Update(); }), 3201);
  rows.MoveFirst();
  rows.Delete();
  EXPECT_EQ(all("relWoertWKat"), "");
  EXPECT_EQ(all("WKategorie"), "1|Geschlecht|\n2|Numerus|\n");
}

TEST_F(RecordsetEdit, EditFillsTheEmptySideOfAnOuterJoin) {
  add({"a", "b"});
  Recordset rows = database.OpenRecordset(
      "SELECT Woerterbuch.ID_Woerterbuch, Begriff, Wortbedeutung.* FROM Woerterbuch LEFT JOIN Wortbedeutung "
      "ON "
      "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch ORDER BY SortBegriff");
  EXPECT_EQ(column(rows, "Wortbedeutung"), (Texts{"(null)", "(null)"}));
  rows.MoveLast();
  rows.Edit();
  rows.set("Wortbedeutung", "meaning of b");
  rows.Update();
  EXPECT_EQ(read(rows, "Wortbedeutung"), "meaning of b");
  EXPECT_EQ(all("Wortbedeutung"), "1|2|meaning of b|\n");
  EXPECT_EQ(column(rows, "Wortbedeutung"), (Texts{"(null)", "meaning of b"}));
  rows.MoveLast();
  rows.Delete();
  EXPECT_EQ(all("Wortbedeutung"), "");
  EXPECT_EQ(all("SELECT Begriff FROM Woerterbuch"), "a|\nb|\n");
}

TEST_F(RecordsetEdit, AReadOnlyHandleRefusesToWriteThroughItsSets) {
  add({"a"});
  engine::Database reader = workspace.OpenDatabase(folder / "words.cvb", false, true);
  Recordset rows = reader.OpenRecordset("Woerterbuch");
  EXPECT_FALSE(rows.Fields()[0].updatable);
  EXPECT_EQ(errorOf([&] { rows.Edit(); }), 3027);
  EXPECT_EQ(errorOf([&] { rows.AddNew(); }), 3027);
  EXPECT_EQ(errorOf([&] { rows.Delete(); }), 3027);
  EXPECT_EQ(column(rows, "Begriff"), Texts{"a"});
}
