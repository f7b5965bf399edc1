#include <gtest/gtest.h>

#include "words.h"

namespace {

using engine::plan::fieldIndex;
using test::errorNumber;
using test::firsts;
using test::Row;
using test::Rows;

std::vector<std::string> columnNames(const engine::plan::Plan& plan) {
  std::vector<std::string> names;
  for (const auto& column : plan.columns) names.push_back(column.name);
  return names;
}

TEST(Names, ReachAColumnOfAQueryThroughAllThatItDescendsFrom) {
  const auto files = test::words();
  const Row two = {"2"};
  for (const char* condition :
       {"begriff = 'Ähre'", "woerterbuch.begriff = 'Ähre'", "[EXPORTVIEW1].[Begriff] = 'Ähre'",
        "exportview1.woerterbuch.begriff = 'Ähre'", "Sachgebiet = 'Farming'",
        "wsachgebiet.sachgebiet = 'farming'"})
    EXPECT_EQ(
        firsts(files->rows(std::string("SELECT DISTINCT woerterbuch.id_woerterbuch FROM exportview1 WHERE ") +
                           condition)),
        two)
        << condition;
}

TEST(Names, TellTheTwoPropertiesOfAnEntryAndOfItsMeaningApart) {
  const auto files = test::words();
  const char* select = "SELECT DISTINCT woerterbuch.id_woerterbuch FROM exportview2 WHERE ";
  // Entry 1 is a noun and a plural; its first meaning is a plural, entry 3's is a noun.
  EXPECT_EQ(firsts(files->rows(select + std::string("exportview2.wkategorie.kategorie in ('noun')"))),
            Row{"3"});
  EXPECT_EQ(firsts(files->rows(select + std::string("exportview1.kategorie = 'plural'"))), Row{"1"});
  EXPECT_EQ(firsts(files->rows(select + std::string("exportview2.exportview1.kategorie = 'noun'"))),
            (Row{"1", "3"}));
  // The short name means the table that is nearest.
  EXPECT_EQ(firsts(files->rows(select + std::string("kategorie = 'noun'"))), Row{"3"});
}

TEST(Names, ReachAQueryThroughAnotherOneThatSelectsFromIt) {
  const auto files = test::words();
  test::MemoryFile& file = files->file();
  file.addQuery("Outermost", "SELECT * FROM ExportView2 WHERE ID_Woerterbuch > 0");
  EXPECT_EQ(
      firsts(files->rows("PARAMETERS sKategorie Text; SELECT DISTINCT ID_Woerterbuch FROM Outermost WHERE "
                         "exportview1.Kategorie = [sKategorie]",
                         {{"SKATEGORIE", "plural"}})),
      Row{"1"});
}

TEST(Names, OfAnAliasHideTheTablesOwn) {
  const auto files = test::words();
  // The inner W is not "Woerterbuch", so the condition ties it to the outer table.
  EXPECT_EQ(firsts(files->rows(
                "SELECT ID_Woerterbuch FROM Woerterbuch WHERE EXISTS (SELECT * FROM Woerterbuch AS W "
                "WHERE W.ID_Woerterbuch1 = Woerterbuch.ID_Woerterbuch AND W.Ebene = 2)")),
            Row{"1"});
  const auto plan = files->bind("SELECT W.Begriff FROM Woerterbuch AS W WHERE Woerterbuch.Begriff = 'x'");
  EXPECT_EQ(plan.parameters, std::vector<std::string>{"Woerterbuch.Begriff"});
}

TEST(Names, ThatNoTableExplainsAreParameters) {
  const auto files = test::words();
  const auto plan = files->bind(
      "PARAMETERS lWortID Long, sName Text(50); SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = LWORTID "
      "AND Ebene = [Level] AND ID_Woerterbuch = [ID_Woerterbuch1] AND Ebene < level + 1");
  EXPECT_EQ(plan.parameters, (std::vector<std::string>{"lWortID", "sName", "Level"}));
  EXPECT_EQ(plan.parameterTypes[0], engine::ColumnType::longInteger);
  EXPECT_EQ(plan.parameterTypes[1], engine::ColumnType::text);
  EXPECT_EQ(
      firsts(files->rows("SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = [a] AND Begriff LIKE [b] & '*'",
                         {{"a", 4}, {"b", "haus"}})),
      Row{"4"});
}

TEST(Names, ThatMeanTwoColumnsAreRefusedUnlessTheyAreOne) {
  const auto files = test::words();
  EXPECT_EQ(
      errorNumber([&] { files->bind("SELECT * FROM Woerterbuch, Wortbedeutung WHERE ID_Woerterbuch = 1"); }),
      3075);
  EXPECT_EQ(firsts(files->rows("SELECT ID_Woerterbuch FROM AllWordsOrderByBegriff WHERE ID_Woerterbuch = 3")),
            Row{"3"});
}

TEST(Names, OfResultsCarryTheTableWhereTheyRepeat) {
  const auto files = test::words();
  EXPECT_EQ(columnNames(files->bind("SELECT W.ID_Woerterbuch, B.*, W.Begriff AS Wort FROM woerterbuch AS W, "
                                    "wortbedeutung AS B")),
            (std::vector<std::string>{"W.ID_Woerterbuch", "ID_Wortbedeutung", "B.ID_Woerterbuch",
                                      "Wortbedeutung", "Wort"}));
  const auto view = files->bind("SELECT * FROM exportview2");
  EXPECT_EQ(view.columns[4].name, "ExportView1.Kategorie");
  EXPECT_EQ(view.columns[7].name, "WKategorie.Kategorie");
  EXPECT_EQ(columnNames(files->bind("SELECT WKategorie.Kategorie, Begriff & '!', 1+1 FROM exportview2")),
            (std::vector<std::string>{"Kategorie", "Expr1000", "Expr1001"}));
}

TEST(Names, OfFieldsComeInFourForms) {
  const auto files = test::words();
  const auto plan = files->bind("SELECT * FROM exportview2");
  EXPECT_EQ(fieldIndex(plan, "BEGRIFF"), 1u);
  EXPECT_EQ(fieldIndex(plan, "woerterbuch.begriff"), 1u);
  EXPECT_EQ(fieldIndex(plan, "[ExportView2].[Begriff]"), 1u);
  EXPECT_EQ(fieldIndex(plan, "WKategorie.Kategorie"), 7u);
  EXPECT_EQ(fieldIndex(plan, "exportview1.kategorie"), 4u);
  EXPECT_EQ(fieldIndex(plan, "exportview2.wkategorie.kategorie"), 7u);
  EXPECT_EQ(errorNumber([&] { fieldIndex(plan, "exportview2.nothing"); }), 3265);
  const auto all = files->bind("SELECT * FROM AllWordsOrderByBegriff");
  EXPECT_EQ(fieldIndex(all, "Woerterbuch.ID_Woerterbuch"), 0u);
  EXPECT_EQ(fieldIndex(all, "ID_Woerterbuch"), 0u);
}

TEST(Names, InCriteriaAreFieldsAlone) {
  const auto files = test::words();
  const auto plan = files->bind("SELECT ID_Woerterbuch, Begriff, SortBegriff AS Ordnung FROM Woerterbuch");
  const auto found = [&](const std::string& criterion) {
    const auto expr = engine::sql::parseCondition(criterion);
    return firsts(files->fetch(emitRows(plan, bindCriterion(plan, *expr, files->context))));
  };
  EXPECT_EQ(found("begriff = \"HAUS\" or woerterbuch.begriff = 'zug'"), (Row{"1", "3"}));
  EXPECT_EQ(found("ordnung like 'haus*'"), (Row{"1", "4"}));
  EXPECT_EQ(errorNumber([&] { found("nowhere = 1"); }), 3070);
}

TEST(Names, OfFilesBindTheirOwnFromAlone) {
  const auto files = test::words();
  test::MemoryFile& other = files->add("B.CVB");
  test::defineWords(other);
  other.insert("Woerterbuch",
               "(7, 7, 'Esel', 'esel', 1, 0, NULL, 'B', NULL), (1, 1, 'Oma', 'oma', 1, 0, NULL, 'B', NULL)");
  other.insert("FilterSelektion1", "(1), (7)");
  // The subquery asks the first file, where nothing is chosen.
  const std::string chosen =
      "WHERE id_woerterbuch1 in (Select distinct ID_Woerterbuch from FilterSelektion1 as FS "
      "where FS.id_woerterbuch = id_woerterbuch1)";
  EXPECT_EQ(files->rows("SELECT * FROM Woerterbuch IN \"b.cvb\" " + chosen), Rows{});
  // A stored query reads its own file; here it stands behind a join.
  EXPECT_EQ(firsts(files->rows("SELECT A.Begriff FROM AllWordsOrderByBegriff AS A LEFT JOIN Wortbedeutung ON "
                               "A.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch IN 'B.CVB'")),
            (Row{"Oma", "Esel"}));
  const std::string list = "SELECT ID_Woerterbuch, Begriff FROM AllWordsOrderByBegriff ";
  EXPECT_EQ(
      files->rows(list + "UNION " + list + " IN \"B.CVB\" ORDER BY WOERTERBUCH.BEGRIFF"),
      (Rows{{"2", "Ähre"}, {"7", "Esel"}, {"1", "Haus"}, {"4", "Haustür"}, {"1", "Oma"}, {"3", "Zug"}}));
}

TEST(Names, OfCirclesAndMissingTablesAreRefused) {
  const auto files = test::words();
  test::MemoryFile& file = files->file();
  file.addQuery("Hen", "SELECT * FROM Egg");
  file.addQuery("Egg", "SELECT * FROM Hen");
  EXPECT_EQ(errorNumber([&] { files->bind("SELECT * FROM Hen"); }), 3075);
  EXPECT_EQ(errorNumber([&] { files->bind("SELECT * FROM sqlite_master"); }), 3078);
  EXPECT_EQ(errorNumber([&] { files->bind("SELECT * FROM [vc$file]"); }), 3078);
  EXPECT_EQ(errorNumber([&] { files->bind("SELECT * FROM Woerterbuch WHERE load_extension('x')"); }), 3075);
  // Each query reads the one before twice, or doubles its expression: refused before it fills the memory.
  file.addQuery("Double0", "SELECT * FROM Woerterbuch");
  file.addQuery("Sum0", "SELECT Ebene AS n FROM Woerterbuch");
  for (int i = 1; i < 40; ++i) {
    const std::string before = std::to_string(i - 1);
    file.addQuery("Double" + std::to_string(i),
                  "SELECT a.* FROM Double" + before + " AS a, Double" + before + " AS b");
    file.addQuery("Sum" + std::to_string(i), "SELECT n + n AS n FROM Sum" + before);
  }
  EXPECT_EQ(errorNumber([&] { files->bind("SELECT * FROM Double29"); }), 3075);
  EXPECT_EQ(errorNumber([&] { files->bind("SELECT * FROM Sum39"); }), 3075);
  EXPECT_EQ(test::firsts(files->rows("SELECT * FROM Sum3")), (Row{"8", "8", "8", "16"}));
}

}  // namespace
