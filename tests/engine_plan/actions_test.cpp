#include <gtest/gtest.h>

#include "words.h"

namespace {

using engine::plan::Action;
using test::errorNumber;
using test::Row;
using test::Rows;

Action bindAction(const test::MemoryFiles& files, const std::string& text) {
  return engine::plan::bindAction(engine::sql::parse(text), files.context);
}

/// The names of the columns that an action fills.
Row targets(const Action& action) {
  Row names;
  for (int column : action.targets)
    names.push_back(action.table->columns.at(static_cast<std::size_t>(column)).name);
  return names;
}

Rows rowsOf(const test::MemoryFiles& files, const Action& action) {
  return files.fetch(emitRows(action.rows));
}

TEST(Insert, PutsSelectedColumnsByPositionOrByName) {
  const auto files = test::words();
  const Action listed =
      bindAction(*files,
                 "INSERT INTO Wortbedeutung (ID_Woerterbuch, wortbedeutung) SELECT "
                 "Woerterbuch.ID_Woerterbuch + 10, Begriff FROM Woerterbuch WHERE Ebene = 2");
  EXPECT_EQ(targets(listed), (Row{"ID_Woerterbuch", "Wortbedeutung"}));
  EXPECT_EQ(rowsOf(*files, listed), (Rows{{"14", "Haustür"}}));
  EXPECT_FALSE(listed.singleRow);

  test::MemoryFile& other = files->add("B.CVB");
  other.define("CREATE TABLE Wortbedeutung (Wortbedeutung TEXT(50), ID_Woerterbuch LONG)");
  other.insert("Wortbedeutung", "('donkey', 7)");
  const Action named = bindAction(
      *files, "insert into wortbedeutung SELECT Wortbedeutung.*  FROM  Wortbedeutung in 'B.CVB'; ");
  EXPECT_EQ(named.file, &files->file());
  EXPECT_EQ(targets(named), (Row{"Wortbedeutung", "ID_Woerterbuch"}));
  EXPECT_EQ(rowsOf(*files, named), (Rows{{"donkey", "7"}}));
}

TEST(Insert, TakesValuesAsOneRow) {
  const auto files = test::words();
  const Action action =
      bindAction(*files,
                 "INSERT INTO Woerterbuch (Begriff, Unterbegriff, DateTimeStamp, Ebene) VALUES "
                 "('x', True, '1.2.2020 10:11:12', 1 + 1)");
  EXPECT_TRUE(action.singleRow);
  EXPECT_EQ(rowsOf(*files, action), (Rows{{"x", "-1", "2020-02-01 10:11:12", "2"}}));
}

TEST(Insert, RefusesWhatDoesNotFit) {
  const auto files = test::words();
  const std::pair<const char*, int> cases[] = {
      {"INSERT INTO Woerterbuch (Begriff, Ebene) SELECT Begriff FROM Woerterbuch", 3075},
      {"INSERT INTO Woerterbuch (Begriff, begriff) VALUES ('a', 'b')", 3075},
      {"INSERT INTO Woerterbuch (Nothing) VALUES ('a')", 3070},
      {"INSERT INTO Wortbedeutung SELECT * FROM Woerterbuch", 3070},
      {"INSERT INTO Nowhere (a) VALUES ('a')", 3078},
      {"UPDATE Woerterbuch SET Nothing = 1", 3070},
      {"UPDATE Woerterbuch SET Begriff = 'a', BEGRIFF = 'b'", 3075},
      {"UPDATE Woerterbuch, Wortbedeutung SET Begriff = 'a', Wortbedeutung = 'b'", 3075},
      {"DELETE * FROM Woerterbuch, Wortbedeutung", 3075},
      {"DELETE Nowhere.* FROM Woerterbuch", 3078},
  };
  for (const auto& [text, number] : cases)
    EXPECT_EQ(errorNumber([&] { bindAction(*files, text); }), number) << text;
}

TEST(Update, ReadsOldValuesAndNamesTheRows) {
  const auto files = test::words();
  const Action swap =
      bindAction(*files,
                 "UPDATE  Woerterbuch SET Begriff = SortBegriff, SortBegriff = Begriff WHERE Ebene "
                 "= 2");
  EXPECT_EQ(targets(swap), (Row{"Begriff", "SortBegriff"}));
  EXPECT_EQ(rowsOf(*files, swap), (Rows{{"4", "haus tür", "Haustür"}}));

  const Action joined = bindAction(
      *files,
      "UPDATE Woerterbuch INNER JOIN Wortbedeutung ON Woerterbuch.ID_Woerterbuch = "
      "Wortbedeutung.ID_Woerterbuch SET Wortbedeutung.Wortbedeutung = Begriff & '?' WHERE Ebene = 1");
  EXPECT_EQ(joined.table->name, "Wortbedeutung");
  EXPECT_EQ(rowsOf(*files, joined), (Rows{{"1", "Haus?"}, {"2", "Haus?"}, {"3", "Zug?"}}));

  const Action stamped =
      bindAction(*files,
                 "UPDATE woerterbuch SET Datetimestamp = '02.01.2024 03:04:05', Unterbegriff=0 "
                 "WHERE ID_Woerterbuch IN (SELECT ID_Woerterbuch FROM Wortbedeutung)");
  EXPECT_EQ(rowsOf(*files, stamped),
            (Rows{{"1", "2024-01-02 03:04:05", "0"}, {"3", "2024-01-02 03:04:05", "0"}}));
}

TEST(Delete, NamesTheRowsOfOneTableOfAJoin) {
  const auto files = test::words();
  EXPECT_EQ(rowsOf(*files, bindAction(*files,
                                      "delete * from Woerterbuch where ebene = 1 and ID_Woerterbuch NOT IN "
                                      "(select distinct ID_Woerterbuch from Wortbedeutung);  ")),
            (Rows{{"2"}}));
  const Action joined =
      bindAction(*files,
                 "DELETE DISTINCTROW wortbedeutung.* FROM Woerterbuch LEFT JOIN Wortbedeutung ON "
                 "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch WHERE Ebene = 1");
  EXPECT_EQ(joined.table->name, "Wortbedeutung");
  EXPECT_EQ(rowsOf(*files, joined), (Rows{{"1"}, {"2"}, {"3"}}));
  EXPECT_EQ(bindAction(*files, "DELETE * FROM Woerterbuch IN 'A.CVB'").rows.sources.size(), 1u);
}

TEST(MakeTable, KeepsTypesAndNamesRepeatedColumnsWithTheirTable) {
  const auto files = test::words();
  const Action action = bindAction(
      *files,
      "SELECT DISTINCTROW relWoertWKat.*, WKategorie.*, Woerterbuch.ID_Woerterbuch - Ebene AS Differenz into "
      "WKategorietemp FROM WKategorie INNER JOIN (Woerterbuch INNER JOIN relWoertWKat ON "
      "Woerterbuch.ID_Woerterbuch = relWoertWKat.ID_Woerterbuch) ON WKategorie.ID_WKategorie = "
      "relWoertWKat.ID_WKategorie  IN 'A.CVB' ");
  EXPECT_EQ(action.newTable, "WKategorietemp");
  EXPECT_EQ(action.table, nullptr);
  Row names;
  for (const auto& column : action.rows.columns) names.push_back(column.name);
  EXPECT_EQ(names, (Row{"ID_Woerterbuch", "relWoertWKat_ID_WKategorie", "KategorieWert",
                        "WKategorie_ID_WKategorie", "Kategorie", "Abkuerzung", "Differenz"}));
  EXPECT_EQ(action.rows.columns[3].type, engine::ColumnType::longInteger) << "a counter becomes a number";
  EXPECT_EQ(action.rows.columns[2].size, 50);
  EXPECT_EQ(action.rows.columns[6].type, engine::ColumnType::longInteger);
  EXPECT_EQ(rowsOf(*files, action).size(), 4u);
}

}  // namespace
